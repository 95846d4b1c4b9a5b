#include "remote/button_feedback.hpp"

namespace station::remote {

namespace {

const char* onOff(bool on) { return on ? "on" : "off"; }

bool follows(const StateItem& item) {
    return item.key == "camera" || item.key == "scene" || item.key == "tally" || item.key.rfind("mode ", 0) == 0;
}

}  // namespace

StateList ButtonFeedback::current() {
    StateList out;
    const int camera = station_.selectedCamera();
    const StationReadout::Buttons cameras = station_.cameraButtons();
    for (int n = cameras.lo; n <= cameras.hi; ++n)
        out.push_back({n == 0 ? std::string("camera group") : "camera " + std::to_string(n), onOff(n == camera)});
    const int scene = station_.selectedScene();
    for (int n = 1; n <= 4; ++n) out.push_back({"scene " + std::to_string(n), onOff(n == scene)});
    for (const ModeControl& m : kModes) {
        const StationReadout::Buttons buttons = station_.modeButtons(m.mode);
        const int selected = station_.selectedMode(m.mode);
        for (int i = buttons.lo; i <= buttons.hi; ++i) {
            const std::string& caption = buttons.caption(i);
            if (caption.empty()) continue;
            out.push_back({std::string("mode ") + m.name + " " + caption, onOff(i == selected)});
        }
    }
    for (int n = 1; n <= 8; ++n) out.push_back({"tally " + std::to_string(n), onOff(tally_[n])});
    return out;
}

StateList ButtonFeedback::lamps(const StateList& changed) {
    bool due = false;
    for (const StateItem& item : changed) {
        if (item.key == "tally" && station_.selectedCamera() >= 1) tally_[station_.selectedCamera()] = item.value == "on";
        due = due || follows(item);
    }
    if (!due) return {};
    StateList out;
    for (StateItem& lamp : current()) {
        std::string& told = shown_[lamp.key];
        if (told == lamp.value) continue;
        told = lamp.value;
        out.push_back(std::move(lamp));
    }
    return out;
}

StateList ButtonFeedback::all() { return current(); }

}  // namespace station::remote
