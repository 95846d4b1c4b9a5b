#pragma once
// Serial port 1 on a real device through QSerialPort: a tty, a USB adapter, or the
// pseudo-terminal that camera-sim serves. Raw bytes, no flow control; the settings text
// ("9600,N,8,1") is applied at open and at once while the port is open. Reception is
// polled: the bytes the event loop has taken in since the last poll are waiting, and
// `onActivity` tells that some came (or the device failed), so a sleeping poll wakes.

#include <QSerialPort>

#include <functional>
#include <string>

#include "common/serial_port.hpp"
#include "common/serial_settings.hpp"

namespace station::ui {

class QtSerialPort : public SerialPort {
public:
    explicit QtSerialPort(std::string portOneDevice);

    // Port 1 is the device given; the station uses no other.
    void setCommPort(int port) override { commPort_ = port; }
    // A settings text such as "9600,N,8,1" (serial_settings.hpp); anything else raises
    // error 5 and leaves the settings as they were.
    void setSettings(const std::string& settings) override;
    // Raises std::runtime_error naming the device and the reason when it cannot be opened.
    void open() override;
    void close() override;
    bool isOpen() const override { return port_.isOpen(); }
    int bytesWaiting() override;
    Bytes readAll() override;
    // A read, write or resource error (a hung-up or unplugged device) raises LineFault
    // naming the device; a refused setting on an open port does too.
    void write(const Bytes& data) override;

    const std::string& device() const { return device_; }

    std::function<void()> onActivity;

private:
    void apply();
    void checkLine();

    std::string device_;
    int commPort_ = 1;
    SerialSettings settings_;
    QSerialPort port_;
};

}  // namespace station::ui
