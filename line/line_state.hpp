#pragma once
// The state of the station's line: which device port 1 stands for, whether it is connected,
// not connected (with the reason) or lost, the attempts to open it again, which camera
// answers, and the line log.
//
// It watches the link and the port and never changes what the link sends. The station
// asks it before every tick: while the line is not connected the link's timers are held,
// as they are while a message box is up, so that nothing is written and no time-out counts
// for frames that never left. Meanwhile every 25th poll (about once a second) tries the
// device again; the port, reopened, keeps the settings it was given.

#include <chrono>
#include <functional>
#include <string>

#include "common/controls.hpp"
#include "common/serial_port.hpp"
#include "common/shared.hpp"
#include "line/camera_answers.hpp"
#include "line/line_log.hpp"
#include "link/link_events.hpp"

namespace station {

struct PortChoice {
    std::string device;      // the serial device; empty for the simulated line
    bool simulated = false;  // the built-in simulated camera line
    bool operator==(const PortChoice&) const = default;
};

enum class LineCondition { NotConnected, Connected, Lost };

class LineState : public LinkEvents {
public:
    using Clock = std::chrono::system_clock;
    static constexpr int kRetryPolls = 25;

    LineState(const Shared& shared, SerialPort& port, std::function<Clock::time_point()> clock);

    // Names the device without touching the port (the program's choice at start-up).
    void name(PortChoice choice) { choice_ = std::move(choice); }
    const PortChoice& choice() const { return choice_; }
    // Puts the port for a choice in place (set by the program; tests leave it empty).
    std::function<void(const PortChoice&)> switchPort;
    // Keeps the operator's choice for the next start (set by the program).
    std::function<void(const PortChoice&)> remember;

    // Opens the port; true when connected. On failure the line is not connected and
    // reason() tells why.
    bool open();
    // The operator's choice, applied at once: the old port closed, the new one opened.
    bool choose(PortChoice choice);
    // One poll while the line is not connected: every 25th tries the device again.
    void retryTick();
    // The port failed while in use: closed, held, and tried again from now on.
    void lost(const std::string& reason);

    bool connected() const { return condition_ == LineCondition::Connected; }
    LineCondition condition() const { return condition_; }
    const std::string& reason() const { return reason_; }
    // "simulated line", the device, or "COM1" when none was named.
    std::string deviceText() const;
    // Port 1's name in the version box: "COM1" when it is the system's first serial port
    // (or no device was named), else the device or "simulated line".
    std::string versionPortName() const;
    // "connected" (with the time it was reopened, if it was), "not connected (reason)" or
    // "lost (reason)".
    std::string stateText() const;

    // Whether a frame from a camera has been received and acknowledged cleanly since the
    // last call.
    bool takeCleanFrame();

    // Adds an entry to the log; `camera` -1 is the camera last talked to.
    void note(const std::string& what, const Bytes& frame = {}, int camera = -1);
    // The same with the bytes already as spaced hex text (" 02 03 40").
    void noteHex(const std::string& what, const std::string& frameHex, int camera = -1);
    int lastCamera() const { return lastCamera_; }
    Clock::time_point now() const { return clock_(); }

    CameraAnswers answers;
    LineLog log;
    FormWindow window{"Line log"};  // the window that shows the log

    void frameSent(const SendRec& sent, bool resend) override;
    void frameAcknowledged(const SendRec& sent) override;
    void frameReceived(const Bytes& frame, bool good) override;
    void noAcknowledge(const SendRec& sent) override;
    void noAnswer() override;

private:
    void setCondition(LineCondition condition, std::string reason);

    const Shared& shared_;
    SerialPort& port_;
    std::function<Clock::time_point()> clock_;
    PortChoice choice_;
    LineCondition condition_ = LineCondition::NotConnected;
    std::string reason_ = "not opened yet";
    bool everConnected_ = false;
    std::string reopenedAt_;  // the time of the last reopen, while connected since
    int retryCount_ = 0;
    int lastCamera_ = 0;
    bool cleanFrame_ = false;
};

}  // namespace station
