// The whole station on a pseudo-terminal that comes and goes, as a USB-serial adapter
// unplugged and plugged in again at the same path. LINE_CYCLES=50 runs fifty cycles.
#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "common/line_fault.hpp"
#include "platform/termios_port.hpp"
#include "tests/e2e/pty_camera.hpp"
#include "tests/support/station_rig.hpp"

namespace station::testing {
namespace {

using namespace std::chrono_literals;

TEST(LineOnPty, DeviceComesAndGoes) {
    const char* cyclesText = std::getenv("LINE_CYCLES");
    const int cycles = cyclesText != nullptr ? std::max(1, std::atoi(cyclesText)) : 2;
    TempFolder folder;
    const std::string device = (folder / "ttyUSB-line").string();
    platform::TermiosPort port(device);
    StationRig rig(false, &port);
    std::unique_ptr<PtyCamera> camera;
    std::vector<std::string> received, sent;
    // The station's timers in real time, the camera answering, until `done` or `limit`.
    const auto runUntil = [&](const std::function<bool()>& done, std::chrono::milliseconds limit) {
        for (auto left = limit; left > 0ms; left -= 20ms) {
            std::this_thread::sleep_for(20ms);
            if (camera) camera->serve(received);
            rig.run(20);
            if (done()) return true;
        }
        return false;
    };
    // Red gain levels one after the other: each a frame of its own.
    const auto queue = [&](int count) {
        for (int i = 0; i < count; ++i) {
            const int red = 1 + static_cast<int>(sent.size() % 100);  // never the bar's 0 at start
            ASSERT_TRUE(rig.actions.setLevel(Level::RGain, red).ok() && rig.readout.queued() > 0);
            sent.push_back(commandText(rig.readout.queuedFrame(rig.readout.queued()).Data));
        }
    };
    // What the camera got, the frame in flight at a loss (sent again after it) counted once.
    const auto receivedOnce = [&] {
        std::vector<std::string> out = received;
        out.erase(std::unique(out.begin(), out.end()), out.end());
        return out;
    };

    rig.station.assembleLine({device, false}, {}, {});
    rig.station.Form_Load();
    EXPECT_TRUE(rig.messages.shown.empty());  // told in a notice, not a box that would stop the retry
    EXPECT_NE(rig.forms.notice.last().find(device), std::string::npos);
    rig.station.Speed_Click(1);
    queue(5);
    EXPECT_FALSE(runUntil([&] { return rig.readout.connected(); }, 1500ms));

    camera = std::make_unique<PtyCamera>(device);
    ASSERT_TRUE(runUntil([&] { return received.size() >= 5; }, 25s));
    for (int cycle = 0; cycle < cycles; ++cycle) {
        queue(12);
        const std::size_t before = received.size();
        ASSERT_TRUE(runUntil([&] { return received.size() >= before + 4; }, 25s)) << cycle;
        camera.reset();
        ASSERT_TRUE(runUntil([&] { return !rig.readout.connected(); }, 15s)) << cycle;
        EXPECT_NE(rig.forms.log.text().find(device + ": device removed"), std::string::npos);
        queue(3);
        EXPECT_FALSE(runUntil([&] { return rig.readout.connected(); }, 300ms));

        camera = std::make_unique<PtyCamera>(device);
        ASSERT_TRUE(runUntil([&] { return receivedOnce().size() == sent.size() && rig.readout.queued() == 0; }, 50s));
        ASSERT_EQ(receivedOnce(), sent) << cycle;
    }
    EXPECT_TRUE(rig.messages.shown.empty());  // no "No Acknowledge" for frames that never left
    EXPECT_NE(rig.station.lineStatus().find("19200bps"), std::string::npos);
}

// A device that stops taking bytes (flow held, a wedged adapter) fails the write instead of
// dropping the rest of the frame in silence.
TEST(LineOnPty, BytesTheDeviceDoesNotTakeAreALineFault) {
    TempFolder folder;
    const PtyCamera stuck(folder / "ttyUSB-stuck");  // never reads what it is sent
    platform::TermiosPort port((folder / "ttyUSB-stuck").string());
    port.writeWait = 50ms;
    port.open();
    port.write(Bytes{0x02, 0x02, 0x40, 0x10, 0xAD, 0xFF});  // a frame the line takes
    try {
        port.write(Bytes(1 << 20, 0x55));  // far more than the terminal buffers, never read
        ADD_FAILURE() << "no line fault";
    } catch (const LineFault& fault) {
        EXPECT_NE(std::string(fault.what()).find(" of 1048576 bytes"), std::string::npos) << fault.what();
    }
}

}  // namespace
}  // namespace station::testing
