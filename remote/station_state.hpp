#pragma once
// What a control surface shows of the station, as named values: the selected camera's
// panel as the main window shows it (camera, scene, mode buttons, levels, gain-step values,
// filter, tally, call) and the auto set-up message. A watch remembers the values last
// reported and tells which have changed since, so that feedback is found by looking at the
// window models; nothing is hooked into the station and nothing it sends changes.

#include <functional>
#include <string>
#include <vector>

#include "app/station_readout.hpp"

namespace station::remote {

struct StateItem {
    std::string key;    // words, e.g. "level iris"
    std::string value;  // e.g. "12"; may hold blanks
    bool operator==(const StateItem&) const = default;
};
using StateList = std::vector<StateItem>;

// Adds the selected camera's panel and the auto message to `out`.
void addPanelState(const StationReadout& station, StateList& out);

class StateWatch {
public:
    // A source adds its items to the list; more sources (the line's state, per-camera
    // answers) plug in beside the panel's.
    using Source = std::function<void(const StationReadout&, StateList&)>;

    explicit StateWatch(const StationReadout& station);
    void addSource(Source source);

    StateList current() const;
    // The items whose value differs from the last call (every item on the first call).
    StateList changes();

private:
    const StationReadout& station_;
    std::vector<Source> sources_;
    StateList last_;
};

}  // namespace station::remote
