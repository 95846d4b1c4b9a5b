// The camera's reading of the station's frames, against the line's worked examples.
#include <gtest/gtest.h>

#include "common/hex.hpp"
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

}  // namespace
}  // namespace station::sim
