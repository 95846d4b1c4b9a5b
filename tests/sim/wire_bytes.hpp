#pragma once
// Bytes written the way the line is described: "02 03 40 00 00 BC FF".

#include <string>
#include <string_view>

#include "common/bytes.hpp"

namespace station::testing {

inline Bytes wire(std::string_view spaced) {
    Bytes out;
    std::string digits;
    for (char c : spaced) {
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

}  // namespace station::testing
