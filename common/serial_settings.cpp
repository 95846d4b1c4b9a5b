#include "common/serial_settings.hpp"

#include <algorithm>
#include <array>
#include <vector>

#include "common/runtime_error.hpp"

namespace station {

namespace {

constexpr std::array<const char*, 8> kRates{"1200", "2400", "4800", "9600", "19200", "38400", "57600", "115200"};

std::vector<std::string> fields(const std::string& text) {
    std::vector<std::string> out(1);
    for (char c : text) {
        if (c == ',') out.emplace_back();
        else out.back() += c;
    }
    return out;
}

}  // namespace

SerialSettings parseSerialSettings(const std::string& text) {
    const std::vector<std::string> f = fields(text);
    if (f.size() != 4) throw RuntimeError::invalidCall();
    const std::string& rate = f[0];
    const std::string& parity = f[1];
    const std::string& data = f[2];
    const std::string& stop = f[3];
    if (std::find(kRates.begin(), kRates.end(), rate) == kRates.end()) throw RuntimeError::invalidCall();
    if (parity.size() != 1 || std::string("NEOneo").find(parity[0]) == std::string::npos)
        throw RuntimeError::invalidCall();
    if (data != "7" && data != "8") throw RuntimeError::invalidCall();
    if (stop != "1" && stop != "2") throw RuntimeError::invalidCall();
    SerialSettings s;
    s.rate = std::stoi(rate);
    s.parity = static_cast<char>(parity[0] & ~0x20);
    s.dataBits = data[0] - '0';
    s.stopBits = stop[0] - '0';
    return s;
}

}  // namespace station
