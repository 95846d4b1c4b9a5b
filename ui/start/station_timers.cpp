#include "ui/start/station_timers.hpp"

#include <algorithm>
#include <cstdlib>
#include <exception>

namespace station::ui {

StationTimers::StationTimers(Station& station, std::function<void()> afterTick, std::function<void()> beforePoll,
                             std::function<bool()> lineBusy)
    : station_(station), afterTick_(std::move(afterTick)), lineBusy_(std::move(lineBusy)), plan_(station) {
    clock_.start();
    // The one tick table; the plan's timers are in the same order.
    for (StationTick& t : stationTicks(station))
        entries_.push_back({static_cast<TickPlan::Which>(entries_.size()), std::move(t.tick), nullptr});
    // The built-in camera line catches up just before each poll.
    entries_.at(StationTick::Poll).tick = [poll = std::move(entries_.at(StationTick::Poll).tick),
                                           beforePoll = std::move(beforePoll)] {
        if (beforePoll) beforePoll();
        poll();
    };
    for (Entry& e : entries_) {
        e.timer = std::make_unique<QTimer>();
        e.timer->setTimerType(Qt::PreciseTimer);
        e.timer->setSingleShot(true);  // armed for each tick at its grid instant, so no drift
        QObject::connect(e.timer.get(), &QTimer::timeout, [this, &e] { fire(e); });
    }
    markAge_.setSingleShot(true);
    QObject::connect(&markAge_, &QTimer::timeout, [this] {
        if (afterTick_) afterTick_();
    });
}

bool StationTimers::lineBusy() const {
    if (!lineBusy_) return true;
    try {
        return lineBusy_();
    } catch (const std::exception&) {
        return true;  // the poll finds out what is wrong with the line
    }
}

void StationTimers::fire(Entry& entry) {
    if (paused_ > 0 || stopped_) return;
    // A tick that was already due when its timer was switched off in the model is dropped.
    if (plan_.model(entry.which).Enabled) {
        // Taken before it runs: a message box inside the tick restarts the grids.
        plan_.ticked(entry.which, now());
        entry.tick();
    }
    if (afterTick_) afterTick_();
    else sync();
}

void StationTimers::sync() {
    if (paused_ > 0 || stopped_) return;
    const TickPlan::Millis at = now();
    plan_.update(at, lineBusy());
    for (Entry& e : entries_) {
        const auto due = plan_.due(e.which);
        if (!due) {
            if (e.timer->isActive()) e.timer->stop();
            continue;
        }
        const int wait = static_cast<int>(std::max<TickPlan::Millis::rep>(0, (*due - at).count()));
        // Re-armed only when the instant moved, so that a redraw does not push a tick back.
        if (!e.timer->isActive() || std::abs(e.timer->remainingTime() - wait) > 1) e.timer->start(wait);
    }
    const auto mark = nextMarkChange(station_);
    if (!mark) {
        markAge_.stop();
    } else {
        const auto wait = std::chrono::duration_cast<std::chrono::milliseconds>(*mark - station_.line.now());
        markAge_.start(static_cast<int>(std::clamp<std::chrono::milliseconds::rep>(wait.count(), 0, 3'600'000)));
    }
}

void StationTimers::pause() {
    if (paused_++ == 0) {
        for (Entry& e : entries_) e.timer->stop();
        markAge_.stop();
    }
}

void StationTimers::resume() {
    if (paused_ > 0 && --paused_ == 0) {
        // As timers started afresh: the first tick one interval after the box went.
        plan_.restart(now());
        sync();
    }
}

void StationTimers::stop() {
    stopped_ = true;
    for (Entry& e : entries_) e.timer->stop();
    markAge_.stop();
}

bool StationTimers::running(Which which) const {
    return !stopped_ && paused_ == 0 && plan_.on(static_cast<TickPlan::Which>(which));
}

bool StationTimers::awake(Which which) const {
    return entries_.at(static_cast<std::size_t>(which)).timer->isActive();
}

int StationTimers::interval(Which which) const {
    const Timer& model = plan_.model(static_cast<TickPlan::Which>(which));
    return running(which) ? model.Interval : 0;
}

}  // namespace station::ui
