// Filter stepping, the delayed release of a filter pulse, and the call button. These send
// whatever CtrlReady says: they are the operator's direct actions, never raised by a redraw.
#include "common/vb_conv.hpp"
#include "panel/main_panel.hpp"

namespace station {

void MainPanel::stepFilter(int direction) {
    const int filterType = types_.FormFilter(FclNo());
    if (filterType == 1) {
        // Position-coded wheel: 0..3, wrapping both ways.
        const double v = numeric(mFILTER);
        if (direction > 0) field(mFILTER) = v < 3 ? decText(v + 1) : "0";
        else field(mFILTER) = v <= 0 ? "3" : decText(v - 1);
        SendMode("20", "00", field(mFILTER), 0, "F8");
        FilterDsp();
    } else if (filterType == 2) {
        // Pulse-stepped wheel: one way only; the camera's reply reports the new position.
        SendMode("20", "14", "1", 0, "FE");
        form_.RelCount = 1;
    }
}

void MainPanel::Timer4_Timer() {
    if (form_.RelCount <= 0) return;
    const Integer was = form_.RelCount;
    form_.RelCount = static_cast<Integer>(form_.RelCount - 1);
    if (was != 1) return;
    SendMode("20", "14", "0", 0, "FE");
    // The timer stops itself and nothing starts it again: a later pulse's release waits for
    // a running timer. This is how the station has always behaved.
    form_.Timer4.Enabled = false;
}

void MainPanel::Command9_MouseDown() {
    SendMode("20", "03", "1", 2, "FB");
    form_.CallOn = 1;
    TallyDsp();
}

void MainPanel::Command9_MouseUp() {
    SendMode("20", "03", "0", 2, "FB");
    form_.CallOn = 0;
    TallyDsp();
}

}  // namespace station
