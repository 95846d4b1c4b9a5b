#pragma once
// The numeric and text conversions of the original runtime, which the stored settings,
// the setup files and the command builders rely on to the character.

#include <cstdint>
#include <string>
#include <string_view>

namespace station {

// 16-bit signed Integer of the original; arithmetic on it is checked (see checkedInteger).
using Integer = std::int16_t;

// Val: the numeric reading of a text. Blanks, tabs and line feeds are ignored anywhere;
// reading stops at the first character that cannot continue a number; empty text is 0.
// Understands a sign, decimals, an exponent (E or D) and the "&H" / "&O" prefixes.
double val(std::string_view text);

// Rounding of a real to a whole number as the runtime does it: half to even (2.5 -> 2).
double roundHalfEven(double value);

// Assignment of a real to an Integer: rounded half to even; outside -32768..32767 it
// raises Overflow.
Integer toInteger(double value);

// Integer arithmetic with the runtime's overflow check.
Integer checkedInteger(long long value);

// Str$: a blank before a non-negative number, "-" before a negative one; no leading zero
// before the point (" .5"); up to 15 significant digits.
std::string str(double value);

// The plain number-to-text conversion (CStr / implicit): like str() but without the blank.
std::string decText(double value);

}  // namespace station
