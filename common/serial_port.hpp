#pragma once
// The serial line as the station uses it: port 1 at a settings text such as "9600,N,8,1",
// binary input, polled (no receive event). Implemented by the real port of the desktop
// program, by POSIX termios for ttys, by the in-process camera simulator and by test fakes.

#include <string>

#include "common/bytes.hpp"

namespace station {

class SerialPort {
public:
    virtual ~SerialPort() = default;
    virtual void setCommPort(int port) = 0;
    // "9600,N,8,1" or "19200,N,8,1"; may be changed while the port is open.
    virtual void setSettings(const std::string& settings) = 0;
    virtual void open() = 0;
    virtual void close() = 0;
    virtual bool isOpen() const = 0;
    virtual int bytesWaiting() = 0;
    // Every byte waiting, oldest first.
    virtual Bytes readAll() = 0;
    // All bytes in one write.
    virtual void write(const Bytes& data) = 0;
};

}  // namespace station
