#pragma once
// The station's five timers as precise QTimers: the 40 ms poll, the 100 ms acknowledge
// watch, the 500 ms answer watch, the 500 ms filter-pulse release, and the auto-message
// countdown. Each runs while its model timer is enabled, at the model's interval, on the
// grid it was started on; between ticks that would change nothing it sleeps (see TickPlan)
// and is woken by a tick, a gesture, a remote command, or a byte arriving (wake()).
// While a modal box is up all of them stand still, and they run on after it is gone.

#include <QElapsedTimer>
#include <QTimer>

#include <array>
#include <functional>

#include "app/station.hpp"
#include "app/tick_plan.hpp"

namespace station::ui {

class StationTimers {
public:
    using Which = StationTick::Which;
    using enum StationTick::Which;

    // `afterTick` runs after every tick (the windows are redrawn); `beforePoll` runs just
    // before each poll (the built-in camera line catches up). `lineBusy` says whether bytes
    // wait at the port or are on their way; without it the poll never sleeps, since nothing
    // would wake it for a byte.
    StationTimers(Station& station, std::function<void()> afterTick, std::function<void()> beforePoll = {},
                  std::function<bool()> lineBusy = {});

    // Starts, stops, re-times and wakes or sleeps each QTimer to follow its model timer.
    void sync();
    // Something arrived (a byte at the port): the poll wakes on its grid.
    void wake() { sync(); }
    void pause();
    void resume();
    // Stops every timer for good (the station has ended).
    void stop();
    void setLineBusy(std::function<bool()> lineBusy) { lineBusy_ = std::move(lineBusy); }

    // Running: enabled in its model and not held by a modal box, though maybe asleep.
    bool running(Which which) const;
    // Awake: its next tick is armed.
    bool awake(Which which) const;
    int interval(Which which) const;

private:
    void fire(Which which);
    TickPlan::Millis now() const { return TickPlan::Millis(clock_.elapsed()); }
    bool lineBusy() const;

    Station& station_;
    std::function<void()> afterTick_;
    std::function<void()> beforePoll_;
    std::function<bool()> lineBusy_;
    QElapsedTimer clock_;
    TickPlan plan_;
    std::array<QTimer, TickPlan::kTimers> timers_;  // one for each timer of the tick table
    QTimer markAge_;  // redraws when a camera's answer mark grows old
    int paused_ = 0;
    bool stopped_ = false;
};

}  // namespace station::ui
