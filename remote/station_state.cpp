#include "remote/station_state.hpp"

namespace station::remote {

void addPanelState(const StationReadout& station, StateList& out) {
    out.push_back({"camera", decText(station.selectedCamera())});
    out.push_back({"scene", decText(station.selectedScene())});
    for (const ModeControl& m : kModes) out.push_back({std::string("mode ") + m.name, decText(station.selectedMode(m.mode))});
    for (const LevelControl& l : kLevels) out.push_back({std::string("level ") + l.name, station.levelText(l.level)});
    for (int i = 0; i < 3; ++i) out.push_back({std::string("gain ") + kGainSteps[static_cast<std::size_t>(i)], station.gainStepText(i)});
    out.push_back({"filter", station.filterText()});
    out.push_back({"tally", station.tally() ? "on" : "off"});
    out.push_back({"call", station.callHeld() ? "on" : "off"});
    // The result stays readable after the message has hidden itself; whether it is up is told apart.
    const std::string operation = station.autoOperation();
    out.push_back({"auto", operation.empty() ? "none" : operation + ": " + station.autoResult()});
    out.push_back({"auto window", station.autoShown() ? "on" : "off"});
}

StateWatch::StateWatch(const StationReadout& station) : station_(station) { addSource(addPanelState); }

void StateWatch::addSource(Source source) { sources_.push_back(std::move(source)); }

StateList StateWatch::current() const {
    StateList list;
    list.reserve(last_.size());
    for (const Source& source : sources_) source(station_, list);
    return list;
}

StateList StateWatch::changes() {
    StateList now = current();
    StateList changed;
    for (std::size_t i = 0; i < now.size(); ++i)
        if (i >= last_.size() || !(now[i] == last_[i])) changed.push_back(now[i]);
    last_ = std::move(now);
    return changed;
}

}  // namespace station::remote
