// The whole station on a pseudo-terminal that comes and goes, as a USB-serial adapter
// unplugged and plugged in again: the station starts before its device exists, connects
// when it appears, and survives the device taken away under traffic and brought back at
// the same path, every queued frame reaching the camera in order.
//
// LINE_CYCLES=50 runs fifty take-away/bring-back cycles and prints how long the station
// took to notice each loss and to talk again (a measurement, not a pass/fail on time).
#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
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

// A camera at the far end of a fresh pseudo-terminal reached through `link`: it
// acknowledges every frame and records its data bytes as hex text.
class PtyCamera {
public:
    explicit PtyCamera(fs::path link) : link_(std::move(link)) {
        master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
        EXPECT_GE(master_, 0);
        EXPECT_EQ(::grantpt(master_), 0);
        EXPECT_EQ(::unlockpt(master_), 0);
        std::array<char, 128> name{};
        EXPECT_EQ(::ptsname_r(master_, name.data(), name.size()), 0);
        fs::create_symlink(name.data(), link_);
    }
    ~PtyCamera() { takeAway(); }
    PtyCamera(const PtyCamera&) = delete;
    PtyCamera& operator=(const PtyCamera&) = delete;

    // The adapter pulled out: the terminal hangs up and its path goes.
    void takeAway() {
        if (master_ < 0) return;
        ::close(master_);
        master_ = -1;
        std::error_code ec;
        fs::remove(link_, ec);
    }

    void serve(std::vector<std::string>& frames) {
        std::array<std::uint8_t, 512> buf{};
        for (ssize_t n; master_ >= 0 && (n = ::read(master_, buf.data(), buf.size())) > 0;)
            pending_.insert(pending_.end(), buf.begin(), buf.begin() + n);
        while (!pending_.empty()) {
            if (pending_[0] != 0x02) {
                pending_.erase(pending_.begin());
                continue;
            }
            if (pending_.size() < 2 || pending_.size() < pending_[1] + 4u) return;
            const std::size_t n = pending_[1] + 4u;
            frames.push_back(hexText(Bytes(pending_.begin() + 2, pending_.begin() + static_cast<std::ptrdiff_t>(n) - 2)));
            pending_.erase(pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(n));
            const std::uint8_t ack = 0x06;
            EXPECT_EQ(::write(master_, &ack, 1), 1);
        }
    }

private:
    fs::path link_;
    int master_ = -1;
    Bytes pending_;
};

struct PtyStation {
    explicit PtyStation(const fs::path& device) : port(device.string()) { station.line.name({device.string(), false}); }

    // Runs the station's timers in real time, the camera answering, until `done` or `limit`.
    bool runUntil(const std::function<bool()>& done, Clock::duration limit) {
        const Clock::time_point start = Clock::now();
        while (Clock::now() - start < limit) {
            std::this_thread::sleep_for(20ms);
            ++step_;
            if (camera) camera->serve(received);
            if (step_ % 2 == 0) station.Timer1_Timer();
            if (step_ % 5 == 0 && station.link.Timer2.Enabled) station.Timer2_Timer();
            if (step_ % 25 == 0 && station.link.Timer3.Enabled) station.Timer3_Timer();
            if (done()) return true;
        }
        return false;
    }

    // What the camera received, a frame repeated right after itself counted once (the frame
    // in flight when the line went is sent again when it comes back).
    std::vector<std::string> receivedOnce() const {
        std::vector<std::string> out = received;
        out.erase(std::unique(out.begin(), out.end()), out.end());
        return out;
    }

    platform::TermiosPort port;
    testing::FakeMessages messages;
    testing::FakeDialogs dialogs;
    DiskWriter writer;
    Station station{{port, messages, dialogs, writer, STATION_SAMPLES_DIR}};
    std::unique_ptr<PtyCamera> camera;
    std::vector<std::string> received;
    long step_ = 0;
};

