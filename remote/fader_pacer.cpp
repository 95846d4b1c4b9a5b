#include "remote/fader_pacer.hpp"

#include "remote/command_words.hpp"

namespace station::remote {

void FaderPacer::carryOut(Control& c, long value, const Send& send) {
    c.kept.reset();
    c.latest = value;
    c.frame = send(value);
}

void FaderPacer::offer(const std::string& control, long value, Send send) {
    Control& c = controls_[control];
    if (c.frame && waiting_(*c.frame)) {
        c.kept = value;
        c.latest = value;
        c.send = std::move(send);
        return;
    }
    carryOut(c, value, send);
}

std::optional<long> FaderPacer::latest(const std::string& control) const {
    const auto it = controls_.find(control);
    if (it == controls_.end()) return std::nullopt;
    return it->second.latest;
}

void FaderPacer::release() {
    for (auto& [name, c] : controls_) {
        if (!c.kept || (c.frame && waiting_(*c.frame))) continue;
        const Send send = std::move(c.send);
        try {
            carryOut(c, *c.kept, send);
        } catch (const CommandError&) {
            c.frame.reset();  // the station's own boundary has told the operator
        }
    }
}

void FaderPacer::flush() {
    for (auto& [name, c] : controls_) {
        if (!c.kept) continue;
        const Send send = std::move(c.send);
        carryOut(c, *c.kept, send);
    }
}

bool FaderPacer::busy(const std::string& control) const {
    const auto it = controls_.find(control);
    if (it == controls_.end()) return false;
    const Control& c = it->second;
    return c.kept.has_value() || (c.frame && waiting_(*c.frame));
}

bool FaderPacer::worthPushing(const std::string& control, const std::string& value) const {
    if (!busy(control)) return true;
    const auto n = wholeNumber(value);
    return !n || *n == controls_.at(control).latest;
}

}  // namespace station::remote
