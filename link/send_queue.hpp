#pragma once
// The send queue: up to 256 pending frames in entries 1..SendCnt, entry 1 the head.
// Frames stay queued until the link decides they are done (acknowledged, timed out, or
// written on the handshake-free path).

#include <string>

#include "common/bytes.hpp"
#include "common/table.hpp"
#include "common/vb_conv.hpp"

namespace station {

struct SendRec {
    std::string Kind;  // "S" for every queued command; "R" (expects an answer) is never queued
    Bytes Data;        // the complete frame
    // The camera position selected when the frame was queued (0 GROUP): whose answer an
    // acknowledge or reply is, whichever camera is selected when the frame goes out.
    int Camera = 0;
};

class SendQueue {
public:
    static constexpr int kCapacity = 256;

    // Appends a frame of kind "S" for `camera`. A 257th pending frame raises "Subscript out
    // of range" and leaves the queue as it was.
    void append(Bytes frame, int camera = 0);

    // Removes the head. With fewer than two entries the count just becomes 0; otherwise
    // every entry moves up one place and the old last entry keeps a stale copy.
    void SendBuffShift();

    Integer SendCnt() const { return sendCnt_; }
    const SendRec& head() const { return buff_(1); }
    const SendRec& entry(int index) const { return buff_(index); }

private:
    Array<SendRec> buff_{0, kCapacity};
    Integer sendCnt_ = 0;
};

}  // namespace station
