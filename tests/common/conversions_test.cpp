// The number and hex conversions of the original runtime that the settings and frames rely on.
#include <gtest/gtest.h>

#include "common/hex.hpp"
#include "common/runtime_error.hpp"
#include "common/vb_conv.hpp"

namespace station {
namespace {

TEST(Val, ReadsTheLeadingNumberAsTheRuntimeDoes) {
    const struct {
        const char* text;
        double value;
    } cases[] = {{"", 0}, {" -3", -3}, {"2.5dB", 2.5}, {"abc", 0}, {"1 2 3", 123}, {"1E3", 1000}, {"1E", 1},
                 {".5", 0.5}, {"&HFF", 255}, {"&HFFBC", -68}, {"&O17", 15}};
    for (const auto& c : cases) EXPECT_EQ(val(c.text), c.value) << '"' << c.text << '"';
}

TEST(Rounding, HalvesGoToTheEvenNeighbourAndIntegersOverflowPast32767) {
    for (const auto& [in, out] : {std::pair{0.5, 0.0}, {1.5, 2.0}, {2.5, 2.0}, {-67.5, -68.0}, {2.6, 3.0}})
        EXPECT_EQ(roundHalfEven(in), out) << in;
    EXPECT_EQ(toInteger(-32768.0), -32768);
    try {
        (void)toInteger(32767.5);  // rounds to 32768
        FAIL() << "no overflow";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), 6);
        EXPECT_STREQ(e.what(), "Overflow");
    }
    EXPECT_THROW((void)checkedInteger(32768), RuntimeError);
    EXPECT_THROW((void)checkedInteger(-32769), RuntimeError);
}

TEST(NumberText, StrPutsABlankBeforeNonNegativeNumbersAndDecTextDoesNot) {
    EXPECT_EQ(str(2) + "|" + str(0.5) + "|" + str(-1.5), " 2| .5|-1.5");
    EXPECT_EQ(decText(12) + "|" + decText(-0.25) + "|" + decText(1e20), "12|-.25|1E+20");
    EXPECT_EQ(decText(1.0 / 3.0), ".333333333333333");
}

TEST(HexText, TwoDigitsPerByteOrTheRuntimesUnpaddedHex) {
    EXPECT_EQ(hexText(bytesOf({0x02, 0x0A, 0xFF})), "020AFF");
    EXPECT_EQ(spacedHex(bytesOf({0x06, 0x15})), " 06 15");
    EXPECT_EQ(spacedHex({}), "");
    EXPECT_EQ(hexNoPad(5) + "|" + hexNoPad(0x1F) + "|" + hexNoPad(-1), "5|1F|FFFFFFFF");
}

TEST(HexText, PrefixReadingStopsAtTheFirstNonDigitAndSignsFourDigits) {
    const struct {
        const char* digits;
        long long value;
    } cases[] = {{"4g", 4}, {"g4", 0}, {"", 0}, {"ab", 0xAB}, {"AB5", 0xAB5}, {"FFBC", -68}, {"1FFBC", 0x1FFBC}};
    for (const auto& c : cases) EXPECT_EQ(readHexPrefix(c.digits), c.value) << c.digits;
    EXPECT_THROW((void)readHexPrefix("123456789"), RuntimeError);
}

}  // namespace
}  // namespace station
