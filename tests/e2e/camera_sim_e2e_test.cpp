// The station's link engine on a real serial port implementation, bound to the terminal
// that the standalone camera line serves: real bytes through a real tty, real time.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <thread>

#include "common/shared.hpp"
#include "link/link.hpp"
#include "platform/termios_port.hpp"
#include "tests/e2e/child_process.hpp"
#include "tests/support/fake_messages.hpp"
#include "tests/support/recording_decoders.hpp"

namespace station {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using testing::ChildProcess;

std::vector<std::string> simArgs(std::vector<std::string> options) {
    options.insert(options.begin(), CAMERA_SIM_PATH);
    options.push_back("--exit-after");
    options.push_back("120");  // never outlives a stuck test by long
    return options;
}

// The station's link on the terminal, its timers run by the clock.
struct TtyStation {
    explicit TtyStation(const std::string& device) : port(device) {
        shared.CamNo = 1;
        port.setCommPort(1);
        port.setSettings("9600,N,8,1");
        port.open();
    }

    // Runs the 40 / 100 / 500 ms timers in real time until `done` holds or `limit` passes.
    bool runUntil(const std::function<bool()>& done, Clock::duration limit) {
        const Clock::time_point start = Clock::now();
        for (int step = 1; Clock::now() - start < limit; ++step) {
            std::this_thread::sleep_until(start + step * 20ms);
            if (step % 2 == 0) link.Timer1_Timer();
            if (step % 5 == 0) link.Timer2_Timer();
            if (step % 25 == 0) link.Timer3_Timer();
            if (done()) return true;
        }
        return false;
    }

    bool called(const std::string& call) const {
        return std::find(decoders.calls.begin(), decoders.calls.end(), call) != decoders.calls.end();
    }

    Shared shared;
    platform::TermiosPort port;
    testing::FakeMessages messages;
    testing::RecordingDecoders decoders;
    Link link{shared, port, messages, decoders};
};

TEST(CameraSimTty, LevelsReadsAndAutoSetUpRoundTripInIdModeWithSplitReplies) {
    ChildProcess sim(simArgs({"--id-mode", "--speed", "19200", "--camera", "1:AB1:01", "--camera", "2:AB1:02",
                              "--fault", "2:split=2", "--fault", "2:auto-ng=13", "--auto-delay", "200"}));
    const auto path = sim.readLine(10s);
    ASSERT_TRUE(path.has_value());
    ASSERT_EQ(path->rfind("/dev/", 0), 0u) << *path;

    TtyStation station(*path);
    station.port.setSettings("19200,N,8,1");
    station.shared.IDMode = 1;
    station.shared.cams.CamID(1) = "01";
    station.shared.cams.CamID(2) = "02";
    station.shared.CamNo = 2;
    station.link.SendCmd("30187F00");
    station.link.SendCmd("3318");
    station.link.SendCmd("4020");
    EXPECT_TRUE(station.runUntil([&] { return station.called("RecAuto(20,13)"); }, 20s));
    EXPECT_EQ(std::count(station.decoders.calls.begin(), station.decoders.calls.end(), "RecAnalogMain(32,18,7F)"),
              2);
    EXPECT_TRUE(station.messages.shown.empty()) << station.messages.texts().front();
    EXPECT_EQ(station.link.queue().SendCnt(), 0);
    EXPECT_EQ(sim.stop(), 0);
}

TEST(CameraSimTty, TheLinkNamesTheTerminalWhileTheLineRunsAndAMistakeEndsWithStatus2) {
    ChildProcess wrong({CAMERA_SIM_PATH, "--speed", "300"});
    EXPECT_EQ(wrong.wait(10s), 2);
    const std::filesystem::path link =
        std::filesystem::temp_directory_path() / ("camera-sim-test-" + std::to_string(::getpid()));
    {
        ChildProcess sim(simArgs({"--link", link.string()}));
        const auto path = sim.readLine(10s);
        ASSERT_TRUE(path.has_value());
        EXPECT_EQ(std::filesystem::read_symlink(link), *path);
        EXPECT_EQ(sim.stop(), 0);
    }
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(link)));
}

}  // namespace
}  // namespace station
