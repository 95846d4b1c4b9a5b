// The simulated line and its cameras, as the station meets them, and its setup from a file.
#include <gtest/gtest.h>

#include <string>

#include "common/runtime_error.hpp"
#include "sim/camera.hpp"
#include "sim/line.hpp"
#include "tests/support/frames.hpp"

namespace station::sim {
namespace {

using namespace std::chrono_literals;
using testing::frame;
using testing::wire;
using testing::operator+;

struct Rig {
    Rig() {
        line.onTraffic = [this](const Traffic& t) {
            if (t.from == Traffic::From::Camera) sent.push_back(t.camera);
        };
    }
    Bytes after(Micros span) {
        line.advance(span);
        return line.takeForStation();
    }
    Line line;
    std::vector<int> sent;  // the cameras that sent, in order
};

TEST(SimLine, IdModeAddressed) {
    Rig rig;
    rig.line.setIdMode(true);
    for (int p = 1; p <= 3; ++p) rig.line.addCamera(p, "AB1", "0" + std::to_string(p)).setMode(0x08, static_cast<std::uint8_t>(p));
    rig.line.fromStation(wire("01 20 30 32 02 02 23 08 4E FF"));  // camera " 02" reads register 08
    EXPECT_EQ(rig.after(50ms), wire("06 01 20 30 32 02 03 22 08 02 D0 FF"));
    EXPECT_EQ(rig.sent, (std::vector<int>{2, 2}));
    rig.line.fromStation(frame(wire("23 08"), "09", true));  // an ID that no camera has: silence
    EXPECT_TRUE(rig.after(1500ms).empty());
}

TEST(SimCamera, MaskedModeWrites) {
    Camera cam("AB1", "01");
    cam.setMode(0x04, 0xFF);
    const std::pair<const char*, const char*> cases[] = {
        {"20 04 0C F3", "22 04 FF"},  // white 3 in bits 2..3
        {"20 04 00 FC", "22 04 FC"},  // iris 0 in bits 0..1
        {"20 08 FF FE", "22 08 01"},  // data bits outside the opened field are not written
        {"20 0F 10 00", "22 0F 10"},  // mask 00 writes the whole register
        {"28 12 08 F3", "2A 12 08"},  // the 28 bank is apart from the 20 bank
        {"23 12", "22 12 00"},
        {"23", "22 00 00"},           // missing bytes read as 0
        {"30 2B 80 00", "32 2B 80"},
    };
    for (const auto& [command, reply] : cases) EXPECT_EQ(cam.apply(wire(command)).reply, wire(reply)) << command;
    cam.setLevel(0x2B, 0x1FF);  // a narrow level keeps its low byte
    EXPECT_EQ(cam.level(0x2B), 0xFF);
    for (const char* unanswered : {"10 01 02", "22 01 02", "40 10", ""})
        EXPECT_TRUE(cam.apply(wire(unanswered)).reply.empty()) << unanswered;
    EXPECT_EQ(cam.autoRuns, 1);
}

}  // namespace
}  // namespace station::sim
