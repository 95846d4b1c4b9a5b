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

TEST(SimLink, RegistersAnswered) {
    LinkLineRig rig;
    sim::Camera& cam = rig.camera(1);
    cam.setMode(0x04, 0x0D);
    cam.setWide(0x40, true);
    cam.setLevel(0x40, 0x1234);
    for (const char* cmd : {"2304", "33400000", "281208F3", "30187F00"}) rig.link.SendCmd(cmd);
    ASSERT_TRUE(rig.settleQueue());
    rig.ticks.run(200ms);
    EXPECT_EQ(rig.decoders.calls,
              (Calls{"RecModeMain(22,04,0D)", "RecModeFunc(22,04,0D)", "RecAnalogMain(32,40,12)",
                     "RecAnalogFunc(32,40,12,34)", "RecModeMain(2A,12,08)", "RecModeFunc(2A,12,08)",
                     "RecAnalogMain(32,18,7F)", "RecAnalogFunc(32,18,7F,)"}));
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(SimLink, SilentCameraNoAck) {
    LinkLineRig rig;
    rig.camera(1).faults.silent = true;
    rig.link.SendCmd("200801FE");
    rig.link.SendCmd("200800FE");
    rig.ticks.run(1700ms);
    const auto writes = rig.stationWrites();
    ASSERT_EQ(writes.size(), 2u);  // the first is dropped, not resent
    ASSERT_EQ(rig.messages.texts(), Calls{"No Acknowledge"});
    const sim::Micros waited = rig.shownAt[0] - writes[0].at;
    EXPECT_GE(waited, 900ms);  // ten ticks of the 100 ms watch
    EXPECT_LE(waited, 1000ms);
    EXPECT_LE(writes[1].at - rig.shownAt[0], 40ms);  // the next frame on the next poll
}

TEST(SimLink, NakStorm) {
    LinkLineRig rig;
    rig.camera(1).faults.nak = 40;  // about 1.6 s of NAKs, longer than one acknowledge watch
    rig.link.SendCmd("302B4000");
    ASSERT_TRUE(rig.settleQueue(5s));
    rig.ticks.run(200ms);
    EXPECT_EQ(count(rig.stationWrites(), wire("02 04 30 2B 40 00 60 FF")), 41u);
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(rig.decoders.calls, level("2B", "40"));
}

TEST(SimLink, SplitAndNoisyReplies) {
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
        // Cut right after its STX, a reply leaves a lone STX whose length byte the poll
        // reads before it has come: that poll ends with error 5, the next takes the frame.
        EXPECT_EQ(rig.errors, (at == 1 ? std::vector<int>{5, 5} : std::vector<int>{})) << at;
    }
}

TEST(SimLink, IdModeAndGroup) {
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
    for (int n = 1; n <= 8; ++n) EXPECT_EQ(rig.line.at(n).framesHeard, 1) << n;

    const std::size_t sends = rig.cameraSends().size();
    rig.shared.CamNo = 0;  // GROUP: no ID, no handshake, every camera applies, none answers
    rig.link.SendCmd("200801FE");
    rig.link.SendCmd("302B2000");
    rig.ticks.run(2s);
    for (int n = 1; n <= 8; ++n) EXPECT_EQ(rig.line.at(n).mode(0x08) + rig.line.at(n).level(0x2B), 0x21) << n;
    EXPECT_EQ(rig.cameraSends().size(), sends);
    EXPECT_TRUE(rig.messages.shown.empty());
}

}  // namespace
}  // namespace station
