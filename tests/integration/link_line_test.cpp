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
using From = sim::Traffic::From;

const Bytes kAck = wire("06");
const Bytes kNak = wire("15");

std::size_t count(const std::vector<sim::Traffic>& ts, const Bytes& bytes) {
    return static_cast<std::size_t>(
        std::count_if(ts.begin(), ts.end(), [&](const sim::Traffic& t) { return t.bytes == bytes; }));
}

bool has(const Calls& calls, const std::string& call) {
    return std::find(calls.begin(), calls.end(), call) != calls.end();
}

TEST(LineAutoSetup, AutoWhiteOkArrivesAfterTheSetUpTime) {
    LinkLineRig rig;
    sim::Camera& cam = rig.camera(1);
    cam.timing.autoDelay = 2s;
    rig.link.SendCmd("4010");
    ASSERT_TRUE(rig.ticks.runUntil([&] { return !rig.decoders.calls.empty(); }, 5s));
    EXPECT_EQ(rig.decoders.calls, Calls{"RecAuto(10,00)"});
    EXPECT_EQ(cam.autoRuns, 1);

    const auto writes = rig.stationWrites();
    ASSERT_FALSE(writes.empty());
    EXPECT_EQ(writes.front().bytes, wire("02 02 40 10 AD FF"));
    const sim::Micros took = rig.line.now() - writes.front().at;
    EXPECT_GE(took, 2s);
    EXPECT_LT(took, 2s + 100ms);
    rig.ticks.run(200ms);
    EXPECT_EQ(rig.stationWrites().back().bytes, kAck);  // the result is acknowledged
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(rig.link.queue().SendCnt(), 0);
}

TEST(LineAutoSetup, AutoBlackNgCodesReachTheStationAsSent) {
    for (const std::uint8_t code : {0x13, 0x18, 0x21}) {
        LinkLineRig rig;
        sim::Camera& cam = rig.camera(1);
        cam.timing.autoDelay = 1s;
        cam.autoResultCode = code;
        rig.link.SendCmd("4020");
        ASSERT_TRUE(rig.ticks.runUntil([&] { return !rig.decoders.calls.empty(); }, 3s));
        EXPECT_EQ(rig.decoders.calls, Calls{"RecAuto(20," + hexByte(code) + ")"});
    }
}

