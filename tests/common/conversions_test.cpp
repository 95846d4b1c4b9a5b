// The runtime's number and hex conversions, and the serial settings texts.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "common/hex.hpp"
#include "common/runtime_error.hpp"
#include "common/serial_settings.hpp"
#include "common/vb_conv.hpp"

namespace station {
namespace {

TEST(Conv, Val) {
    const struct {
        const char* text;
        double value;
    } cases[] = {{"", 0}, {" -3", -3}, {"2.5dB", 2.5}, {"abc", 0}, {"1 2 3", 123}, {"1E3", 1000}, {"1E", 1},
                 {".5", 0.5}, {"&HFF", 255}, {"&HFFBC", -68}, {"&O17", 15}};
    for (const auto& c : cases) EXPECT_EQ(val(c.text), c.value) << '"' << c.text << '"';
}

TEST(Conv, RoundingOverflow) {
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

TEST(Conv, HexPrefix) {
    const struct {
        const char* digits;
        long long value;
    } cases[] = {{"4g", 4}, {"g4", 0}, {"", 0}, {"ab", 0xAB}, {"AB5", 0xAB5}, {"FFBC", -68}, {"1FFBC", 0x1FFBC}};
    for (const auto& c : cases) EXPECT_EQ(readHexPrefix(c.digits), c.value) << c.digits;
    EXPECT_THROW((void)readHexPrefix("123456789"), RuntimeError);
}

int errorNumber(const std::function<void()>& f) {
    try {
        f();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

// Both serial ports take the same settings texts; any other is error 5.
TEST(Conv, SerialSettings) {
    const SerialSettings odd = parseSerialSettings("19200,o,7,2");
    EXPECT_EQ(odd.rate, 19200);
    EXPECT_EQ(odd.parity, 'O');
    EXPECT_EQ(odd.dataBits, 7);
    EXPECT_EQ(odd.stopBits, 2);
    EXPECT_EQ(parseSerialSettings("9600,E,8,1").parity, 'E');
    for (const char* bad : {"9600,N,8", "9600,N,8,1,", " 9600,N,8,1", "+9600,N,8,1", "14400,N,8,1", "9600,X,8,1",
                            "9600,N,6,1", "9600,N,8,3", "9600,NN,8,1", ""})
        EXPECT_EQ(errorNumber([bad] { (void)parseSerialSettings(bad); }), 5) << bad;
}

}  // namespace
}  // namespace station
