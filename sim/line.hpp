#pragma once
// A line of up to eight virtual cameras, in simulated time.
//
// The station's bytes travel to every camera at the line speed (10 bits a byte, 8N1) and
// are read by one receiver that all cameras share, since they all hear the same wire.
// Whatever the cameras send goes out one transmission after another on the return wire;
// a byte becomes readable for the station once its last bit has arrived.
//
// Who answers a frame:
//   - a frame with an ID: the camera with that ID (the others keep silent);
//   - a frame without an ID: every camera applies it. With the cameras in ID mode it is a
//     group frame and nobody answers; otherwise the first camera on the line answers for
//     all, so that answers never collide;
//   - a handshake-free frame (06 before it): applied, never acknowledged or answered.
// A camera's own frames carry SOH and its ID in ID mode. A frame of a camera waits for
// the station's ACK or NAK for up to kAnswerWait; a NAK makes the camera send it again,
// at most kMaxResends times.
//
// Nothing here reads a clock: time moves only through advanceTo() / advance().

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <queue>
#include <string>
#include <vector>

#include "common/bytes.hpp"
#include "common/table.hpp"
#include "sim/camera.hpp"
#include "sim/wire.hpp"

namespace station::sim {

inline constexpr int kMaxCameras = 8;

// One transmission on the line, for traces. `camera` is 0 for the station.
struct Traffic {
    enum class From { Station, Camera };
    From from;
    int camera;
    Micros at;  // when its first byte starts
    Bytes bytes;
};

class Line {
public:
    static constexpr Micros kAnswerWait{1'000'000};
    static constexpr int kMaxResends = 3;

    explicit Line(int bitsPerSecond = 9600);

    // Puts a camera at position 1..8 (replacing one that was there); other positions
    // raise "Subscript out of range".
    Camera& addCamera(int position, std::string type, std::string id);
    void removeCamera(int position);
    Camera* camera(int position);
    const Camera* camera(int position) const;
    // The camera at a position; raises "Subscript out of range" when there is none.
    Camera& at(int position);

    // Cameras in ID mode treat a frame without an ID as a group frame, and put their ID
    // in front of their own frames.
    void setIdMode(bool on) { idMode_ = on; }
    bool idMode() const { return idMode_; }

    // 9600 or 19200 (any positive rate is accepted).
    void setSpeed(int bitsPerSecond);
    int speed() const { return bitsPerSecond_; }
    Micros byteTime() const { return byteTime_; }

    Micros now() const { return now_; }
    // Runs everything that happens up to and including `t` (earlier times are ignored).
    void advanceTo(Micros t);
    void advance(Micros span) { advanceTo(now_ + span); }
    // The next moment at which something happens on the line, if anything is pending.
    std::optional<Micros> nextActivity() const;

    // The station's side: bytes written now, and the bytes that have arrived by now.
    void fromStation(const Bytes& bytes);
    std::size_t waitingForStation() const;
    Bytes takeForStation();
    // Forgets what has arrived for the station (a port opened afresh starts empty).
    void discardForStation();

    // The camera tells the station a register's value of its own accord (as it does when
    // its tally changes). Nothing is sent by a silent camera.
    void report(int position, std::uint8_t cls, std::uint8_t address);

    // Called for every transmission as it is put on the line.
    std::function<void(const Traffic&)> onTraffic;

private:
    struct Event {
        Micros at;
        std::uint64_t seq;
        std::function<void()> run;
        bool operator>(const Event& o) const { return at != o.at ? at > o.at : seq > o.seq; }
    };
    struct Awaiting {
        int position;
        Bytes frame;  // as it should have arrived, for a resend
        int resendsLeft;
        Micros end;   // when its last byte arrived
    };
    struct Timed {
        Micros at;
        std::uint8_t byte;
    };

    void schedule(Micros at, std::function<void()> run);
    void receive(std::uint8_t byte);
    void onFrame(const StationFrame& frame);
    void handle(int position, const StationFrame& frame, bool answers);
    void onVerdict(bool ack);
    bool answerAwaited();
    int responder() const;

    // Puts bytes on the return wire no earlier than now; returns when the last arrives.
    Micros transmit(int position, const Bytes& bytes, Micros notBefore = Micros{0});
    void sendByte(int position, std::uint8_t byte, Micros after);
    void sendFrame(int position, Bytes data, Micros after);
    void resend(Awaiting waiting);
    Bytes noise(int count);

    Array<std::unique_ptr<Camera>> cameras_{1, kMaxCameras};
    bool idMode_ = false;
    int bitsPerSecond_ = 9600;
    Micros byteTime_{};
    Micros now_{0};

    std::priority_queue<Event, std::vector<Event>, std::greater<>> events_;
    std::uint64_t seq_ = 0;
    Micros toCamerasFree_{0};
    Micros toStationFree_{0};
    std::deque<Timed> toStation_;
    std::deque<Awaiting> awaiting_;
    FrameReader reader_;
    std::uint32_t noiseState_ = 0x2545F491u;
};

}  // namespace station::sim
