#include "remote/panel_layout.hpp"

#include <algorithm>

namespace station::remote {

namespace {

std::string captions(const StationReadout::Buttons& group) {
    std::string out = std::to_string(group.lo);
    for (const std::string& caption : group.captions) out += "|" + caption;
    return out;
}

}  // namespace

void addPanelLayout(const StationReadout& station, StateList& out) {
    out.push_back({"panel cameras", captions(station.cameraButtons())});
    for (const ModeControl& m : kModes) out.push_back({std::string("panel mode ") + m.name, captions(station.modeButtons(m.mode))});
    for (const LevelControl& l : kLevels) {
        const StationReadout::Range r = station.levelRange(l.level);
        out.push_back({std::string("panel range ") + l.name, std::to_string(r.lo) + " " + std::to_string(r.hi)});
    }
    const StationReadout::Offered o = station.offered();
    std::string offered;
    const auto add = [&offered](bool on, const std::string& name) {
        if (on) offered += (offered.empty() ? "" : ",") + name;
    };
    add(o.camera, "camera");
    add(o.scene, "scene");
    add(o.sceneClear, "clear");
    add(o.filter, "filter");
    add(o.call, "call");
    add(o.autoWhite, "auto white");
    add(o.autoBlack, "auto black");
    for (std::size_t i = 0; i < kModes.size(); ++i) add(o.modes.at(i), std::string("mode ") + kModes.at(i).name);
    for (std::size_t i = 0; i < kLevels.size(); ++i) add(o.levels.at(i), std::string("level ") + kLevels.at(i).name);
    for (std::size_t i = 0; i < kGainSteps.size(); ++i) add(o.gainValues.at(i), std::string("gain value ") + kGainSteps.at(i));
    out.push_back({"panel offered", offered});
    const int camera = station.selectedCamera();
    out.push_back({"panel type", station.cameraType(camera)});
    out.push_back({"panel id", station.cameraId(camera)});
}

StateList LayoutWatch::current() const {
    StateList list;
    addPanelLayout(station_, list);
    return list;
}

StateList LayoutWatch::changes() {
    StateList now = current();
    StateList changed;
    for (const StateItem& item : now)
        if (std::find(last_.begin(), last_.end(), item) == last_.end()) changed.push_back(item);
    last_ = std::move(now);
    return changed;
}

}  // namespace station::remote
