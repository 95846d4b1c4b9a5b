// Drawing the panel from the stored settings, and following the camera's replies, without
// a frame ever going back.
#include <gtest/gtest.h>

#include "tests/panel/panel_rig.hpp"

namespace station {
namespace {

using testing::PanelRig;

TEST(PanelDisplay, RedrawShowsTheWorkingSceneAndSendsNothingWhileGuarded) {
    PanelRig rig;
    rig.shared.CtrlReady = 0;
    rig.field(mBar) = "1";
    rig.field(mWHITE) = "2";
    rig.field(mIRIS) = "1";
    rig.field(aMBLK) = "300";  // above the bar's range
    rig.field(aDTL) = "-5";
    rig.panel.MainDsp();
    EXPECT_TRUE(rig.takeQueued().empty());
    EXPECT_EQ(rig.form.OptBar.selected(), 1);
    EXPECT_EQ(rig.form.OptWhite.selected(), 2);
    EXPECT_EQ(rig.form.OptIris.selected(), 1);
    EXPECT_EQ(rig.form.OptMonsel.selected(), 16);
    EXPECT_EQ(rig.field(mMONSEL), "16");  // an empty monitor select is corrected in the table
    EXPECT_EQ(rig.form.VrMblk.value(), 127);
    EXPECT_EQ(rig.form.Label3.Caption, "127");
    EXPECT_EQ(rig.field(aMBLK), "300");   // the field keeps its text
    EXPECT_EQ(rig.form.Label4.Caption, "-5");
    EXPECT_EQ(rig.form.Label1(1).Caption, "3dB");
    EXPECT_EQ(rig.form.Label16.Caption, "un-known");
}

TEST(PanelDisplay, ARedrawWithTheGuardUpSendsTheChangedControls) {
    // Whether a redraw also re-sends is its caller's choice: the controls raise their events.
    PanelRig rig;
    rig.shared.CtrlReady = 0;
    rig.panel.MainDsp();
    rig.field(mBar) = "1";
    rig.field(mMONSEL) = "3";
    rig.shared.CtrlReady = 1;
    rig.panel.MainDsp();
    EXPECT_EQ(rig.takeQueued(), (std::vector<std::string>{"200801FE", "200F03E0"}));
}

TEST(PanelDisplay, GainLabelsByGainType) {
    PanelRig rig;
    rig.field(mLOW) = "0";
    rig.field(mMID) = "0";
    rig.field(mHIGH) = "0";
    const auto labels = [&] {
        return rig.form.Label1(0).Caption + " " + rig.form.Label1(1).Caption + " " + rig.form.Label1(2).Caption;
    };
    rig.gainType(0);
    rig.panel.PGainDsp();
    EXPECT_EQ(labels(), "0dB 3dB 12dB");
    rig.gainType(3);
    rig.panel.PGainDsp();
    EXPECT_EQ(labels(), "0dB 6dB 12dB");
    rig.field(mLOW) = "2";
    rig.field(mMID) = "1";
    rig.gainType(0);
    rig.panel.PGainDsp();
    EXPECT_EQ(labels(), "-6dB 6dB 12dB");
    rig.field(mMID) = "9";
    rig.field(mHIGH) = "";
    rig.gainType(1);
    rig.panel.PGainDsp();
    EXPECT_EQ(labels(), "0dB 9dB dB");
    rig.gainType(4);
    rig.field(mMID) = "1";
    rig.panel.PGainDsp();
    EXPECT_EQ(labels(), "0dB 9dB dB");  // unknown type: unchanged
}

TEST(PanelDisplay, FilterNamesByWheelType) {
    PanelRig rig;
    const auto name = [&](int type, const char* code) {
        rig.filterType(type);
        rig.field(mFILTER) = code;
        rig.panel.FilterDsp();
        return rig.form.Label16.Caption;
    };
    EXPECT_EQ(name(1, "1"), "5600K+1/8ND");
    EXPECT_EQ(name(2, "1"), "5600K");
    EXPECT_EQ(name(1, "2"), "5600K");
    EXPECT_EQ(name(2, "2"), "5600K+ND");
    EXPECT_EQ(name(2, "3"), "NG");
    EXPECT_EQ(name(1, "3"), "5600K+1/64ND");
    EXPECT_EQ(name(1, "4"), "NG");
    EXPECT_EQ(name(1, ""), "3200K");
    EXPECT_EQ(name(0, "1"), "un-known");
    EXPECT_EQ(name(3, "1"), "un-known");  // other types leave the label alone
}

TEST(PanelDisplay, GroupsOfferedByTheCameraType) {
    PanelRig rig;
    rig.types.FormTally(1) = 1;
    rig.types.FormFilter(1) = 2;
    rig.types.FormMonitor(1) = 2;
    rig.panel.MainFormSet();
    EXPECT_TRUE(rig.form.Frame19.Enabled);
    EXPECT_TRUE(rig.form.Frame17.Enabled);
    EXPECT_FALSE(rig.form.Frame12.Enabled);
    rig.shared.AckMode = 1;
    rig.types.FormFilter(1) = 0;
    rig.types.FormMonitor(1) = 1;
    rig.panel.MainFormSet();
    EXPECT_FALSE(rig.form.Frame19.Enabled);
    EXPECT_FALSE(rig.form.Frame17.Enabled);
    EXPECT_TRUE(rig.form.Frame12.Enabled);
    rig.shared.AckMode = 0;
    rig.types.FormTally(1) = 2;
    rig.panel.MainFormSet();
    EXPECT_FALSE(rig.form.Frame19.Enabled);
}

TEST(ModeReplies, BitFieldsAreDecodedIntoFieldsAndButtons) {
    PanelRig rig;
    EXPECT_EQ(MainPanel::RecM_Regen1("10", "EF"), "1");
    EXPECT_EQ(MainPanel::RecM_Regen1("0C", "F3"), "3");
    EXPECT_EQ(MainPanel::RecM_Regen1("FF", "FF"), "0");

    rig.panel.RecModeMain("22", "04", "0E");  // white 3, iris 2
    EXPECT_EQ(rig.field(mWHITE), "3");
    EXPECT_EQ(rig.field(mIRIS), "2");
    EXPECT_EQ(rig.form.OptWhite.selected(), 3);
    EXPECT_EQ(rig.form.OptIris.selected(), 2);
    rig.panel.RecModeMain("22", "08", "01");
    rig.panel.RecModeMain("22", "02", "10");
    rig.panel.RecModeMain("22", "05", "FF");
    EXPECT_EQ(rig.form.OptBar.selected(), 1);
    EXPECT_EQ(rig.form.OptDtl.selected(), 1);
    EXPECT_EQ(rig.form.OptSht.selected(), 1);
    rig.panel.RecModeMain("22", "0F", "00");
    EXPECT_EQ(rig.field(mMONSEL), "16");
    EXPECT_EQ(rig.form.OptMonsel.selected(), 16);
    rig.panel.RecModeMain("22", "0F", "FF");
    EXPECT_EQ(rig.field(mMONSEL), "31");
    rig.filterType(1);
    rig.panel.RecModeMain("22", "00", "FA");
    EXPECT_EQ(rig.field(mFILTER), "2");
    EXPECT_EQ(rig.form.Label16.Caption, "5600K");
    rig.panel.RecModeMain("22", "09", "FF");  // unknown register: nothing
    rig.panel.RecModeMain("23", "08", "00");
    EXPECT_EQ(rig.field(mBar), "1");
    EXPECT_TRUE(rig.takeQueued().empty());
    EXPECT_EQ(rig.shared.CtrlReady, 1);
}

TEST(ModeReplies, TallyLampFollowsTheCameraAndTheCallButton) {
    PanelRig rig;
    rig.panel.RecModeMain("22", "03", "01");
    EXPECT_EQ(rig.form.Label15.BackColor, kColourRed);
    rig.panel.RecModeMain("22", "03", "00");
    EXPECT_EQ(rig.form.Label15.BackColor, kColourGrey);
    rig.form.CallOn = 1;
    rig.panel.RecModeMain("22", "03", "00");
    EXPECT_EQ(rig.form.Label15.BackColor, kColourRed);
}

TEST(ModeReplies, GainRepliesOfTheStepValueFamily) {
    PanelRig rig;
    rig.gainType(0);
    rig.panel.RecModeMain("22", "01", "46");
    EXPECT_EQ(rig.field(mGAIN), "2");
    EXPECT_EQ(rig.field(mHIGH), "1");
    EXPECT_EQ(rig.form.Label1(2).Caption, "18dB");
    EXPECT_EQ(rig.form.OptGain.selected(), -1);  // the gain decoder never selects a button
    rig.panel.RecModeMain("22", "01", "40");
    EXPECT_EQ(rig.field(mGAIN), "0");
    EXPECT_EQ(rig.field(mLOW), "1");
    rig.panel.RecModeMain("22", "01", "03");
    EXPECT_EQ(rig.field(mGAIN), "1");
    EXPECT_EQ(rig.field(mMID), "2");
    rig.panel.RecModeMain("22", "01", "05");
    EXPECT_EQ(rig.field(mGAIN), "1");
    EXPECT_EQ(rig.field(mMID), "2");
    rig.panel.RecModeMain("2A", "12", "08");  // not this family's register
    EXPECT_EQ(rig.field(mGAIN), "1");
}

TEST(ModeReplies, GainRepliesOfTheStepNumberFamilies) {
    PanelRig rig;
    rig.gainType(1);
    rig.panel.RecModeMain("22", "01", "40");
    EXPECT_EQ(rig.field(mGAIN), "2");
    rig.panel.RecModeMain("2A", "06", "09");
    rig.panel.RecModeMain("2A", "07", "12");
    EXPECT_EQ(rig.field(mMID), "9");
    EXPECT_EQ(rig.field(mHIGH), "18");
    EXPECT_EQ(rig.form.Label1(1).Caption, "9dB");

    rig.gainType(2);
    rig.panel.RecModeMain("2A", "12", "04");
    EXPECT_EQ(rig.field(mGAIN), "1");
    rig.panel.RecModeMain("2A", "13", "FF");  // type 3 only
    EXPECT_EQ(rig.field(mLOW), "");

    rig.gainType(3);
    rig.panel.RecModeMain("2A", "13", "4E");  // LOW bit 6, MID bits 0..1, HIGH bits 2..3
    EXPECT_EQ(rig.field(mLOW), "1");
    EXPECT_EQ(rig.field(mMID), "2");
    EXPECT_EQ(rig.field(mHIGH), "3");
    rig.panel.RecModeMain("2A", "06", "01");  // not for type 3
    EXPECT_EQ(rig.field(mMID), "2");
    rig.panel.RecModeMain("22", "01", "60");  // types 2 and 3 report under 2A only
    EXPECT_EQ(rig.field(mGAIN), "1");
    EXPECT_TRUE(rig.takeQueued().empty());
}

TEST(LevelReplies, SignedLevelsReachFieldBarAndLabel) {
    PanelRig rig;
    rig.panel.RecAnalogMain("32", "2B", "FF");
    EXPECT_EQ(rig.field(aMBLK), "-1");
    EXPECT_EQ(rig.form.VrMblk.value(), -1);
    EXPECT_EQ(rig.form.Label3.Caption, "-1");
    rig.panel.RecAnalogMain("32", "2B", "80");
    EXPECT_EQ(rig.field(aMBLK), "-128");
    rig.panel.RecAnalogMain("32", "2B", "7F");
    EXPECT_EQ(rig.field(aMBLK), "127");
    rig.panel.RecAnalogMain("32", "18", "01");
    rig.panel.RecAnalogMain("32", "1A", "02");
    rig.panel.RecAnalogMain("32", "21", "03");
    rig.panel.RecAnalogMain("32", "23", "04");
    rig.panel.RecAnalogMain("32", "2C", "05");
    EXPECT_EQ(rig.form.Label6.Caption + rig.form.Label5.Caption + rig.form.Label8.Caption + rig.form.Label7.Caption +
                  rig.form.Label4.Caption,
              "12345");
    rig.panel.RecAnalogMain("3A", "2B", "00");
    rig.panel.RecAnalogMain("32", "40", "00");
    EXPECT_EQ(rig.field(aMBLK), "127");
    EXPECT_TRUE(rig.takeQueued().empty());
}

TEST(LevelReplies, TheIrisLevelIsTakenFromTheIrisModesAddressOnly) {
    PanelRig rig;
    rig.field(mIRIS) = "2";
    rig.panel.RecAnalogMain("32", "2E", "10");
    EXPECT_EQ(rig.field(aIRIS), "");
    rig.panel.RecAnalogMain("32", "39", "10");
    EXPECT_EQ(rig.field(aIRIS), "16");
    EXPECT_EQ(rig.form.Label2.Caption, "16");
    rig.field(mIRIS) = "1";
    rig.panel.RecAnalogMain("32", "2E", "11");
    EXPECT_EQ(rig.field(aIRIS), "17");
    EXPECT_TRUE(rig.takeQueued().empty());
}

TEST(Replies, LeaveCtrlReadyRaisedWhateverItWasAndEvenWhenTheyFail) {
    PanelRig rig;
    rig.shared.CtrlReady = 0;
    rig.panel.RecAnalogMain("32", "2B", "01");
    EXPECT_EQ(rig.shared.CtrlReady, 1);
    rig.shared.CtrlReady = 0;
    rig.panel.RecModeMain("12", "00", "00");
    EXPECT_EQ(rig.shared.CtrlReady, 1);
    rig.shared.cams.CamFclNo(1) = "12";  // a slot outside the tables
    EXPECT_THROW(rig.panel.RecModeMain("22", "01", "00"), RuntimeError);
    EXPECT_EQ(rig.shared.CtrlReady, 1);
}

}  // namespace
}  // namespace station
