// What the operator's gestures on the main panel store and put in the send queue.
#include <gtest/gtest.h>

#include "tests/panel/panel_rig.hpp"

namespace station {
namespace {

using testing::Commands;
using testing::PanelRig;

TEST(Panel, ModeButtons) {
    PanelRig rig;
    rig.form.OptBar.click(1);
    rig.form.OptDtl.click(1);
    rig.form.OptSht.click(1);
    rig.form.OptWhite.click(3);
    rig.form.OptIris.click(2);
    rig.form.OptMonsel.click(16);
    EXPECT_EQ(rig.takeQueued(), (Commands{"200801FE", "200210EF", "200501FE", "20040CF3", "200402FC", "200F10E0"}));
    EXPECT_EQ(rig.field(mBar) + rig.field(mWHITE) + rig.field(mMONSEL), "1316");

    rig.shared.CtrlReady = 0;
    rig.form.OptBar.click(0);
    rig.form.VrMblk.setValue(20);
    EXPECT_TRUE(rig.takeQueued().empty());
    EXPECT_EQ(rig.field(mBar) + rig.field(aMBLK), "1");
    EXPECT_EQ(rig.form.Label3.Caption, "20");  // the number label follows the bar always
}

TEST(Panel, GainButtons) {
    PanelRig rig;
    rig.field(mLOW) = "1";
    rig.field(mMID) = "2";
    rig.field(mHIGH) = "1";
    for (const int button : {0, 1, 2, 3}) rig.form.OptGain.click(button);  // no fourth step in family 0
    EXPECT_EQ(rig.takeQueued(), (Commands{"20014080", "20010380", "20010680"}));
    EXPECT_EQ(rig.field(mMID), "2");  // the offsets are not stored back

    const std::pair<int, int> presses[] = {{1, 2}, {2, 0}, {2, 2}, {3, 1}, {7, 2}};
    for (const auto& [type, button] : presses) {
        rig.gainType(type);
        rig.form.OptGain.click(button);
    }
    EXPECT_EQ(rig.takeQueued(), (Commands{"2001409F", "281200F3", "281208F3", "281204F3"}));
    rig.shared.cams.CamFclNo(1) = "9";  // a slot outside the tables
    EXPECT_THROW(rig.form.OptGain.click(1), RuntimeError);
}

TEST(Panel, LevelBars) {
    PanelRig rig;
    rig.form.VrMblk.setValue(10);
    rig.form.VrDtl.setValue(-1);
    rig.form.VrRGain.setValue(-128);
    rig.form.VrBGain.setValue(127);
    rig.form.VrRBlk.setValue(1);
    rig.form.VrBBlk.setValue(2);
    rig.form.VrIris.setValue(5);  // iris mode 0: kept, not sent
    EXPECT_EQ(rig.takeQueued(), (Commands{"302B0A00", "302CFF00", "30188000", "301A7F00", "30210100", "30230200"}));
    EXPECT_EQ(rig.field(aDTL) + rig.field(aIRIS), "-15");
    for (const char* mode : {"1", "2", "3"}) {
        rig.field(mIRIS) = mode;
        rig.form.VrIris.setValue(rig.form.VrIris.value() + 1);
    }
    EXPECT_EQ(rig.takeQueued(), (Commands{"302E0600", "30390700"}));
}

// The gain-step spin buttons trim LOW, MID or HIGH within their gain type's register.
TEST(Panel, GainSteps) {
    const struct {
        int type, index, presses;
        Commands sent;
        const char* kept;
    } cases[] = {
        {0, 0, 2, {"20014080"}, "1"},
        {0, 2, 1, {"20010680"}, "1"},
        {1, 0, 1, {}, "0"},  // LOW is fixed at 0dB
        {1, 1, 1, {"280601E0"}, "1"},
        {3, 1, 4, {"281301B0", "281302B0", "281303B0"}, "3"},
    };
    for (const auto& c : cases) {
        PanelRig rig;
        rig.gainType(c.type);
        for (int f : {mLOW, mMID, mHIGH}) rig.field(f) = "0";
        rig.panel.SpinButton1_SpinDown(c.index);  // already at the bottom
        for (int i = 0; i < c.presses; ++i) rig.panel.SpinButton1_SpinUp(c.index);
        EXPECT_EQ(rig.takeQueued(), c.sent) << c.type << c.index;
        EXPECT_EQ(rig.field(mLOW + c.index), c.kept) << c.type << c.index;
    }
}

TEST(Panel, ValuesModulo256) {
    PanelRig rig;
    rig.panel.SendAnalog("30", "2B", "255");
    rig.panel.SendAnalog("30", "2B", "256");
    rig.panel.SendAnalog("30", "2B", "");
    rig.panel.SendMode("20", "0F", "300", 0, "00");
    rig.panel.SendMode("20", "04", "3", 4, "F3");
    rig.panel.SendMode("20", "04", "2.5", 0, "FC");
    EXPECT_EQ(rig.takeQueued(), (Commands{"302BFF00", "302B0000", "302B0000", "200F2C00", "200430F3", "200402FC"}));
}

TEST(Panel, PageWrite) {
    PanelRig rig;
    const char* values[] = {"", "1", "1", "0", "2", "3", "2", "5", "-2", "40", "3", "4", "5", "6", "7", "1", "2", "3", "2"};
    for (int f = mBar; f <= mFILTER; ++f) rig.field(f) = values[f];
    rig.monitorType(1);
    rig.filterType(2);
    rig.panel.MainSend();
    EXPECT_EQ(rig.takeQueued(), (Commands{"200801FE", "200210EF", "200500FE", "200430F3", "200402FC", "200F0500",
                                          "302BFE00", "302E2800", "30392800", "302C0300", "30180400", "301A0500",
                                          "30210600", "30230700", "200002F8"}));
}

TEST(Panel, FilterWheelWraps) {
    PanelRig rig;
    rig.filterType(1);
    rig.field(mFILTER) = "3";
    rig.panel.SpinButton2_SpinUp();
    EXPECT_EQ(rig.field(mFILTER) + " " + rig.form.Label16.Caption, "0 3200K");
    rig.panel.SpinButton2_SpinDown();
    EXPECT_EQ(rig.field(mFILTER) + " " + rig.form.Label16.Caption, "3 5600K+1/64ND");
    rig.shared.CtrlReady = 0;
    rig.panel.SpinButton2_SpinDown();
    EXPECT_EQ(rig.takeQueued(), (Commands{"200000F8", "200003F8", "200002F8"}));
}

TEST(Panel, FilterPulse) {
    PanelRig rig;
    rig.filterType(2);
    rig.field(mFILTER) = "1";
    rig.form.Timer4.Enabled = true;
    rig.panel.SpinButton2_SpinDown();
    EXPECT_EQ(rig.takeQueued(), Commands{"201401FE"});
    rig.panel.Timer4_Timer();
    rig.panel.Timer4_Timer();
    EXPECT_EQ(rig.takeQueued(), Commands{"201400FE"});
    EXPECT_FALSE(rig.form.Timer4.Enabled);
    rig.filterType(0);
    rig.panel.SpinButton2_SpinUp();
    rig.panel.SpinButton2_SpinDown();
    EXPECT_TRUE(rig.takeQueued().empty());
}

}  // namespace
}  // namespace station
