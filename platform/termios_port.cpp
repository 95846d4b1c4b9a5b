#include "platform/termios_port.hpp"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include "common/line_fault.hpp"
#include "common/runtime_error.hpp"

namespace station::platform {

namespace {

// The terminal's code for a rate of the settings text.
speed_t speedOf(int rate) {
    switch (rate) {
    case 1200: return B1200;
    case 2400: return B2400;
    case 4800: return B4800;
    case 19200: return B19200;
    case 38400: return B38400;
    case 57600: return B57600;
    case 115200: return B115200;
    default: return B9600;
    }
}

}  // namespace

TermiosPort::TermiosPort(std::string portOne) : portOne_(std::move(portOne)) {}

TermiosPort::~TermiosPort() { close(); }

std::string TermiosPort::portOneDevice() {
    const char* env = std::getenv("CORVANE_PORT");
    return env != nullptr && *env != '\0' ? std::string(env) : std::string("/dev/ttyS0");
}

std::string TermiosPort::device() const {
    return port_ == 1 ? portOne_ : "/dev/ttyS" + std::to_string(port_ - 1);
}

void TermiosPort::setCommPort(int port) {
    if (port < 1 || port > 16) throw RuntimeError::invalidCall();
    port_ = port;
}

void TermiosPort::setSettings(const std::string& settings) {
    settings_ = parseSerialSettings(settings);
    if (isOpen()) apply();
}

void TermiosPort::apply() {
    termios tio{};
    if (::tcgetattr(fd_, &tio) != 0) throw std::system_error(errno, std::generic_category(), "tcgetattr " + device());
    ::cfmakeraw(&tio);
    const speed_t speed = speedOf(settings_.rate);
    ::cfsetispeed(&tio, speed);
    ::cfsetospeed(&tio, speed);
    tio.c_cflag |= CLOCAL | CREAD;
    tio.c_cflag &= ~static_cast<tcflag_t>(CSIZE | PARENB | PARODD | CSTOPB | CRTSCTS);
    tio.c_cflag |= settings_.dataBits == 7 ? CS7 : CS8;
    if (settings_.parity != 'N') tio.c_cflag |= PARENB;
    if (settings_.parity == 'O') tio.c_cflag |= PARODD;
    if (settings_.stopBits == 2) tio.c_cflag |= CSTOPB;
    tio.c_cc[VMIN] = 0;
    tio.c_cc[VTIME] = 0;
    if (::tcsetattr(fd_, TCSANOW, &tio) != 0)
        throw std::system_error(errno, std::generic_category(), "tcsetattr " + device());
}

void TermiosPort::open() {
    if (isOpen()) return;
    const std::string path = device();
    fd_ = ::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd_ < 0) throw std::system_error(errno, std::generic_category(), "cannot open " + path);
    try {
        apply();
    } catch (...) {
        close();
        throw;
    }
    ::tcflush(fd_, TCIOFLUSH);
}

void TermiosPort::close() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
}

void TermiosPort::lost(const std::string& what, int error) const {
    // An unplugged adapter takes its device node with it: that is what happened, whatever
    // the failed call said ("Input/output error", "Resource temporarily unavailable").
    std::error_code ec;
    if (!std::filesystem::exists(device(), ec)) throw LineFault(device() + ": device removed");
    throw LineFault(device() + ": " + what + (error != 0 ? " (" + std::generic_category().message(error) + ")" : ""));
}

int TermiosPort::bytesWaiting() {
    if (!isOpen()) return 0;
    // A hung-up or unplugged device reports it here, before anything is read or written.
    pollfd p{fd_, POLLIN, 0};
    if (::poll(&p, 1, 0) > 0 && (p.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0) lost("the device hung up", 0);
    int n = 0;
    if (::ioctl(fd_, FIONREAD, &n) != 0) lost("cannot read", errno);
    return n;
}

Bytes TermiosPort::readAll() {
    Bytes out;
    if (!isOpen()) return out;
    std::array<std::uint8_t, 1024> buf{};
    for (;;) {
        const ssize_t n = ::read(fd_, buf.data(), buf.size());
        if (n > 0) {
            out.insert(out.end(), buf.begin(), buf.begin() + n);
            continue;
        }
        if (n < 0 && errno == EINTR) continue;
        if (n < 0 && errno != EAGAIN && errno != EWOULDBLOCK) lost("read failed", errno);
        break;  // nothing more waiting
    }
    return out;
}

void TermiosPort::write(const Bytes& data) {
    if (!isOpen()) return;
    std::size_t done = 0;
    while (done < data.size()) {
        const ssize_t n = ::write(fd_, data.data() + done, data.size() - done);
        if (n > 0) {
            done += static_cast<std::size_t>(n);
        } else if (n < 0 && errno == EINTR) {
            continue;
        } else if (n < 0 && errno == EAGAIN) {
            // The output buffer is full: give the line a moment to drain. A frame cut short is
            // a line fault, so that the station keeps it queued and sends it whole after the reopen.
            pollfd p{fd_, POLLOUT, 0};
            if (::poll(&p, 1, static_cast<int>(writeWait.count())) <= 0)
                lost("took " + std::to_string(done) + " of " + std::to_string(data.size()) + " bytes", 0);
        } else {
            lost("write failed", n < 0 ? errno : 0);
        }
    }
}

}  // namespace station::platform
