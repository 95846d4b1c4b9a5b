#pragma once
// Who may drive the station from beyond this computer. Remote control open to the network
// asks each peer for the operator's passcode once ("auth PASSCODE"); a peer on this
// computer (loopback) is trusted as the operator's own. Wrong attempts are slowed per host
// (after each one the host waits twice as long as before, up to a minute, before another
// attempt is even looked at) and every attempt is logged, so that guessing is slow and seen.
// Any transport uses it the same way: TCP per connection, a WebSocket per page, OSC per
// sender host.
//
//   AccessGate gate;
//   gate.setPasscode("kestrel-42-amber");
//   RemoteSession tcp(commands, gate, "192.0.2.7", /*loopback=*/false);
//   tcp.execute("camera 2", now);              // "ERR auth required"
//   tcp.execute("auth kestrel-42-amber", now); // "OK"
//   tcp.execute("camera 2", now);              // carried out

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace station::remote {

class AccessGate {
public:
    using Clock = std::chrono::steady_clock;
    static constexpr auto kFirstWait = std::chrono::seconds(1);
    static constexpr auto kLongestWait = std::chrono::seconds(60);
    static constexpr std::size_t kShortestPasscode = 8;

    // Empty: no passcode, so remote control stays on this computer.
    void setPasscode(std::string passcode) { passcode_ = std::move(passcode); }
    bool hasPasscode() const { return !passcode_.empty(); }
    // Why `passcode` cannot be one ("" when it can): too short, blanks or control characters.
    static std::string passcodeProblem(std::string_view passcode);
    // A new passcode, easy to read out and type: four groups of four letters and digits.
    static std::string generate();

    // One attempt by `host` at `now`: "" when it is the passcode, the reply otherwise.
    std::string attempt(const std::string& host, std::string_view passcode, Clock::time_point now);

    // Told of every attempt and its outcome, in the station's words.
    std::function<void(const std::string&)> log;

private:
    struct Failures {
        int count = 0;
        Clock::time_point until{};  // no attempt is looked at before this
    };
    void note(const std::string& text) const {
        if (log) log(text);
    }

    std::string passcode_;
    std::map<std::string, Failures> failures_;
};

}  // namespace station::remote
