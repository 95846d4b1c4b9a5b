#include "sim/tick_driver.hpp"

#include <utility>

#include "common/runtime_error.hpp"

namespace station::sim {

void TickDriver::every(Micros interval, std::function<void()> tick, std::function<bool()> enabled) {
    if (interval <= Micros{0}) throw RuntimeError::invalidCall();
    timers_.push_back(Timer{interval, line_.now() + interval, std::move(tick), std::move(enabled)});
}

bool TickDriver::step(Micros end) {
    Timer* due = nullptr;
    for (Timer& t : timers_)
        if (t.next <= end && (due == nullptr || t.next < due->next)) due = &t;
    if (due == nullptr) return false;
    line_.advanceTo(due->next);
    due->next += due->interval;
    if (!due->enabled || due->enabled()) due->tick();
    return true;
}

void TickDriver::run(Micros span) {
    const Micros end = line_.now() + span;
    while (step(end)) {
    }
    line_.advanceTo(end);
}

bool TickDriver::runUntil(const std::function<bool()>& done, Micros limit) {
    const Micros end = line_.now() + limit;
    while (step(end))
        if (done()) return true;
    line_.advanceTo(end);
    return done();
}

}  // namespace station::sim
