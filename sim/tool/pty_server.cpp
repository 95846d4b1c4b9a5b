#include "sim/tool/pty_server.hpp"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace station::sim {

namespace {

[[noreturn]] void fail(const char* what) { throw std::system_error(errno, std::generic_category(), what); }

using Clock = std::chrono::steady_clock;

}  // namespace

UniqueFd& UniqueFd::operator=(UniqueFd&& o) noexcept {
    if (this != &o) {
        if (fd_ >= 0) ::close(fd_);
        fd_ = o.release();
    }
    return *this;
}

UniqueFd::~UniqueFd() {
    if (fd_ >= 0) ::close(fd_);
}

PtyServer::PtyServer() {
    master_ = UniqueFd(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (master_.get() < 0) fail("posix_openpt");
    if (::grantpt(master_.get()) != 0) fail("grantpt");
    if (::unlockpt(master_.get()) != 0) fail("unlockpt");
    std::array<char, 256> name{};
    if (::ptsname_r(master_.get(), name.data(), name.size()) != 0) fail("ptsname");
    path_ = name.data();

    slave_ = UniqueFd(::open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (slave_.get() < 0) fail("open terminal");
    termios tio{};
    if (::tcgetattr(slave_.get(), &tio) != 0) fail("tcgetattr");
    ::cfmakeraw(&tio);
    if (::tcsetattr(slave_.get(), TCSANOW, &tio) != 0) fail("tcsetattr");

    const int flags = ::fcntl(master_.get(), F_GETFL);
    if (flags < 0 || ::fcntl(master_.get(), F_SETFL, flags | O_NONBLOCK) != 0) fail("fcntl");
}

void PtyServer::serve(Line& line, int stopFd, std::optional<Clock::time_point> deadline) {
    const Clock::time_point origin = Clock::now() - line.now();
    auto lineNow = [&] { return std::chrono::duration_cast<Micros>(Clock::now() - origin); };
    constexpr Micros kIdleWait{200'000};

    for (;;) {
        line.advanceTo(lineNow());
        const Bytes out = line.takeForStation();
        // A station that does not read lets the terminal fill up; what does not fit is lost,
        // as on a real line with no one listening.
        if (!out.empty() && ::write(master_.get(), out.data(), out.size()) < 0 && errno != EAGAIN) fail("write");

        const Clock::time_point wall = Clock::now();
        if (deadline && wall >= *deadline) return;
        Micros wait = kIdleWait;
        if (const auto next = line.nextActivity()) wait = std::clamp(*next - lineNow(), Micros{0}, kIdleWait);
        if (deadline) wait = std::min(wait, std::chrono::ceil<Micros>(*deadline - wall));
        const int waitMs = static_cast<int>((wait.count() + 999) / 1000);

        std::array<pollfd, 2> fds{pollfd{master_.get(), POLLIN, 0}, pollfd{stopFd, POLLIN, 0}};
        const int ready = ::poll(fds.data(), fds.size(), waitMs);
        if (ready < 0) {
            if (errno == EINTR) continue;
            fail("poll");
        }
        if ((fds[1].revents & (POLLIN | POLLHUP | POLLERR)) != 0) return;
        if ((fds[0].revents & POLLIN) != 0) {
            std::array<std::uint8_t, 4096> buf{};
            const ssize_t n = ::read(master_.get(), buf.data(), buf.size());
            if (n > 0) {
                line.advanceTo(lineNow());
                line.fromStation(Bytes(buf.begin(), buf.begin() + n));
            } else if (n < 0 && errno != EAGAIN && errno != EIO) {
                fail("read");
            }
        }
    }
}

}  // namespace station::sim
