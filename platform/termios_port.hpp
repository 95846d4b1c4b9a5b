#pragma once
// The station's serial port on a POSIX terminal device (a real RS-232 port, a USB
// adapter, or a pseudo-terminal such as the one camera-sim serves). Raw bytes, reads
// that never block, the settings text of the station ("9600,N,8,1").
//
// Port 1 is the device given to the constructor (by default portOneDevice()); port n
// above 1 is /dev/ttyS(n-1).

#include <chrono>
#include <string>

#include "common/serial_port.hpp"
#include "common/serial_settings.hpp"

namespace station::platform {

class TermiosPort : public SerialPort {
public:
    explicit TermiosPort(std::string portOne = portOneDevice());
    ~TermiosPort() override;
    TermiosPort(const TermiosPort&) = delete;
    TermiosPort& operator=(const TermiosPort&) = delete;

    void setCommPort(int port) override;
    // A settings text such as "9600,N,8,1" (serial_settings.hpp); anything else raises
    // error 5 and leaves the settings as they were. Applied at once when the port is open.
    void setSettings(const std::string& settings) override;
    // Raises std::system_error when the device cannot be opened or set up.
    void open() override;
    void close() override;
    bool isOpen() const override { return fd_ >= 0; }
    int bytesWaiting() override;
    Bytes readAll() override;
    // A device that hangs up or fails a read or write raises LineFault naming it; so does
    // one that does not take all the bytes within `writeWait`, so that no frame is lost
    // half-written without the station knowing.
    void write(const Bytes& data) override;
    std::chrono::milliseconds writeWait{1000};

    // The device the selected port stands for.
    std::string device() const;

    // $CORVANE_PORT when set and not empty, else /dev/ttyS0.
    static std::string portOneDevice();

private:
    void apply();
    [[noreturn]] void lost(const std::string& what, int error) const;

    std::string portOne_;
    int port_ = 1;
    SerialSettings settings_;
    int fd_ = -1;
};

}  // namespace station::platform
