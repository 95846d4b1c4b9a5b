#pragma once
// One remote peer's conversation with the command set: a TCP connection, a browser page,
// an OSC sender's host. A peer beyond this computer is answered "ERR auth required" for
// every line but "auth PASSCODE" until it has given the passcode (access_gate.hpp); a peer
// on this computer needs none. A transport says only whether its peer is on loopback.

#include <string>
#include <string_view>

#include "remote/access_gate.hpp"
#include "remote/command_set.hpp"

namespace station::remote {

class RemoteSession {
public:
    RemoteSession(CommandSet& commands, AccessGate& gate, std::string host, bool loopback)
        : commands_(commands), gate_(gate), host_(std::move(host)), authenticated_(loopback) {}

    // The reply to one line, as CommandSet::execute() gives it; "" for a blank line.
    std::string execute(std::string_view line, AccessGate::Clock::time_point now);
    // Whether it may act, read and hear pushes: on loopback, or once it gave the passcode.
    bool authenticated() const { return authenticated_; }
    const std::string& host() const { return host_; }

private:
    CommandSet& commands_;
    AccessGate& gate_;
    std::string host_;
    bool authenticated_;
};

// Whether `line` is an "auth" line, and its passcode word (empty when none was given).
bool isAuthLine(std::string_view line, std::string& passcode);

}  // namespace station::remote
