#include "ui/platform/qt_serial_port.hpp"

#include <QFileInfo>

#include <algorithm>
#include <stdexcept>

#include "common/line_fault.hpp"
#include "ui/platform/stale_lock.hpp"

namespace station::ui {

QtSerialPort::QtSerialPort(std::string portOneDevice) : device_(std::move(portOneDevice)) {
    // The event loop takes bytes in as they come; the poll reads them on its next tick.
    auto tell = [this] {
        if (onActivity) onActivity();
    };
    QObject::connect(&port_, &QSerialPort::readyRead, tell);
    QObject::connect(&port_, &QSerialPort::errorOccurred, tell);
}

void QtSerialPort::setSettings(const std::string& settings) {
    settings_ = parseSerialSettings(settings);
    if (isOpen()) apply();
}

void QtSerialPort::apply() {
    const auto parity = settings_.parity == 'E'   ? QSerialPort::EvenParity
                        : settings_.parity == 'O' ? QSerialPort::OddParity
                                                  : QSerialPort::NoParity;
    const bool taken = port_.setBaudRate(settings_.rate) && port_.setParity(parity) &&
                       port_.setDataBits(settings_.dataBits == 7 ? QSerialPort::Data7 : QSerialPort::Data8) &&
                       port_.setStopBits(settings_.stopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop) &&
                       port_.setFlowControl(QSerialPort::NoFlowControl);
    if (!taken) {
        const std::string why = port_.errorString().toStdString();
        port_.clearError();
        throw LineFault(device_ + " refused the settings: " + why);
    }
}

void QtSerialPort::close() {
    port_.close();
    port_.clearError();
}

void QtSerialPort::checkLine() {
    // After an error on a hung-up device Qt may stop reading for good: the line is lost,
    // and only closing and opening again brings it back.
    const QSerialPort::SerialPortError error = port_.error();
    if (error != QSerialPort::ResourceError && error != QSerialPort::ReadError && error != QSerialPort::WriteError)
        return;
    // An unplugged adapter takes its device node with it; Qt's own words for that ("Resource
    // temporarily unavailable") do not say what happened.
    if (!QFileInfo::exists(QString::fromStdString(device_))) throw LineFault(device_ + ": device removed");
    throw LineFault(device_ + ": " + port_.errorString().toStdString());
}

void QtSerialPort::open() {
    if (commPort_ != 1) throw std::runtime_error("serial port " + std::to_string(commPort_) + " has no device");
    if (port_.isOpen()) return;
    port_.clearError();
    port_.setPortName(QString::fromStdString(device_));
    bool opened = port_.open(QIODevice::ReadWrite);
    // A lock left by a station that no longer runs must not keep the device from it.
    if (!opened && port_.error() == QSerialPort::PermissionError && removeStaleLock(device_)) {
        port_.clearError();
        opened = port_.open(QIODevice::ReadWrite);
    }
    if (!opened) {
        const std::string why = port_.errorString().toStdString();
        port_.clearError();
        throw std::runtime_error("cannot open " + device_ + ": " + why);
    }
    try {
        apply();
    } catch (...) {
        close();
        throw;
    }
    // Qt does not drop what waited in the device before it was opened.
    port_.clear(QSerialPort::Input);
}

int QtSerialPort::bytesWaiting() {
    checkLine();  // also when Qt has closed the port itself after the error
    if (!isOpen()) return 0;
    return static_cast<int>(port_.bytesAvailable());
}

Bytes QtSerialPort::readAll() {
    if (!isOpen()) return {};
    const QByteArray data = port_.readAll();
    return Bytes(data.begin(), data.end());
}

void QtSerialPort::write(const Bytes& data) {
    checkLine();
    if (!isOpen() || data.empty()) return;
    // A frame Qt did not take whole is a line fault: the station keeps it and sends it again
    // after the reopen, rather than losing it without a word.
    const qint64 taken = port_.write(reinterpret_cast<const char*>(data.data()), static_cast<qint64>(data.size()));
    if (taken != static_cast<qint64>(data.size())) {
        const std::string why = port_.errorString().toStdString();
        throw LineFault(device_ + ": write failed (" + std::to_string(std::max<qint64>(taken, 0)) + " of " +
                        std::to_string(data.size()) + " bytes taken): " + why);
    }
    port_.flush();
    checkLine();
}

}  // namespace station::ui