TEST(LineAnswers, AReadRequestIsAnsweredWithTheRegistersValue) {
    LinkLineRig rig;
    sim::Camera& cam = rig.camera(1);
    cam.setMode(0x04, 0x0D);
    cam.setMode(0x12, 0x08, sim::kModeClass2);
    cam.setWide(0x40, true);
    cam.setLevel(0x40, 0x1234);
    cam.setLevel(0x2B, 0xF0);
    rig.link.SendCmd("2304");
    rig.link.SendCmd("2B12");
    rig.link.SendCmd("332B");
    rig.link.SendCmd("33400000");
    ASSERT_TRUE(rig.settleQueue());
    rig.ticks.run(200ms);
    EXPECT_EQ(rig.decoders.calls,
              (Calls{"RecModeMain(22,04,0D)", "RecModeFunc(22,04,0D)", "RecModeMain(2A,12,08)",
                     "RecModeFunc(2A,12,08)", "RecAnalogMain(32,2B,F0)", "RecAnalogFunc(32,2B,F0,)",
                     "RecAnalogMain(32,40,12)", "RecAnalogFunc(32,40,12,34)"}));
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(LineAnswers, ASetCommandIsAnsweredWithTheReplyClassAndTheNewValue) {
    LinkLineRig rig;
    sim::Camera& cam = rig.camera(1);
    cam.setMode(0x02, 0x0F);
    rig.link.SendCmd("200210EF");  // detail on: bit 4
    rig.link.SendCmd("281208F3");  // gain step 2 in bits 2..3 of the second bank
    rig.link.SendCmd("30187F00");
    ASSERT_TRUE(rig.settleQueue());
    rig.ticks.run(200ms);
    EXPECT_EQ(cam.mode(0x02), 0x1F);
    EXPECT_EQ(cam.mode(0x12, sim::kModeClass2), 0x08);
    EXPECT_EQ(cam.level(0x18), 0x7F);
    EXPECT_EQ(rig.decoders.calls,
              (Calls{"RecModeMain(22,02,1F)", "RecModeFunc(22,02,1F)", "RecModeMain(2A,12,08)",
                     "RecModeFunc(2A,12,08)", "RecAnalogMain(32,18,7F)", "RecAnalogFunc(32,18,7F,)"}));
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
    EXPECT_EQ(rig.link.queue().SendCnt(), 1);
}

TEST(LineFailures, ANakStormResendsTheHeadEachTimeRestartingTheWatch) {
    LinkLineRig rig;
    sim::Camera& cam = rig.camera(1);
    cam.faults.nak = 40;  // about 1.6 s of NAKs, longer than one acknowledge watch
    rig.link.SendCmd("302B4000");
    ASSERT_TRUE(rig.settleQueue(5s));
    rig.ticks.run(200ms);
    const auto writes = rig.stationWrites();
    EXPECT_EQ(count(writes, wire("02 04 30 2B 40 00 60 FF")), 41u);
    EXPECT_EQ(count(rig.cameraSends(), kNak), 40u);
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(cam.level(0x2B), 0x40);
    EXPECT_EQ(rig.decoders.calls, (Calls{"RecAnalogMain(32,2B,40)", "RecAnalogFunc(32,2B,40,)"}));
}

TEST(LineFailures, ACorruptedReplyIsNakedWithTheAnswerWatchArmedAndTheResendTaken) {
    LinkLineRig rig;
    sim::Camera& cam = rig.camera(1);
    cam.setLevel(0x18, 0x22);
    cam.faults.badChecksum = 1;
    rig.link.SendCmd("3318");
    rig.link.SendCmd("331A");
    ASSERT_TRUE(rig.ticks.runUntil([&] { return !rig.stationWrites().empty() && rig.stationWrites().back().bytes == kNak; },
                                   3s));
    EXPECT_EQ(rig.link.AnsWait(), 50);
    EXPECT_TRUE(rig.decoders.calls.empty());
    ASSERT_TRUE(rig.settleQueue());
    rig.ticks.run(200ms);
    EXPECT_EQ(rig.link.AnsWait(), -1);
    EXPECT_EQ(rig.decoders.calls, (Calls{"RecAnalogMain(32,18,22)", "RecAnalogFunc(32,18,22,)",
                                         "RecAnalogMain(32,1A,00)", "RecAnalogFunc(32,1A,00,)"}));
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(LineFailures, TheStationsChecksumQuirkMeetsTheCamerasCorrectChecksums) {
    // 32 2B 90 sums to F0: the correct checksum is 0F FF, whose low byte is below 10.
    LinkLineRig rig;
    sim::Camera& cam = rig.camera(1);
    cam.setLevel(0x2B, 0x90);
    rig.link.SendCmd("332B");
    rig.link.SendCmd("331A");
    rig.ticks.run(3s);
    const Bytes reply = wire("02 03 32 2B 90 0F FF");
    EXPECT_EQ(count(rig.cameraSends(), reply), 1u + sim::Line::kMaxResends);
    EXPECT_EQ(count(rig.stationWrites(), kNak), 1u + sim::Line::kMaxResends);
    EXPECT_TRUE(rig.decoders.calls.empty());
    EXPECT_EQ(rig.link.queue().SendCnt(), 1);  // the next request waits for the answer watch

    rig.ticks.run(25s);
    EXPECT_EQ(rig.messages.texts(), Calls{"No Answer from Camera"});
    ASSERT_TRUE(rig.settleQueue());
    rig.ticks.run(200ms);
    EXPECT_EQ(rig.decoders.calls, (Calls{"RecAnalogMain(32,1A,00)", "RecAnalogFunc(32,1A,00,)"}));

    // One step lower the checksum's low byte is 10 and the same reply is taken.
    cam.setLevel(0x2B, 0x8F);
    rig.decoders.calls.clear();
    rig.link.SendCmd("332B");
    ASSERT_TRUE(rig.settleQueue());
    rig.ticks.run(200ms);
    EXPECT_EQ(rig.decoders.calls, (Calls{"RecAnalogMain(32,2B,8F)", "RecAnalogFunc(32,2B,8F,)"}));
}

TEST(LineFailures, AReplyAfterTheAnswerTimeOutIsStillTaken) {
    LinkLineRig rig;
    sim::Camera& cam = rig.camera(1);
    cam.setLevel(0x18, 0x33);
    cam.faults.badChecksum = 1;
    rig.link.SendCmd("3318");
    ASSERT_TRUE(rig.ticks.runUntil([&] { return rig.link.AnsWait() == 50; }, 3s));
    cam.faults.late = 1;  // the resend comes half a minute later
    cam.faults.lateBy = 30s;
    rig.ticks.run(27s);
    EXPECT_EQ(rig.messages.texts(), Calls{"No Answer from Camera"});
    EXPECT_TRUE(rig.decoders.calls.empty());
    rig.ticks.run(4s);
    EXPECT_EQ(rig.decoders.calls, (Calls{"RecAnalogMain(32,18,33)", "RecAnalogFunc(32,18,33,)"}));
}

TEST(LineFailures, RepliesSplitAtAnyByteAreTakenWhole) {
    for (int at = 1; at <= 6; ++at) {
        LinkLineRig rig;
        sim::Camera& cam = rig.camera(1);
        cam.setLevel(0x18, 0x44);
        cam.faults.split = sim::Faults::kEvery;
        cam.faults.splitAt = at;
        rig.link.SendCmd("3318");
        rig.link.SendCmd("3318");
        ASSERT_TRUE(rig.settleQueue()) << at;
        rig.ticks.run(300ms);
        EXPECT_EQ(rig.decoders.calls, (Calls{"RecAnalogMain(32,18,44)", "RecAnalogFunc(32,18,44,)",
                                             "RecAnalogMain(32,18,44)", "RecAnalogFunc(32,18,44,)"}))
            << at;
        EXPECT_EQ(count(rig.stationWrites(), kNak), 0u) << at;
        // Cut right after its STX, a reply leaves the STX alone at the end of the station's
        // buffer, whose length byte the poll reads before it has come: that poll ends with
        // error 5, and the next one takes the frame whole.
        EXPECT_EQ(rig.errors, (at == 1 ? std::vector<int>{5, 5} : std::vector<int>{})) << at;
    }
}

TEST(LineFailures, NoiseBeforeRepliesIsDropped) {
    LinkLineRig rig;
    sim::Camera& cam = rig.camera(1);
    cam.faults.noise = sim::Faults::kEvery;
    cam.faults.noiseBytes = 9;
    rig.link.SendCmd("30180100");
    rig.link.SendCmd("30180200");
    ASSERT_TRUE(rig.settleQueue());
    rig.ticks.run(200ms);
    EXPECT_EQ(rig.decoders.calls, (Calls{"RecAnalogMain(32,18,01)", "RecAnalogFunc(32,18,01,)",
                                         "RecAnalogMain(32,18,02)", "RecAnalogFunc(32,18,02,)"}));
    EXPECT_TRUE(rig.errors.empty());
}

TEST(LineIdMode, EightCamerasEachAnswerOnlyTheirOwnId) {
    LinkLineRig rig;
    rig.shared.IDMode = 1;
    rig.line.setIdMode(true);
    for (int n = 1; n <= 8; ++n) {
        rig.camera(n);
        rig.shared.cams.CamID(n) = std::to_string(n);
    }
    for (int n = 1; n <= 8; ++n) {
        rig.shared.CamNo = static_cast<Integer>(n);
        rig.link.SendCmd("3018" + hexByte(static_cast<std::uint8_t>(n * 16)) + "00");
    }
    ASSERT_TRUE(rig.settleQueue());
    rig.ticks.run(200ms);
    Calls expected;
    for (int n = 1; n <= 8; ++n) {
        EXPECT_EQ(rig.line.at(n).level(0x18), n * 16) << n;
        EXPECT_EQ(rig.line.at(n).framesHeard, 1) << n;
        const std::string v = hexByte(static_cast<std::uint8_t>(n * 16));
        expected.push_back("RecAnalogMain(32,18," + v + ")");
        expected.push_back("RecAnalogFunc(32,18," + v + ",)");
    }
    EXPECT_EQ(rig.decoders.calls, expected);
    // Each reply carries its camera's ID in front.
    for (const sim::Traffic& t : rig.cameraSends()) {
        if (t.bytes.size() == 1) continue;
        ASSERT_GE(t.bytes.size(), 4u);
        EXPECT_EQ(t.bytes[0], 0x01);
        EXPECT_EQ(t.bytes[3], '0' + t.camera);
    }
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(LineIdMode, GroupFramesGoOutWithoutHandshakeAndEveryCameraAppliesThem) {
    LinkLineRig rig;
    rig.shared.IDMode = 1;
    rig.line.setIdMode(true);
    for (int n = 1; n <= 8; ++n) rig.camera(n);
    rig.shared.CamNo = 0;
    rig.link.SendCmd("200801FE");
    rig.link.SendCmd("302B2000");
    rig.ticks.run(200ms);
    const auto writes = rig.stationWrites();
    ASSERT_EQ(writes.size(), 2u);
    EXPECT_EQ(writes[0].bytes.front(), 0x02);  // no ID, no 06: a group frame under "Ack On"
    EXPECT_EQ(writes[1].at - writes[0].at, 40ms);
    rig.ticks.run(2s);
    for (int n = 1; n <= 8; ++n) {
        EXPECT_EQ(rig.line.at(n).mode(0x08), 0x01) << n;
        EXPECT_EQ(rig.line.at(n).level(0x2B), 0x20) << n;
    }
    EXPECT_TRUE(rig.cameraSends().empty());
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
    EXPECT_TRUE(rig.decoders.calls.empty());
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
    EXPECT_TRUE(has(rig.decoders.calls, "RecAnalogMain(32,18,00)"));
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
