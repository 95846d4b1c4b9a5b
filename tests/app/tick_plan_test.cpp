// Sleeping timers change no tick: a station whose timers follow the TickPlan (asleep while
// a tick would change nothing, woken by gestures and arriving bytes) writes the same bytes
// at the same milliseconds, and shows the same messages at the same ones, as a station whose
// timers tick on every instant of their grids.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "app/tick_plan.hpp"
#include "tests/support/station_rig.hpp"

namespace station {
namespace {

using Millis = TickPlan::Millis;
using testing::StationRig;

// What happened on the line and on the screen, by the millisecond.
using Trace = std::vector<std::string>;

// A gesture or an arrival at a given millisecond, applied before the ticks of that instant.
struct Event {
    long at;
    std::function<void(StationRig&)> run;
};

void note(StationRig& rig, long t, Trace& trace, std::size_t& shown) {
    for (const Bytes& w : rig.port.writes) trace.push_back(std::to_string(t) + " out " + hexText(w));
    rig.port.writes.clear();
    for (; shown < rig.messages.shown.size(); ++shown)
        trace.push_back(std::to_string(t) + " box " + rig.messages.shown[shown].text);
}

// Every timer ticks at each instant of its grid: its start plus whole intervals.
Trace alwaysTicking(const std::vector<Event>& events, long until, int& polls) {
    StationRig rig;
    std::array<long, TickPlan::kTimers> start{};
    std::array<bool, TickPlan::kTimers> on{};
    Trace trace;
    std::size_t shown = 0;
    auto follow = [&](long t) {
        for (int i = 0; i < TickPlan::kTimers; ++i) {
            const Timer& m = rig.ticks.at(i).model;
            const bool now = m.Enabled && m.Interval > 0;
            if (now && !on.at(i)) start.at(i) = t;
            on.at(i) = now;
        }
    };
    follow(0);
    for (long t = 1; t <= until; ++t) {
        for (const Event& e : events)
            if (e.at == t) e.run(rig);
        follow(t);
        for (int i = 0; i < TickPlan::kTimers; ++i) {
            const Timer& m = rig.ticks.at(i).model;
            if (!on.at(i) || t == start.at(i) || (t - start.at(i)) % m.Interval != 0) continue;
            if (i == TickPlan::Poll) ++polls;
            rig.ticks.at(i).tick();
            follow(t);
        }
        note(rig, t, trace, shown);
    }
    return trace;
}

// The timers tick only when the plan has them due; every event is followed by an update,
// as the desktop program's gestures, remote commands and port notifier do.
Trace asPlanned(const std::vector<Event>& events, long until, std::vector<long>& polls) {
    StationRig rig;
    TickPlan plan(rig.station);
    const auto busy = [&rig] { return rig.port.bytesWaiting() > 0; };
    plan.update(Millis(0), busy());
    Trace trace;
    std::size_t shown = 0;
    for (long t = 1; t <= until; ++t) {
        for (const Event& e : events)
            if (e.at == t) {
                e.run(rig);
                plan.update(Millis(t), busy());
            }
        for (int i = 0; i < TickPlan::kTimers; ++i) {
            const auto which = static_cast<TickPlan::Which>(i);
            const auto due = plan.due(which);
            if (due && *due < Millis(t)) ADD_FAILURE() << "timer " << i << " left a tick behind at " << t;
            if (!due || *due != Millis(t)) continue;
            if (i == TickPlan::Poll) polls.push_back(t);
            plan.ticked(which, Millis(t));
            plan.tick(which);
            plan.update(Millis(t), busy());
        }
        note(rig, t, trace, shown);
    }
    return trace;
}

TEST(TickPlan, SleepingTimersLoseAndDoubleNoTick) {
    const auto bar = [](int on) { return [on](StationRig& r) { r.form1.OptBar.click(on); }; };
    const auto level = [](int n) { return [n](StationRig& r) { r.form1.VrRGain.setValue(n); }; };
    const auto arrive = [](Bytes bytes) { return [bytes](StationRig& r) { r.port.arrive(bytes); }; };
    const Bytes bad = [] {
        Bytes b = testing::reply("220801");
        b.back() ^= 0x01;
        return b;
    }();
    const std::vector<Event> events{
        {1003, bar(1)},           // queued between ticks: out on the next poll
        {1111, arrive(testing::wire("06"))},  // its ACK
        {1234, arrive(testing::reply("220801"))},
        {2000, arrive(testing::reply("220800"))},  // on an instant of every grid
        {8000, arrive(bad)},                // NAK, and the 25 s answer watch
        {9001, bar(1)},
        {9002, bar(0)},
        {32600, arrive(testing::wire("06"))},
        {34000, [](StationRig& r) { r.station.ACK_Click(1); }},
        // Without handshake the last frame leaves on the poll at 35000, the instant the
        // next pulse is released: the poll has ticked on it and must not tick on it again.
        {34600, [](StationRig& r) { r.form1.RelCount = 1; }},  // a filter pulse
        {34881, level(1)},
        {34882, level(2)},
        {34883, level(3)},
        {35500, [](StationRig& r) { r.station.ACK_Click(0); }},
        {35510, [](StationRig& r) { (void)r.actions.consoleFrame(hexText(testing::reply("4000"))); }},
    };
    constexpr long kUntil = 37000;
    int everyPoll = 0;
    std::vector<long> plannedPolls;
    const Trace expected = alwaysTicking(events, kUntil, everyPoll);
    const Trace planned = asPlanned(events, kUntil, plannedPolls);
    EXPECT_EQ(planned, expected);

    // The scenario reaches what it is about.
    const auto has = [&expected](const std::string& line) {
        return std::find(expected.begin(), expected.end(), line) != expected.end();
    };
    EXPECT_TRUE(has("1040 out " + hexText(testing::frame(testing::wire("200801FE")))));
    EXPECT_TRUE(has("33500 box No Acknowledge"));
    EXPECT_TRUE(has("32500 box No Answer from Camera"));         // 50 ticks of 500 ms after 8000
    EXPECT_TRUE(has("8000 out 15"));
    EXPECT_TRUE(has("35000 out " + hexText(testing::frame(testing::wire("30180300"), "", true))));
    EXPECT_TRUE(has("35040 out " + hexText(testing::frame(testing::wire("201400FE"), "", true))));
    EXPECT_EQ(everyPoll, kUntil / 40);
    // And the poll slept while nothing was queued or arriving: from the ACK after the reply
    // at 2000 to the bad frame at 8000.
    const auto quiet = std::count_if(plannedPolls.begin(), plannedPolls.end(), [](long t) { return t > 2000 && t < 8000; });
    EXPECT_EQ(quiet, 0);
    EXPECT_LT(plannedPolls.size() * 4, static_cast<std::size_t>(everyPoll) * 3);
}

// A pulse's release at 6000, an instant of the poll's grid too: the poll slept through its
// tick there, and the release queued after it, so the frame leaves on the next poll.
TEST(TickPlan, WorkFromALaterTimerWaitsForTheNextPoll) {
    const std::vector<Event> events{{5600, [](StationRig& r) { r.form1.RelCount = 1; }}};
    int everyPoll = 0;
    std::vector<long> plannedPolls;
    const Trace expected = alwaysTicking(events, 8000, everyPoll);
    EXPECT_EQ(asPlanned(events, 8000, plannedPolls), expected);
    EXPECT_EQ(expected, (Trace{"6040 out " + hexText(testing::frame(testing::wire("201400FE"))),
                               "7000 box No Acknowledge"}));
}

TEST(TickPlan, TheWindowsAreRedrawnWhenAnAnswerGrowsOld) {
    StationRig rig;
    rig.run(600);
    EXPECT_FALSE(nextMarkChange(rig.station).has_value());  // nobody heard yet
    const auto acknowledged = [&rig](int camera) {
        rig.form1.Option9.click(camera);
        rig.form1.VrRGain.setValue(camera);
        rig.run(40);
        rig.port.arrive(testing::wire("06"));
        rig.run(40);
        return *rig.readout.lastAnswer(camera);
    };
    const auto heard = acknowledged(5);
    rig.clock += std::chrono::seconds(20);
    const auto later = acknowledged(2);
    // Camera 5's mark turns "quiet" first, just after a minute.
    const auto quiet = [](auto t) { return t + CameraAnswers::kRecent + std::chrono::milliseconds(1); };
    EXPECT_EQ(nextMarkChange(rig.station), quiet(heard));
    rig.clock = quiet(heard);
    EXPECT_EQ(nextMarkChange(rig.station), quiet(later));
    rig.clock += std::chrono::minutes(1);
    EXPECT_FALSE(nextMarkChange(rig.station).has_value());
}

}  // namespace
}  // namespace station
