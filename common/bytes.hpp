#pragma once
// Frames and received data are plain byte sequences; no text encoding ever touches them.

#include <cstdint>
#include <string_view>
#include <vector>

namespace station {

using Bytes = std::vector<std::uint8_t>;

inline Bytes bytesOf(std::initializer_list<int> values) {
    Bytes out;
    out.reserve(values.size());
    for (int v : values) out.push_back(static_cast<std::uint8_t>(v));
    return out;
}

// The low 8 bits of each character code, as the original did when it put text on the line.
inline Bytes bytesOfText(std::string_view text) {
    return Bytes(text.begin(), text.end());
}

}  // namespace station
