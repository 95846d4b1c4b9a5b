#pragma once
// The camera's side of the wire, written from the line's description alone.
//
// From the station:  [06] [01 i i i] 02 LEN data... CHKlo CHKhi
//   06       handshake-free frame: applied, never acknowledged or answered
//   01 iii   the addressed camera's ID, right-aligned in three characters; with it the
//            checksum also counts the three ID bytes and 2 (for the STX)
//   CHK      ones' complement of the 16-bit sum, low byte first
// From a camera:     [01 i i i] 02 LEN data... CHKlo CHKhi, checksum over LEN and data only
// Either side answers a frame with a single ACK (06) or NAK (15) byte.

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

#include "common/bytes.hpp"

namespace station::sim {

using Micros = std::chrono::microseconds;

inline constexpr std::uint8_t kSoh = 0x01;
inline constexpr std::uint8_t kStx = 0x02;
inline constexpr std::uint8_t kAck = 0x06;
inline constexpr std::uint8_t kNak = 0x15;

// The ID as a frame header carries it: right-aligned in three characters, padded with
// blanks, and only its last three characters when it is longer ("1" -> "  1").
std::string idField(std::string_view id);

// Ones' complement of a sum in 16 bits.
std::uint16_t onesComplement(std::uint32_t sum);

// A frame as a camera sends it; `header` is "" or the three-character ID field to put
// after an SOH in front of the frame.
Bytes cameraFrame(const Bytes& data, std::string_view header);

// A frame from the station, as the cameras read it.
struct StationFrame {
    bool ackPrefix = false;  // handshake-free
    bool addressed = false;  // carried an SOH and an ID
    std::string id;          // the three ID characters when addressed
    Bytes data;
    bool intact = false;     // its checksum matched
};

// Reads the station's bytes one at a time, as each camera's receiver does. A frame left
// unfinished for longer than kFrameGap is given up, so that one lost byte does not put
// the receiver out of step for good.
class FrameReader {
public:
    static constexpr Micros kFrameGap{100'000};

    enum class Got { Nothing, Ack, Nak, Frame };

    // One byte that reached the cameras at `at`. With `answerAwaited` (a camera's frame is
    // waiting for the station's verdict) a 06 or 15 outside a frame is that verdict;
    // otherwise a 06 marks the next frame handshake-free and a 15 is noise.
    Got feed(std::uint8_t byte, Micros at, bool answerAwaited);

    // The frame just completed; valid after feed() returned Got::Frame.
    const StationFrame& frame() const { return frame_; }

    // True while a frame is partly read.
    bool busy() const { return state_ != State::Idle; }

private:
    enum class State { Idle, Id, Stx, Len, Data, ChkLo, ChkHi };

    Got idle(std::uint8_t byte, bool answerAwaited);
    void reset();

    State state_ = State::Idle;
    bool prefix_ = false;
    bool seenAny_ = false;
    Micros last_{0};
    std::size_t len_ = 0;
    std::uint8_t chkLo_ = 0;
    StationFrame frame_;
};

}  // namespace station::sim
