// Remote sessions: a peer beyond this computer gives the passcode before anything else and
// guessing is slowed; a peer on this computer needs none.
#include <gtest/gtest.h>

#include "remote/remote_session.hpp"
#include "tests/remote/remote_rig.hpp"

namespace station {
namespace {

using namespace std::chrono_literals;
using testing::RemoteRig;
using Clock = remote::AccessGate::Clock;

struct GateRig : RemoteRig {
    GateRig() {
        gate.setPasscode("kestrel-42-amber");
        gate.log = [this](const std::string& text) { logged.push_back(text); };
    }
    remote::AccessGate gate;
    std::vector<std::string> logged;
    Clock::time_point t0 = Clock::now();
};

TEST(RemoteSession, NetworkPeerNeedsThePasscode) {
    GateRig rig;
    remote::RemoteSession peer(rig.commands, rig.gate, "192.0.2.7", false);
    const int before = rig.form1.VrIris.value();
    for (const char* line : {"level iris 3", "get camera", "help", "box ok", "auth"})
        EXPECT_EQ(peer.execute(line, rig.t0).rfind("ERR ", 0), 0u) << line;
    EXPECT_EQ(peer.execute("level iris 3", rig.t0), "ERR auth required");
    EXPECT_EQ(rig.form1.VrIris.value(), before);
    EXPECT_TRUE(rig.takeQueued().empty());
    EXPECT_FALSE(peer.authenticated());

    EXPECT_EQ(peer.execute("auth kestrel-42-amber", rig.t0), "OK");
    EXPECT_TRUE(peer.authenticated());
    EXPECT_EQ(peer.execute("level iris 3", rig.t0), "OK");
    EXPECT_EQ(rig.form1.VrIris.value(), 3);
    EXPECT_EQ(rig.logged, (std::vector<std::string>{"remote: 192.0.2.7 gave the passcode"}));

    // This computer needs none; without a passcode the network gets nowhere.
    remote::RemoteSession local(rig.commands, rig.gate, "127.0.0.1", true);
    EXPECT_EQ(local.execute("get camera", rig.t0), "OK camera 1");
    remote::AccessGate none;
    remote::RemoteSession stranger(rig.commands, none, "192.0.2.9", false);
    EXPECT_EQ(stranger.execute("auth anything-at-all", rig.t0), "ERR auth: remote control has no passcode");
    EXPECT_EQ(stranger.execute("auth ", rig.t0), "ERR missing passcode (auth PASSCODE)");
}

// After a wrong passcode the host waits 1 s, then 2 s, 4 s ... up to a minute before another
// attempt is even compared; each host on its own; every attempt is logged.
TEST(RemoteSession, WrongAttemptsAreSlowedAndLogged) {
    GateRig rig;
    remote::RemoteSession peer(rig.commands, rig.gate, "192.0.2.7", false);
    remote::RemoteSession other(rig.commands, rig.gate, "192.0.2.8", false);
    Clock::time_point t = rig.t0;
    EXPECT_EQ(peer.execute("auth guess-0001", t), "ERR auth: wrong passcode");
    EXPECT_EQ(peer.execute("auth kestrel-42-amber", t + 500ms), "ERR auth: wait 1 s after a wrong passcode");
    EXPECT_EQ(other.execute("auth kestrel-42-amber", t + 500ms), "OK");
    t += 1s;
    EXPECT_EQ(peer.execute("auth guess-0002", t), "ERR auth: wrong passcode");
    EXPECT_EQ(peer.execute("auth kestrel-42-amber", t + 1900ms), "ERR auth: wait 1 s after a wrong passcode");
    for (int i = 0; i < 10; ++i) {
        t += 61s;
        EXPECT_EQ(peer.execute("auth guess", t), "ERR auth: wrong passcode");
    }
    EXPECT_EQ(peer.execute("auth kestrel-42-amber", t + 59s), "ERR auth: wait 1 s after a wrong passcode");
    EXPECT_EQ(peer.execute("auth kestrel-42-amber", t + 60s), "OK");
    EXPECT_FALSE(peer.execute("get camera", t).rfind("ERR", 0) == 0);
    EXPECT_EQ(rig.logged.at(0), "remote: wrong passcode from 192.0.2.7 (1 in a row)");
    EXPECT_EQ(rig.logged.at(1), "remote: passcode attempt from 192.0.2.7 ignored, 1 s to wait");
    EXPECT_EQ(rig.logged.back(), "remote: 192.0.2.7 gave the passcode");
    EXPECT_EQ(rig.logged.size(), 17u);

}

}  // namespace
}  // namespace station
