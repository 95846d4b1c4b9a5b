// The station's line: starting without the device, losing it under traffic and getting it
// back, which camera answers, the line log and the fault line. On the fake port, with the
// station's timers run in simulated time and a clock the test moves.
#include <gtest/gtest.h>

#include <chrono>

#include "tests/support/station_rig.hpp"

namespace station {
namespace {

using namespace std::chrono_literals;
using testing::wire;

// A station whose port the test sets up before start-up.
struct LineRig : testing::StationRig {
    explicit LineRig(bool deviceThere = true) : StationRig(false) { port.failOpen = !deviceThere; }
    void start() { station.Form_Load(); }
    // A frame to the selected camera, which acknowledges it within the next poll.
    void acknowledged() {
        station.link.SendCmd("30187F00");
        run(40);
        port.arrive(wire("06"));
        run(40);
    }
    // A frame to `camera`, which stays silent through every resend.
    void silent(int camera) {
        station.shared.CamNo = camera;
        station.link.SendCmd("30187F00");
        run(1200);
    }
};

TEST(Line, StartsWithoutDevice) {
    LineRig r(false);
    r.station.line.name({"/dev/ttyUSB7", false});
    r.start();
    // No box: it would stand the timers still, and with them the retry, until someone came.
    EXPECT_TRUE(r.messages.shown.empty());
    EXPECT_EQ(r.station.notice.last(),
              "Port not available: the station works without the line and tries it again about once a second");

    // Commands queue; nothing is written and no time-out counts while there is no line.
    r.station.link.SendCmd("30187F00");
    r.station.link.SendCmd("30190100");
    r.run(3000);
    EXPECT_EQ(r.port.opens, 1 + 3);  // tried again about once a second
    EXPECT_TRUE(r.port.writes.empty());
    EXPECT_EQ(r.logged(), (std::vector<std::string>{"Not connected: port not available; trying again about once a second"}));  // once

    r.port.failOpen = false;
    r.run(1000);
    EXPECT_EQ(r.station.lineStatus(), "/dev/ttyUSB7  |  9600bps  |  Ack On  |  Camera ID off  |  connected");
    r.run(600);  // the handshake's start-up wait, then the head goes out
    EXPECT_EQ(r.port.takeWritten(), wire("02 04 30 18 7F 00 34 FF"));
    EXPECT_TRUE(r.messages.shown.empty());

    // A device the operator chooses that is not there either: told the same way.
    r.port.failOpen = true;
    r.station.choosePort({"/dev/ttyUSB9", false});
    EXPECT_TRUE(r.messages.shown.empty());
    EXPECT_EQ(r.station.notice.last().rfind("Port not available: ", 0), 0u);
}

TEST(Line, LostHoldsEverything) {
    LineRig r;
    r.start();
    r.station.link.SendCmd("30187F00");
    r.run(600);
    ASSERT_EQ(r.port.takeWritten(), wire("02 04 30 18 7F 00 34 FF"));
    r.port.arrive(wire("02 03 40"));  // half a reply
    r.run(40);
    r.port.hungUp = true;
    r.run(40);
    r.port.failOpen = true;  // the device is gone, not only hung up
    r.port.hungUp = false;
    r.run(5000);  // far past the acknowledge and answer watches
    EXPECT_TRUE(r.messages.shown.empty());
    EXPECT_NE(r.station.lineStatus().find("lost (port not available)"), std::string::npos);
    r.port.failOpen = false;
    r.run(1000);
    EXPECT_EQ(r.port.takeWritten(), wire("02 04 30 18 7F 00 34 FF"));  // the frame in flight, again
    r.port.arrive(wire("00 00 BC FF"));  // completes the kept half reply
    r.run(80);
    EXPECT_EQ(r.port.takeWritten(), wire("06"));
}

TEST(Line, WriteFaultKeepsTheFrame) {
    LineRig r;
    r.start();
    r.run(600);
    r.station.ACK_Click(1);  // Ack Off: a frame leaves the queue once written
    r.station.link.SendCmd("30187F00");
    r.station.link.SendCmd("30190100");
    r.port.hungUp = true;  // the write is refused (or cut short)
    r.run(40);
    EXPECT_EQ(r.station.line.condition(), LineCondition::Lost);
    EXPECT_EQ(r.logged().front(), "Line lost: fake: write failed");
    EXPECT_EQ(r.station.link.queue().SendCnt(), 2);
    r.port.hungUp = false;
    r.run(1100);
    ASSERT_EQ(r.port.writes.size(), 2u);  // both, in order, once each
    EXPECT_EQ(Bytes(r.port.writes[0].begin(), r.port.writes[0].begin() + 5), wire("06 02 04 30 18"));
    EXPECT_EQ(Bytes(r.port.writes[1].begin(), r.port.writes[1].begin() + 5), wire("06 02 04 30 19"));
    EXPECT_EQ(r.station.link.queue().SendCnt(), 0);
    EXPECT_TRUE(r.messages.shown.empty());
}

TEST(Line, AnswersAndLog) {
    LineRig r;
    r.start();
    r.station.shared.cams.CamID(1) = "AB1";
    r.station.shared.cams.CamID(2) = "AB2";
    r.run(600);
    const auto state = [&](int camera) { return r.station.line.answers.state(camera, r.clock); };

    r.acknowledged();  // camera 1
    const auto heard = r.clock;
    r.silent(2);
    r.station.shared.CamNo = 3;          // camera 3 sends an auto-setup result after its ACK
    r.station.link.SendCmd("4020");
    r.run(40);
    r.port.arrive(wire("06 02 03 40 20 13 89 FF"));
    r.run(40);

    EXPECT_EQ((std::vector{state(1), state(2), state(3), state(4)}),
              (std::vector{Answer::Answering, Answer::NotAnswering, Answer::Answering, Answer::NotHeard}));
    EXPECT_EQ(r.station.line.answers.lastAnswer(1), heard);
    r.clock += 61s;
    EXPECT_EQ(state(1), Answer::Quiet);
    const auto& log = r.station.line.log.entries();
    EXPECT_EQ(LineLog::line(log.at(0)), log.at(0).time + "  CAM3  Auto setup 20 NG : LOW LIGHT");
    EXPECT_EQ(LineLog::line(log.at(1)), log.at(1).time + "  CAM2 (AB2)  No Acknowledge  [02 04 30 18 7F 00 34 FF]");
}

TEST(Line, MarksAfterLossAndPortChange) {
    LineRig r;
    r.start();
    r.run(600);
    const auto state = [&](int camera) { return r.station.line.answers.state(camera, r.clock); };
    r.acknowledged();  // camera 1
    r.silent(2);
    ASSERT_EQ((std::vector{state(1), state(2)}), (std::vector{Answer::Answering, Answer::NotAnswering}));

    r.port.hungUp = true;
    r.run(40);
    EXPECT_EQ((std::vector{state(1), state(2), state(3)}), (std::vector{Answer::Unknown, Answer::Unknown, Answer::Unknown}));
    r.port.hungUp = false;
    r.run(1000);  // back, but nobody has answered on it yet
    ASSERT_TRUE(r.station.line.connected());
    EXPECT_EQ(state(1), Answer::Unknown);
    r.station.shared.CamNo = 1;
    r.acknowledged();
    EXPECT_EQ((std::vector{state(1), state(2)}), (std::vector{Answer::Answering, Answer::Unknown}));

    r.station.choosePort({"/dev/ttyUSB3", false});  // another line: nothing heard on it yet
    EXPECT_EQ((std::vector{state(1), state(2)}), (std::vector{Answer::NotHeard, Answer::NotHeard}));
    EXPECT_FALSE(r.station.line.answers.lastAnswer(1).has_value());
}

TEST(Line, FaultLineClears) {
    LineRig r;
    r.start();
    r.run(600);
    // Eleven data bytes: more than a reply can carry.
    r.port.arrive(wire("02 0B 40 00 00 00 00 00 00 00 00 00 00 B4 FF"));
    r.run(40);
    ASSERT_EQ(r.station.form1.faultLine.Caption, "Line: Run-time error 9: Subscript out of range");
    r.port.arrive(wire("02 03 40 00 00 BC FE"));  // a bad checksum leaves it
    r.run(40);
    ASSERT_FALSE(r.station.form1.faultLine.Caption.empty());
    r.port.arrive(wire("02 03 40 00 00 BC FF"));
    r.run(40);
    EXPECT_TRUE(r.station.form1.faultLine.Caption.empty());
    EXPECT_EQ(r.logged(), (std::vector<std::string>{"Checksum failure, NAK sent", "Run-time error 9: Subscript out of range",
                                                    "Line connected: COM1"}));
}

}  // namespace
}  // namespace station
