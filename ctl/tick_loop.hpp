#pragma once
// Drives the station's timers (its tick table) at their model intervals on a clock: the
// real one on a serial line, or the simulated camera line's own time, which then runs as
// fast as the machine allows.

#include <chrono>
#include <functional>
#include <vector>

#include "app/tick_table.hpp"
#include "sim/line.hpp"

namespace station::ctl {

using Micros = std::chrono::microseconds;

class Clock {
public:
    virtual ~Clock() = default;
    virtual Micros now() = 0;
    virtual void sleepUntil(Micros t) = 0;
};

class RealClock final : public Clock {
public:
    Micros now() override;
    void sleepUntil(Micros t) override;

private:
    const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// The in-process line's time: sleeping moves the cameras on.
class LineClock final : public Clock {
public:
    explicit LineClock(sim::Line& line) : line_(line) {}
    Micros now() override { return line_.now(); }
    void sleepUntil(Micros t) override { line_.advanceTo(t); }

private:
    sim::Line& line_;
};

class TickLoop {
public:
    TickLoop(Station& station, Clock& clock);

    // Ticks until `done` holds (before the first tick or after one) or `limit` has passed;
    // whether it held.
    bool runUntil(const std::function<bool()>& done, Micros limit);
    void run(Micros span) { runUntil([] { return false; }, span); }
    Micros now() { return clock_.now(); }

    // Runs after every tick (the program checks what the tick brought).
    std::function<void()> afterTick;
    // Runs after every tick before afterTick, whoever waits; may throw to end the run.
    std::function<void()> watch;

private:
    struct Entry {
        const Timer& model;
        std::function<void()> tick;
        Micros next{0};
        bool running = false;
    };
    void follow(Entry& e, Micros now);

    Clock& clock_;
    std::vector<Entry> entries_;
};

}  // namespace station::ctl
