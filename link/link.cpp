#include "link/link.hpp"

#include <array>

#include "common/hex.hpp"
#include "common/runtime_error.hpp"
#include "common/table.hpp"
#include "link/frame.hpp"

namespace station {

namespace {
constexpr std::uint8_t kStx = 0x02;
constexpr std::uint8_t kAck = 0x06;
constexpr std::uint8_t kNak = 0x15;
constexpr Integer kAckTicks = 10;
constexpr Integer kAnswerTicks = 50;
constexpr int kMaxReplyBytes = 10;
}  // namespace

Link::Link(Shared& shared, SerialPort& port, MessageSink& messages, ReplyDecoders& decoders)
    : shared_(shared), port_(port), messages_(messages), decoders_(decoders) {}

void Link::SendCmd(const std::string& cmdStr) {
    FrameHeader header;
    header.ackPrefix = shared_.AckMode != 0;
    if (shared_.CamNo >= 1 && shared_.IDMode == 1) {
        header.cameraId = shared_.cams.CamID(shared_.CamNo);
        if (header.cameraId.empty()) {
            messages_.show("No Camera ID", Icon::Exclamation);
            return;
        }
        header.withId = true;
    }
    queue_.append(buildFrame(cmdStr, header), shared_.CamNo);
}

void Link::CommOut(const Bytes& data) {
    port_.write(data);
    traffic_ += data.size();
    MonSend(data);
}

void Link::MonSend(const Bytes& data) { Label10.Caption = spacedHex(data); }
void Link::MonRec(const Bytes& data) { Label11.Caption = spacedHex(data); }

bool Link::handshakeFree() const { return shared_.AckMode != 0 || shared_.CamNo == 0; }

void Link::setTestData(Integer count, Bytes data) {
    testCnt_ = count;
    testData_ = std::move(data);
}

void Link::appendReceived(const Bytes& data) {
    MonRec(data);
    traffic_ += data.size();
    recBuff_.insert(recBuff_.end(), data.begin(), data.end());
}

void Link::Timer1_Timer() {
    if (handshakeFree()) {
        if (queue_.SendCnt() > 0) {
            CommOut(queue_.head().Data);
            queue_.SendBuffShift();
        }
        return;  // the port is not read on this path
    }

    // Only a tick in which something arrived looks at the buffer; leftovers wait.
    std::size_t available = 0;
    if (port_.bytesWaiting() > 0) {
        appendReceived(port_.readAll());
        available = recBuff_.size();
    }
    const Integer k = testCnt_;
    testCnt_ = 0;
    if (k >= 1) {
        Bytes injected = testData_;
        injected.resize(static_cast<std::size_t>(k));
        appendReceived(injected);
        available = recBuff_.size();
    }
    consumeReceived(available);

    if (queue_.SendCnt() >= 1 && ackWait_ == -1 && ansWait_ == -1) {
        CommOut(queue_.head().Data);
        ackWait_ = kAckTicks;
        for (LinkEvents* e : events_) e->frameSent(queue_.head(), false);
    }
}

void Link::consumeReceived(std::size_t available) {
    while (available > 0) {
        const std::uint8_t first = recBuff_.front();
        if (first == kStx) {
            if (!consumeFrame(available)) break;
        } else {
            if (first == kAck && ackWait_ > 0) {
                ackWait_ = -1;
                for (LinkEvents* e : events_) e->frameAcknowledged(queue_.head());
                removeHeadAfterAck();
            } else if (first == kNak && ackWait_ >= 1) {
                CommOut(queue_.head().Data);
                ackWait_ = kAckTicks;
                for (LinkEvents* e : events_) e->frameSent(queue_.head(), true);
            }
            recBuff_.erase(recBuff_.begin());
        }
        available = recBuff_.size();
    }
}

// Returns false when the frame at the front is still incomplete.
bool Link::consumeFrame(std::size_t available) {
    // A lone STX as the last byte: its length byte is read before it has arrived.
    if (recBuff_.size() < 2) throw RuntimeError::invalidCall();
    const std::size_t n = static_cast<std::size_t>(recBuff_[1]) + 4;
    if (available < n) return false;

    const std::span<const std::uint8_t> frame(recBuff_.data(), n);
    // A frame whose check or decoding raises is dropped before the error travels on, so
    // that the line is not stuck on it for good.
    bool bad = false;
    try {
        bad = exactChecksums_ ? ExactSumCheck(frame, static_cast<int>(n)) : SumCheck(frame, static_cast<int>(n));
        if (!bad) RecCmd(frame, static_cast<int>(n));
    } catch (const RuntimeError&) {
        recBuff_.erase(recBuff_.begin(), recBuff_.begin() + static_cast<std::ptrdiff_t>(n));
        throw;
    }
    if (bad) {
        ansWait_ = kAnswerTicks;
        CommOut(nakByte_);
    } else {
        ansWait_ = -1;
        CommOut(ackByte_);
    }
    if (!events_.empty()) {
        const Bytes received(frame.begin(), frame.end());
        for (LinkEvents* e : events_) e->frameReceived(received, !bad);
    }
    recBuff_.erase(recBuff_.begin(), recBuff_.begin() + static_cast<std::ptrdiff_t>(n));
    return true;
}

void Link::lineBack() {
    if (ackWait_ < 1 || queue_.SendCnt() < 1) return;
    CommOut(queue_.head().Data);
    ackWait_ = kAckTicks;
    for (LinkEvents* e : events_) e->frameSent(queue_.head(), false);
}

void Link::giveUpQueued() {
    while (queue_.SendCnt() > 0) queue_.SendBuffShift();
    ackWait_ = -1;
}

void Link::removeHeadAfterAck() {
    if (queue_.head().Kind == "R") ansWait_ = kAnswerTicks;
    queue_.SendBuffShift();
}

void Link::Timer2_Timer() {
    if (ackWait_ < 0) return;
    const Integer was = ackWait_;
    ackWait_ = static_cast<Integer>(ackWait_ - 1);
    if (was != 1) return;
    for (LinkEvents* e : events_) e->noAcknowledge(queue_.head());
    messages_.show("No Acknowledge", Icon::Exclamation);
    ackWait_ = -1;
    removeHeadAfterAck();
}

void Link::Timer3_Timer() {
    if (ansWait_ < 0) return;
    const Integer was = ansWait_;
    ansWait_ = static_cast<Integer>(ansWait_ - 1);
    if (was != 1) return;
    for (LinkEvents* e : events_) e->noAnswer();
    messages_.show("No Answer from Camera", Icon::Exclamation);
    ansWait_ = -1;
}

void Link::RecCmd(std::span<const std::uint8_t> recData, int anslen) {
    // Entries 1..10 take the data bytes as two-digit hex texts; entry 0 and those past the
    // frame's data stay empty. An eleventh data byte is a subscript fault.
    std::array<std::string, kMaxReplyBytes + 1> rd;
    for (int i = 3; i <= anslen - 2; ++i) {
        if (i - 2 > kMaxReplyBytes) throw RuntimeError::subscriptOutOfRange();
        rd[static_cast<std::size_t>(i - 2)] = hexByte(recData[static_cast<std::size_t>(i - 1)]);
    }

    const std::string& cls = rd[1];
    if (cls == "12") return;
    if (cls == "22" || cls == "2A") {
        decoders_.RecModeMain(rd[1], rd[2], rd[3]);
        decoders_.RecModeFunc(rd[1], rd[2], rd[3]);
    } else if (cls == "32" || cls == "3A") {
        decoders_.RecAnalogMain(rd[1], rd[2], rd[3]);
        decoders_.RecAnalogFunc(rd[1], rd[2], rd[3], rd[4]);
    } else if (cls == "40") {
        decoders_.RecAuto(rd[2], rd[3]);
    }
}

}  // namespace station
