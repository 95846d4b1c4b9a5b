#pragma once
// What the line did while one camera was worked on, counted as frames: sent (first sends),
// resent after a NAK, acknowledged by the camera, and good frames received from it. Bytes
// are never counted: a data byte equal to STX is not a reply.
//
// It watches the link's events and hands each one on to the watcher that was there before
// (the line's state), so that the station sees the line exactly as without it.

#include "link/link_events.hpp"

namespace station::ctl {

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
    void reset() { counts_ = {}; }

    void frameSent(const Bytes& frame, bool resend) override {
        ++(resend ? counts_.resent : counts_.sent);
        if (next_) next_->frameSent(frame, resend);
    }
    void frameAcknowledged(const Bytes& frame) override {
        ++counts_.acknowledged;
        if (next_) next_->frameAcknowledged(frame);
    }
    void frameReceived(const Bytes& frame, bool good) override {
        if (good) ++counts_.received;
        if (next_) next_->frameReceived(frame, good);
    }
    void noAcknowledge(const Bytes& frame) override {
        ++counts_.noAcknowledge;
        if (next_) next_->noAcknowledge(frame);
    }
    void noAnswer() override {
        if (next_) next_->noAnswer();
    }

private:
    LinkEvents* next_;
    FrameCounts counts_;
};

}  // namespace station::ctl
