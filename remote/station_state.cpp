#include "remote/station_state.hpp"

#include "remote/panel_controls.hpp"

namespace station::remote {

void addPanelState(const Station& station, StateList& out) {
    const Form1& form = station.form1;
    out.push_back({"camera", decText(station.shared.CamNo)});
    out.push_back({"scene", decText(form.Option7.selected())});
    for (const ModeControl& m : kModes) out.push_back({std::string("mode ") + m.name, decText((form.*m.group).selected())});
    for (const LevelControl& l : kLevels) out.push_back({std::string("level ") + l.name, (form.*l.number).Caption});
    for (int i = 0; i < 3; ++i) out.push_back({std::string("gain ") + kGainSteps[static_cast<std::size_t>(i)], form.Label1(i).Caption});
    out.push_back({"filter", form.Label16.Caption});
    out.push_back({"tally", form.Label15.BackColor == kColourRed ? "on" : "off"});
    out.push_back({"call", form.CallOn != 0 ? "on" : "off"});
    const Form6& message = station.form6;
    // The result stays readable after the message has hidden itself; whether it is up is told apart.
    out.push_back({"auto", message.Label1.Caption.empty() ? "none" : message.Label1.Caption + ": " + message.Label2.Caption});
    out.push_back({"auto window", message.form.Visible ? "on" : "off"});
}

StateWatch::StateWatch(const Station& station) : station_(station) { addSource(addPanelState); }

void StateWatch::addSource(Source source) { sources_.push_back(std::move(source)); }

StateList StateWatch::current() const {
    StateList list;
    list.reserve(last_.size());
    for (const Source& source : sources_) source(station_, list);
    return list;
}

StateList StateWatch::changes(const std::function<bool(const StateItem&)>& show) {
    StateList now = current();
    StateList changed;
    for (std::size_t i = 0; i < now.size(); ++i) {
        const bool known = i < last_.size() && last_[i].key == now[i].key;
        if (known && now[i] == last_[i]) continue;
        if (known && show && !show(now[i])) {
            now[i] = last_[i];
            continue;
        }
        changed.push_back(now[i]);
    }
    last_ = std::move(now);
    return changed;
}

}  // namespace station::remote
