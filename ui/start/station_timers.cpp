#include "ui/start/station_timers.hpp"

namespace station::ui {

StationTimers::StationTimers(Station& station, std::function<void()> afterTick, std::function<void()> beforePoll)
    : afterTick_(std::move(afterTick)) {
    Station* s = &station;
    auto poll = [s, beforePoll = std::move(beforePoll)] {
        if (beforePoll) beforePoll();
        s->Timer1_Timer();
    };
    entries_.push_back({station.link.Timer1, poll, nullptr});
    entries_.push_back({station.link.Timer2, [s] { s->Timer2_Timer(); }, nullptr});
    entries_.push_back({station.link.Timer3, [s] { s->Timer3_Timer(); }, nullptr});
    entries_.push_back({station.form1.Timer4, [s] { s->Timer4_Timer(); }, nullptr});
    entries_.push_back({station.form6.Timer1, [s] { s->Form6Timer_Timer(); }, nullptr});
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
