// What the operator's gestures on the main panel store and put on the line, for each of the
// sample studio's camera types.
#include <gtest/gtest.h>

#include "tests/support/station_rig.hpp"

namespace station {
namespace {

using testing::Commands;

// The studio opened; camera 1 (ST1, gain family 0), 3 (HD3, family 3), 5 (PT2, family 1,
// filter pulses) and 6 (BX4, family 2).
struct Studio : testing::StationRig {
    explicit Studio(int camera = 1, const std::string& file = testing::kStudio) {
        open(file);
        form1.Option9.click(camera);
        takeQueued();
    }
};

TEST(Panel, ModeButtonsAndLevelBars) {
    Studio rig;
    Form1& f = rig.form1;
    f.OptBar.click(1);
    f.OptDtl.click(0);
    f.OptSht.click(1);
    f.OptWhite.click(3);
    f.OptMonsel.click(3);
    EXPECT_EQ(rig.takeQueued(), (Commands{"200801FE", "200200EF", "200501FE", "20040CF3", "200F03E0"}));
    EXPECT_EQ(rig.field(mBar, 1) + rig.field(mWHITE, 1) + rig.field(mMONSEL, 1), "133");
    f.VrMblk.setValue(10);
    f.VrDtl.setValue(-1);
    f.VrRGain.setValue(-128);
    f.VrBGain.setValue(127);
    f.VrRBlk.setValue(1);
    f.VrBBlk.setValue(2);
    EXPECT_EQ(rig.takeQueued(), (Commands{"302B0A00", "302CFF00", "30188000", "301A7F00", "30210100", "30230200"}));
    EXPECT_EQ(rig.field(aDTL, 1) + f.Label3.Caption, "-110");
    // The iris level goes to the register of the iris mode; in mode 0 and 3 it is only kept.
    for (int mode : {0, 1, 2, 3}) {
        f.OptIris.click(mode);
        f.VrIris.setValue(5 + mode);
    }
    EXPECT_EQ(rig.takeQueued(), (Commands{"200400FC", "200401FC", "302E0600", "200402FC", "30390700", "200403FC"}));
    EXPECT_EQ(rig.field(aIRIS, 1), "8");
}

TEST(Panel, GainButtonsByFamily) {
    const struct {
        int camera;
        Commands sent;  // buttons 1, 2, 3 (none in family 0) and 0, with the studio's step values
    } cases[] = {
        {1, {"20010280", "20010880", "20010080"}},  // MID + 1, (HIGH + 2) x 2, LOW in bit 6
        {5, {"2001209F", "2001409F", "2001609F", "2001009F"}},
        {6, {"281204F3", "281208F3", "28120CF3", "281200F3"}},
        {3, {"281204F3", "281208F3", "28120CF3", "281200F3"}},
    };
    for (const auto& c : cases) {
        Studio rig(c.camera);
        const std::string mid = rig.field(mMID, c.camera);
        for (int button : {0, 1, 2, 3}) {
            rig.form1.OptGain.click((button + 1) % 4);  // the selected one raises nothing
        }
        EXPECT_EQ(rig.takeQueued(), c.sent) << c.camera;
        EXPECT_EQ(rig.field(mMID, c.camera), mid);  // the offsets are not stored back
    }
}

// The gain-step spin buttons trim LOW, MID or HIGH within their family's register, and grey
// at the ends of their range.
TEST(Panel, GainStepsToTheirLimits) {
    const struct {
        int camera, step, presses;
        bool up;
        Commands sent;
        const char* kept;
        bool offeredAfter;
    } cases[] = {
        {1, 0, 3, true, {"20014080"}, "1", false},
        {1, 1, 3, true, {"20010380"}, "2", false},
        {1, 2, 1, false, {"20010680"}, "1", true},
        {5, 0, 1, true, {}, "0", false},  // LOW is fixed at 0dB
        {5, 1, 1, true, {"28060AE0"}, "10", true},
        {3, 1, 4, true, {"28130AB0", "28130BB0"}, "3", false},
    };
    for (const auto& c : cases) {
        Studio rig(c.camera);
        for (int i = 0; i < c.presses; ++i) {
            if (c.up) rig.form1.SpinButton1(c.step).spinUp();
            else rig.form1.SpinButton1(c.step).spinDown();
        }
        EXPECT_EQ(rig.takeQueued(), c.sent) << c.camera << c.step;
        EXPECT_EQ(rig.field(mLOW + c.step, c.camera), c.kept) << c.camera << c.step;
        EXPECT_EQ(rig.readout.gainStepOffered(c.step, c.up), c.offeredAfter) << c.camera << c.step;
    }
}

TEST(Panel, FilterWheelWrapsAndPulseReleases) {
    Studio wheel;
    wheel.form1.SpinButton2.spinDown();
    EXPECT_EQ(wheel.field(mFILTER, 1) + " " + wheel.form1.Label16.Caption, "3 5600K+1/64ND");
    wheel.form1.SpinButton2.spinUp();
    EXPECT_EQ(wheel.field(mFILTER, 1) + " " + wheel.form1.Label16.Caption, "0 3200K");
    EXPECT_EQ(wheel.takeQueued(), (Commands{"200003F8", "200000F8"}));

    Studio pulse(5);
    pulse.station.ACK_Click(1);
    pulse.form1.SpinButton2.spinDown();
    EXPECT_EQ(pulse.takeQueued(), Commands{"201401FE"});
    pulse.run(1100);  // released on the second 500 ms tick
    EXPECT_EQ(pulse.port.takeWritten(), testing::frame(testing::wire("201400FE"), "  5", true));
    EXPECT_FALSE(pulse.ticks[StationTick::FilterRelease].model.Enabled);
}

// "PC to Camera" sends the main page from the file's texts: the last two hex digits of each
// value rounded half to even, an empty value as 0.
TEST(Panel, PageWriteFromTheFilesTexts) {
    std::string text = testing::readBytes(testing::kStudio);
    for (const auto& [from, to] : {std::pair{"aMBLK=0,", "aMBLK=256,"}, {"aDTL=-18,", "aDTL=2.5,"},
                                   {"aRGAIN=0,", "aRGAIN=,"}, {"aBGAIN=0,", "aBGAIN=-1,"}})
        text.replace(text.find(from), std::string(from).size(), to);
    testing::TempFolder folder;
    Studio rig(1, folder.write("odd.csd", text).string());
    rig.form1.Command13.click();
    const Commands sent = rig.takeQueued();
    EXPECT_EQ(Commands(sent.begin(), sent.begin() + 15),
              (Commands{"200800FE", "200210EF", "200500FE", "200400F3", "200402FC", "200F1000", "302B0000", "302EFC00",
                        "3039FC00", "302C0200", "30180000", "301AFF00", "30210000", "30230000", "200000F8"}));
}

}  // namespace
}  // namespace station
