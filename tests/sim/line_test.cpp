// A simulated camera's registers as the station's commands write and read them.
#include <gtest/gtest.h>

#include <string>

#include "sim/camera.hpp"
#include "tests/support/frames.hpp"

namespace station::sim {
namespace {

using testing::wire;

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
