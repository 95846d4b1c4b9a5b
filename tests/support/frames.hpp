#pragma once
// Frames as the line carries them, worked out here from the line's description rather than
// with the link's or the cameras' code, so that a mistake there is caught, not mirrored.

#include <string>
#include <string_view>

#include "common/bytes.hpp"

namespace station::testing {

// Bytes written the way the line is described: "02 03 40 00 00 BC FF" (blanks optional).
inline Bytes wire(std::string_view hex) {
    Bytes out;
    std::string digits;
    for (char c : hex) {
        if (c == ' ') continue;
        digits.push_back(c);
        if (digits.size() == 2) {
            out.push_back(static_cast<std::uint8_t>(std::stoi(digits, nullptr, 16)));
            digits.clear();
        }
    }
    return out;
}

inline Bytes operator+(Bytes a, const Bytes& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// STX, LEN, data and the ones' complement of the sum of LEN and data, low byte first. With an
// ID, SOH and the ID right-aligned in three characters go in front and, with the STX, join the
// sum (as the station sums its frames); with the prefix an ACK byte leads.
inline Bytes frame(const Bytes& data, std::string_view id = "", bool ackPrefix = false) {
    Bytes f;
    unsigned sum = static_cast<unsigned>(data.size());
    if (ackPrefix) f.push_back(0x06);
    if (!id.empty()) {
        const std::string field = id.size() >= 3 ? std::string(id.substr(id.size() - 3))
                                                 : std::string(3 - id.size(), ' ') + std::string(id);
        f.push_back(0x01);
        for (char c : field) {
            f.push_back(static_cast<std::uint8_t>(c));
            sum += static_cast<std::uint8_t>(c);
        }
        sum += 0x02;
    }
    f.push_back(0x02);
    f.push_back(static_cast<std::uint8_t>(data.size()));
    for (std::uint8_t b : data) {
        f.push_back(b);
        sum += b;
    }
    f.push_back(static_cast<std::uint8_t>(~sum & 0xFF));
    f.push_back(static_cast<std::uint8_t>((~sum >> 8) & 0xFF));
    return f;
}

// A camera's reply frame for the data bytes written as on the line: reply("22 08 01").
inline Bytes reply(std::string_view hex) { return frame(wire(hex)); }

}  // namespace station::testing
