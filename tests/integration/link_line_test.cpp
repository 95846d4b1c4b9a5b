// The station's link engine against the simulated camera line: what a real line does.
#include <gtest/gtest.h>

#include <algorithm>

#include "common/hex.hpp"
#include "tests/integration/link_line_rig.hpp"
#include "tests/support/frames.hpp"

namespace station {
namespace {

using namespace std::chrono_literals;
using testing::LinkLineRig;
using testing::wire;
using Calls = std::vector<std::string>;

const Bytes kAck = wire("06");
const Bytes kNak = wire("15");

std::size_t count(const std::vector<sim::Traffic>& ts, const Bytes& bytes) {
    return static_cast<std::size_t>(
        std::count_if(ts.begin(), ts.end(), [&](const sim::Traffic& t) { return t.bytes == bytes; }));
}

// The decoder calls of one level reply "32 <address> <value>", repeated `times`.
Calls level(const std::string& address, const std::string& value, int times = 1) {
    Calls out;
    for (int i = 0; i < times; ++i) {
        out.push_back("RecAnalogMain(32," + address + "," + value + ")");
        out.push_back("RecAnalogFunc(32," + address + "," + value + ",)");
    }
    return out;
}

TEST(LineAutoSetup, ResultsArriveAfterTheSetUpTimeWithTheCodeAsSent) {
    for (const std::uint8_t code : {0x00, 0x13, 0x18, 0x21}) {
        LinkLineRig rig;
        sim::Camera& cam = rig.camera(1);
        cam.timing.autoDelay = 2s;
        cam.autoResultCode = code;
        rig.link.SendCmd("4010");
        ASSERT_TRUE(rig.ticks.runUntil([&] { return !rig.decoders.calls.empty(); }, 5s));
        EXPECT_EQ(rig.decoders.calls, Calls{"RecAuto(10," + hexByte(code) + ")"});
        const auto writes = rig.stationWrites();
        EXPECT_EQ(writes.front().bytes, wire("02 02 40 10 AD FF"));
        const sim::Micros took = rig.line.now() - writes.front().at;
        EXPECT_GE(took, 2s);
        EXPECT_LT(took, 2s + 100ms);
        rig.ticks.run(200ms);
        EXPECT_EQ(rig.stationWrites().back().bytes, kAck);  // the result is acknowledged
        EXPECT_TRUE(rig.messages.shown.empty());
        EXPECT_EQ(rig.link.queue().SendCnt(), 0);
    }
}

TEST(LineAnswers, ReadRequestsAndSetCommandsAreAnsweredWithTheRegistersValue) {
    LinkLineRig rig;
    sim::Camera& cam = rig.camera(1);
    cam.setMode(0x04, 0x0D);
    cam.setMode(0x02, 0x0F);
    cam.setWide(0x40, true);
    cam.setLevel(0x40, 0x1234);
    for (const char* cmd : {"2304", "33400000", "200210EF", "281208F3", "2B12", "30187F00"}) rig.link.SendCmd(cmd);
    ASSERT_TRUE(rig.settleQueue());
    rig.ticks.run(200ms);
    EXPECT_EQ(rig.decoders.calls,
              (Calls{"RecModeMain(22,04,0D)", "RecModeFunc(22,04,0D)", "RecAnalogMain(32,40,12)",
                     "RecAnalogFunc(32,40,12,34)", "RecModeMain(22,02,1F)", "RecModeFunc(22,02,1F)",
                     "RecModeMain(2A,12,08)", "RecModeFunc(2A,12,08)", "RecModeMain(2A,12,08)",
                     "RecModeFunc(2A,12,08)", "RecAnalogMain(32,18,7F)", "RecAnalogFunc(32,18,7F,)"}));
    EXPECT_EQ(cam.level(0x18), 0x7F);
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(LineFailures, ASilentCameraGivesNoAcknowledgeAfterTenTicksAndTheNextFrameGoesOut) {
    LinkLineRig rig;
    rig.camera(1).faults.silent = true;
    rig.link.SendCmd("200801FE");
    rig.link.SendCmd("200800FE");
    rig.ticks.run(1700ms);
    const auto writes = rig.stationWrites();
    ASSERT_EQ(writes.size(), 2u);  // the first is dropped, not resent
    EXPECT_EQ(writes[1].bytes, wire("02 04 20 08 00 FE D5 FE"));
    ASSERT_EQ(rig.messages.texts(), Calls{"No Acknowledge"});
    const sim::Micros waited = rig.shownAt[0] - writes[0].at;
    EXPECT_GE(waited, 900ms);  // ten ticks of the 100 ms watch
    EXPECT_LE(waited, 1000ms);
    EXPECT_GT(writes[1].at, rig.shownAt[0]);
    EXPECT_LE(writes[1].at - rig.shownAt[0], 40ms);  // on the next poll
}

TEST(LineFailures, ANakStormResendsTheHeadEachTimeRestartingTheWatch) {
    LinkLineRig rig;
    sim::Camera& cam = rig.camera(1);
    cam.faults.nak = 40;  // about 1.6 s of NAKs, longer than one acknowledge watch
    rig.link.SendCmd("302B4000");
    ASSERT_TRUE(rig.settleQueue(5s));
    rig.ticks.run(200ms);
    EXPECT_EQ(count(rig.stationWrites(), wire("02 04 30 2B 40 00 60 FF")), 41u);
    EXPECT_EQ(count(rig.cameraSends(), kNak), 40u);
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(rig.decoders.calls, level("2B", "40"));
}

TEST(LineFailures, ACorruptedReplyIsNakedAndItsLateResendTakenAfterTheAnswerTimeOut) {
    LinkLineRig rig;
    sim::Camera& cam = rig.camera(1);
    cam.setLevel(0x18, 0x33);
    cam.faults.badChecksum = 1;
    rig.link.SendCmd("3318");
    ASSERT_TRUE(rig.ticks.runUntil([&] { return rig.link.AnsWait() == 50; }, 3s));
    EXPECT_EQ(rig.stationWrites().back().bytes, kNak);
    cam.faults.late = 1;  // the resend comes half a minute later
    cam.faults.lateBy = 30s;
    rig.ticks.run(27s);
    EXPECT_EQ(rig.messages.texts(), Calls{"No Answer from Camera"});
    EXPECT_TRUE(rig.decoders.calls.empty());
    rig.ticks.run(4s);
    EXPECT_EQ(rig.decoders.calls, level("18", "33"));
}

TEST(LineFailures, TheStationsChecksumQuirkMeetsTheCamerasCorrectChecksums) {
    // 32 2B 90 sums to F0: the correct checksum is 0F FF, whose low byte is below 10.
    LinkLineRig rig;
    sim::Camera& cam = rig.camera(1);
    cam.setLevel(0x2B, 0x90);
    rig.link.SendCmd("332B");
    rig.link.SendCmd("331A");
    rig.ticks.run(3s);
    EXPECT_EQ(count(rig.cameraSends(), wire("02 03 32 2B 90 0F FF")), 1u + sim::Line::kMaxResends);
    EXPECT_EQ(count(rig.stationWrites(), kNak), 1u + sim::Line::kMaxResends);
    EXPECT_TRUE(rig.decoders.calls.empty());
    EXPECT_EQ(rig.link.queue().SendCnt(), 1);  // the next request waits for the answer watch
    rig.ticks.run(25s);
    EXPECT_EQ(rig.messages.texts(), Calls{"No Answer from Camera"});
    ASSERT_TRUE(rig.settleQueue());
    rig.ticks.run(200ms);
    EXPECT_EQ(rig.decoders.calls, level("1A", "00"));

    // One step lower the checksum's low byte is 10 and the same reply is taken.
    cam.setLevel(0x2B, 0x8F);
    rig.decoders.calls.clear();
    rig.link.SendCmd("332B");
    ASSERT_TRUE(rig.settleQueue());
    rig.ticks.run(200ms);
    EXPECT_EQ(rig.decoders.calls, level("2B", "8F"));
}

TEST(LineFailures, RepliesSplitAtAnyByteOrAfterNoiseAreTakenWhole) {
    for (int at = 0; at <= 6; ++at) {
        LinkLineRig rig;
        sim::Camera& cam = rig.camera(1);
        cam.setLevel(0x18, 0x44);
        if (at == 0) {
            cam.faults.noise = sim::Faults::kEvery;
            cam.faults.noiseBytes = 9;
        } else {
            cam.faults.split = sim::Faults::kEvery;
            cam.faults.splitAt = at;
        }
        rig.link.SendCmd("3318");
        rig.link.SendCmd("3318");
        ASSERT_TRUE(rig.settleQueue()) << at;
        rig.ticks.run(300ms);
        EXPECT_EQ(rig.decoders.calls, level("18", "44", 2)) << at;
        EXPECT_EQ(count(rig.stationWrites(), kNak), 0u) << at;
        // Cut right after its STX, a reply leaves the STX alone at the end of the station's
        // buffer, whose length byte the poll reads before it has come: that poll ends with
        // error 5, and the next one takes the frame whole.
        EXPECT_EQ(rig.errors, (at == 1 ? std::vector<int>{5, 5} : std::vector<int>{})) << at;
    }
}

TEST(LineIdMode, EachCameraAnswersOnlyItsOwnIdAndGroupFramesReachThemAllUnanswered) {
    LinkLineRig rig;
    rig.shared.IDMode = 1;
    rig.line.setIdMode(true);
    Calls expected;
    for (int n = 1; n <= 8; ++n) {
        rig.camera(n);
        rig.shared.cams.CamID(n) = std::to_string(n);
        rig.shared.CamNo = static_cast<Integer>(n);
        const std::string v = hexByte(static_cast<std::uint8_t>(n * 16));
        rig.link.SendCmd("3018" + v + "00");
        const Calls calls = level("18", v);
        expected.insert(expected.end(), calls.begin(), calls.end());
    }
    ASSERT_TRUE(rig.settleQueue());
    rig.ticks.run(200ms);
    EXPECT_EQ(rig.decoders.calls, expected);
    for (const sim::Traffic& t : rig.cameraSends()) {
        EXPECT_EQ(rig.line.at(t.camera).framesHeard, 1) << t.camera;
        if (t.bytes.size() > 1) {
            EXPECT_EQ(t.bytes[3], '0' + t.camera);  // its own ID in front
        }
    }

    const std::size_t sends = rig.cameraSends().size();
    const sim::Micros start = rig.line.now();
    rig.shared.CamNo = 0;
    rig.link.SendCmd("200801FE");
    rig.link.SendCmd("302B2000");
    rig.ticks.run(2s);
    const auto writes = rig.stationWrites();
    EXPECT_EQ(writes[writes.size() - 2].bytes.front(), 0x02);  // no ID, no 06: a group frame under "Ack On"
    EXPECT_LE(writes.back().at - start, 80ms);                 // one per poll, no waiting
    for (int n = 1; n <= 8; ++n) EXPECT_EQ(rig.line.at(n).mode(0x08) + rig.line.at(n).level(0x2B), 0x21) << n;
    EXPECT_EQ(rig.cameraSends().size(), sends);
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(LineAckOff, FramesGoOutOnePerTickWithThePrefixAndAreAppliedUnanswered) {
    LinkLineRig rig;
    rig.shared.AckMode = 1;
    sim::Camera& cam = rig.camera(1);
    cam.timing.autoDelay = 500ms;
    for (int v = 1; v <= 9; ++v) rig.link.SendCmd("3018" + hexByte(static_cast<std::uint8_t>(v)) + "00");
    rig.link.SendCmd("4010");
    rig.ticks.run(440ms);
    const auto writes = rig.stationWrites();
    ASSERT_EQ(writes.size(), 10u);
    for (std::size_t i = 0; i < writes.size(); ++i) {
        EXPECT_EQ(writes[i].bytes.front(), 0x06) << i;
        EXPECT_EQ(writes[i].at, sim::Micros{40ms} * static_cast<int>(i + 1)) << i;
    }
    rig.ticks.run(3s);
    EXPECT_EQ(cam.level(0x18), 9);
    EXPECT_EQ(cam.autoRuns, 1);
    EXPECT_TRUE(rig.cameraSends().empty());
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(LineSpeed, AStationAtTheWrongSpeedGetsNoAcknowledge) {
    LinkLineRig rig;
    rig.camera(1);
    rig.line.setSpeed(19200);
    rig.link.SendCmd("3318");
    rig.ticks.run(1600ms);
    EXPECT_EQ(rig.messages.texts(), Calls{"No Acknowledge"});
    rig.port.setSettings("19200,N,8,1");
    rig.link.SendCmd("3318");
    ASSERT_TRUE(rig.settleQueue());
    rig.ticks.run(100ms);
    EXPECT_EQ(rig.decoders.calls, level("18", "00"));
}

TEST(LineReports, ATallyChangeReachesTheDecodersUnasked) {
    LinkLineRig rig;
    sim::Camera& cam = rig.camera(1);
    rig.ticks.run(600ms);
    cam.setTally(true);
    rig.line.report(1, sim::kModeClass, sim::kTallyRegister);
    rig.ticks.run(100ms);
    EXPECT_EQ(rig.decoders.calls, (Calls{"RecModeMain(22,03,01)", "RecModeFunc(22,03,01)"}));
    EXPECT_EQ(rig.stationWrites().back().bytes, kAck);
}

}  // namespace
}  // namespace station
