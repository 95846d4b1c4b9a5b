#include "ctl/tick_loop.hpp"

#include <thread>

namespace station::ctl {

Micros RealClock::now() {
    return std::chrono::duration_cast<Micros>(std::chrono::steady_clock::now() - start_);
}

void RealClock::sleepUntil(Micros t) { std::this_thread::sleep_until(start_ + t); }

TickLoop::TickLoop(Station& station, Clock& clock) : clock_(clock) {
    for (StationTick& t : stationTicks(station)) entries_.push_back({t.model, std::move(t.tick)});
}

void TickLoop::follow(Entry& e, Micros now) {
    // A timer switched on starts its rhythm then, as a window's timer does.
    const bool on = e.model.Enabled && e.model.Interval > 0;
    if (on && !e.running) e.next = now + std::chrono::milliseconds(e.model.Interval);
    e.running = on;
}

bool TickLoop::runUntil(const std::function<bool()>& done, Micros limit) {
    const Micros end = clock_.now() + limit;
    // What is already so needs no tick.
    if (done()) return true;
    for (;;) {
        const Micros now = clock_.now();
        for (Entry& e : entries_) follow(e, now);
        Entry* due = nullptr;
        for (Entry& e : entries_)
            if (e.running && (!due || e.next < due->next)) due = &e;
        if (!due || due->next > end) {
            clock_.sleepUntil(end);
            return done();
        }
        clock_.sleepUntil(due->next);
        // Late ticks are not made up: a timer that fell behind ticks once and goes on.
        due->next = std::max(due->next + std::chrono::milliseconds(due->model.Interval), clock_.now());
        due->tick();
        if (watch) watch();
        if (afterTick) afterTick();
        if (done()) return true;
    }
}

}  // namespace station::ctl