struct Figures {
    std::vector<double> lossMs, backMs;
    static void print(const char* what, std::vector<double> v) {
        if (v.empty()) return;
        std::sort(v.begin(), v.end());
        double sum = 0;
        for (double x : v) sum += x;
        std::printf("%s: n=%zu min=%.0f ms median=%.0f ms mean=%.0f ms max=%.0f ms\n", what, v.size(), v.front(),
                    v[v.size() / 2], sum / static_cast<double>(v.size()), v.back());
    }
};

double msSince(Clock::time_point t) { return std::chrono::duration<double, std::milli>(Clock::now() - t).count(); }

TEST(LineOnPty, StartsBeforeItsDeviceAndSurvivesItTakenAwayUnderTraffic) {
    const char* cyclesText = std::getenv("LINE_CYCLES");
    const int cycles = cyclesText != nullptr ? std::max(1, std::atoi(cyclesText)) : 2;
    testing::TempFolder folder;
    const fs::path device = folder.path() / "ttyUSB-line";

    PtyStation s(device);
    s.station.Form_Load();
    ASSERT_EQ(s.messages.shown.size(), 1u);  // told once that the device is not there
    EXPECT_NE(s.messages.shown[0].text.find(device.string()), std::string::npos);
    s.station.Speed_Click(1);
    s.station.stores.MainScnData(mBar, 1, 1) = "1";

    std::vector<std::string> sent;
    int next = 0;
    const auto queue = [&](int count) {
        for (int i = 0; i < count; ++i, ++next) {
            sent.push_back("3018" + hexByte(static_cast<std::uint8_t>(next & 0xFF)) + hexByte(static_cast<std::uint8_t>(next >> 8)));
            s.station.link.SendCmd(sent.back());
        }
    };
    queue(5);
    EXPECT_FALSE(s.runUntil([] { return false; }, 1500ms));
    EXPECT_EQ(s.station.line.condition(), LineCondition::NotConnected);

    s.camera = std::make_unique<PtyCamera>(device);
    ASSERT_TRUE(s.runUntil([&] { return s.received.size() >= 5; }, 5s));
    EXPECT_EQ(s.receivedOnce(), sent);

    Figures figures;
    for (int cycle = 0; cycle < cycles; ++cycle) {
        queue(12);
        const std::size_t before = s.received.size();
        ASSERT_TRUE(s.runUntil([&] { return s.received.size() >= before + 4; }, 5s)) << "cycle " << cycle;
        s.camera->takeAway();
        const Clock::time_point gone = Clock::now();
        ASSERT_TRUE(s.runUntil([&] { return !s.station.line.connected(); }, 3s)) << "cycle " << cycle;
        figures.lossMs.push_back(msSince(gone));
        queue(3);
        s.runUntil([] { return false; }, 300ms);
        EXPECT_FALSE(s.station.line.connected());

        s.camera = std::make_unique<PtyCamera>(device);
        const Clock::time_point back = Clock::now();
        const std::size_t talked = s.received.size();
        ASSERT_TRUE(s.runUntil([&] { return s.received.size() > talked; }, 5s)) << "cycle " << cycle << "\n" << s.station.line.log.text();
        figures.backMs.push_back(msSince(back));
        ASSERT_TRUE(s.runUntil([&] { return s.receivedOnce().size() == sent.size() && s.station.link.queue().SendCnt() == 0; }, 10s)) << "cycle " << cycle;
        ASSERT_EQ(s.receivedOnce(), sent) << "cycle " << cycle;
    }
    EXPECT_EQ(s.messages.shown.size(), 1u);  // no "No Acknowledge" for frames that never left
    EXPECT_EQ(s.station.link.queue().SendCnt(), 0);
    EXPECT_EQ(s.station.BaudStr, "19200");
    EXPECT_EQ(s.station.stores.MainScnData(mBar, 1, 1), "1");
    std::printf("%d cycles, %zu frames queued, %zu received (%zu sent twice)\n", cycles, sent.size(), s.received.size(),
                s.received.size() - s.receivedOnce().size());
    Figures::print("loss noticed after", figures.lossMs);
    Figures::print("talking again after", figures.backMs);
}

}  // namespace
}  // namespace station
