// Frames built from command texts, and the receiving side's checksum judgement.
#include <gtest/gtest.h>

#include "link/frame.hpp"
#include "tests/link/link_rig.hpp"

namespace station {
namespace {

using testing::errorOf;
using testing::wire;
using testing::operator+;

TEST(Frame, Building) {
    const struct {
        const char* cmd;
        bool ackOff;
        const char* id;  // nullptr: no ID header
        const char* frame;
    } cases[] = {
        {"400000", false, nullptr, "02 03 40 00 00 BC FF"},
        {"4010", true, nullptr, "06 02 02 40 10 AD FF"},
        {"4010", false, "1", "01 20 20 31 02 02 40 10 3A FF"},
        // The ID is its last three characters; they and the STX enter the sum.
        {"200801FE", true, "ABCD", "06 01 42 43 44 02 04 20 08 01 FE 09 FE"},
        {"", false, nullptr, "02 00 FF FF"},
        // Three digits: two bytes, the last from "1"; the sum starts at 1.5 and -1 - 66.5
        // rounds to -68 (FFBC). One digit: no data, but -1 - 0.5 still rounds to -2.
        {"401", false, nullptr, "02 02 40 01 BC FF"},
        {"4", false, nullptr, "02 00 FE FF"},
        // A pair starting with a non-hex character is 0; one ending with it keeps its first digit.
        {"G14G", false, nullptr, "02 02 00 04 F9 FF"},
        {"ab", false, nullptr, "02 01 AB 53 FF"},
        {"40B0", false, nullptr, "02 02 40 B0 0D FF"},  // built fine, though the check rejects it
    };
    for (const auto& c : cases) {
        FrameHeader h;
        h.ackPrefix = c.ackOff;
        h.withId = c.id != nullptr;
        h.cameraId = c.id ? c.id : "";
        EXPECT_EQ(buildFrame(c.cmd, h), wire(c.frame)) << c.cmd;
    }
    EXPECT_EQ(errorOf([] { buildFrame(std::string(510, '0'), {}); }), 0);
    EXPECT_EQ(errorOf([] { buildFrame(std::string(512, '0'), {}); }), 5);  // 256 data bytes
}

TEST(Frame, CheckAndLowByteQuirk) {
    const struct {
        const char* frame;
        bool bad;
    } cases[] = {
        {"02 03 40 00 00 BC FF", false}, {"02 03 40 00 00 BD FF", true}, {"01 03 40 00 00 BC FF", true},
        {"02 00 FF FF", false},
        // Correct sum, checksum FF0D: read back as "&HFFD", not -0xF3, so judged bad.
        {"02 02 40 B0 0D FF", true},
        {"02 02 40 A0 1D FF", false},  // one step lower the low byte has two digits
    };
    for (const auto& c : cases) {
        const Bytes f = wire(c.frame);
        EXPECT_EQ(SumCheck(f, static_cast<int>(f.size())), c.bad) << c.frame;
    }
    Bytes huge = wire("02 FF") + Bytes(255, 0xFF) + wire("00 00");
    EXPECT_EQ(errorOf([&] { (void)SumCheck(huge, static_cast<int>(huge.size())); }), 6);  // sum past 32767
}

}  // namespace
}  // namespace station
