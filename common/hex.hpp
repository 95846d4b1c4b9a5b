#pragma once
// Hexadecimal text as the station and its cameras use it: two upper-case digits per byte.

#include <cstdint>
#include <string>
#include <string_view>

#include "common/bytes.hpp"

namespace station {

// "0A" for 10: always two upper-case digits.
std::string hexByte(std::uint8_t value);

// "02034000" for 02 03 40 00: two digits per byte, no separators.
std::string hexText(const Bytes& data);

// The monitor's form: a blank before each two-digit byte (" 02 03 40").
std::string spacedHex(const Bytes& data);

// The original runtime's Hex$: upper case, no leading zeros ("5" for 5, "0" for 0).
// Negative values print in 32-bit two's complement, as a Long would.
std::string hexNoPad(long long value);

// Value of a text after an "&H" prefix: the leading run of hex digits, either case;
// 0 when it starts with anything else. Up to four digits read as a signed 16-bit
// Integer ("FFBC" is -68); five to eight as a signed 32-bit Long.
long long readHexPrefix(std::string_view digits);

}  // namespace station
