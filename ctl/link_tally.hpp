#pragma once
// What the line did, counted as frames: sent (first sends), resent after a NAK, acknowledged
// by the camera, and good frames received. Bytes are never counted: a data byte equal to
// STX is not a reply. Every queued frame also leaves the queue once, in order, in one of
// four ways; that record tells which of a camera's frames arrived even when the next
// camera's frames were queued behind its last one.
//
// It watches the link's events and hands each one on to the watcher that was there before
// (the line's state), so that the station sees the line exactly as without it.

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
    long received = 0;
    long noAcknowledge = 0;
};

class LinkTally final : public LinkEvents {
public:
    explicit LinkTally(LinkEvents* next) : next_(next) {}

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

    void frameSent(const Bytes& frame, bool resend) override {
        ++(resend ? counts_.resent : counts_.sent);
        if (next_) next_->frameSent(frame, resend);
    }
    void frameAcknowledged(const Bytes& frame) override {
        ++counts_.acknowledged;
        ends_.push_back(FrameEnd::Acknowledged);
        if (next_) next_->frameAcknowledged(frame);
    }
    void frameReceived(const Bytes& frame, bool good) override {
        if (good) ++counts_.received;
        if (next_) next_->frameReceived(frame, good);
    }
    void noAcknowledge(const Bytes& frame) override {
        ++counts_.noAcknowledge;
        ends_.push_back(FrameEnd::NoAcknowledge);
        if (next_) next_->noAcknowledge(frame);
    }
    void noAnswer() override {
        if (next_) next_->noAnswer();
    }

private:
    LinkEvents* next_;
    FrameCounts counts_;
    std::vector<FrameEnd> ends_;
};

}  // namespace station::ctl
