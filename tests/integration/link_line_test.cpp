// The station on the simulated camera line of the sample studio: what a real line does to
// its frames (NAKs, replies cut in two or behind stray bytes, camera IDs, GROUP), told by
// what the cameras hold and what the station read back.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/studio_line_rig.hpp"

namespace station {
namespace {

using namespace std::chrono_literals;

struct Studio : testing::StudioLineRig {
    // Runs until nothing is queued or awaited, or the limit passes.
    bool settle() {
        return ticks.runUntil([this] { return readout.queued() == 0 && readout.ackWaitTicks() == -1; }, 10s);
    }
};

TEST(StudioLine, SplitAndNoisyReplies) {
    for (int at = 0; at <= 6; ++at) {
        Studio rig;
        sim::Camera& cam = rig.line.at(1);
        cam.setLevel(0x18, 0x44);
        cam.setMode(0x08, 1);
        if (at == 0) {
            cam.faults.noise = sim::Faults::kEvery;
            cam.faults.noiseBytes = 9;
        } else {
            cam.faults.split = sim::Faults::kEvery;
            cam.faults.splitAt = at;
        }
        ASSERT_TRUE(rig.actions.readPage().ok());
        ASSERT_TRUE(rig.settle()) << at;
        rig.ticks.run(300ms);
        EXPECT_EQ(rig.readout.mainSetting(aRGAIN, 1) + rig.readout.mainSetting(mBar, 1), "681") << at;
        EXPECT_TRUE(rig.messages.shown.empty()) << at;
    }
}

TEST(StudioLine, NakStormIdModeAndGroup) {
    Studio rig;
    ASSERT_TRUE(rig.readout.cameraIdOn());  // the studio addresses its cameras by ID
    rig.line.at(1).faults.nak = 40;  // about 1.6 s of NAKs, longer than one acknowledge watch
    ASSERT_TRUE(rig.actions.setLevel(Level::Mblk, 0x40).ok());
    ASSERT_TRUE(rig.settle());
    const auto frames = rig.stationFrames();
    EXPECT_EQ(std::count(frames.begin(), frames.end(), "012020310204302B4000EDFE"), 41);
    EXPECT_EQ(rig.line.at(1).level(0x2B), 0x40);
    for (int n = 1; n <= 6; ++n) {
        ASSERT_TRUE(rig.actions.selectCamera(n).ok());
        ASSERT_TRUE(rig.actions.setLevel(Level::RGain, n * 16).ok());
    }
    ASSERT_TRUE(rig.settle());
    for (int n = 1; n <= 6; ++n) EXPECT_EQ(rig.line.at(n).level(0x18), n * 16) << n;
    EXPECT_TRUE(rig.messages.shown.empty());

    // GROUP: no ID, no handshake, every camera applies, none answers.
    rig.traffic.clear();
    ASSERT_TRUE(rig.actions.selectCamera(0).ok());
    ASSERT_TRUE(rig.actions.setLevel(Level::Mblk, 0x20).ok());
    rig.ticks.run(2s);
    for (int n = 1; n <= 6; ++n) EXPECT_EQ(rig.line.at(n).level(0x2B), 0x20) << n;
    EXPECT_TRUE(std::none_of(rig.traffic.begin(), rig.traffic.end(),
                             [](const sim::Traffic& t) { return t.from == sim::Traffic::From::Camera; }));
    EXPECT_TRUE(rig.messages.shown.empty());
}

}  // namespace
}  // namespace station
