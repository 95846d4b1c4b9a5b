// The simulated camera: its reading of the station's frames, against the line's worked
// examples, and its registers as the station's commands write and read them.
#include <gtest/gtest.h>

#include "common/hex.hpp"
#include "sim/camera.hpp"
#include "sim/wire.hpp"
#include "tests/support/frames.hpp"

namespace station::sim {
namespace {

using testing::wire;
using Got = FrameReader::Got;

// Feeds the bytes; the verdicts and the frames read, the frames as "P|ID|data|ok" texts.
std::vector<std::string> readAll(FrameReader& r, const Bytes& bytes, bool answerAwaited = false) {
    std::vector<std::string> out;
    for (std::uint8_t b : bytes) {
        const Got g = r.feed(b, Micros{0}, answerAwaited);
        if (g == Got::Ack || g == Got::Nak) out.push_back(g == Got::Ack ? "ACK" : "NAK");
        if (g != Got::Frame) continue;
        const StationFrame& f = r.frame();
        out.push_back(std::string(f.ackPrefix ? "P" : "-") + "|" + (f.addressed ? f.id : "") + "|" +
                      hexText(f.data) + "|" + (f.intact ? "ok" : "bad"));
    }
    return out;
}

TEST(SimWire, WorkedExamples) {
    const std::pair<const char*, const char*> cases[] = {
        {"02 03 40 00 00 BC FF", "-||400000|ok"},
        {"06 02 02 40 10 AD FF", "P||4010|ok"},
        // In ID mode the three ID bytes and the STX count in the station's checksum.
        {"01 20 20 31 02 02 40 10 3A FF", "-|  1|4010|ok"},
        {"01 20 20 31 02 02 40 10 3B FF", "-|  1|4010|bad"},
        {"02 00 FF FF", "-|||ok"},
        // A header broken by a 06 is dropped; the 06 marks the bare frame after it.
        {"01 20 20 31 06 02 03 40 00 00 BC FF", "P||400000|ok"},
        // Not awaited, a 06 makes the next frame handshake-free unless noise comes between.
        {"06 55 02 02 40 10 AD FF", "-||4010|ok"},
    };
    for (const auto& [bytes, read] : cases) {
        FrameReader r;
        EXPECT_EQ(readAll(r, wire(bytes)), std::vector<std::string>{read}) << bytes;
    }
    FrameReader r;
    EXPECT_EQ(readAll(r, wire("06 15"), true), (std::vector<std::string>{"ACK", "NAK"}));
    EXPECT_TRUE(readAll(r, wire("15")).empty());
    EXPECT_EQ(cameraFrame(wire("40 00 00"), "  1"), wire("01 20 20 31 02 03 40 00 00 BC FF"));  // the ID is not summed
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
