// The termios port on a pseudo-terminal pair: settings, reading, writing, failures.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <system_error>
#include <thread>

#include "common/runtime_error.hpp"
#include "platform/termios_port.hpp"

namespace station::platform {
namespace {

using namespace std::chrono_literals;

// The other end of a terminal that the port under test opens.
struct PtyPair {
    PtyPair() {
        master = ::posix_openpt(O_RDWR | O_NOCTTY);
        EXPECT_GE(master, 0);
        EXPECT_EQ(::grantpt(master), 0);
        EXPECT_EQ(::unlockpt(master), 0);
        std::array<char, 256> name{};
        EXPECT_EQ(::ptsname_r(master, name.data(), name.size()), 0);
        path = name.data();
    }
    ~PtyPair() { ::close(master); }
    Bytes read(std::size_t want) {
        Bytes out;
        while (out.size() < want) {
            pollfd p{master, POLLIN, 0};
            if (::poll(&p, 1, 2000) <= 0) break;
            std::array<std::uint8_t, 256> buf{};
            const ssize_t n = ::read(master, buf.data(), buf.size());
            if (n <= 0) break;
            out.insert(out.end(), buf.begin(), buf.begin() + n);
        }
        return out;
    }
    int master = -1;
    std::string path;
};

TEST(TermiosPort, CarriesRawBytesBothWays) {
    PtyPair pty;
    TermiosPort port(pty.path);
    port.setSettings("19200,N,8,1");
    port.open();
    EXPECT_TRUE(port.isOpen());
    EXPECT_TRUE(port.readAll().empty());

    // Every byte value arrives as it was sent: no echo, no line-end or control handling.
    Bytes all;
    for (int b = 0; b < 256; ++b) all.push_back(static_cast<std::uint8_t>(b));
    port.write(all);
    EXPECT_EQ(pty.read(all.size()), all);

    ASSERT_EQ(::write(pty.master, all.data(), all.size()), 256);
    for (int i = 0; i < 100 && port.bytesWaiting() < 256; ++i) std::this_thread::sleep_for(5ms);
    EXPECT_EQ(port.bytesWaiting(), 256);
    EXPECT_EQ(port.readAll(), all);
    EXPECT_EQ(port.bytesWaiting(), 0);

    port.close();
    EXPECT_FALSE(port.isOpen());
    EXPECT_EQ(port.bytesWaiting(), 0);
    port.write(all);  // closed: nothing happens
}

TEST(TermiosPort, SettingsAreCheckedAndPortsNamed) {
    TermiosPort port("/dev/some-line");
    for (const char* bad : {"9600,N,8", "9601,N,8,1", "9600,X,8,1", "9600,N,6,1", "9600,N,8,3", "abc,N,8,1",
                            "9600,N,8,1,1", ""}) {
        EXPECT_THROW(port.setSettings(bad), RuntimeError) << bad;
    }
    port.setSettings("9600,e,7,2");
    EXPECT_EQ(port.device(), "/dev/some-line");
    port.setCommPort(3);
    EXPECT_EQ(port.device(), "/dev/ttyS2");
    EXPECT_THROW(port.setCommPort(0), RuntimeError);
}

TEST(TermiosPort, PortOneFollowsTheEnvironmentAndAMissingDeviceFailsToOpen) {
    TermiosPort missing("/nonexistent/tty");
    EXPECT_THROW(missing.open(), std::system_error);
    EXPECT_FALSE(missing.isOpen());
    ::setenv("CORVANE_PORT", "/dev/pts/77", 1);
    EXPECT_EQ(TermiosPort::portOneDevice(), "/dev/pts/77");
    ::unsetenv("CORVANE_PORT");
    EXPECT_EQ(TermiosPort::portOneDevice(), "/dev/ttyS0");
}

}  // namespace
}  // namespace station::platform
