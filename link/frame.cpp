#include "link/frame.hpp"

#include <cmath>

#include "common/hex.hpp"
#include "common/runtime_error.hpp"
#include "common/vb_conv.hpp"

namespace station {

Bytes buildFrame(std::string_view cmdStr, const FrameHeader& header) {
    Bytes frame;
    if (header.ackPrefix) frame.push_back(0x06);

    // The sum starts at the unrounded half-length; LEN is the same half rounded to even.
    const double half = static_cast<double>(cmdStr.size()) / 2.0;
    double sum = half;

    if (header.withId) {
        const std::string padded = "   " + header.cameraId;
        const std::string id = padded.substr(padded.size() - 3);
        frame.push_back(0x01);
        for (char c : id) {
            const auto b = static_cast<std::uint8_t>(c);
            frame.push_back(b);
            sum += b;
        }
        sum += 2;  // the STX counts in ID mode only
    }

    const double len = roundHalfEven(half);
    if (len > 255) throw RuntimeError::invalidCall();
    frame.push_back(0x02);
    frame.push_back(static_cast<std::uint8_t>(len));
    for (std::size_t i = 0; i < static_cast<std::size_t>(len); ++i) {
        const std::string_view pair = cmdStr.substr(2 * i, 2);
        const auto v = static_cast<std::uint8_t>(readHexPrefix(pair) & 0xFF);
        frame.push_back(v);
        sum += v;
    }

    const auto chk = static_cast<std::uint16_t>(static_cast<long long>(roundHalfEven(-1.0 - sum)) & 0xFFFF);
    frame.push_back(static_cast<std::uint8_t>(chk & 0xFF));
    frame.push_back(static_cast<std::uint8_t>(chk >> 8));
    return frame;
}

namespace {

// LEN and the data bytes added up as the station adds them (Overflow past 32767).
Integer receivedSum(std::span<const std::uint8_t> recData, int strlen) {
    if (strlen < 2 || static_cast<std::size_t>(strlen) > recData.size()) throw RuntimeError::invalidCall();
    Integer total = 0;
    for (int pos = 2; pos <= strlen - 2; ++pos)
        total = checkedInteger(static_cast<long long>(total) + recData[static_cast<std::size_t>(pos - 1)]);
    return total;
}

}  // namespace

bool ExactSumCheck(std::span<const std::uint8_t> recData, int strlen) {
    if (recData.empty() || recData[0] != 0x02) return true;
    const Integer total = receivedSum(recData, strlen);
    const auto chk = static_cast<std::int16_t>(recData[static_cast<std::size_t>(strlen - 2)] |
                                               recData[static_cast<std::size_t>(strlen - 1)] << 8);
    return chk != -1 - static_cast<long long>(total);
}

bool SumCheck(std::span<const std::uint8_t> recData, int strlen) {
    if (recData.empty() || recData[0] != 0x02) return true;
    const Integer total = receivedSum(recData, strlen);
    const std::string text = hexNoPad(recData[static_cast<std::size_t>(strlen - 1)]) +
                             hexNoPad(recData[static_cast<std::size_t>(strlen - 2)]);
    const long long v = readHexPrefix(text);
    return v != -1 - static_cast<long long>(total);
}

}  // namespace station
