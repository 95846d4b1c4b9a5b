#pragma once
// The station's serial port on a simulated camera line, in process. Any port number
// reaches the line. Bytes written while the port is open go onto the line now; bytes the
// cameras send are waiting once they have fully arrived. Simulated time is moved by
// whoever drives the station (tests, the benchmark, or the desktop program's default line
// following its own timers): see sim::TickDriver.
//
// A port set to another speed than the cameras' garbles every byte both ways: here the
// bytes are simply lost, as framing errors are.

#include <string>

#include "common/serial_port.hpp"
#include "sim/line.hpp"

namespace station::sim {

class SimPort : public SerialPort {
public:
    explicit SimPort(Line& line) : line_(line) {}

    void setCommPort(int port) override { commPort_ = port; }
    // The settings text's leading bit rate ("19200,N,8,1"); no rate raises error 5.
    void setSettings(const std::string& settings) override;
    void open() override;
    void close() override { open_ = false; }
    bool isOpen() const override { return open_; }
    int bytesWaiting() override;
    Bytes readAll() override;
    void write(const Bytes& data) override;

    int commPort() const { return commPort_; }
    int speed() const { return bitsPerSecond_; }
    Line& line() { return line_; }

private:
    bool inStep() const { return bitsPerSecond_ == line_.speed(); }

    Line& line_;
    int commPort_ = 1;
    int bitsPerSecond_ = 9600;
    bool open_ = false;
};

}  // namespace station::sim
