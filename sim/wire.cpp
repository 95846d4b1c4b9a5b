#include "sim/wire.hpp"

namespace station::sim {

std::string idField(std::string_view id) {
    std::string padded = "   ";
    padded.append(id);
    return padded.substr(padded.size() - 3);
}

std::uint16_t onesComplement(std::uint32_t sum) { return static_cast<std::uint16_t>(~sum & 0xFFFFu); }

Bytes cameraFrame(const Bytes& data, std::string_view header) {
    Bytes out;
    out.reserve(data.size() + 8);
    if (!header.empty()) {
        out.push_back(kSoh);
        out.insert(out.end(), header.begin(), header.end());
    }
    out.push_back(kStx);
    out.push_back(static_cast<std::uint8_t>(data.size()));
    std::uint32_t sum = static_cast<std::uint8_t>(data.size());
    for (std::uint8_t b : data) {
        out.push_back(b);
        sum += b;
    }
    const std::uint16_t chk = onesComplement(sum);
    out.push_back(static_cast<std::uint8_t>(chk & 0xFF));
    out.push_back(static_cast<std::uint8_t>(chk >> 8));
    return out;
}

void FrameReader::reset() {
    state_ = State::Idle;
    prefix_ = false;
}

FrameReader::Got FrameReader::feed(std::uint8_t byte, Micros at, bool answerAwaited) {
    if (seenAny_ && at - last_ > kFrameGap) reset();
    seenAny_ = true;
    last_ = at;

    switch (state_) {
    case State::Idle:
        return idle(byte, answerAwaited);
    case State::Id:
        frame_.id.push_back(static_cast<char>(byte));
        if (frame_.id.size() == 3) state_ = State::Stx;
        return Got::Nothing;
    case State::Stx:
        if (byte == kStx) {
            state_ = State::Len;
            return Got::Nothing;
        }
        reset();  // a header that no frame follows: read this byte afresh
        return idle(byte, answerAwaited);
    case State::Len:
        len_ = byte;
        frame_.data.clear();
        state_ = len_ > 0 ? State::Data : State::ChkLo;
        return Got::Nothing;
    case State::Data:
        frame_.data.push_back(byte);
        if (frame_.data.size() == len_) state_ = State::ChkLo;
        return Got::Nothing;
    case State::ChkLo:
        chkLo_ = byte;
        state_ = State::ChkHi;
        return Got::Nothing;
    case State::ChkHi: {
        std::uint32_t sum = static_cast<std::uint32_t>(len_);
        for (std::uint8_t b : frame_.data) sum += b;
        if (frame_.addressed) {
            for (char c : frame_.id) sum += static_cast<std::uint8_t>(c);
            sum += kStx;
        }
        const std::uint16_t chk = onesComplement(sum);
        frame_.intact = chkLo_ == (chk & 0xFF) && byte == (chk >> 8);
        reset();
        return Got::Frame;
    }
    }
    return Got::Nothing;
}

FrameReader::Got FrameReader::idle(std::uint8_t byte, bool answerAwaited) {
    switch (byte) {
    case kAck:
        if (answerAwaited) return Got::Ack;
        prefix_ = true;
        return Got::Nothing;
    case kNak:
        prefix_ = false;
        return answerAwaited ? Got::Nak : Got::Nothing;
    case kSoh:
    case kStx:
        frame_ = StationFrame{};
        frame_.ackPrefix = prefix_;
        frame_.addressed = byte == kSoh;
        prefix_ = false;
        state_ = byte == kSoh ? State::Id : State::Len;
        return Got::Nothing;
    default:
        prefix_ = false;
        return Got::Nothing;
    }
}

}  // namespace station::sim
