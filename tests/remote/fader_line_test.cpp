// A surface's fader through the remote command set on the in-process camera line: the
// frames the camera receives, where it ends, and what surfaces are shown while it moves.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <sstream>

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
            most = std::max<int>(most, f.rig.readout.queued());
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
        EXPECT_EQ(f.rig.forms.main.VrMblk.value(), last);
        EXPECT_TRUE(std::is_sorted(f.pushes.begin(), f.pushes.end())) << ::testing::PrintToString(f.pushes);
        EXPECT_EQ(f.pushes.back(), last);
        EXPECT_TRUE(f.rig.messages.shown.empty());
    }
}

// A function level swept at 100 values a second: the camera's late echoes of older values
// are kept, but what surfaces are pushed runs only forward.
TEST(FaderOnLine, FunctionLevelPushesNeverGoBack) {
    FaderRig f;
    f.rig.station.readChecksumsExactly(true);  // no reply refused on the way
    ASSERT_EQ(f.set.execute("camera 3"), "OK");
    ASSERT_EQ(f.set.execute("function Knee \"Knee Point\" 0x40"), "OK");
    f.rig.ticks.run(1s);
    f.set.changes();
    std::vector<long> pushes;
    const auto push = [&] {
        for (const remote::StateItem& item : f.set.changes())
            if (item.value.rfind("Knee Point: ", 0) == 0) pushes.push_back(hexNumber(item.value.substr(12)).value_or(-1));
    };
    for (int v = 0x41; v <= 0xC0; ++v) {
        ASSERT_EQ(f.set.execute("function Knee \"Knee Point\" " + std::to_string(v)), "OK");
        f.rig.ticks.run(10ms);
        push();
    }
    f.rig.ticks.run(1s);
    push();
    EXPECT_TRUE(std::is_sorted(pushes.begin(), pushes.end())) << ::testing::PrintToString(pushes);
    ASSERT_FALSE(pushes.empty());
    EXPECT_EQ(pushes.back(), 0xC0) << ::testing::PrintToString(pushes);
}

// An encoder's steps add up while a value is kept; the window's own bar is not paced (it
// sends once, at release, as before); mode commands are never merged.
TEST(FaderOnLine, StepsAddUpAndOtherCommandsAreNotMerged) {
    FaderRig f;
    const int start = f.rig.forms.main.VrMblk.value();
    for (int i = 0; i < 5; ++i) EXPECT_EQ(f.set.execute("level mblk step 2"), "OK");
    EXPECT_EQ(f.rig.readout.queued(), 1);
    f.rig.ticks.run(200ms);
    EXPECT_EQ(f.cameraMblk(), start + 10);

    f.rig.forms.main.VrMblk.setValue(start);  // the operator at the window
    f.rig.forms.main.VrMblk.setValue(start + 1);
    EXPECT_EQ(f.rig.readout.queued(), 2);
    EXPECT_EQ(f.set.execute("mode bar 1"), "OK");
    EXPECT_EQ(f.set.execute("mode bar 0"), "OK");
    EXPECT_EQ(f.rig.readout.queued(), 4);

    // A value kept when another command comes takes effect before it; one kept when the
    // operator selects another camera at the window is not given to that camera.
    f.rig.ticks.run(500ms);
    EXPECT_EQ(f.set.execute("level mblk 30"), "OK");
    EXPECT_EQ(f.set.execute("level mblk 40"), "OK");  // kept
    EXPECT_EQ(f.set.execute("scene store 2"), "OK");
    EXPECT_EQ(f.rig.forms.main.VrMblk.value(), 40);
    f.rig.ticks.run(1s);
    EXPECT_EQ(f.cameraMblk(), 40);
    EXPECT_EQ(f.set.execute("level mblk 50"), "OK");
    EXPECT_EQ(f.set.execute("level mblk 60"), "OK");  // kept
    f.rig.forms.main.Option9.click(2);
    f.rig.ticks.run(1s);
    EXPECT_EQ(f.cameraMblk(), 50);
    EXPECT_NE(f.rig.forms.main.VrMblk.value(), 60);
}

