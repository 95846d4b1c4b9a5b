#pragma once
// What became of the frames the station sent, counted as frames: sent (first sends), resent
// after a NAK, acknowledged by the camera. Every queued frame leaves the queue once, in
// order, in one of four ways; that record tells which of a camera's frames arrived even
// when the next camera's frames were queued behind its last one. (Replies are counted per
// camera by the session's reply count.)

#include <algorithm>
#include <vector>

#include "link/link_events.hpp"

namespace station::ctl {

// How a queued frame left the queue.
enum class FrameEnd : char {
    Acknowledged,  // the camera acknowledged it
    NoAcknowledge, // the acknowledge watch ran out and the link dropped it
    GivenUp,       // dropped by the program (the camera's time ran out, or it failed)
    SentBlind,     // written without handshake ("Ack Off", or no camera selected)
};

struct FrameCounts {
    long sent = 0;
    long resent = 0;
    long acknowledged = 0;
    long noAcknowledge = 0;
};

class LinkTally final : public LinkEvents {
public:
    const FrameCounts& counts() const { return counts_; }

    // Frames that have left the queue so far; the next queued frame has this index plus the
    // number still queued.
    long settled() const { return static_cast<long>(ends_.size()); }
    // How many of the frames [from, from + count) left the queue in the way `end`.
    long count(long from, long count, FrameEnd end) const {
        const long to = std::min(from + count, settled());
        return from >= to ? 0 : static_cast<long>(std::count(ends_.begin() + from, ends_.begin() + to, end));
    }
    // `count` frames left the queue in a way the link tells no one of: dropped by the
    // program, or written without handshake.
    void ended(FrameEnd end, long count) { ends_.insert(ends_.end(), static_cast<std::size_t>(std::max(count, 0L)), end); }

    void frameSent(const SendRec&, bool resend) override { ++(resend ? counts_.resent : counts_.sent); }
    void frameAcknowledged(const SendRec&) override {
        ++counts_.acknowledged;
        ends_.push_back(FrameEnd::Acknowledged);
    }
    void frameReceived(const Bytes&, bool) override {}
    void noAcknowledge(const SendRec&) override {
        ++counts_.noAcknowledge;
        ends_.push_back(FrameEnd::NoAcknowledge);
    }
    void noAnswer() override {}

private:
    FrameCounts counts_;
    std::vector<FrameEnd> ends_;
};

}  // namespace station::ctl
