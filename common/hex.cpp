#include "common/hex.hpp"

#include <cstdint>

#include "common/runtime_error.hpp"

namespace station {

namespace {
constexpr char kDigits[] = "0123456789ABCDEF";

int hexDigitValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}
}  // namespace

std::string hexByte(std::uint8_t value) {
    return {kDigits[value >> 4], kDigits[value & 0x0F]};
}

std::string hexText(const Bytes& data) {
    std::string out;
    out.reserve(data.size() * 2);
    for (std::uint8_t b : data) out += hexByte(b);
    return out;
}

std::string spacedHex(const Bytes& data) {
    std::string out;
    out.reserve(data.size() * 3);
    for (std::uint8_t b : data) {
        out += ' ';
        out += hexByte(b);
    }
    return out;
}

std::string hexNoPad(long long value) {
    auto u = static_cast<std::uint32_t>(value);
    if (u == 0) return "0";
    std::string out;
    while (u != 0) {
        out.insert(out.begin(), kDigits[u & 0x0F]);
        u >>= 4;
    }
    return out;
}

long long readHexPrefix(std::string_view digits) {
    std::uint32_t v = 0;
    std::size_t n = 0;
    for (char c : digits) {
        const int d = hexDigitValue(c);
        if (d < 0) break;
        if (n == 0 && d == 0) continue;  // leading zeros do not count towards the width
        if (n == 8) throw RuntimeError::overflow();
        v = (v << 4) | static_cast<std::uint32_t>(d);
        ++n;
    }
    if (n <= 4) return static_cast<std::int16_t>(static_cast<std::uint16_t>(v));
    return static_cast<std::int32_t>(v);
}

}  // namespace station