// Eight faders at once on camera 3 (its seven levels and a function level), each swept up
// at 100 values a second for 2 s: no surface is ever pushed an older value of any of them,
// and the slowest lands within 1.5 times the floor (eight frames a round, one a 40 ms poll).
// Exact checksums keep the sweep from crossing the replies the station's own reading refuses.
TEST(FaderOnLine, EightFadersNeverTwitchAndLandSoon) {
    FaderRig f;
    f.rig.station.readChecksumsExactly(true);
    ASSERT_EQ(f.set.execute("camera 3"), "OK");
    f.rig.ticks.run(1s);
    f.set.changes();
    struct Fader {
        std::string command;  // up to the value
        long lo, hi;
        std::uint8_t address;  // at the camera; 0: the function level, checked at the station
    };
    static constexpr std::array<std::uint8_t, 7> kAddress{0x2B, 0x2E, 0x2C, 0x18, 0x1A, 0x21, 0x23};
    std::vector<Fader> faders;
    for (std::size_t i = 0; i < kLevels.size(); ++i) {
        const auto range = f.set.readout().levelRange(kLevels[i].level);
        faders.push_back({std::string("level ") + kLevels[i].name + " ", std::max(range.lo, range.hi - 199), range.hi,
                          kAddress[i]});
    }
    ASSERT_EQ(f.set.execute("function Knee \"Knee Point\" 0x40"), "OK");
    faders.push_back({"function Knee \"Knee Point\" ", 0x41, 0xC0, 0});
    f.rig.ticks.run(1s);
    f.set.changes();

    std::map<std::string, std::vector<long>> pushes;
    const auto push = [&] {
        for (const remote::StateItem& item : f.set.changes()) {
            if (const auto n = remote::wholeNumber(item.value); n && item.key.rfind("level ", 0) == 0)
                pushes[item.key].push_back(*n);
            else if (item.value.rfind("Knee Point: ", 0) == 0)  // the item's value as the window shows it, in hex
                pushes["knee"].push_back(hexNumber(item.value.substr(12)).value_or(-1));
        }
    };
    const auto valueAt = [](const Fader& d, int i) { return d.lo + (d.hi - d.lo) * i / 199; };
    for (int i = 0; i < 200; ++i) {
        for (const Fader& d : faders) {
            std::ostringstream value;
            if (d.address == 0) value << "0x" << std::hex << std::uppercase << valueAt(d, i);
            else value << valueAt(d, i);
            ASSERT_EQ(f.set.execute(d.command + value.str()), "OK") << d.command << value.str();
        }
        f.rig.ticks.run(10ms);
        push();
    }
    const auto stopped = f.rig.ticks.now();
    const auto landed = [&] {
        const sim::Camera& camera = *f.rig.line.camera(3);
        for (const Fader& d : faders) {
            if (d.address == 0) continue;
            // The iris bar goes to one of two registers, as the iris mode says.
            const bool there = camera.level(d.address) == static_cast<int>(d.hi & 0xFF) ||
                               (d.address == 0x2E && camera.level(0x39) == static_cast<int>(d.hi & 0xFF));
            if (!there) return false;
        }
        return true;
    };
    ASSERT_TRUE(f.rig.ticks.runUntil(landed, 3s));
    const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(f.rig.ticks.now() - stopped);
    EXPECT_LE(took, 480ms) << "floor 320 ms";
    f.rig.ticks.run(1s);
    push();
    int stale = 0;
    for (const auto& [key, values] : pushes)
        for (std::size_t i = 1; i < values.size(); ++i) stale += values[i] < values[i - 1];
    EXPECT_EQ(stale, 0) << ::testing::PrintToString(pushes);
    EXPECT_EQ(pushes.size(), 8u);
    EXPECT_TRUE(f.rig.messages.shown.empty());
}

// A full sweep of M.BLK over its whole range: with the station's own checksum reading some
// replies are refused and the line waits; read exactly, every reply is taken and the line
// never stalls. The frames the station sends are the same either way.
TEST(FaderOnLine, ExactChecksumsLetAFullSweepThrough) {
    std::vector<std::string> sent[2];
    for (const bool exact : {false, true}) {
        SCOPED_TRACE(exact);
        FaderRig f;
        f.rig.station.readChecksumsExactly(exact);
        f.rig.traffic.clear();
        int naks = 0;
        for (int v = -127; v <= 127; ++v) {
            ASSERT_EQ(f.set.execute("level mblk " + std::to_string(v)), "OK");
            ASSERT_TRUE(f.rig.ticks.runUntil([&] { return f.rig.readout.queued() == 0; }, 30s));
            f.rig.ticks.run(120ms);
            naks += f.rig.readout.answerWaitTicks() > 0;
        }
        EXPECT_EQ(f.cameraMblk(), 127);
        if (exact) {
            EXPECT_EQ(naks, 0);
            EXPECT_TRUE(f.rig.messages.shown.empty());
        } else {
            EXPECT_GT(naks, 0);  // the station's own reading refuses some and waits for an answer
        }
        sent[exact] = f.rig.stationFrames();
    }
    EXPECT_EQ(sent[0], sent[1]);
}

}  // namespace
}  // namespace station
