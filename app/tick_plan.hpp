#pragma once
// When the station's five timers tick: the 40 ms poll, the 100 ms acknowledge watch, the
// 500 ms answer watch, the 500 ms filter-pulse release and the auto-message countdown.
//
// Each timer keeps the grid it was started on: its start plus whole intervals. A timer
// whose next tick would change nothing sleeps instead of waking the machine 25 times a
// second for nothing; when work comes (a frame queued, a byte arriving, a wait armed) it
// wakes on the same grid, at the first grid instant not before the work came and never at
// one it has already ticked on. So every count in ticks is what it would have been with
// the timer running all along: no tick is lost or doubled by a sleep. Timers due at one
// instant tick in the order of the tick table; work that comes at an instant, from outside
// or from a tick, is taken by the ticks of that instant that are still to come.
//
// Time enters as milliseconds of a monotonic clock, given by the caller.

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>

#include "app/tick_table.hpp"
#include "common/controls.hpp"

namespace station {

// When a camera's answer mark next changes by time alone (an answer grows old), if any
// will: the windows are redrawn then, though no timer has work.
std::optional<std::chrono::system_clock::time_point> nextMarkChange(const Station& station);

class TickPlan {
public:
    using Millis = std::chrono::milliseconds;
    using Which = StationTick::Which;
    using enum StationTick::Which;
    static constexpr int kTimers = StationTick::kTimers;

    explicit TickPlan(Station& station);

    // Follows the model timers (started, stopped, given another interval) and what each
    // has to do now. Call it after anything that may change either: a tick, a gesture, a
    // remote command, a byte arriving. `lineBusy`: bytes wait at the port or are on their
    // way to it (the built-in line's cameras are still at work).
    void update(Millis now, bool lineBusy);
    // When the timer ticks next; none while it is off or asleep. May lie before `now`
    // when the caller is late: the tick is then due at once.
    std::optional<Millis> due(Which which) const;
    // The due tick is being run at `now`: the next is one interval on, or the first grid
    // instant after `now` when the caller was more than an interval late.
    void ticked(Which which, Millis now);
    // The timers stood still (a modal box was up): every grid starts again at `now`.
    void restart(Millis now);

    bool on(Which which) const { return grids_.at(static_cast<std::size_t>(which)).on; }
    bool awake(Which which) const { return due(which).has_value(); }
    const Timer& model(Which which) const { return ticks_.at(static_cast<std::size_t>(which)).model; }
    // The station's handler of the timer.
    void tick(Which which) const { ticks_.at(static_cast<std::size_t>(which)).tick(); }

private:
    struct Grid {
        bool on = false;
        bool awake = false;
        Millis start{0};
        Millis interval{0};
        std::int64_t next = 1;  // index of the next tick on the grid; ticks before it are done
        Millis instant(std::int64_t index) const { return start + interval * index; }
    };
    Grid& grid(Which which) { return grids_.at(static_cast<std::size_t>(which)); }

    const StationTicks ticks_;
    std::array<Grid, kTimers> grids_{};
    // The latest instant a tick ran on, and the last timer in the order that ticked on it.
    Millis lastTickAt_{-1};
    int lastTicked_ = -1;
};

}  // namespace station
