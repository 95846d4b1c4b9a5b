// The line as the station meets it: who answers what and when the bytes arrive. The station's
// side is played here with raw bytes; the faults, the in-process port and the tick driver are
// shown against the real link in tests/integration.
#include <gtest/gtest.h>

#include <string>

#include "common/runtime_error.hpp"
#include "sim/line.hpp"
#include "tests/support/frames.hpp"

namespace station::sim {
namespace {

using namespace std::chrono_literals;
using testing::frame;
using testing::wire;
using testing::operator+;

struct Rig {
    Rig() {
        line.onTraffic = [this](const Traffic& t) {
            if (t.from == Traffic::From::Camera) sent.push_back(t.camera);
        };
    }
    Bytes after(Micros span) {
        line.advance(span);
        return line.takeForStation();
    }
    Line line;
    std::vector<int> sent;  // the cameras that sent, in order
};

TEST(LineTiming, BytesArriveAtTheLineSpeed) {
    for (const int speed : {9600, 19200}) {
        Rig rig;
        rig.line.setSpeed(speed);
        const Micros byte = rig.line.byteTime();
        EXPECT_NEAR(static_cast<double>(byte.count()), 1e7 / speed, 1.0);
        Camera& cam = rig.line.addCamera(1, "AB1", "01");
        rig.line.fromStation(frame(wire("30 2B 10 00")));  // 8 bytes
        // The ACK leaves one turnaround after the frame's last byte and takes one byte time;
        // the reply's seven bytes follow the answer delay.
        const Micros ackIn = 8 * byte + cam.timing.turnaround + byte;
        const Micros replyIn = ackIn - byte + cam.timing.answerDelay + 7 * byte;
        rig.line.advanceTo(ackIn - byte / 10);
        EXPECT_EQ(rig.line.waitingForStation(), 0u) << speed;
        rig.line.advanceTo(ackIn);
        EXPECT_EQ(rig.line.takeForStation(), wire("06")) << speed;
        rig.line.advanceTo(replyIn - byte / 10);
        EXPECT_EQ(rig.line.waitingForStation(), 6u) << speed;
        rig.line.advanceTo(replyIn);
        EXPECT_EQ(rig.line.takeForStation(), wire("02 03 32 2B 10 8F FF")) << speed;
    }
}

TEST(LineAnswers, InIdModeOnlyTheAddressedCameraAnswersWithItsId) {
    Rig rig;
    rig.line.setIdMode(true);
    for (int p = 1; p <= 3; ++p) rig.line.addCamera(p, "AB1", "0" + std::to_string(p)).setMode(0x08, static_cast<std::uint8_t>(p));
    rig.line.fromStation(wire("01 20 30 32 02 02 23 08 4E FF"));  // camera " 02" reads register 08
    EXPECT_EQ(rig.after(50ms), wire("06 01 20 30 32 02 03 22 08 02 D0 FF"));
    EXPECT_EQ(rig.sent, (std::vector<int>{2, 2}));
    rig.line.fromStation(frame(wire("23 08"), "09", true));  // an ID that no camera has: silence
    EXPECT_TRUE(rig.after(1500ms).empty());
}

TEST(LineAnswers, WithoutIdModeEveryCameraAppliesAndTheFirstAnswersForAll) {
    Rig rig;
    rig.line.addCamera(2, "AB1", "02");
    rig.line.addCamera(5, "AB1", "05");
    rig.line.fromStation(frame(wire("20 05 01 FE")));
    EXPECT_EQ(rig.after(50ms), wire("06") + frame(wire("22 05 01")));
    EXPECT_EQ(rig.line.at(5).mode(0x05), 0x01);
    EXPECT_EQ(rig.sent, (std::vector<int>{2, 2}));
}

TEST(LineAnswers, ABadFrameIsNakedAndNotAppliedUnlessItIsHandshakeFree) {
    Rig rig;
    Camera& cam = rig.line.addCamera(1, "AB1", "01");
    Bytes bad = frame(wire("20 08 01 FE"));
    bad[bad.size() - 2] ^= 0x01;
    rig.line.fromStation(bad);
    EXPECT_EQ(rig.after(50ms), wire("15"));
    rig.line.fromStation(wire("06") + bad);
    EXPECT_TRUE(rig.after(50ms).empty());
    EXPECT_EQ(cam.mode(0x08), 0x00);
}

TEST(LineAnswers, AfterAnUnansweredReplyA06IsAPrefixAgainAndNoAckStillApplies) {
    Rig rig;
    Camera& cam = rig.line.addCamera(1, "AB1", "01");
    rig.line.fromStation(frame(wire("33 18")));
    rig.after(Line::kAnswerWait + 100ms);  // the reply's verdict never came
    rig.line.fromStation(frame(wire("30 18 20 00"), "", true));
    EXPECT_TRUE(rig.after(100ms).empty());
    EXPECT_EQ(cam.level(0x18), 0x20);

    cam.faults.noAck = 1;
    rig.line.fromStation(frame(wire("20 08 01 FE")));
    EXPECT_EQ(rig.after(50ms), frame(wire("22 08 01")));
    EXPECT_THROW(rig.line.addCamera(9, "AB1", "9"), RuntimeError);
}

}  // namespace
}  // namespace station::sim
