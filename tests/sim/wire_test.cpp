// The camera's reading of the station's frames, against the line's worked examples.
#include <gtest/gtest.h>

#include "sim/wire.hpp"
#include "tests/support/frames.hpp"

namespace station::sim {
namespace {

using testing::wire;
using Got = FrameReader::Got;

struct Read {
    std::vector<Got> got;
    std::vector<StationFrame> frames;
};

Read readAll(FrameReader& r, const Bytes& bytes, bool answerAwaited = false, Micros at = Micros{0}) {
    Read out;
    for (std::uint8_t b : bytes) {
        const Got g = r.feed(b, at, answerAwaited);
        if (g == Got::Nothing) continue;
        out.got.push_back(g);
        if (g == Got::Frame) out.frames.push_back(r.frame());
    }
    return out;
}

TEST(Wire, ReadsTheStationsWorkedExamples) {
    const struct {
        const char* bytes;
        bool ackPrefix;
        const char* id;  // empty: not addressed
        const char* data;
    } cases[] = {
        {"02 03 40 00 00 BC FF", false, "", "40 00 00"},
        {"06 02 02 40 10 AD FF", true, "", "40 10"},
        // In ID mode the three ID bytes and the STX count in the station's checksum.
        {"01 20 20 31 02 02 40 10 3A FF", false, "  1", "40 10"},
        {"02 00 FF FF", false, "", ""},
        // A header broken by a 06 is dropped; the 06 marks the bare frame after it.
        {"01 20 20 31 06 02 03 40 00 00 BC FF", true, "", "40 00 00"},
    };
    for (const auto& c : cases) {
        FrameReader r;
        const Read got = readAll(r, wire(c.bytes));
        ASSERT_EQ(got.frames.size(), 1u) << c.bytes;
        const StationFrame& f = got.frames[0];
        EXPECT_TRUE(f.intact) << c.bytes;
        EXPECT_EQ(f.ackPrefix, c.ackPrefix) << c.bytes;
        EXPECT_EQ(f.addressed, *c.id != '\0') << c.bytes;
        EXPECT_EQ(f.addressed ? f.id : "", c.id) << c.bytes;
        EXPECT_EQ(f.data, wire(c.data)) << c.bytes;
    }
    EXPECT_EQ(cameraFrame(wire("40 00 00"), "  1"), wire("01 20 20 31 02 03 40 00 00 BC FF"));  // the ID is not summed
}

TEST(Wire, A06IsAVerdictOnlyWhileOneIsAwaited) {
    FrameReader r;
    EXPECT_EQ(readAll(r, wire("06"), true).got, std::vector<Got>{Got::Ack});
    EXPECT_EQ(readAll(r, wire("15"), true).got, std::vector<Got>{Got::Nak});
    EXPECT_TRUE(readAll(r, wire("15"), false).got.empty());
    // Not awaited: the 06 makes the next frame handshake-free, unless noise comes between.
    const Read b = readAll(r, wire("06 55 02 02 40 10 AD FF"), false);
    ASSERT_EQ(b.frames.size(), 1u);
    EXPECT_FALSE(b.frames[0].ackPrefix);
}

TEST(Wire, AnUnfinishedFrameIsGivenUpAfterAPause) {
    for (const Micros gap : {FrameReader::kFrameGap, FrameReader::kFrameGap + Micros{1}}) {
        FrameReader r;
        EXPECT_TRUE(readAll(r, wire("02 05 40"), false, Micros{0}).frames.empty());
        EXPECT_TRUE(r.busy());
        // Within the pause the bytes still belong to the old frame, which ends spoilt; after it
        // they start afresh.
        const Read got = readAll(r, wire("02 03 40 00 00 BC FF"), false, gap);
        ASSERT_EQ(got.frames.size(), 1u);
        EXPECT_EQ(got.frames[0].intact, gap > FrameReader::kFrameGap);
    }
}

}  // namespace
}  // namespace station::sim
