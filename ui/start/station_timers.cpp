#include "ui/start/station_timers.hpp"

namespace station::ui {

StationTimers::StationTimers(Station& station, std::function<void()> afterTick, std::function<void()> beforePoll)
    : afterTick_(std::move(afterTick)) {
    for (StationTick& t : stationTicks(station)) entries_.push_back({t.model, std::move(t.tick), nullptr});
    // The built-in camera line catches up just before each poll.
    entries_.at(StationTick::Poll).tick = [poll = std::move(entries_.at(StationTick::Poll).tick),
                                           beforePoll = std::move(beforePoll)] {
        if (beforePoll) beforePoll();
        poll();
    };
    for (Entry& e : entries_) {
        e.timer = std::make_unique<QTimer>();
        e.timer->setTimerType(Qt::PreciseTimer);
        QObject::connect(e.timer.get(), &QTimer::timeout, [this, &e] { fire(e); });
    }
}

void StationTimers::fire(Entry& entry) {
    // A tick that was already due when its timer was switched off in the model is dropped.
    if (paused_ > 0 || stopped_ || !entry.model.Enabled) return;
    entry.tick();
    if (afterTick_) afterTick_();
}

void StationTimers::sync() {
    if (paused_ > 0 || stopped_) return;
    for (Entry& e : entries_) {
        const bool on = e.model.Enabled && e.model.Interval > 0;
        if (on && e.timer->interval() != e.model.Interval) e.timer->setInterval(e.model.Interval);
        if (on && !e.timer->isActive()) e.timer->start();
        if (!on && e.timer->isActive()) e.timer->stop();
    }
}

void StationTimers::pause() {
    if (paused_++ == 0)
        for (Entry& e : entries_) e.timer->stop();
}

void StationTimers::resume() {
    if (paused_ > 0 && --paused_ == 0) sync();
}

void StationTimers::stop() {
    stopped_ = true;
    for (Entry& e : entries_) e.timer->stop();
}

bool StationTimers::running(Which which) const { return entries_.at(static_cast<std::size_t>(which)).timer->isActive(); }

int StationTimers::interval(Which which) const { return entries_.at(static_cast<std::size_t>(which)).timer->interval(); }

}  // namespace station::ui
