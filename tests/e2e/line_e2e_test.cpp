// The whole station on a pseudo-terminal that comes and goes, as a USB-serial adapter
// unplugged and plugged in again at the same path. LINE_CYCLES=50 runs fifty cycles.
#include <gtest/gtest.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <thread>

#include "app/station.hpp"
#include "common/hex.hpp"
#include "platform/termios_port.hpp"
#include "tests/support/fake_dialogs.hpp"
#include "tests/support/fake_messages.hpp"
#include "tests/support/temp_folder.hpp"

namespace station {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
namespace fs = std::filesystem;

// A camera on a fresh pseudo-terminal reached through `link`: it acknowledges every frame
// and records its data bytes as hex text. Gone (hung up, path removed) when destroyed.
class PtyCamera {
public:
    explicit PtyCamera(fs::path link) : link_(std::move(link)) {
        master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
        std::array<char, 128> name{};
        EXPECT_TRUE(master_ >= 0 && ::grantpt(master_) == 0 && ::unlockpt(master_) == 0 &&
                    ::ptsname_r(master_, name.data(), name.size()) == 0);
        fs::create_symlink(name.data(), link_);
    }
    ~PtyCamera() {
        ::close(master_);
        fs::remove(link_);
    }
    void serve(std::vector<std::string>& frames) {
        std::array<std::uint8_t, 512> buf{};
        for (ssize_t n; (n = ::read(master_, buf.data(), buf.size())) > 0;) in_.insert(in_.end(), buf.begin(), buf.begin() + n);
        while (!in_.empty() && (in_[0] != 0x02 || (in_.size() >= 2 && in_.size() >= in_[1] + 4u))) {
            const std::size_t n = in_[0] == 0x02 ? in_[1] + 4u : 1;
            if (n > 1) {
                frames.push_back(hexText(Bytes(in_.begin() + 2, in_.begin() + static_cast<std::ptrdiff_t>(n) - 2)));
                EXPECT_EQ(::write(master_, "\x06", 1), 1);
            }
            in_.erase(in_.begin(), in_.begin() + static_cast<std::ptrdiff_t>(n));
        }
    }

private:
    fs::path link_;
    int master_ = -1;
    Bytes in_;
};

TEST(LineOnPty, DeviceComesAndGoes) {
    const char* cyclesText = std::getenv("LINE_CYCLES");
    const int cycles = cyclesText != nullptr ? std::max(1, std::atoi(cyclesText)) : 2;
    testing::TempFolder folder;
    const fs::path device = folder.path() / "ttyUSB-line";
    platform::TermiosPort port(device.string());
    testing::FakeMessages messages;
    testing::FakeDialogs dialogs;
    DiskWriter writer;
    Station station({port, messages, dialogs, writer, STATION_SAMPLES_DIR});
    std::unique_ptr<PtyCamera> camera;
    std::vector<std::string> received, sent;
    long step = 0;
    // The station's timers in real time, the camera answering, until `done` or `limit`.
    const auto runUntil = [&](const std::function<bool()>& done, Clock::duration limit) {
        for (const Clock::time_point start = Clock::now(); Clock::now() - start < limit;) {
            std::this_thread::sleep_for(20ms);
            if (camera) camera->serve(received);
            if (++step % 2 == 0) station.Timer1_Timer();
            if (step % 5 == 0 && station.link.Timer2.Enabled) station.Timer2_Timer();
            if (step % 25 == 0 && station.link.Timer3.Enabled) station.Timer3_Timer();
            if (done()) return true;
        }
        return false;
    };
    const auto queue = [&](int count) {
        for (int i = 0; i < count; ++i) {
            sent.push_back("3018" + hexText(Bytes{static_cast<std::uint8_t>(sent.size()), static_cast<std::uint8_t>(sent.size() >> 8)}));
            station.link.SendCmd(sent.back());
        }
    };
    // What the camera got, the frame in flight at a loss (sent again after it) counted once.
    const auto receivedOnce = [&] {
        std::vector<std::string> out = received;
        out.erase(std::unique(out.begin(), out.end()), out.end());
        return out;
    };

    station.line.name({device.string(), false});
    station.Form_Load();
    EXPECT_TRUE(messages.shown.empty());  // told in a notice, not a box that would stop the retry
    EXPECT_NE(station.notice.last().find(device.string()), std::string::npos);
    station.Speed_Click(1);
    queue(5);
    EXPECT_FALSE(runUntil([&] { return station.line.connected(); }, 1500ms));

    camera = std::make_unique<PtyCamera>(device);
    ASSERT_TRUE(runUntil([&] { return received.size() >= 5; }, 5s));
    for (int cycle = 0; cycle < cycles; ++cycle) {
        queue(12);
        const std::size_t before = received.size();
        ASSERT_TRUE(runUntil([&] { return received.size() >= before + 4; }, 5s)) << cycle;
        camera.reset();
        ASSERT_TRUE(runUntil([&] { return !station.line.connected(); }, 3s)) << cycle;
        queue(3);
        EXPECT_FALSE(runUntil([&] { return station.line.connected(); }, 300ms));

        camera = std::make_unique<PtyCamera>(device);
        ASSERT_TRUE(runUntil([&] { return receivedOnce().size() == sent.size() && station.link.queue().SendCnt() == 0; }, 10s));
        ASSERT_EQ(receivedOnce(), sent) << cycle;
    }
    EXPECT_TRUE(messages.shown.empty());  // no "No Acknowledge" for frames that never left
    EXPECT_EQ(station.BaudStr, "19200");
}

}  // namespace
}  // namespace station
