#pragma once
// The station's five timers as precise QTimers: the 40 ms poll, the 100 ms acknowledge
// watch, the 500 ms answer watch, the 500 ms filter-pulse release, and the auto-message
// countdown. Each runs only while its model timer is enabled, at the model's interval.
// While a modal box is up all of them stand still, and they run on after it is gone.

#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

#include "app/station.hpp"
#include "app/tick_table.hpp"

namespace station::ui {

class StationTimers {
public:
    using Which = StationTick::Which;
    using enum StationTick::Which;

    // `afterTick` runs after every tick (the windows are redrawn); `beforePoll` runs just
    // before each poll (the built-in camera line catches up).
    StationTimers(Station& station, std::function<void()> afterTick, std::function<void()> beforePoll = {});

    // Starts, stops and re-times each QTimer to follow its model timer.
    void sync();
    void pause();
    void resume();
    // Stops every timer for good (the station has ended).
    void stop();

    bool running(Which which) const;
    int interval(Which which) const;

private:
    struct Entry {
        const Timer& model;
        std::function<void()> tick;
        std::unique_ptr<QTimer> timer;
    };
    void fire(Entry& entry);

    std::function<void()> afterTick_;
    std::vector<Entry> entries_;
    int paused_ = 0;
    bool stopped_ = false;
};

}  // namespace station::ui
