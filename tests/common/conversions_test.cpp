#include <gtest/gtest.h>

#include "common/hex.hpp"
#include "common/runtime_error.hpp"
#include "common/vb_conv.hpp"

namespace station {
namespace {

TEST(Val, ReadsTheLeadingNumberAndTreatsEmptyAsZero) {
    EXPECT_EQ(val(""), 0.0);
    EXPECT_EQ(val("12"), 12.0);
    EXPECT_EQ(val(" -3"), -3.0);
    EXPECT_EQ(val("2.5dB"), 2.5);
    EXPECT_EQ(val("abc"), 0.0);
    EXPECT_EQ(val("1 2 3"), 123.0);  // blanks inside are skipped, as the runtime does
    EXPECT_EQ(val("1E3"), 1000.0);
    EXPECT_EQ(val("1E"), 1.0);
    EXPECT_EQ(val("&HFF"), -1.0 + 256.0);  // two digits stay positive
    EXPECT_EQ(val("&HFFBC"), -68.0);       // four digits are a 16-bit Integer
    EXPECT_EQ(val("&O17"), 15.0);
    EXPECT_EQ(val(".5"), 0.5);
}

TEST(Rounding, HalvesGoToTheEvenNeighbour) {
    EXPECT_EQ(roundHalfEven(0.5), 0.0);
    EXPECT_EQ(roundHalfEven(1.5), 2.0);
    EXPECT_EQ(roundHalfEven(2.5), 2.0);
    EXPECT_EQ(roundHalfEven(-67.5), -68.0);
    EXPECT_EQ(roundHalfEven(2.6), 3.0);
    EXPECT_EQ(toInteger(3.5), 4);
    EXPECT_EQ(toInteger(-32768.0), -32768);
}

TEST(Rounding, IntegerAssignmentAndArithmeticOverflow) {
    try {
        (void)toInteger(32767.5);  // rounds to 32768
        FAIL() << "no overflow";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), 6);
        EXPECT_STREQ(e.what(), "Overflow");
    }
    EXPECT_THROW((void)checkedInteger(32768), RuntimeError);
    EXPECT_THROW((void)checkedInteger(-32769), RuntimeError);
    EXPECT_EQ(checkedInteger(-32768), -32768);
}

TEST(NumberText, StrPutsABlankBeforeNonNegativeNumbers) {
    EXPECT_EQ(str(2), " 2");
    EXPECT_EQ(str(0), " 0");
    EXPECT_EQ(str(-6), "-6");
    EXPECT_EQ(str(0.5), " .5");
    EXPECT_EQ(str(-1.5), "-1.5");
    EXPECT_EQ(decText(12), "12");
    EXPECT_EQ(decText(-0.25), "-.25");
    EXPECT_EQ(decText(1.0 / 3.0), ".333333333333333");
    EXPECT_EQ(decText(1e20), "1E+20");
}

TEST(HexText, TwoDigitsPerByteAndTheRuntimesHexWithoutPadding) {
    EXPECT_EQ(hexByte(0x0A), "0A");
    EXPECT_EQ(hexText(bytesOf({0x02, 0x03, 0x40, 0xFF})), "020340FF");
    EXPECT_EQ(spacedHex(bytesOf({0x06})), " 06");
    EXPECT_EQ(spacedHex({}), "");
    EXPECT_EQ(hexNoPad(5), "5");
    EXPECT_EQ(hexNoPad(0), "0");
    EXPECT_EQ(hexNoPad(0x1F), "1F");
    EXPECT_EQ(hexNoPad(-1), "FFFFFFFF");
    EXPECT_EQ(hexNoPad(23), "17");
}

TEST(HexText, PrefixReadingStopsAtTheFirstNonDigit) {
    EXPECT_EQ(readHexPrefix("4g"), 4);
    EXPECT_EQ(readHexPrefix("g4"), 0);
    EXPECT_EQ(readHexPrefix(""), 0);
    EXPECT_EQ(readHexPrefix("ab"), 0xAB);
    EXPECT_EQ(readHexPrefix("AB5"), 0xAB5);       // three digits: a small positive number
    EXPECT_EQ(readHexPrefix("FFBC"), -68);        // four: a signed 16-bit Integer
    EXPECT_EQ(readHexPrefix("1FFBC"), 0x1FFBC);   // five to eight: a Long
    EXPECT_EQ(readHexPrefix("05"), 5);
    EXPECT_THROW((void)readHexPrefix("123456789"), RuntimeError);
}

}  // namespace
}  // namespace station
