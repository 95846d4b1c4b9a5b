// Applying the acknowledge and camera-ID settings to the timers, controls and menu ticks.
#include "panel/main_panel.hpp"

namespace station {

void MainPanel::SetAckCont(Integer mode) {
    if (mode == 0) {
        link_.Timer2.Enabled = true;
        link_.Timer2.Interval = 100;
        link_.Timer3.Enabled = true;
        link_.Timer3.Interval = 500;
        form_.Command12.Enabled = true;
        form_.Label16.Enabled = true;
        // Tally and call are offered again only where the camera type has them; they are
        // not taken away here otherwise.
        if (types_.FormTally(FclNo()) == 1) form_.Frame19.Enabled = true;
    } else if (mode == 1) {
        // Without the handshake no reply is read, so everything that waits for one goes.
        link_.Timer2.Enabled = false;
        link_.Timer3.Enabled = false;
        form_.Command12.Enabled = false;
        form_.Frame19.Enabled = false;
        form_.Label16.Enabled = false;
    }
}

void MainPanel::SetIDCont() {
    if (shared_.IDMode == 1) form_.IDcont.Checked = true;
    else if (shared_.IDMode == 0) form_.IDcont.Checked = false;
}

}  // namespace station
