#pragma once
// The station's five timers, once for every clock that drives them (the windows' QTimers,
// corvane-ctl's loop, tests): the 40 ms poll, the 100 ms acknowledge watch, the 500 ms
// answer watch, the 500 ms filter-pulse release and the auto-message countdown. Each
// ticks only while its model timer is enabled, at the model's interval; timers due at one
// instant tick in the table's order.

#include <array>
#include <functional>

#include "common/controls.hpp"

namespace station {

class Station;

struct StationTick {
    enum Which { Poll, AckWatch, AnswerWatch, FilterRelease, AutoMessage };
    static constexpr int kTimers = 5;

    Which which;                 // its place in the table
    const Timer& model;          // Enabled and Interval as the station sets them
    std::function<void()> tick;  // the station's handler, at its error boundary
    // Whether its next tick would change anything. `lineBusy`: bytes wait at the port or
    // are on their way to it. The poll also has work while the line's device is missing,
    // to try it again.
    std::function<bool(bool lineBusy)> hasWork;
};

using StationTicks = std::array<StationTick, StationTick::kTimers>;

StationTicks stationTicks(Station& station);

}  // namespace station
