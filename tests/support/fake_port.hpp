#pragma once
// A serial port for tests: bytes arrive when the test says so, everything written is kept.

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "common/line_fault.hpp"
#include "common/serial_port.hpp"

namespace station::testing {

class FakePort : public SerialPort {
public:
    void setCommPort(int port) override { commPort = port; }
    void setSettings(const std::string& s) override { settings = s; }
    void open() override {
        ++opens;
        if (failOpen) throw std::runtime_error("port not available");
        opened = true;
    }
    void close() override { opened = false; }
    bool isOpen() const override { return opened; }
    int bytesWaiting() override {
        if (hungUp && opened) throw LineFault("fake: the device hung up");
        return static_cast<int>(incoming.size());
    }
    Bytes readAll() override { return std::exchange(incoming, {}); }
    void write(const Bytes& data) override {
        if (hungUp && opened) throw LineFault("fake: write failed");
        writes.push_back(data);
    }

    // The camera side: these bytes are waiting from now on.
    void arrive(const Bytes& data) { incoming.insert(incoming.end(), data.begin(), data.end()); }
    // Everything written since the last take, in order, and forget it.
    Bytes takeWritten() {
        Bytes out;
        for (const Bytes& w : std::exchange(writes, {})) out.insert(out.end(), w.begin(), w.end());
        return out;
    }

    int commPort = 0;
    std::string settings;
    bool opened = false;
    bool failOpen = false;    // open() raises, as a missing or busy port does
    bool hungUp = false;      // reads and writes raise LineFault, as an unplugged device's do
    int opens = 0;            // calls of open()
    std::vector<Bytes> writes;  // one entry per write() call
    Bytes incoming;
};

}  // namespace station::testing
