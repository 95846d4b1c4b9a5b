// The camera's reading of the station's frames and the frames it sends back, against the
// line's worked examples.
#include <gtest/gtest.h>

#include "sim/wire.hpp"
#include "tests/support/frames.hpp"

namespace station::sim {
namespace {

using testing::wire;
using testing::operator+;
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

TEST(Wire, IdFieldIsRightAlignedInThreeCharacters) {
    EXPECT_EQ(idField("1"), "  1");
    EXPECT_EQ(idField("01"), " 01");
    EXPECT_EQ(idField("ABCD"), "BCD");
    EXPECT_EQ(idField(""), "   ");
}

TEST(Wire, CameraFramesSumLenAndDataOnlyEvenBehindAnIdHeader) {
    EXPECT_EQ(cameraFrame(wire("40 00 00"), ""), wire("02 03 40 00 00 BC FF"));
    EXPECT_EQ(cameraFrame(wire("40 00 00"), "  1"), wire("01 20 20 31 02 03 40 00 00 BC FF"));
    EXPECT_EQ(cameraFrame({}, ""), wire("02 00 FF FF"));
}

TEST(Wire, ReadsTheStationsWorkedExamples) {
    FrameReader r;
    Read a = readAll(r, wire("02 03 40 00 00 BC FF"));
    ASSERT_EQ(a.frames.size(), 1u);
    EXPECT_TRUE(a.frames[0].intact);
    EXPECT_FALSE(a.frames[0].ackPrefix);
    EXPECT_FALSE(a.frames[0].addressed);
    EXPECT_EQ(a.frames[0].data, wire("40 00 00"));

    Read b = readAll(r, wire("06 02 02 40 10 AD FF"));
    ASSERT_EQ(b.frames.size(), 1u);
    EXPECT_TRUE(b.frames[0].intact);
    EXPECT_TRUE(b.frames[0].ackPrefix);

    // In ID mode the three ID bytes and the STX count in the station's checksum.
    Read c = readAll(r, wire("01 20 20 31 02 02 40 10 3A FF"));
    ASSERT_EQ(c.frames.size(), 1u);
    EXPECT_TRUE(c.frames[0].intact);
    EXPECT_TRUE(c.frames[0].addressed);
    EXPECT_EQ(c.frames[0].id, "  1");
    EXPECT_EQ(c.frames[0].data, wire("40 10"));

    Read d = readAll(r, wire("02 00 FF FF"));
    ASSERT_EQ(d.frames.size(), 1u);
    EXPECT_TRUE(d.frames[0].intact);
    EXPECT_TRUE(d.frames[0].data.empty());
}

TEST(Wire, AnyChangedByteSpoilsTheFrame) {
    const Bytes good = wire("01 20 20 31 02 02 40 10 3A FF");
    for (std::size_t i = 1; i < good.size(); ++i) {
        if (i == 4) continue;  // the STX itself: without it there is no frame at all
        Bytes bad = good;
        bad[i] ^= (i == 5) ? 0x01 : 0x10;  // keep the length readable
        FrameReader r;
        const Read got = readAll(r, bad + wire("02 00 FF FF"));
        ASSERT_FALSE(got.frames.empty()) << "byte " << i;
        EXPECT_FALSE(got.frames[0].intact) << "byte " << i;
    }
}

TEST(Wire, A06IsAVerdictOnlyWhileOneIsAwaited) {
    FrameReader r;
    EXPECT_EQ(readAll(r, wire("06"), true).got, std::vector<Got>{Got::Ack});
    EXPECT_EQ(readAll(r, wire("15"), true).got, std::vector<Got>{Got::Nak});
    EXPECT_TRUE(readAll(r, wire("15"), false).got.empty());
    // Not awaited: the 06 makes the next frame handshake-free, unless noise comes between.
    Read a = readAll(r, wire("06 02 02 40 10 AD FF"), false);
    ASSERT_EQ(a.frames.size(), 1u);
    EXPECT_TRUE(a.frames[0].ackPrefix);
    Read b = readAll(r, wire("06 55 02 02 40 10 AD FF"), false);
    ASSERT_EQ(b.frames.size(), 1u);
    EXPECT_FALSE(b.frames[0].ackPrefix);
}

TEST(Wire, AnUnfinishedFrameIsGivenUpAfterAPause) {
    FrameReader r;
    EXPECT_TRUE(readAll(r, wire("02 05 40"), false, Micros{0}).frames.empty());
    EXPECT_TRUE(r.busy());
    // Within the pause the bytes still belong to the old frame, which ends spoilt...
    FrameReader s;
    readAll(s, wire("02 05 40"), false, Micros{0});
    const Read eaten = readAll(s, wire("02 03 40 00 00 BC FF"), false, FrameReader::kFrameGap);
    ASSERT_EQ(eaten.frames.size(), 1u);
    EXPECT_FALSE(eaten.frames[0].intact);
    // ...after it they start afresh.
    const Read got = readAll(r, wire("02 03 40 00 00 BC FF"), false, FrameReader::kFrameGap + Micros{1});
    ASSERT_EQ(got.frames.size(), 1u);
    EXPECT_TRUE(got.frames[0].intact);
}

TEST(Wire, AHeaderWithoutAnStxIsDroppedAndTheByteReadAfresh) {
    FrameReader r;
    const Read got = readAll(r, wire("01 20 20 31 06 02 03 40 00 00 BC FF"));
    ASSERT_EQ(got.frames.size(), 1u);  // the bare frame after the broken header...
    EXPECT_FALSE(got.frames[0].addressed);
    EXPECT_TRUE(got.frames[0].ackPrefix);  // ...marked by the 06 that broke it
    EXPECT_TRUE(got.frames[0].intact);
}

}  // namespace
}  // namespace station::sim
