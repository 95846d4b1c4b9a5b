#include "app/tick_plan.hpp"

#include "app/station_readout.hpp"

namespace station {

std::optional<std::chrono::system_clock::time_point> nextMarkChange(const Station& station) {
    const StationReadout readout(station);
    const auto now = readout.now();
    std::optional<std::chrono::system_clock::time_point> next;
    for (int camera = 1; camera <= 8; ++camera) {
        if (readout.answer(camera, now) != Answer::Answering) continue;
        // "answering" holds while the last answer is at most kRecent old.
        const auto change = *readout.lastAnswer(camera) + CameraAnswers::kRecent +
                            std::chrono::milliseconds(1);
        if (!next || change < *next) next = change;
    }
    return next;
}

TickPlan::TickPlan(Station& station) : ticks_(stationTicks(station)) {}

void TickPlan::update(Millis now, bool lineBusy) {
    for (int i = 0; i < kTimers; ++i) {
        const StationTick& t = ticks_.at(static_cast<std::size_t>(i));
        const Timer& timer = t.model;
        Grid& g = grids_.at(static_cast<std::size_t>(i));
        const bool on = timer.Enabled && timer.Interval > 0;
        if (!on) {
            g = Grid{};
            continue;
        }
        if (!g.on || g.interval != Millis(timer.Interval)) {
            // Started (or re-timed): the first tick one interval from now, as a timer starts.
            g = Grid{true, false, now, Millis(timer.Interval), 1};
        }
        const bool work = t.hasWork(lineBusy);
        const bool wakes = work && !g.awake;
        g.awake = work;
        if (!wakes) continue;
        // The ticks slept through changed nothing; the next is the first grid instant at
        // or after now that has not been ticked on. An instant equal to now is still to
        // come unless a timer at or after this one in the tick order has ticked on it.
        std::int64_t reached = (now - g.start + g.interval - Millis(1)) / g.interval;
        if (g.instant(reached) == now && lastTickAt_ == now && i <= lastTicked_) ++reached;
        if (reached > g.next) g.next = reached;
    }
}

std::optional<TickPlan::Millis> TickPlan::due(Which which) const {
    const Grid& g = grids_.at(static_cast<std::size_t>(which));
    if (!g.on || !g.awake) return std::nullopt;
    return g.instant(g.next);
}

void TickPlan::ticked(Which which, Millis now) {
    if (now > lastTickAt_) lastTicked_ = -1;
    lastTickAt_ = now;
    if (which > lastTicked_) lastTicked_ = which;
    Grid& g = grid(which);
    if (!g.on) return;
    ++g.next;
    // Late by more than an interval (the machine was busy): the missed instants are skipped.
    const std::int64_t after = (now - g.start) / g.interval + 1;
    if (after > g.next) g.next = after;
}

void TickPlan::restart(Millis now) {
    for (Grid& g : grids_)
        if (g.on) {
            g.start = now;
            g.next = 1;
        }
}

}  // namespace station
