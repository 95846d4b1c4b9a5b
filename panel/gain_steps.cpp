// The gain-step spin buttons: they trim the LOW, MID or HIGH gain value of the selected
// camera within what its gain type's register can carry, send it in the layout the gain
// replies are decoded from, and redraw the gain labels.
#include <algorithm>
#include <cmath>

#include "common/vb_conv.hpp"
#include "panel/main_panel.hpp"

namespace station {

MainPanel::GainStepRange MainPanel::gainStepRange(int index) const {
    switch (types_.FormGain(FclNo())) {
    case 0:  // LOW is bit 6; MID + 1 and (HIGH + 2) x 2 share the low nibble with the step
        return index == 0 ? GainStepRange{0, 1} : GainStepRange{0, 2};
    case 1:
    case 2:  // LOW is fixed at 0dB; MID and HIGH have five bits of registers 06 and 07
        return index == 0 ? GainStepRange{} : GainStepRange{0, 31};
    case 3:  // one byte: LOW bit 6, MID bits 0..1, HIGH bits 2..3
        return index == 0 ? GainStepRange{0, 1} : GainStepRange{0, 3};
    default:
        return {};
    }
}

bool MainPanel::canStepGain(int index, int direction) const {
    const GainStepRange range = gainStepRange(index);
    if (index < 0 || index > 2 || !range.offered()) return false;
    const double value = val(stores_.MainScnData(mLOW + index, shared_.CamNo, 0));
    // A value no Integer holds: the press raises the runtime's error, as it always has.
    if (!(std::abs(value) < 32767.0)) return true;
    const int now = toInteger(value);
    return std::clamp(now + direction, range.lo, range.hi) != now;
}

void MainPanel::stepGain(int index, int direction) {
    const GainStepRange range = gainStepRange(index);
    if (index < 0 || index > 2 || !range.offered()) return;
    const int f = mLOW + index;
    const int now = toInteger(numeric(f));
    const int next = std::clamp(now + direction, range.lo, range.hi);
    if (next == now) return;
    field(f) = decText(next);

    auto within = [this](int g) {
        const GainStepRange r = gainStepRange(g - mLOW);
        return std::clamp(static_cast<int>(toInteger(numeric(g))), r.lo, r.hi);
    };
    switch (types_.FormGain(FclNo())) {
    case 0:
        // The step values travel as the gain buttons send them, so the camera also takes
        // the trimmed step.
        if (index == 0) SendMode("20", "01", field(mLOW), 6, "80");
        else if (index == 1) SendMode("20", "01", decText(next + 1), 0, "80");
        else SendMode("20", "01", decText(next + 2), 1, "80");
        break;
    case 1:
    case 2:
        SendMode("28", index == 1 ? "06" : "07", field(f), 0, "E0");
        break;
    case 3:
        SendMode("28", "13", decText(within(mLOW) * 64 + within(mMID) + within(mHIGH) * 4), 0, "B0");
        break;
    default:
        break;
    }
    PGainDsp();
}

}  // namespace station
