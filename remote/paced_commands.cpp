// Fader pacing on the station: which frame a surface's value queued, and whether that frame
// still waits in the send queue to be sent. The head, once sent, is on its way: the next
// value may queue behind it and go at the very poll that takes the camera's ACK, so that a
// fader gets a frame every poll.
#include "remote/command_set.hpp"

namespace station::remote {

bool CommandSet::frameWaiting(const Bytes& frame) const {
    const SendQueue& queue = station_.link.queue();
    const int first = station_.link.AckWait() > 0 ? 2 : 1;
    for (int i = first; i <= queue.SendCnt(); ++i)
        if (queue.entry(i).Data == frame) return true;
    return false;
}

void CommandSet::paced(const std::string& control, long value, std::function<void(long)> act) {
    const int camera = station_.shared.CamNo;
    faders_.offer(control, value, [this, camera, act = std::move(act)](long v) -> std::optional<Bytes> {
        // A value kept for a camera that is no longer selected is not given to another.
        if (station_.shared.CamNo != camera) return std::nullopt;
        const SendQueue& queue = station_.link.queue();
        const int before = queue.SendCnt();
        pacing_ = true;
        try {
            act(v);
        } catch (...) {
            pacing_ = false;
            throw;
        }
        pacing_ = false;
        if (queue.SendCnt() <= before) return std::nullopt;
        return queue.entry(queue.SendCnt()).Data;
    });
}

}  // namespace station::remote
