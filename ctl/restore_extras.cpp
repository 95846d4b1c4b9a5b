#include "ctl/restore_extras.hpp"

#include <stdexcept>

#include "common/vb_conv.hpp"

namespace station::ctl {

namespace {

// Main settings by their place in the setup file (1..18).
constexpr int kGainField = 4;
constexpr int kWhiteField = 5;

void require(const ActionResult& result, const std::string& what) {
    if (!result.ok()) throw std::runtime_error(what + ": " + result.why());
}

// A button that is already selected raises nothing when clicked again: the group is first
// moved to `away`, then to the stored button, which then sends.
void pressButton(Actions& actions, Mode mode, int button, int away, const std::string& what) {
    require(actions.setMode(mode, away), what);
    require(actions.setMode(mode, button), what);
}

}  // namespace

std::vector<std::string> restoreBeyondPage(Actions& actions) {
    const StationReadout& view = actions.readout();
    const int camera = view.selectedCamera();
    auto stored = [&](int field) { return static_cast<int>(toInteger(val(view.mainSetting(field, camera)))); };
    std::vector<std::string> set;

    // Gain step values. Types other than 0 keep them in registers of their own; a spin press
    // sends the value it leaves, so a press away and one back sends the stored value. Type 3
    // sends all three in one byte with every press; type 0 carries only the chosen step's
    // value, which its gain button sends below.
    const int gainType = view.gainType();
    if (gainType != 0) {
        std::string values;
        for (int step = 0; step <= 2; ++step) {
            const StationReadout::Range range = view.gainValueRange(step);
            if (range.lo > range.hi) continue;  // fixed (LOW of types 1 and 2)
            const std::string name = std::string("gain ") + kGainSteps.at(static_cast<std::size_t>(step));
            values += (values.empty() ? "" : ", ") + name + " " + std::to_string(range.value);
            if (gainType == 3 && step != 2) continue;  // one press pair carries all three
            const bool up = range.value < range.hi;
            require(actions.stepGain(step, up), name);
            require(actions.stepGain(step, !up), name);
        }
        if (!values.empty()) set.push_back(values);
    }

    const int gain = stored(kGainField);
    const StationReadout::Buttons gainButtons = view.modeButtons(Mode::Gain);
    pressButton(actions, Mode::Gain, gain, gain == 0 ? 1 : 0, "gain step");
    set.push_back("gain step " + gainButtons.caption(gain));

    // "PC to Camera" leaves the white mode at its first code; the stored one is pressed.
    const int white = stored(kWhiteField);
    if (white != 0) {
        pressButton(actions, Mode::White, white, 0, "white");
        set.push_back("white " + view.modeButtons(Mode::White).caption(white));
    }
    return set;
}

}  // namespace station::ctl
