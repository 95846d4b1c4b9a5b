#pragma once
// Lamps for a surface's buttons: one on/off value per button, so that a button with an LED
// lights when what it selects is selected. From the panel's state:
//   camera 2 selected  -> "camera 2" on, every other "camera N" and "camera group" off
//   scene 3            -> "scene 3" on, the other scenes off
//   mode white ATW     -> "mode white ATW" on (the button's caption), its group's others off
//   tally on           -> "tally N" on for the selected camera N (each camera keeps the
//                         tally it last reported while selected)
// As OSC these are /camera/2 1, /scene/3 0, /mode/white/ATW 1, /tally/4 0 (osc_codec.hpp).

#include <map>
#include <string>

#include "remote/station_state.hpp"

namespace station::remote {

class ButtonFeedback {
public:
    explicit ButtonFeedback(const StationReadout& station) : station_(station) {}

    // The lamps that changed since the last call, once `changed` holds what they follow.
    StateList lamps(const StateList& changed);
    // Every lamp as it is now (for a surface that registers late).
    StateList all();

private:
    StateList current();

    const StationReadout& station_;
    std::map<int, bool> tally_;               // camera -> its tally as last reported
    std::map<std::string, std::string> shown_;  // lamp -> the value last told
};

}  // namespace station::remote
