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
#include "common/line_fault.hpp"
#include "platform/termios_port.hpp"
#include "tests/e2e/pty_camera.hpp"
#include "tests/support/fake_dialogs.hpp"
#include "tests/support/fake_messages.hpp"
#include "tests/support/station_ticks.hpp"
#include "tests/support/temp_folder.hpp"

namespace station {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
namespace fs = std::filesystem;
using testing::PtyCamera;

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
    const StationTicks ticks = stationTicks(station);
    long step = 0;
    // The station's timers in real time, the camera answering, until `done` or `limit`.
    const auto runUntil = [&](const std::function<bool()>& done, Clock::duration limit) {
        for (const Clock::time_point start = Clock::now(); Clock::now() - start < limit;) {
            std::this_thread::sleep_for(20ms);
            if (camera) camera->serve(received);
            testing::tickAt(ticks, ++step * 20);
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
        EXPECT_NE(station.line.log.text().find(device.string() + ": device removed"), std::string::npos);
        queue(3);
        EXPECT_FALSE(runUntil([&] { return station.line.connected(); }, 300ms));

        camera = std::make_unique<PtyCamera>(device);
        ASSERT_TRUE(runUntil([&] { return receivedOnce().size() == sent.size() && station.link.queue().SendCnt() == 0; }, 10s));
        ASSERT_EQ(receivedOnce(), sent) << cycle;
    }
    EXPECT_TRUE(messages.shown.empty());  // no "No Acknowledge" for frames that never left
    EXPECT_EQ(station.BaudStr, "19200");
}

// A device that stops taking bytes (flow held, a wedged adapter) fails the write instead of
// dropping the rest of the frame in silence.
TEST(LineOnPty, BytesTheDeviceDoesNotTakeAreALineFault) {
    const int master = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    std::array<char, 128> name{};
    ASSERT_TRUE(master >= 0 && ::grantpt(master) == 0 && ::unlockpt(master) == 0 &&
                ::ptsname_r(master, name.data(), name.size()) == 0);
    platform::TermiosPort port(name.data());
    port.writeWait = 50ms;
    port.open();
    port.write(Bytes{0x02, 0x02, 0x40, 0x10, 0xAD, 0xFF});  // a frame the line takes
    try {
        port.write(Bytes(1 << 20, 0x55));  // far more than the terminal buffers, never read
        ADD_FAILURE() << "no line fault";
    } catch (const LineFault& fault) {
        EXPECT_NE(std::string(fault.what()).find(" of 1048576 bytes"), std::string::npos) << fault.what();
    }
    ::close(master);
}

}  // namespace
}  // namespace station
