#include "sim/sim_port.hpp"

#include <cctype>

#include "common/runtime_error.hpp"

namespace station::sim {

void SimPort::setSettings(const std::string& settings) {
    long rate = 0;
    std::size_t i = 0;
    while (i < settings.size() && std::isdigit(static_cast<unsigned char>(settings[i])) != 0 && rate < 10'000'000)
        rate = rate * 10 + (settings[i++] - '0');
    if (rate <= 0 || rate >= 10'000'000) throw RuntimeError::invalidCall();
    bitsPerSecond_ = static_cast<int>(rate);
}

void SimPort::open() {
    line_.discardForStation();  // a port opened afresh starts with an empty input buffer
    open_ = true;
}

int SimPort::bytesWaiting() {
    if (!open_) return 0;
    if (!inStep()) {
        line_.discardForStation();
        return 0;
    }
    return static_cast<int>(line_.waitingForStation());
}

Bytes SimPort::readAll() {
    if (!open_) return {};
    Bytes in = line_.takeForStation();
    if (!inStep()) return {};
    return in;
}

void SimPort::write(const Bytes& data) {
    if (open_ && inStep()) line_.fromStation(data);
}

}  // namespace station::sim
