#pragma once
// The station's five timers, once for every clock that drives them (the windows' QTimers,
// corvane-ctl's loop, tests): the 40 ms poll, the 100 ms acknowledge watch, the 500 ms
// answer watch, the 500 ms filter-pulse release and the auto-message countdown. Each
// ticks only while its model timer is enabled, at the model's interval.

#include <array>
#include <functional>

#include "common/controls.hpp"

namespace station {

class Station;

struct StationTick {
    enum Which { Poll, AckWatch, AnswerWatch, FilterRelease, AutoMessage };
    const Timer& model;         // Enabled and Interval as the station sets them
    std::function<void()> tick;  // the station's handler, at its error boundary
};

std::array<StationTick, 5> stationTicks(Station& station);

}  // namespace station
