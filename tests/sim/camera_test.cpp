// A camera's registers and levels as the station's set commands and read requests see them.
#include <gtest/gtest.h>

#include "sim/camera.hpp"
#include "tests/support/frames.hpp"

namespace station::sim {
namespace {

using testing::wire;

TEST(Camera, ModeCommandsWriteOnlyTheBitsTheMaskOpens) {
    Camera cam("AB1", "01");
    cam.setMode(0x04, 0xFF);
    // White 3 in bits 2..3 under F3, iris 0 in bits 0..1 under FC.
    EXPECT_EQ(cam.apply(wire("20 04 0C F3")).reply, wire("22 04 FF"));
    EXPECT_EQ(cam.apply(wire("20 04 00 FC")).reply, wire("22 04 FC"));
    EXPECT_EQ(cam.mode(0x04), 0xFC);
    // Data bits outside the opened field are not written.
    cam.setMode(0x08, 0x00);
    EXPECT_EQ(cam.apply(wire("20 08 FF FE")).reply, wire("22 08 01"));
    // Mask 00 writes the whole register.
    EXPECT_EQ(cam.apply(wire("20 0F 10 00")).reply, wire("22 0F 10"));
}

TEST(Camera, The28BankIsApartFromThe20Bank) {
    Camera cam("AB1", "01");
    EXPECT_EQ(cam.apply(wire("28 12 08 F3")).reply, wire("2A 12 08"));
    EXPECT_EQ(cam.mode(0x12, kModeClass2), 0x08);
    EXPECT_EQ(cam.mode(0x12), 0x00);
    EXPECT_EQ(cam.apply(wire("2B 12")).reply, wire("2A 12 08"));
    EXPECT_EQ(cam.apply(wire("23 12")).reply, wire("22 12 00"));
}

TEST(Camera, LevelsAreOneOrTwoBytes) {
    Camera cam("AB1", "01");
    EXPECT_EQ(cam.apply(wire("30 2B FF 00")).reply, wire("32 2B FF"));
    EXPECT_EQ(cam.level(0x2B), 255);
    EXPECT_EQ(cam.apply(wire("33 2B")).reply, wire("32 2B FF"));
    cam.setWide(0x40, true);
    EXPECT_EQ(cam.apply(wire("30 40 12 34")).reply, wire("32 40 12 34"));
    EXPECT_EQ(cam.level(0x40), 0x1234);
    EXPECT_EQ(cam.apply(wire("33 40 00 00")).reply, wire("32 40 12 34"));
    cam.setLevel(0x2B, 0x1FF);  // a narrow level keeps its low byte
    EXPECT_EQ(cam.level(0x2B), 0xFF);
}

TEST(Camera, AutoSetupAndOtherClasses) {
    Camera cam("AB1", "01");
    const Camera::Answer a = cam.apply(wire("40 10"));
    EXPECT_TRUE(a.reply.empty());
    ASSERT_TRUE(a.autoOperation.has_value());
    EXPECT_EQ(*a.autoOperation, 0x10);
    EXPECT_EQ(cam.autoRuns, 1);
    cam.autoResultCode = 0x13;
    EXPECT_EQ(cam.autoResult(0x20), wire("40 20 13"));

    // Short commands read missing bytes as 0; unknown classes and replies get no answer.
    EXPECT_EQ(cam.apply(wire("23")).reply, wire("22 00 00"));
    EXPECT_TRUE(cam.apply(wire("10 01 02")).reply.empty());
    EXPECT_TRUE(cam.apply(wire("22 01 02")).reply.empty());
    EXPECT_TRUE(cam.apply({}).reply.empty());
}

TEST(Camera, TallyAndCallShareRegister03) {
    Camera cam("AB1", "01");
    cam.setTally(true);
    EXPECT_TRUE(cam.tally());
    cam.apply(wire("20 03 04 FB"));  // call on
    EXPECT_TRUE(cam.callOn());
    EXPECT_EQ(cam.report(kModeClass, kTallyRegister), wire("22 03 05"));
    cam.apply(wire("20 03 00 FB"));
    cam.setTally(false);
    EXPECT_EQ(cam.mode(kTallyRegister), 0x00);
}

}  // namespace
}  // namespace station::sim
