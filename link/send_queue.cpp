#include "link/send_queue.hpp"

namespace station {

void SendQueue::append(Bytes frame, int camera) {
    SendRec& rec = buff_(sendCnt_ + 1);  // raises at entry 257
    ++sendCnt_;
    rec.Data = std::move(frame);
    rec.Kind = "S";
    rec.Camera = camera;
}

void SendQueue::SendBuffShift() {
    if (sendCnt_ < 2) {
        sendCnt_ = 0;
        return;
    }
    for (int i = 1; i <= sendCnt_ - 1; ++i) {
        buff_(i).Kind = buff_(i + 1).Kind;
        buff_(i).Data = buff_(i + 1).Data;
        buff_(i).Camera = buff_(i + 1).Camera;
    }
    --sendCnt_;
}

}  // namespace station
