#pragma once
// The operator's gestures by name: the one front door the remote command set and
// corvane-ctl use, and tests may. Each action asks the availability rule that greys its
// control in the windows, refuses with the reason when the control is greyed, and otherwise
// does exactly what the click does on the window model, at the station's error boundary.
//
//   Actions actions(station);
//   actions.selectCamera(3);                 // as a click on camera button 3
//   actions.setLevel(Level::Iris, 12);       // as moving the iris bar to 12
//   if (auto r = actions.call(true); !r.ok()) report(r.why());
//
// Checks of a client's own words (an index out of range, an unknown name) stay with the
// client; an action takes values the control has.

#include <functional>
#include <string>

#include "app/action_result.hpp"
#include "app/panel_controls.hpp"
#include "app/station_readout.hpp"
#include "link/link_events.hpp"

namespace station {

class Station;

class Actions {
public:
    explicit Actions(Station& station) : station_(station), readout_(station) {}

    const StationReadout& readout() const { return readout_; }

    // Camera buttons: 0 is GROUP.
    ActionResult selectCamera(int camera);
    // Scene buttons 1..4: recall, or store (STORE ticked and the button pressed); CLEAR.
    ActionResult recallScene(int scene);
    ActionResult storeScene(int scene);
    ActionResult clearScene();
    ActionResult setMode(Mode mode, int button);
    // The gain step buttons are the gain mode group, refused in the gain step's words.
    ActionResult chooseGainStep(int button);
    // A level bar moved to `value` (within its range).
    ActionResult setLevel(Level level, int value);
    // The spin buttons of a gain step (0 LOW, 1 MID, 2 HIGH), pressed `presses` times or
    // until the arrow greys at the end of the step's range.
    ActionResult stepGain(int step, bool up, int presses = 1);
    ActionResult stepFilter(bool up);
    // The CALL button pressed (on) or released (off).
    ActionResult call(bool on);
    ActionResult startAuto(bool white);
    // "Camera to PC" (refused when the page does not fit in the queue), "PC to Camera",
    // "1Page to CAM".
    ActionResult readPage();
    ActionResult sendPage();
    ActionResult sendOnePage();
    // The File menu: the dialogs the station was built with choose the file.
    ActionResult open();
    ActionResult save();
    ActionResult saveAs();
    // The Function window: function f, item i (from 1), then a value of its MODE/VALUE
    // list (from 1) or its analog bar.
    ActionResult chooseFunctionValue(int function, int item, int choice);
    ActionResult setFunctionValue(int function, int item, long value);
    // The console: hex bytes fed to the station as if the line had sent them.
    ActionResult consoleFrame(const std::string& hex);
    // Frames still queued are given up (a client abandons the rest of a camera's page),
    // the one awaiting its acknowledge included.
    ActionResult dropQueued();
    // Tells `watcher` of every frame the line sends, acknowledges or receives, beside the
    // windows; the watcher must outlive the station's polls.
    void watchLine(LinkEvents& watcher);

private:
    // Runs the gesture at the station's error boundary.
    ActionResult perform(const std::function<void()>& gesture);
    // The same once the control's rule offers it; refused in the control's name otherwise.
    ActionResult offered(bool available, const std::string& control, const std::function<void()>& gesture);
    ActionResult functionGesture(int function, int item, const std::function<void()>& choose);

    Station& station_;
    StationReadout readout_;
};

// "<what> is not available for this camera now".
std::string notAvailable(const std::string& what);

}  // namespace station
