#include "ui/start/station_timers.hpp"

#include <algorithm>
#include <cstdlib>
#include <exception>

#include "app/station_readout.hpp"

namespace station::ui {

StationTimers::StationTimers(Station& station, std::function<void()> afterTick, std::function<void()> beforePoll,
                             std::function<bool()> lineBusy)
    : station_(station), afterTick_(std::move(afterTick)), beforePoll_(std::move(beforePoll)),
      lineBusy_(std::move(lineBusy)), plan_(station) {
    clock_.start();
    for (int i = 0; i < TickPlan::kTimers; ++i) {
        const auto which = static_cast<Which>(i);
        QTimer& t = timers_.at(static_cast<std::size_t>(i));
        t.setTimerType(Qt::PreciseTimer);
        t.setSingleShot(true);  // armed for each tick at its grid instant, so no drift
        QObject::connect(&t, &QTimer::timeout, [this, which] { fire(which); });
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

void StationTimers::fire(Which which) {
    if (paused_ > 0 || stopped_) return;
    // A tick that was already due when its timer was switched off in the model is dropped.
    if (plan_.model(which).Enabled) {
        // Taken before it runs: a message box inside the tick restarts the grids.
        plan_.ticked(which, now());
        // The built-in camera line catches up just before each poll.
        if (which == Poll && beforePoll_) beforePoll_();
        plan_.tick(which);
    }
    if (afterTick_) afterTick_();
    else sync();
}

void StationTimers::sync() {
    if (paused_ > 0 || stopped_) return;
    const TickPlan::Millis at = now();
    plan_.update(at, lineBusy());
    for (int i = 0; i < TickPlan::kTimers; ++i) {
        QTimer& t = timers_.at(static_cast<std::size_t>(i));
        const auto due = plan_.due(static_cast<Which>(i));
        if (!due) {
            if (t.isActive()) t.stop();
            continue;
        }
        const int wait = static_cast<int>(std::max<TickPlan::Millis::rep>(0, (*due - at).count()));
        // Re-armed only when the instant moved, so that a redraw does not push a tick back.
        if (!t.isActive() || std::abs(t.remainingTime() - wait) > 1) t.start(wait);
    }
    const auto mark = nextMarkChange(station_);
    if (!mark) {
        markAge_.stop();
    } else {
        const auto wait = std::chrono::duration_cast<std::chrono::milliseconds>(*mark - StationReadout(station_).now());
        markAge_.start(static_cast<int>(std::clamp<std::chrono::milliseconds::rep>(wait.count(), 0, 3'600'000)));
    }
}

void StationTimers::pause() {
    if (paused_++ == 0) {
        for (QTimer& t : timers_) t.stop();
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
    for (QTimer& t : timers_) t.stop();
    markAge_.stop();
}

bool StationTimers::running(Which which) const {
    return !stopped_ && paused_ == 0 && plan_.on(which);
}

bool StationTimers::awake(Which which) const {
    return timers_.at(static_cast<std::size_t>(which)).isActive();
}

int StationTimers::interval(Which which) const {
    return running(which) ? plan_.model(which).Interval : 0;
}

}  // namespace station::ui
