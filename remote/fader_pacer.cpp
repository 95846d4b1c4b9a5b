#include "remote/fader_pacer.hpp"

#include "remote/command_words.hpp"

#include <algorithm>

namespace station::remote {

void FaderPacer::carryOut(Control& c, long value, const Send& send) {
    c.kept.reset();
    c.latest = value;
    c.frame = send(value);
}

bool FaderPacer::laneWaiting() const {
    return std::any_of(controls_.begin(), controls_.end(),
                       [this](const auto& named) { return named.second.frame && waiting_(*named.second.frame); });
}

void FaderPacer::offer(const std::string& control, long value, Send send) {
    Control& c = controls_[control];
    // A control's first value goes at once, as a click would; the values of a move take turns.
    const bool moving = !c.given.empty() || c.kept || (c.frame && waiting_(*c.frame));
    constexpr std::size_t kRemembered = 4096;
    if (c.given.size() >= kRemembered) c.given.clear();
    c.given.insert(value);
    c.quiet = 0;
    const bool othersKept =
        std::any_of(controls_.begin(), controls_.end(), [](const auto& named) { return named.second.kept.has_value(); });
    if (moving && (laneWaiting() || othersKept)) {
        if (!c.kept) c.keptSince = ++turns_;
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

bool FaderPacer::release() {
    bool settled = false;
    Control* next = nullptr;
    for (auto& [name, c] : controls_) {
        if (c.kept) {
            if (next == nullptr || c.keptSince < next->keptSince) next = &c;
            continue;
        }
        if (c.frame && waiting_(*c.frame)) continue;
        if (!c.given.empty() && ++c.quiet >= kSettlePolls) {
            c.given.clear();
            settled = true;
        }
    }
    if (next == nullptr || laneWaiting()) return settled;
    const Send send = std::move(next->send);
    try {
        carryOut(*next, *next->kept, send);
    } catch (const CommandError&) {
        next->frame.reset();  // the station's own boundary has told the operator
    }
    return settled;
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
    const auto it = controls_.find(control);
    if (it == controls_.end()) return true;
    const auto n = wholeNumber(value);
    if (!busy(control)) return !n || *n == it->second.latest || !it->second.given.contains(*n);
    return !n || *n == controls_.at(control).latest;
}

}  // namespace station::remote
