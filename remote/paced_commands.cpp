// Fader pacing on the station: a value's frame is known by the count of first sends after
// which it has gone out. The head, once sent, is on its way: the next value may queue
// behind it and go at the very poll that takes the camera's ACK, so that a fader gets a
// frame every poll.
#include "remote/command_set.hpp"

namespace station::remote {

namespace {

int unsent(const StationReadout& r) { return r.queued() - (r.awaitingAcknowledge() ? 1 : 0); }

}  // namespace

bool CommandSet::frameWaiting(FaderPacer::Ticket ticket) const {
    // Frames that leave without a send being told (no handshake, a queue given up) leave
    // nothing unsent behind them.
    return unsent(readout()) > 0 && sent_.count() < ticket;
}

void CommandSet::paced(const std::string& control, long value, std::function<ActionResult(long)> act) {
    const int camera = readout().selectedCamera();
    faders_.offer(control, value, [this, camera, act = std::move(act)](long v) -> std::optional<FaderPacer::Ticket> {
        // A value kept for a camera that is no longer selected is not given to another.
        if (readout().selectedCamera() != camera) return std::nullopt;
        const int before = readout().queued();
        perform(act(v));
        if (readout().queued() <= before) return std::nullopt;
        return sent_.count() + unsent(readout());
    });
}

bool CommandSet::worthPushing(const StateItem& item) const {
    constexpr std::string_view kItem = "function item ";
    if (item.key.rfind(kItem, 0) != 0) return faders_.worthPushing(item.key, item.value);
    const StationReadout& r = readout();
    const auto n = wholeNumber(std::string_view(item.key).substr(kItem.size()));
    const int shown = r.shownFunction();
    const std::vector<std::string> titles = r.functionTitles();
    if (!n || shown < 0 || shown >= static_cast<int>(titles.size()) || *n < 1 || *n > r.itemCount(shown + 1)) return true;
    const FunctionItem it = r.item(shown + 1, static_cast<int>(*n));
    if (it.kind() != 'A') return true;
    const auto stored = hexNumber(r.storedValue(shown + 1, it).value_or(std::string()));
    if (!stored) return true;
    const std::string control = "function " + lower(titles[static_cast<std::size_t>(shown)]) + "/" + lower(it.name());
    return faders_.worthPushing(control, std::to_string(*stored));
}

}  // namespace station::remote
