#pragma once
// The station's timers on a test's clock, taken from the station's own tick table: each
// enabled timer ticks at its model's interval, timers due at one instant in the table's
// order, as the desktop program's timers do.

#include <chrono>
#include <functional>

#include "app/tick_table.hpp"
#include "sim/tick_driver.hpp"

namespace station::testing {

// The ticks due at `ms` milliseconds of a clock started with the station. `beforePoll`
// runs just before the poll (a camera line catches up).
inline void tickAt(const StationTicks& ticks, long ms, const std::function<void()>& beforePoll = {}) {
    for (const StationTick& t : ticks) {
        if (!t.model.Enabled || t.model.Interval <= 0 || ms % t.model.Interval != 0) continue;
        if (t.which == StationTick::Poll && beforePoll) beforePoll();
        t.tick();
    }
}

// The timers on a simulated camera line's clock, at the intervals the started station set.
inline void driveTicks(sim::TickDriver& driver, const StationTicks& ticks, std::function<void()> beforePoll = {}) {
    for (const StationTick& t : ticks) {
        std::function<void()> tick = t.tick;
        if (t.which == StationTick::Poll && beforePoll)
            tick = [tick, beforePoll] {
                beforePoll();
                tick();
            };
        const Timer& model = t.model;
        driver.every(std::chrono::milliseconds(model.Interval), std::move(tick), [&model] { return model.Enabled; });
    }
}

}  // namespace station::testing
