#include "ui/qt_serial_port.hpp"

#include <stdexcept>
#include <vector>

#include "common/runtime_error.hpp"

namespace station::ui {

namespace {

std::vector<std::string> fields(const std::string& text) {
    std::vector<std::string> out(1);
    for (char c : text) {
        if (c == ',') out.emplace_back();
        else out.back() += c;
    }
    return out;
}

}  // namespace

QtSerialPort::QtSerialPort(std::string portOneDevice) : device_(std::move(portOneDevice)) {}

QtSerialPort::Settings QtSerialPort::parse(const std::string& text) {
    const std::vector<std::string> f = fields(text);
    if (f.size() != 4 || f[0].empty() || f[0].size() > 7) throw RuntimeError::invalidCall();
    Settings s;
    s.rate = 0;
    for (char c : f[0]) {
        if (c < '0' || c > '9') throw RuntimeError::invalidCall();
        s.rate = s.rate * 10 + (c - '0');
    }
    if (s.rate <= 0) throw RuntimeError::invalidCall();

    if (f[1] == "N" || f[1] == "n") s.parity = QSerialPort::NoParity;
    else if (f[1] == "E" || f[1] == "e") s.parity = QSerialPort::EvenParity;
    else if (f[1] == "O" || f[1] == "o") s.parity = QSerialPort::OddParity;
    else throw RuntimeError::invalidCall();

    if (f[2] == "8") s.dataBits = QSerialPort::Data8;
    else if (f[2] == "7") s.dataBits = QSerialPort::Data7;
    else throw RuntimeError::invalidCall();

    if (f[3] == "1") s.stopBits = QSerialPort::OneStop;
    else if (f[3] == "2") s.stopBits = QSerialPort::TwoStop;
    else throw RuntimeError::invalidCall();
    return s;
}

void QtSerialPort::setSettings(const std::string& settings) {
    settings_ = parse(settings);
    if (isOpen()) apply();
}

void QtSerialPort::apply() {
    port_.setBaudRate(settings_.rate);
    port_.setParity(settings_.parity);
    port_.setDataBits(settings_.dataBits);
    port_.setStopBits(settings_.stopBits);
    port_.setFlowControl(QSerialPort::NoFlowControl);
}

void QtSerialPort::open() {
    if (commPort_ != 1) throw std::runtime_error("serial port " + std::to_string(commPort_) + " has no device");
    if (port_.isOpen()) return;
    port_.setPortName(QString::fromStdString(device_));
    if (!port_.open(QIODevice::ReadWrite))
        throw std::runtime_error("cannot open " + device_ + ": " + port_.errorString().toStdString());
    apply();
}

int QtSerialPort::bytesWaiting() { return isOpen() ? static_cast<int>(port_.bytesAvailable()) : 0; }

Bytes QtSerialPort::readAll() {
    if (!isOpen()) return {};
    const QByteArray data = port_.readAll();
    return Bytes(data.begin(), data.end());
}

void QtSerialPort::write(const Bytes& data) {
    if (!isOpen() || data.empty()) return;
    port_.write(reinterpret_cast<const char*>(data.data()), static_cast<qint64>(data.size()));
    port_.flush();
}

}  // namespace station::ui
