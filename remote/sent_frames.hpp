#pragma once
// Counts the frames the station has put on the line for the first time (a resend after the
// camera's NAK is the same frame), so that a frame queued behind N unsent ones is known to
// have gone out once N + 1 more have.

#include "link/link_events.hpp"

namespace station::remote {

class SentFrames final : public LinkEvents {
public:
    long count() const { return sent_; }

    void frameSent(const SendRec&, bool resend) override {
        if (!resend) ++sent_;
    }
    void frameAcknowledged(const SendRec&) override {}
    void frameReceived(const Bytes&, bool) override {}
    void noAcknowledge(const SendRec&) override {}
    void noAnswer() override {}

private:
    long sent_ = 0;
};

}  // namespace station::remote
