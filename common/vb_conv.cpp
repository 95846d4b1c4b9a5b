#include "common/vb_conv.hpp"

#include <cmath>
#include <cstdio>
#include <limits>

#include "common/hex.hpp"
#include "common/runtime_error.hpp"

namespace station {

namespace {

bool ignoredByVal(char c) { return c == ' ' || c == '\t' || c == '\n'; }

// The text with the characters that Val skips taken out.
std::string packed(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (char c : text)
        if (!ignoredByVal(c)) out += c;
    return out;
}

double readOctal(std::string_view digits) {
    std::uint32_t v = 0;
    for (char c : digits) {
        if (c < '0' || c > '7') break;
        v = (v << 3) | static_cast<std::uint32_t>(c - '0');
    }
    return static_cast<double>(v);
}

}  // namespace

double val(std::string_view text) {
    const std::string s = packed(text);
    if (s.size() >= 2 && s[0] == '&') {
        const char kind = s[1];
        if (kind == 'H' || kind == 'h') return static_cast<double>(readHexPrefix(std::string_view(s).substr(2)));
        if (kind == 'O' || kind == 'o') return readOctal(std::string_view(s).substr(2));
        return 0.0;
    }
    // Collect the longest prefix that forms a decimal number.
    std::string num;
    std::size_t i = 0;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) num += s[i++];
    bool digits = false;
    while (i < s.size() && s[i] >= '0' && s[i] <= '9') { num += s[i++]; digits = true; }
    if (i < s.size() && s[i] == '.') {
        num += s[i++];
        while (i < s.size() && s[i] >= '0' && s[i] <= '9') { num += s[i++]; digits = true; }
    }
    if (!digits) return 0.0;
    if (i < s.size() && (s[i] == 'E' || s[i] == 'e' || s[i] == 'D' || s[i] == 'd')) {
        std::string exp = "e";
        std::size_t j = i + 1;
        if (j < s.size() && (s[j] == '+' || s[j] == '-')) exp += s[j++];
        bool expDigits = false;
        while (j < s.size() && s[j] >= '0' && s[j] <= '9') { exp += s[j++]; expDigits = true; }
        if (expDigits) num += exp;
    }
    const double v = std::strtod(num.c_str(), nullptr);
    if (std::isinf(v)) throw RuntimeError::overflow();
    return v;
}

double roundHalfEven(double value) {
    return std::nearbyint(value);  // default floating-point rounding is to nearest, ties to even
}

Integer toInteger(double value) {
    const double r = roundHalfEven(value);
    if (!(r >= -32768.0 && r <= 32767.0)) throw RuntimeError::overflow();
    return static_cast<Integer>(r);
}

Integer checkedInteger(long long value) {
    if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max())
        throw RuntimeError::overflow();
    return static_cast<Integer>(value);
}

std::string decText(double value) {
    if (value == 0.0) return "0";
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.15G", value);
    std::string s = buf;
    // %G may print an exponent; keep the runtime's shape "1E+20" and drop trailing zeros.
    const auto e = s.find('E');
    std::string mant = e == std::string::npos ? s : s.substr(0, e);
    std::string expo = e == std::string::npos ? "" : s.substr(e);
    if (mant.find('.') != std::string::npos) {
        while (!mant.empty() && mant.back() == '0') mant.pop_back();
        if (!mant.empty() && mant.back() == '.') mant.pop_back();
    }
    // No leading zero before the point: 0.5 is ".5", -0.5 is "-.5".
    if (mant.rfind("0.", 0) == 0) mant.erase(0, 1);
    else if (mant.rfind("-0.", 0) == 0) mant.erase(1, 1);
    if (!expo.empty()) {
        // "E+020" style from some C libraries becomes "E+20".
        std::string digits = expo.substr(2);
        while (digits.size() > 1 && digits.front() == '0') digits.erase(0, 1);
        expo = expo.substr(0, 2) + digits;
    }
    return mant + expo;
}

std::string str(double value) {
    const std::string t = decText(value);
    return value < 0 ? t : " " + t;
}

}  // namespace station
