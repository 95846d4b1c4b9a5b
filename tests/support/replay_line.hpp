#pragma once
// The link's side of a line that the caller feeds by hand: a port whose received bytes are
// whatever the caller put in `waiting` (taken whole by the next read) and which counts what is
// written, and reply decoders that only count their calls. For benchmarks and fuzz targets
// that drive the receive path without a camera.

#include <cstddef>
#include <string>
#include <utility>

#include "common/serial_port.hpp"
#include "link/reply_decoders.hpp"

namespace station::testing {

class ReplayPort : public SerialPort {
public:
    void setCommPort(int) override {}
    void setSettings(const std::string&) override {}
    void open() override {}
    void close() override {}
    bool isOpen() const override { return true; }
    int bytesWaiting() override { return static_cast<int>(waiting.size()); }
    Bytes readAll() override { return std::exchange(waiting, {}); }
    void write(const Bytes& data) override { written += data.size(); }
    Bytes waiting;
    std::size_t written = 0;
};

class CountingDecoders : public ReplyDecoders {
public:
    void RecModeMain(const std::string&, const std::string&, const std::string&) override { ++calls; }
    void RecModeFunc(const std::string&, const std::string&, const std::string&) override { ++calls; }
    void RecAnalogMain(const std::string&, const std::string&, const std::string&) override { ++calls; }
    void RecAnalogFunc(const std::string&, const std::string&, const std::string&, const std::string&) override {
        ++calls;
    }
    void RecAuto(const std::string&, const std::string&) override { ++calls; }
    long calls = 0;
};

}  // namespace station::testing
