// A surface's fader through the remote command set on the in-process camera line: the
// frames the camera receives, where it ends, and what surfaces are shown while it moves.
#include <gtest/gtest.h>

#include <algorithm>

#include "remote/command_set.hpp"
#include "tests/support/studio_line_rig.hpp"

namespace station {
namespace {

using namespace std::chrono_literals;

// Camera 1 on the studio line with the remote command set, kept values going out before
// each poll as the desktop program does.
struct FaderRig {
    int cameraMblk() {
        const int raw = rig.line.camera(1)->level(0x2B);
        return raw > 127 ? raw - 256 : raw;
    }
    // M.BLK values the station put on the line, in order.
    std::vector<int> mblkFrames() const {
        std::vector<int> out;
        for (const std::string& f : rig.stationFrames()) {
            const auto at = f.find("302B");
            if (at != std::string::npos) out.push_back(static_cast<std::int8_t>(std::stoi(f.substr(at + 4, 2), nullptr, 16)));
        }
        return out;
    }
    // The pushed values of "level mblk", in order.
    std::vector<int> pushes;
    void push() {
        for (const remote::StateItem& item : commands->changes())
            if (item.key == "level mblk") pushes.push_back(std::stoi(item.value));
    }

    remote::CommandSet* commands = nullptr;
    testing::StudioLineRig rig{[this] {
        if (commands) commands->beforePoll();
    }};
    remote::CommandSet set{rig.station, rig.dialogs, {}};
    FaderRig() { commands = &set; set.changes(); }
};

// A 4 s move at 100 updates a second: the camera gets the values in order and holds the
// last within two polls of the hand stopping; the queue stays short; pushes never go back.
// (From -60 up: camera 1's reports of values from -112 to -97 carry a checksum whose low byte
// is below 0x10; the station refuses them (NAK) and the line then waits for an answer.)
TEST(FaderOnLine, KeepsUpAndNeverGoesBack) {
    for (int phase = 0; phase < 40; phase += 5) {  // the hand's updates at every offset to the polls
        SCOPED_TRACE(phase);
        FaderRig f;
        f.rig.ticks.run(std::chrono::milliseconds(phase));
        int most = 0;
        int last = 0;
        for (int i = 0; i < 400; ++i) {
            last = -60 + i * 180 / 399;
            ASSERT_EQ(f.set.execute("level mblk " + std::to_string(last)), "OK") << i;
            f.rig.ticks.run(10ms);
            f.push();
            most = std::max<int>(most, f.rig.station.link.queue().SendCnt());
        }
        const auto stopped = f.rig.ticks.now();
        ASSERT_TRUE(f.rig.ticks.runUntil([&] { return f.cameraMblk() == last; }, 2s));
        EXPECT_LE(f.rig.ticks.now() - stopped, 80ms);
        EXPECT_LT(most, 10);
        f.rig.ticks.run(1s);
        f.push();
        const std::vector<int> frames = f.mblkFrames();
        EXPECT_TRUE(std::is_sorted(frames.begin(), frames.end())) << ::testing::PrintToString(frames);
        EXPECT_GT(frames.size(), 80u);   // about one a poll, not one an update
        EXPECT_LT(frames.size(), 120u);
        EXPECT_EQ(f.cameraMblk(), last);
        EXPECT_EQ(f.rig.station.form1.VrMblk.value(), last);
        EXPECT_TRUE(std::is_sorted(f.pushes.begin(), f.pushes.end())) << ::testing::PrintToString(f.pushes);
        EXPECT_EQ(f.pushes.back(), last);
        EXPECT_TRUE(f.rig.messages.shown.empty());
    }
}

// A bounce: -10, -5, 0, 5, 10, 15 given one after the other; the camera's late
// echoes of older values are stored, but pushes run only forward.
TEST(FaderOnLine, EchoesDoNotBounceThePushes) {
    FaderRig f;
    for (const int v : {-10, -5, 0, 5, 10, 15}) {
        ASSERT_EQ(f.set.execute("level mblk " + std::to_string(v)), "OK");
        f.rig.ticks.run(20ms);
        f.push();
    }
    f.rig.ticks.run(500ms);
    f.push();
    EXPECT_TRUE(std::is_sorted(f.pushes.begin(), f.pushes.end())) << ::testing::PrintToString(f.pushes);
    EXPECT_EQ(f.pushes.back(), 15);
    EXPECT_EQ(f.cameraMblk(), 15);
}

// An encoder's steps add up while a value is kept; the window's own bar is not paced (it
// sends once, at release, as before); mode commands are never merged.
TEST(FaderOnLine, StepsAddUpAndOtherCommandsAreNotMerged) {
    FaderRig f;
    const int start = f.rig.station.form1.VrMblk.value();
    for (int i = 0; i < 5; ++i) EXPECT_EQ(f.set.execute("level mblk step 2"), "OK");
    EXPECT_EQ(f.rig.station.link.queue().SendCnt(), 1);
    f.rig.ticks.run(200ms);
    EXPECT_EQ(f.cameraMblk(), start + 10);

    f.rig.station.form1.VrMblk.setValue(start);  // the operator at the window
    f.rig.station.form1.VrMblk.setValue(start + 1);
    EXPECT_EQ(f.rig.station.link.queue().SendCnt(), 2);
    EXPECT_EQ(f.set.execute("mode bar 1"), "OK");
    EXPECT_EQ(f.set.execute("mode bar 0"), "OK");
    EXPECT_EQ(f.rig.station.link.queue().SendCnt(), 4);

    // A value kept when another command comes takes effect before it; one kept when the
    // operator selects another camera at the window is not given to that camera.
    f.rig.ticks.run(500ms);
    EXPECT_EQ(f.set.execute("level mblk 30"), "OK");
    EXPECT_EQ(f.set.execute("level mblk 40"), "OK");  // kept
    EXPECT_EQ(f.set.execute("scene store 2"), "OK");
    EXPECT_EQ(f.rig.station.form1.VrMblk.value(), 40);
    f.rig.ticks.run(1s);
    EXPECT_EQ(f.cameraMblk(), 40);
    EXPECT_EQ(f.set.execute("level mblk 50"), "OK");
    EXPECT_EQ(f.set.execute("level mblk 60"), "OK");  // kept
    f.rig.station.form1.Option9.click(2);
    f.rig.ticks.run(1s);
    EXPECT_EQ(f.cameraMblk(), 50);
    EXPECT_NE(f.rig.station.form1.VrMblk.value(), 60);
}

}  // namespace
}  // namespace station
