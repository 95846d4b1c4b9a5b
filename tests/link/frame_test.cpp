#include <gtest/gtest.h>

#include "common/runtime_error.hpp"
#include "link/frame.hpp"

namespace station {
namespace {

Bytes frameFor(const std::string& cmd, bool ackOff = false, const std::string& id = "", bool withId = false) {
    FrameHeader h;
    h.ackPrefix = ackOff;
    h.withId = withId;
    h.cameraId = id;
    return buildFrame(cmd, h);
}

TEST(FrameBuilding, WorkedExamples) {
    EXPECT_EQ(frameFor("400000"), bytesOf({0x02, 0x03, 0x40, 0x00, 0x00, 0xBC, 0xFF}));
    EXPECT_EQ(frameFor("4020"), bytesOf({0x02, 0x02, 0x40, 0x20, 0x9D, 0xFF}));
    EXPECT_EQ(frameFor("4010", true), bytesOf({0x06, 0x02, 0x02, 0x40, 0x10, 0xAD, 0xFF}));
    EXPECT_EQ(frameFor("4010", false, "1", true),
              bytesOf({0x01, 0x20, 0x20, 0x31, 0x02, 0x02, 0x40, 0x10, 0x3A, 0xFF}));
}

TEST(FrameBuilding, IdIsTheLastThreeCharactersAndEntersTheSumWithTheStx) {
    // 4 + 'B' + 'C' + 'D' + 2 + 0x20 + 0x08 + 0x01 + 0xFE = 0x1F6 -> FE09
    EXPECT_EQ(frameFor("200801FE", true, "ABCD", true),
              bytesOf({0x06, 0x01, 'B', 'C', 'D', 0x02, 0x04, 0x20, 0x08, 0x01, 0xFE, 0x09, 0xFE}));
}

TEST(FrameBuilding, EmptyOddAndNonHexCommands) {
    EXPECT_EQ(frameFor(""), bytesOf({0x02, 0x00, 0xFF, 0xFF}));
    // Three digits: two bytes, the last from the single digit "1"; the sum starts at 1.5,
    // -1 - 66.5 = -67.5 rounds to -68 (FFBC).
    EXPECT_EQ(frameFor("401"), bytesOf({0x02, 0x02, 0x40, 0x01, 0xBC, 0xFF}));
    // One digit: half a byte rounds to no data at all, but the half still enters the sum:
    // -1 - 0.5 = -1.5 rounds to -2 (FFFE).
    EXPECT_EQ(frameFor("4"), bytesOf({0x02, 0x00, 0xFE, 0xFF}));
    // A pair starting with a non-hex character is 0; one ending with it keeps its first digit.
    EXPECT_EQ(frameFor("G14G"), bytesOf({0x02, 0x02, 0x00, 0x04, 0xF9, 0xFF}));
    EXPECT_EQ(frameFor("ab"), bytesOf({0x02, 0x01, 0xAB, 0x53, 0xFF}));
}

TEST(FrameBuilding, MoreThan255DataBytesIsAnInvalidArgument) {
    EXPECT_NO_THROW(frameFor(std::string(510, '0')));
    try {
        frameFor(std::string(512, '0'));
        FAIL();
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), 5);
    }
}

TEST(FrameCheck, GoodAndBadFrames) {
    const Bytes good = bytesOf({0x02, 0x03, 0x40, 0x00, 0x00, 0xBC, 0xFF});
    EXPECT_FALSE(SumCheck(good, 7));
    Bytes wrong = good;
    wrong[5] = 0xBD;
    EXPECT_TRUE(SumCheck(wrong, 7));
    Bytes notStx = good;
    notStx[0] = 0x01;
    EXPECT_TRUE(SumCheck(notStx, 7));
    EXPECT_FALSE(SumCheck(bytesOf({0x02, 0x00, 0xFF, 0xFF}), 4));
}

TEST(FrameCheck, ACorrectChecksumWithALowByteBelow10IsJudgedBad) {
    // 2 + 0x40 + 0xB0 = 0xF2, checksum FF0D: read back as "&HFFD", which is not -0xF3.
    EXPECT_TRUE(SumCheck(bytesOf({0x02, 0x02, 0x40, 0xB0, 0x0D, 0xFF}), 6));
    // One step lower the low byte has two digits and the frame passes.
    EXPECT_FALSE(SumCheck(bytesOf({0x02, 0x02, 0x40, 0xA0, 0x1D, 0xFF}), 6));
    // The builder itself produces such frames; the check is only on the receiving side.
    EXPECT_EQ(frameFor("40B0"), bytesOf({0x02, 0x02, 0x40, 0xB0, 0x0D, 0xFF}));
}

TEST(FrameCheck, ASumAbove32767Overflows) {
    Bytes frame{0x02, 0xFF};
    frame.insert(frame.end(), 255, 0xFF);
    frame.push_back(0x00);
    frame.push_back(0x00);
    try {
        (void)SumCheck(frame, static_cast<int>(frame.size()));
        FAIL();
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), 6);
    }
}

}  // namespace
}  // namespace station
