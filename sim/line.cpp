#include "sim/line.hpp"

#include <algorithm>
#include <utility>

#include "common/runtime_error.hpp"

namespace station::sim {

Line::Line(int bitsPerSecond) { setSpeed(bitsPerSecond); }

Camera& Line::addCamera(int position, std::string type, std::string id) {
    auto& slot = cameras_(position);
    slot = std::make_unique<Camera>(std::move(type), std::move(id));
    return *slot;
}

void Line::removeCamera(int position) { cameras_(position).reset(); }

Camera* Line::camera(int position) {
    if (position < 1 || position > kMaxCameras) return nullptr;
    return cameras_(position).get();
}

const Camera* Line::camera(int position) const {
    if (position < 1 || position > kMaxCameras) return nullptr;
    return cameras_(position).get();
}

Camera& Line::at(int position) {
    Camera* cam = cameras_(position).get();
    if (cam == nullptr) throw RuntimeError::subscriptOutOfRange();
    return *cam;
}

void Line::setSpeed(int bitsPerSecond) {
    if (bitsPerSecond <= 0) throw RuntimeError::invalidCall();
    bitsPerSecond_ = bitsPerSecond;
    // Ten bits a byte: start bit, eight data bits, stop bit.
    byteTime_ = Micros{(10'000'000 + bitsPerSecond - 1) / bitsPerSecond};
}

void Line::schedule(Micros at, std::function<void()> run) { events_.push(Event{at, seq_++, std::move(run)}); }

void Line::advanceTo(Micros t) {
    while (!events_.empty() && events_.top().at <= t) {
        Event e = events_.top();
        events_.pop();
        now_ = std::max(now_, e.at);
        e.run();
    }
    now_ = std::max(now_, t);
}

std::optional<Micros> Line::nextActivity() const {
    std::optional<Micros> next;
    if (!events_.empty()) next = events_.top().at;
    for (const Timed& t : toStation_) {
        if (t.at > now_) {
            if (!next || t.at < *next) next = t.at;
            break;
        }
    }
    return next;
}

void Line::fromStation(const Bytes& bytes) {
    if (bytes.empty()) return;
    const Micros start = std::max(now_, toCamerasFree_);
    if (onTraffic) onTraffic(Traffic{Traffic::From::Station, 0, start, bytes});
    Micros t = start;
    for (std::uint8_t b : bytes) {
        t += byteTime_;
        schedule(t, [this, b] { receive(b); });
    }
    toCamerasFree_ = t;
}

std::size_t Line::waitingForStation() const {
    std::size_t n = 0;
    for (const Timed& t : toStation_) {
        if (t.at > now_) break;
        ++n;
    }
    return n;
}

Bytes Line::takeForStation() {
    Bytes out;
    while (!toStation_.empty() && toStation_.front().at <= now_) {
        out.push_back(toStation_.front().byte);
        toStation_.pop_front();
    }
    return out;
}

void Line::discardForStation() { (void)takeForStation(); }

bool Line::answerAwaited() {
    while (!awaiting_.empty() && now_ - awaiting_.front().end > kAnswerWait) awaiting_.pop_front();
    return !awaiting_.empty() && awaiting_.front().end <= now_;
}

void Line::receive(std::uint8_t byte) {
    switch (reader_.feed(byte, now_, answerAwaited())) {
    case FrameReader::Got::Ack:
        onVerdict(true);
        break;
    case FrameReader::Got::Nak:
        onVerdict(false);
        break;
    case FrameReader::Got::Frame:
        onFrame(reader_.frame());
        break;
    case FrameReader::Got::Nothing:
        break;
    }
}

void Line::onVerdict(bool ack) {
    Awaiting waiting = std::move(awaiting_.front());
    awaiting_.pop_front();
    if (!ack && waiting.resendsLeft > 0) resend(std::move(waiting));
}

int Line::responder() const {
    for (int p = 1; p <= kMaxCameras; ++p)
        if (camera(p) != nullptr) return p;
    return 0;
}

void Line::onFrame(const StationFrame& frame) {
    if (frame.addressed) {
        for (int p = 1; p <= kMaxCameras; ++p) {
            const Camera* cam = camera(p);
            if (cam != nullptr && cam->header() == frame.id) handle(p, frame, !frame.ackPrefix);
        }
        return;
    }
    const int answerer = (!idMode_ && !frame.ackPrefix) ? responder() : 0;
    for (int p = 1; p <= kMaxCameras; ++p)
        if (camera(p) != nullptr) handle(p, frame, p == answerer);
}

void Line::handle(int position, const StationFrame& frame, bool answers) {
    Camera& cam = at(position);
    if (cam.faults.silent) return;
    const Micros turnaround = cam.timing.turnaround;
    if (!frame.intact) {
        if (answers) sendByte(position, kNak, turnaround);
        return;
    }
    ++cam.framesHeard;
    if (answers && Faults::take(cam.faults.nak)) {
        sendByte(position, kNak, turnaround);
        return;
    }
    const Camera::Answer answer = cam.apply(frame.data);
    if (!answers) return;  // group and handshake-free frames: applied, nothing said
    if (!Faults::take(cam.faults.noAck)) sendByte(position, kAck, turnaround);
    if (!answer.reply.empty()) sendFrame(position, answer.reply, turnaround + cam.timing.answerDelay);
    if (answer.autoOperation) {
        const std::uint8_t op = *answer.autoOperation;
        // The result code is taken when the set-up ends, so a test may change it meanwhile.
        schedule(now_ + turnaround + cam.timing.autoDelay, [this, position, op] {
            if (const Camera* c = camera(position)) sendFrame(position, c->autoResult(op), Micros{0});
        });
    }
}

void Line::report(int position, std::uint8_t cls, std::uint8_t address) {
    const Camera& cam = at(position);
    sendFrame(position, cam.report(cls, address), Micros{0});
}

void Line::sendByte(int position, std::uint8_t byte, Micros after) {
    schedule(now_ + after, [this, position, byte] {
        const Camera* cam = camera(position);
        if (cam != nullptr && !cam->faults.silent) transmit(position, Bytes{byte});
    });
}

void Line::sendFrame(int position, Bytes data, Micros after) {
    Camera* cam = camera(position);
    if (cam == nullptr) return;
    if (Faults::take(cam->faults.late)) after = cam->faults.lateBy;
    schedule(now_ + after, [this, position, data = std::move(data)] {
        Camera* c = camera(position);
        if (c == nullptr || c->faults.silent) return;
        Faults& f = c->faults;
        const Bytes frame = cameraFrame(data, idMode_ ? c->header() : std::string());
        Bytes wire = frame;
        if (Faults::take(f.badChecksum)) wire[wire.size() - 2] ^= 0xA5;
        if (Faults::take(f.noise)) {
            const Bytes stray = noise(f.noiseBytes);
            wire.insert(wire.begin(), stray.begin(), stray.end());
        }
        Micros end{};
        const auto cut = static_cast<std::size_t>(std::max(f.splitAt, 0));
        if (cut > 0 && cut < wire.size() && Faults::take(f.split)) {
            const auto mid = wire.begin() + static_cast<std::ptrdiff_t>(cut);
            const Micros first = transmit(position, Bytes(wire.begin(), mid));
            end = transmit(position, Bytes(mid, wire.end()), first + f.splitGap);
        } else {
            end = transmit(position, wire);
        }
        awaiting_.push_back(Awaiting{position, frame, kMaxResends, end});
    });
}

void Line::resend(Awaiting waiting) {
    Camera* cam = camera(waiting.position);
    if (cam == nullptr) return;
    const Micros after = Faults::take(cam->faults.late) ? cam->faults.lateBy : cam->timing.turnaround;
    schedule(now_ + after, [this, waiting = std::move(waiting)] {
        const Camera* c = camera(waiting.position);
        if (c == nullptr || c->faults.silent) return;
        const Micros end = transmit(waiting.position, waiting.frame);
        awaiting_.push_back(Awaiting{waiting.position, waiting.frame, waiting.resendsLeft - 1, end});
    });
}

Micros Line::transmit(int position, const Bytes& bytes, Micros notBefore) {
    const Micros start = std::max({now_, toStationFree_, notBefore});
    if (onTraffic) onTraffic(Traffic{Traffic::From::Camera, position, start, bytes});
    Micros t = start;
    for (std::uint8_t b : bytes) {
        t += byteTime_;
        toStation_.push_back(Timed{t, b});
    }
    toStationFree_ = t;
    return t;
}

Bytes Line::noise(int count) {
    Bytes out;
    while (static_cast<int>(out.size()) < count) {
        noiseState_ = noiseState_ * 1664525u + 1013904223u;
        const auto b = static_cast<std::uint8_t>(noiseState_ >> 24);
        // Bytes that the station takes for a frame start, an ACK or a NAK are not noise.
        if (b != kStx && b != kAck && b != kNak) out.push_back(b);
    }
    return out;
}

}  // namespace station::sim
