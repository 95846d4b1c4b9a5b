// The desktop program as a service runs it, with nobody at the screen: started before its
// serial adapter is plugged in, driven over TCP, ended with SIGTERM, and started again.
#include <gtest/gtest.h>
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

#include "tests/e2e/child_process.hpp"
#include "tests/e2e/pty_camera.hpp"
#include "tests/support/temp_folder.hpp"

namespace station {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
namespace fs = std::filesystem;
using testing::ChildProcess;
using testing::PtyCamera;

// A port nobody listens on now, of the given socket type.
int freePort(int type) {
    const int fd = ::socket(AF_INET, type, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof a;
    EXPECT_EQ(::bind(fd, reinterpret_cast<sockaddr*>(&a), size), 0);
    EXPECT_EQ(::getsockname(fd, reinterpret_cast<sockaddr*>(&a), &size), 0);
    ::close(fd);
    return ntohs(a.sin_port);
}

// A remote-control client on the loopback address, connected if the station let it in
// before `limit`.
class Line {
public:
    Line(int port, Clock::duration limit) {
        sockaddr_in a{};
        a.sin_family = AF_INET;
        a.sin_port = htons(static_cast<std::uint16_t>(port));
        a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        for (const auto end = Clock::now() + limit; !in_ && Clock::now() < end; std::this_thread::sleep_for(20ms)) {
            const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
            const timeval wait{50, 0};  // five times the 10 s a reply takes at most on a busy machine
            ::setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &wait, sizeof wait);
            if (::connect(fd, reinterpret_cast<sockaddr*>(&a), sizeof a) == 0) in_.reset(::fdopen(fd, "r"));
            else ::close(fd);
        }
    }
    bool connected() const { return in_ != nullptr; }
    // The command's reply line ("OK ..." or "ERR ..."), pushed lines left out.
    std::string ask(const std::string& command) {
        const std::string line = command + "\n";
        if (::send(::fileno(in_.get()), line.data(), line.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(line.size()))
            return "(not sent)";
        for (std::array<char, 4096> got{}; std::fgets(got.data(), got.size(), in_.get()) != nullptr;) {
            const std::string reply(got.data(), std::strcspn(got.data(), "\r\n"));
            if (reply.rfind("OK", 0) == 0 || reply.rfind("ERR", 0) == 0) return reply;
        }
        return "(no reply)";
    }

private:
    std::unique_ptr<FILE, int (*)(FILE*)> in_{nullptr, &std::fclose};
};

// The lock file the serial library keeps for a device outside /dev.
fs::path lockFileOf(const fs::path& device) {
    std::string name = device.string();
    for (char& c : name)
        if (c == '/') c = '_';
    return fs::path("/var/lock") / ("LCK.." + name);
}

TEST(StationUnattended, StartsWithoutItsDeviceAndComesBackAfterSigterm) {
    testing::TempFolder folder;
    ::setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);  // the settings of this test only
    const fs::path device = folder / "ttyUSB-line";
    fs::copy_file(STATION_SAMPLES_DIR "/studio.csd", folder / "studio.csd");
    const int tcp = freePort(SOCK_STREAM);
    const std::vector<std::string> common = {STATION_PATH, "--port", device.string(), "--definitions",
                                             STATION_SAMPLES_DIR};
    // Remote control open to the network for this run, with a passcode from a file.
    std::ofstream(folder / "passcode") << "kestrel-42-amber\n";
    const std::vector<std::string> remoteOptions = {"--remote-port", std::to_string(tcp), "--osc-port",
                                                    std::to_string(freePort(SOCK_DGRAM)), "--remote-folder",
                                                    folder.path().string()};
    const auto plus = [](std::vector<std::string> a, const std::vector<std::string>& b) {
        a.insert(a.end(), b.begin(), b.end());
        return a;
    };

    auto station = std::make_unique<ChildProcess>(plus(plus(common, remoteOptions), {"--remote-address", "0.0.0.0",
                                                  "--remote-passcode-file", (folder / "passcode").string()}));
    Line remote(tcp, 50s);
    ASSERT_TRUE(remote.connected());
    // No box waits for an operator: every command is answered, the line says why it is idle.
    EXPECT_EQ(remote.ask("get line").rfind("OK line \"not connected (cannot open " + device.string(), 0), 0u);
    EXPECT_EQ(remote.ask("open studio.csd"), "OK");
    EXPECT_EQ(remote.ask("level iris 10"), "OK");  // queued until there is a line

    // The adapter is plugged in: the station finds it and talks, with nobody touching it.
    std::vector<std::string> frames;
    {
        PtyCamera camera(device);
        const Clock::time_point plugged = Clock::now();
        while (frames.empty() && Clock::now() - plugged < 25s) {
            camera.serve(frames);
            std::this_thread::sleep_for(10ms);
        }
        ASSERT_FALSE(frames.empty());
        EXPECT_LT(Clock::now() - plugged, 10s);  // within 2 s, five times over
        EXPECT_EQ(frames.front(), "30390A00");
        EXPECT_EQ(remote.ask("get line").rfind("OK line connected", 0), 0u);

        // Ended from outside: the same shutdown as "&Quit", the device's lock released.
        ASSERT_TRUE(fs::exists(lockFileOf(device)));
        EXPECT_EQ(station->stop(50s), 0);
        EXPECT_FALSE(fs::exists(lockFileOf(device)));
    }

    // The options held for that run only: a plain start listens nowhere.
    station = std::make_unique<ChildProcess>(common);
    EXPECT_FALSE(Line(tcp, 3s).connected());
    EXPECT_EQ(station->stop(50s), 0);

    // A lock left by a station that was killed outright (and not yet reaped) does not keep the
    // next one out, and the session comes back: the setup file.
    const pid_t killed = ::fork();
    if (killed == 0) ::_exit(0);
    std::ofstream(lockFileOf(device)) << killed << "\ncorvane-station\n\n";
    PtyCamera camera(device);
    station = std::make_unique<ChildProcess>(plus(plus(common, {"--remote"}), remoteOptions));
    Line again(tcp, 50s);
    ASSERT_TRUE(again.connected());
    EXPECT_EQ(again.ask("get file"), "OK file " + (folder / "studio.csd").string());
    EXPECT_NE(again.ask("get type"), "OK type ");
    for (const auto end = Clock::now() + 25s; Clock::now() < end && again.ask("get line").rfind("OK line connected", 0) != 0;)
        std::this_thread::sleep_for(20ms);
    EXPECT_EQ(again.ask("get line").rfind("OK line connected", 0), 0u);
    EXPECT_EQ(station->stop(50s), 0);
    EXPECT_FALSE(fs::exists(lockFileOf(device)));
    ::waitpid(killed, nullptr, 0);
}

}  // namespace
}  // namespace station
