#include "line/chosen_port.hpp"

#include "common/line_fault.hpp"

namespace station {

void ChosenPort::takeOver(SerialPort& next) {
    if (commPort_) next.setCommPort(*commPort_);
    if (settings_) next.setSettings(*settings_);
}

void ChosenPort::use(std::unique_ptr<SerialPort> next) {
    close();
    if (next) takeOver(*next);
    owned_ = std::move(next);
    current_ = owned_.get();
}

void ChosenPort::use(SerialPort& borrowed) {
    close();
    takeOver(borrowed);
    owned_.reset();
    current_ = &borrowed;
}

void ChosenPort::setCommPort(int port) {
    if (current_ != nullptr) current_->setCommPort(port);
    commPort_ = port;
}

void ChosenPort::setSettings(const std::string& settings) {
    if (current_ != nullptr) current_->setSettings(settings);
    settings_ = settings;  // kept only once the port has taken them
}

void ChosenPort::open() {
    if (current_ == nullptr) throw LineFault("no serial port chosen");
    current_->open();
}

void ChosenPort::close() {
    if (current_ != nullptr) current_->close();
}

void ChosenPort::write(const Bytes& data) {
    if (current_ != nullptr) current_->write(data);
}

}  // namespace station
