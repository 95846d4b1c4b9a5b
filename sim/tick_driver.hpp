#pragma once
// Runs the station's timers at their intervals in simulated time, moving the camera line
// along between ticks: the in-process stand-in for the desktop program's timers.
//
//   TickDriver ticks(line);
//   ticks.every(Micros{40'000}, [&] { link.Timer1_Timer(); });
//   ticks.every(Micros{100'000}, [&] { link.Timer2_Timer(); });
//   ticks.run(Micros{2'000'000});
//
// Timers due at the same moment tick in the order they were added. A timer whose
// `enabled` test fails at its moment skips that tick and keeps its rhythm.

#include <functional>
#include <deque>

#include "sim/line.hpp"

namespace station::sim {

class TickDriver {
public:
    explicit TickDriver(Line& line) : line_(line) {}

    // The first tick comes one interval after now. The interval must be positive.
    void every(Micros interval, std::function<void()> tick, std::function<bool()> enabled = {});

    // Moves time on by `span`, ticking every timer that falls due on the way.
    void run(Micros span);

    // Ticks until `done` holds after a tick, or until `limit` has passed; says whether it held.
    bool runUntil(const std::function<bool()>& done, Micros limit);

    Micros now() const { return line_.now(); }

private:
    struct Timer {
        Micros interval;
        Micros next;
        std::function<void()> tick;
        std::function<bool()> enabled;
    };

    // Runs the earliest timer due at or before `end`; false when none is.
    bool step(Micros end);

    Line& line_;
    std::deque<Timer> timers_;  // stable while a tick adds a timer
};

}  // namespace station::sim
