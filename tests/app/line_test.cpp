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
    void start() {
        station.Form_Load();
        run(600);  // the handshake's start-up wait
    }
    // A level frame to the selected camera ("30 18 <n> 00", red gain).
    void level(int n) { form1.VrRGain.setValue(n); }
    // A frame to the selected camera, which acknowledges it within the next poll.
    void acknowledged() {
        level(form1.VrRGain.value() + 1);
        run(40);
        port.arrive(wire("06"));
        run(40);
    }
    Answer state(int camera) const { return readout.answer(camera, clock); }
};

TEST(Line, StartsWithoutDevice) {
    LineRig r(false);
    r.station.assembleLine({"/dev/ttyUSB7", false}, {}, {});
    r.station.Form_Load();
    // No box: it would stand the timers still, and with them the retry, until someone came.
    EXPECT_TRUE(r.messages.shown.empty());
    EXPECT_EQ(r.forms.notice.last(),
              "Port not available: the station works without the line and tries it again about once a second");

    // Commands queue; nothing is written and no time-out counts while there is no line.
    r.level(0x7F);
    r.level(0x10);
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
    EXPECT_EQ(r.forms.notice.last().rfind("Port not available: ", 0), 0u);
}

TEST(Line, LostHoldsEverything) {
    LineRig r;
    r.start();
    r.level(0x7F);
    r.run(40);
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
    r.station.ACK_Click(1);  // Ack Off: a frame leaves the queue once written
    r.level(0x7F);
    r.level(0x10);
    r.port.hungUp = true;  // the write is refused (or cut short)
    r.run(40);
    EXPECT_EQ(r.readout.lineCondition(), LineCondition::Lost);
    EXPECT_EQ(r.logged().front(), "Line lost: fake: write failed");
    EXPECT_EQ(r.readout.queued(), 2);
    r.port.hungUp = false;
    r.run(1100);
    ASSERT_EQ(r.port.writes.size(), 2u);  // both, in order, once each
    EXPECT_EQ(Bytes(r.port.writes[0].begin(), r.port.writes[0].begin() + 6), wire("06 02 04 30 18 7F"));
    EXPECT_EQ(Bytes(r.port.writes[1].begin(), r.port.writes[1].begin() + 6), wire("06 02 04 30 18 10"));
    EXPECT_EQ(r.readout.queued(), 0);
    EXPECT_TRUE(r.messages.shown.empty());
}

TEST(Line, AnswersAndLog) {
    LineRig r;
    r.start();
    r.form4.Text1(2).setText("AB2");
    r.acknowledged();  // camera 1
    const auto heard = r.clock;
    r.form1.Option9.click(2);  // camera 2 stays silent through every resend
    r.level(0x7F);
    r.run(1200);
    r.form1.Option9.click(3);  // camera 3 sends an auto-setup result after its ACK
    r.form1.Command7.click();  // auto black
    r.run(40);
    r.port.arrive(wire("06 02 03 40 20 13 89 FF"));
    r.run(40);

    EXPECT_EQ((std::vector{r.state(1), r.state(2), r.state(3), r.state(4)}),
              (std::vector{Answer::Answering, Answer::NotAnswering, Answer::Answering, Answer::NotHeard}));
    EXPECT_EQ(r.readout.lastAnswer(1), heard);
    const auto& log = r.forms.log.entries();
    EXPECT_EQ(LineLog::line(log.at(0)), log.at(0).time + "  CAM3  Auto setup 20 NG : LOW LIGHT");
    EXPECT_EQ(LineLog::line(log.at(1)), log.at(1).time + "  CAM2 (AB2)  No Acknowledge  [02 04 30 18 7F 00 34 FF]");

    // Lost, the marks are unknown; back, nobody has answered on it yet; another port: nothing heard.
    r.clock += 61s;
    EXPECT_EQ(r.state(1), Answer::Quiet);
    r.port.hungUp = true;
    r.run(40);
    EXPECT_EQ((std::vector{r.state(1), r.state(2), r.state(3)}), (std::vector{Answer::Unknown, Answer::Unknown, Answer::Unknown}));
    r.port.hungUp = false;
    r.run(1000);
    ASSERT_TRUE(r.readout.connected());
    EXPECT_EQ(r.state(1), Answer::Unknown);
    r.form1.Option9.click(1);
    r.acknowledged();
    EXPECT_EQ((std::vector{r.state(1), r.state(2)}), (std::vector{Answer::Answering, Answer::Unknown}));
    r.station.choosePort({"/dev/ttyUSB3", false});
    EXPECT_EQ((std::vector{r.state(1), r.state(2)}), (std::vector{Answer::NotHeard, Answer::NotHeard}));
    EXPECT_FALSE(r.readout.lastAnswer(1).has_value());
}

TEST(Line, FaultLineClears) {
    LineRig r;
    r.start();
    // Eleven data bytes: more than a reply can carry.
    r.port.arrive(wire("02 0B 40 00 00 00 00 00 00 00 00 00 00 B4 FF"));
    r.run(40);
    ASSERT_EQ(r.form1.faultLine.Caption, "Line: Run-time error 9: Subscript out of range");
    r.port.arrive(wire("02 03 40 00 00 BC FE"));  // a bad checksum leaves it
    r.run(40);
    ASSERT_FALSE(r.form1.faultLine.Caption.empty());
    r.port.arrive(wire("02 03 40 00 00 BC FF"));
    r.run(40);
    EXPECT_TRUE(r.form1.faultLine.Caption.empty());
    EXPECT_EQ(r.logged(), (std::vector<std::string>{"Checksum failure, NAK sent", "Run-time error 9: Subscript out of range",
                                                    "Line connected: COM1"}));
}

}  // namespace
}  // namespace station
