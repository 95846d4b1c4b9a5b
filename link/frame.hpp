#pragma once
// The command frame on the line and its checksum.
//
// Sent:     [06] [01 id id id] 02 LEN data... CHKlo CHKhi
//   06      only under "Ack Off"; never in the checksum
//   01+ID   only in camera-ID mode with a camera selected; the three ID bytes and the
//           value 2 (for the STX) then enter the checksum, the 01 never does
//   CHK     ones' complement of LEN + data (+ ID bytes + 2), low byte first
// Received: 02 LEN data... CHKlo CHKhi, checksum over LEN and data only.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "common/bytes.hpp"

namespace station {

struct FrameHeader {
    bool ackPrefix = false;    // "Ack Off": 06 before the frame
    bool withId = false;       // camera-ID mode with a camera selected
    std::string cameraId;      // CamID of the selected camera (not empty when withId)
};

// The frame for a command given as hex text ("4010" is 40 10). Odd digit counts, non-hex
// pairs and the half-length start of the sum behave as the original's frame builder did.
// Raises the invalid-argument error when the text holds more than 255 data bytes.
Bytes buildFrame(std::string_view cmdStr, const FrameHeader& header);

// The received-frame check. Returns the original's `answer`: true when the frame is BAD.
// The checksum bytes are read back through hex text without leading zeros, so a correct
// frame whose checksum low byte is below 0x10 (and high byte not 0) is judged bad; this is
// the station's long-standing behaviour and cameras answer it by resending. A sum over
// 32767 raises Overflow.
bool SumCheck(std::span<const std::uint8_t> recData, int strlen);
// The same check with the checksum bytes read as the 16-bit number they are: a frame whose
// sum matches is good whatever its checksum's digits. Otherwise as SumCheck (the first
// byte, the overflow).
bool ExactSumCheck(std::span<const std::uint8_t> recData, int strlen);

}  // namespace station
