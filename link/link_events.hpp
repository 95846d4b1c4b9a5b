#pragma once
// What happens on the line, as the link sees it, for whoever watches the line (its status,
// which camera answers, the line log). Watching changes nothing: the link sends the same
// bytes at the same ticks whether or not anyone listens.

#include "common/bytes.hpp"
#include "link/send_queue.hpp"

namespace station {

class LinkEvents {
public:
    virtual ~LinkEvents() = default;
    // A queued frame went out: first send, or resend after the camera's NAK (`resend`).
    // The record names the camera the frame was queued for.
    virtual void frameSent(const SendRec& sent, bool resend) = 0;
    // The camera acknowledged the frame at the head of the queue.
    virtual void frameAcknowledged(const SendRec& sent) = 0;
    // A frame from the camera was answered: ACK when `good`, NAK when its checksum failed.
    virtual void frameReceived(const Bytes& frame, bool good) = 0;
    // The acknowledge watch ran out for this frame ("No Acknowledge"); called before the box.
    virtual void noAcknowledge(const SendRec& sent) = 0;
    // The answer watch ran out ("No Answer from Camera"); called before the box.
    virtual void noAnswer() = 0;
};

}  // namespace station
