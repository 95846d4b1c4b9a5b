#pragma once
// A serial port for tests: bytes arrive when the test says so, everything written is kept.

#include <deque>
#include <string>
#include <vector>

#include "common/serial_port.hpp"

namespace station::testing {

class FakePort : public SerialPort {
public:
    void setCommPort(int port) override { commPort = port; }
    void setSettings(const std::string& s) override { settings = s; }
    void open() override;
    void close() override { opened = false; }
    bool isOpen() const override { return opened; }
    int bytesWaiting() override;
    Bytes readAll() override;
    void write(const Bytes& data) override;

    // The camera side: these bytes are waiting from now on.
    void arrive(const Bytes& data) { incoming.insert(incoming.end(), data.begin(), data.end()); }
    // Everything written since the last take, in order, and forget it.
    Bytes takeWritten();

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
