// The line as the station meets it: who answers what, when the bytes arrive, and the
// faults on demand. The station's side is played here with raw bytes.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "common/runtime_error.hpp"
#include "sim/line.hpp"
#include "sim/sim_port.hpp"
#include "sim/tick_driver.hpp"
#include "tests/support/frames.hpp"

namespace station::sim {
namespace {

using namespace std::chrono_literals;
using testing::wire;
using testing::operator+;

// A station frame summed as the station does: LEN and data, plus ID bytes and 2 with an ID.
Bytes stationFrame(const Bytes& data, const std::string& id = "", bool ackOff = false) {
    Bytes f;
    if (ackOff) f.push_back(0x06);
    unsigned sum = static_cast<unsigned>(data.size());
    if (!id.empty()) {
        const std::string field = std::string(3 - std::min<std::size_t>(3, id.size()), ' ') + id;
        f.push_back(0x01);
        for (char c : field) {
            f.push_back(static_cast<std::uint8_t>(c));
            sum += static_cast<std::uint8_t>(c);
        }
        sum += 2;
    }
    f.push_back(0x02);
    f.push_back(static_cast<std::uint8_t>(data.size()));
    for (std::uint8_t b : data) {
        f.push_back(b);
        sum += b;
    }
    const unsigned chk = ~sum & 0xFFFF;
    f.push_back(static_cast<std::uint8_t>(chk & 0xFF));
    f.push_back(static_cast<std::uint8_t>(chk >> 8));
    return f;
}

struct Rig {
    Rig() {
        line.onTraffic = [this](const Traffic& t) {
            if (t.from == Traffic::From::Camera) sent.push_back(t);
        };
    }
    Bytes after(Micros span) {
        line.advance(span);
        return line.takeForStation();
    }
    Line line;
    std::vector<Traffic> sent;
};

TEST(LineTiming, BytesArriveAtTheLineSpeed) {
    for (const int speed : {9600, 19200}) {
        Rig rig;
        rig.line.setSpeed(speed);
        const Micros bit = rig.line.byteTime() / 10;
        EXPECT_NEAR(static_cast<double>(rig.line.byteTime().count()), 1e7 / speed, 1.0);
        Camera& cam = rig.line.addCamera(1, "AB1", "01");
        const Bytes cmd = stationFrame(wire("30 2B 10 00"));  // 8 bytes
        rig.line.fromStation(cmd);

        // The ACK leaves one turnaround after the frame's last byte and takes one byte time.
        const Micros ackIn = 8 * rig.line.byteTime() + cam.timing.turnaround + rig.line.byteTime();
        rig.line.advanceTo(ackIn - bit);
        EXPECT_EQ(rig.line.waitingForStation(), 0u) << speed;
        rig.line.advanceTo(ackIn);
        EXPECT_EQ(rig.line.takeForStation(), wire("06")) << speed;

        // The reply's seven bytes follow the answer delay, one byte time each.
        const Micros replyIn = 8 * rig.line.byteTime() + cam.timing.turnaround + cam.timing.answerDelay +
                               7 * rig.line.byteTime();
        rig.line.advanceTo(replyIn - bit);
        EXPECT_EQ(rig.line.waitingForStation(), 6u) << speed;
        rig.line.advanceTo(replyIn);
        EXPECT_EQ(rig.line.takeForStation(), wire("02 03 32 2B 10 8F FF")) << speed;
        EXPECT_EQ(cam.level(0x2B), 0x10);
    }
}

TEST(LineAnswers, InIdModeOnlyTheAddressedCameraAnswersWithItsId) {
    Rig rig;
    rig.line.setIdMode(true);
    for (int p = 1; p <= 3; ++p) rig.line.addCamera(p, "AB1", "0" + std::to_string(p)).setMode(0x08, static_cast<std::uint8_t>(p));
    rig.line.fromStation(wire("01 20 30 32 02 02 23 08 4E FF"));  // camera " 02" reads register 08
    EXPECT_EQ(rig.after(50ms), wire("06 01 20 30 32 02 03 22 08 02 D0 FF"));
    ASSERT_EQ(rig.sent.size(), 2u);
    EXPECT_EQ(rig.sent[0].camera, 2);
    EXPECT_EQ(rig.sent[1].camera, 2);

    // An ID that no camera has: silence.
    rig.line.fromStation(wire("06") + stationFrame(wire("23 08"), "09"));
    EXPECT_TRUE(rig.after(1500ms).empty());
}

TEST(LineAnswers, GroupAndHandshakeFreeFramesAreAppliedInSilence) {
    Rig rig;
    rig.line.setIdMode(true);
    for (int p = 1; p <= 8; ++p) rig.line.addCamera(p, "AB1", std::to_string(p));
    rig.line.fromStation(stationFrame(wire("20 08 01 FE")));  // no ID: every camera
    rig.line.fromStation(stationFrame(wire("30 2B 40 00"), "3", true));  // 06 first: camera 3, no answer
    rig.line.fromStation(stationFrame(wire("40 20"), "4", true));
    rig.line.advance(5s);
    EXPECT_TRUE(rig.sent.empty());
    for (int p = 1; p <= 8; ++p) EXPECT_EQ(rig.line.at(p).mode(0x08), 0x01) << p;
    EXPECT_EQ(rig.line.at(3).level(0x2B), 0x40);
    EXPECT_EQ(rig.line.at(2).level(0x2B), 0x00);
    EXPECT_EQ(rig.line.at(4).autoRuns, 1);  // it ran, but tells nobody
}

TEST(LineAnswers, WithoutIdModeEveryCameraAppliesAndTheFirstAnswersForAll) {
    Rig rig;
    rig.line.addCamera(2, "AB1", "02");
    rig.line.addCamera(5, "AB1", "05");
    rig.line.fromStation(stationFrame(wire("20 05 01 FE")));
    EXPECT_EQ(rig.after(50ms), wire("06") + stationFrame(wire("22 05 01")));
    EXPECT_EQ(rig.line.at(5).mode(0x05), 0x01);
    ASSERT_EQ(rig.sent.size(), 2u);
    EXPECT_EQ(rig.sent[0].camera, 2);
}

TEST(LineAnswers, ABadFrameIsNakedAndNotApplied) {
    Rig rig;
    Camera& cam = rig.line.addCamera(1, "AB1", "01");
    Bytes bad = stationFrame(wire("20 08 01 FE"));
    bad[bad.size() - 2] ^= 0x01;
    rig.line.fromStation(bad);
    EXPECT_EQ(rig.after(50ms), wire("15"));
    EXPECT_EQ(cam.mode(0x08), 0x00);
    Bytes badFree = stationFrame(wire("20 08 01 FE"), "", true);
    badFree.back() ^= 0x01;
    rig.line.fromStation(badFree);
    EXPECT_TRUE(rig.after(50ms).empty());
}

TEST(LineResends, ANakedReplyIsSentAgainAtMostThreeTimes) {
    Rig rig;
    rig.line.addCamera(1, "AB1", "01");
    rig.line.fromStation(stationFrame(wire("33 18")));
    const Bytes reply = stationFrame(wire("32 18 00"));
    EXPECT_EQ(rig.after(50ms), wire("06") + reply);
    for (int i = 0; i < Line::kMaxResends; ++i) {
        rig.line.fromStation(wire("15"));
        EXPECT_EQ(rig.after(50ms), reply) << i;
    }
    rig.line.fromStation(wire("15"));
    EXPECT_TRUE(rig.after(2s).empty());

    // An ACK ends it at once.
    rig.line.fromStation(stationFrame(wire("33 18")));
    rig.after(50ms);
    rig.line.fromStation(wire("06"));
    EXPECT_TRUE(rig.after(2s).empty());
}

TEST(LineResends, AnUnansweredFrameStopsWaitingAndA06IsThenAPrefix) {
    Rig rig;
    Camera& cam = rig.line.addCamera(1, "AB1", "01");
    rig.line.fromStation(stationFrame(wire("33 18")));
    rig.after(Line::kAnswerWait + 100ms);
    rig.line.fromStation(stationFrame(wire("30 18 20 00"), "", true));  // 06 02 ...: handshake-free
    EXPECT_TRUE(rig.after(100ms).empty());
    EXPECT_EQ(cam.level(0x18), 0x20);
}

TEST(LineFaults, NoAckStillAppliesAndAnswers) {
    Rig rig;
    Camera& cam = rig.line.addCamera(1, "AB1", "01");
    cam.faults.noAck = 1;
    rig.line.fromStation(stationFrame(wire("20 08 01 FE")));
    EXPECT_EQ(rig.after(50ms), stationFrame(wire("22 08 01")));
    rig.line.fromStation(wire("06") + stationFrame(wire("20 08 00 FE")));
    EXPECT_EQ(rig.after(50ms), wire("06") + stationFrame(wire("22 08 00")));
}

TEST(LineReports, ATallyChangeIsReportedWithTheCamerasId) {
    Rig rig;
    rig.line.setIdMode(true);
    Camera& cam = rig.line.addCamera(4, "AB1", "4");
    cam.setTally(true);
    rig.line.report(4, kModeClass, kTallyRegister);
    EXPECT_EQ(rig.after(20ms), wire("01 20 20 34") + stationFrame(wire("22 03 01")));
    EXPECT_THROW(rig.line.report(5, kModeClass, kTallyRegister), RuntimeError);
    EXPECT_THROW(rig.line.addCamera(9, "AB1", "9"), RuntimeError);
}

TEST(SimPort, ReachesTheLineOnlyWhenOpenAndInStep) {
    Line line;
    line.addCamera(1, "AB1", "01");
    SimPort port(line);
    const Bytes cmd = stationFrame(wire("33 18"));
    port.write(cmd);  // closed: lost
    line.advance(100ms);
    EXPECT_EQ(port.bytesWaiting(), 0);
    port.open();
    port.write(cmd);
    line.advance(100ms);
    EXPECT_EQ(port.bytesWaiting(), 8);
    EXPECT_EQ(port.readAll(), wire("06") + stationFrame(wire("32 18 00")));

    port.setSettings("19200,N,8,1");
    EXPECT_EQ(port.speed(), 19200);
    port.write(cmd);  // the cameras run at 9600: nothing understood
    line.advance(100ms);
    EXPECT_EQ(port.bytesWaiting(), 0);
    line.setSpeed(19200);
    port.write(cmd);
    line.advance(100ms);
    EXPECT_EQ(port.readAll().size(), 8u);

    EXPECT_THROW(port.setSettings(",N,8,1"), RuntimeError);
    EXPECT_EQ(port.speed(), 19200);
}

TEST(TickDriver, TicksEachTimerAtItsIntervalInTimeOrder) {
    Line line;
    TickDriver ticks(line);
    std::vector<std::string> log;
    bool slowOn = true;
    ticks.every(40ms, [&] { log.push_back("fast@" + std::to_string(line.now().count() / 1000)); });
    ticks.every(100ms, [&] { log.push_back("slow@" + std::to_string(line.now().count() / 1000)); },
                [&] { return slowOn; });
    ticks.run(200ms);
    EXPECT_EQ(log, (std::vector<std::string>{"fast@40", "fast@80", "slow@100", "fast@120", "fast@160", "fast@200",
                                             "slow@200"}));
    slowOn = false;
    log.clear();
    ticks.run(100ms);
    EXPECT_EQ(log, (std::vector<std::string>{"fast@240", "fast@280"}));
    EXPECT_EQ(line.now(), 300ms);

    int n = 0;
    ticks.every(10ms, [&] { ++n; });
    EXPECT_TRUE(ticks.runUntil([&] { return n == 3; }, 1s));
    EXPECT_EQ(line.now(), 330ms);
    EXPECT_FALSE(ticks.runUntil([] { return false; }, 50ms));
    EXPECT_EQ(line.now(), 380ms);
}

}  // namespace
}  // namespace station::sim
