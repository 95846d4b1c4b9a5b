#pragma once
// Port 1 as the operator chose it: a serial device or the built-in simulated line. The
// station holds this one port for its life; choosing another device puts a new port in
// its place, closing the old one and giving the new one the port number and settings
// given so far. With nothing chosen, opening fails and the rest does nothing.

#include <memory>
#include <optional>
#include <string>

#include "common/serial_port.hpp"

namespace station {

class ChosenPort : public SerialPort {
public:
    // Takes a port that this object owns, or one that lives elsewhere (the built-in line's).
    void use(std::unique_ptr<SerialPort> next);
    void use(SerialPort& borrowed);

    void setCommPort(int port) override;
    void setSettings(const std::string& settings) override;
    void open() override;
    void close() override;
    bool isOpen() const override { return current_ != nullptr && current_->isOpen(); }
    int bytesWaiting() override { return current_ != nullptr ? current_->bytesWaiting() : 0; }
    Bytes readAll() override { return current_ != nullptr ? current_->readAll() : Bytes{}; }
    void write(const Bytes& data) override;

private:
    void takeOver(SerialPort& next);

    std::unique_ptr<SerialPort> owned_;
    SerialPort* current_ = nullptr;
    std::optional<int> commPort_;
    std::optional<std::string> settings_;
};

}  // namespace station
