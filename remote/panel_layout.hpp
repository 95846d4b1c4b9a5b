#pragma once
// What a panel drawn by a client needs beside the pushed values to lay itself out as the
// main window is now: each button group's captions, each level bar's range, which controls
// the window greys, and the selected camera's type and ID. The browser panel is told these
// as "EV panel <name> <value>" lines whenever they change.
//
//   panel cameras "GROUP|1|2|3|4|5|6|7|8"   captions from the group's first index (GROUP is 0)
//   panel mode white "0|ATW|AWB A|AWB B"    the first index, then the captions
//   panel range iris "-128 127"
//   panel offered "camera,scene,clear,filter,call,auto white,mode bar,level iris,gain value low,..."
//   panel type HD-100      panel id 01

#include "remote/station_state.hpp"

namespace station::remote {

// Adds the layout items to `out`, in a fixed order.
void addPanelLayout(const StationReadout& station, StateList& out);

// Remembers the layout last told and says what changed since (all of it on the first call).
class LayoutWatch {
public:
    explicit LayoutWatch(const StationReadout& station) : station_(station) {}
    StateList current() const;
    StateList changes();

private:
    const StationReadout& station_;
    StateList last_;
};

}  // namespace station::remote
