// Drawing the panel from the stored settings, and following the camera's replies, without
// a frame ever going back.
#include <gtest/gtest.h>

#include <utility>

#include "tests/panel/panel_rig.hpp"

namespace station {
namespace {

using testing::Commands;
using testing::PanelRig;

TEST(Replies, StoreFields) {
    using Fields = std::vector<std::pair<int, const char*>>;
    const struct {
        int gainType;
        const char* iris;  // mIRIS before the reply
        const char* reply;
        Fields fields;
    } cases[] = {
        {0, "", "22 04 0E", {{mWHITE, "3"}, {mIRIS, "2"}}},
        {0, "", "22 02 10", {{mDTL, "1"}}},
        {0, "", "22 0F 00", {{mMONSEL, "16"}}},
        {0, "", "23 08 01", {{mBar, ""}}},
        // Gain family 0: the step in bits 0..3 (1, 3 or 6) and its value in bits 6..7.
        {0, "", "22 01 46", {{mGAIN, "2"}, {mHIGH, "1"}}},
        {0, "", "22 01 40", {{mGAIN, "0"}, {mLOW, "1"}}},
        {0, "", "22 01 03", {{mGAIN, "1"}, {mMID, "2"}}},
        {0, "", "22 01 05", {{mGAIN, ""}, {mMID, ""}}},
        {1, "", "22 01 40", {{mGAIN, "2"}}},
        {1, "", "2A 06 09", {{mMID, "9"}}},
        {2, "", "2A 12 04", {{mGAIN, "1"}}},
        {2, "", "22 01 60", {{mGAIN, ""}}},  // families 2 and 3 report under 2A only
        {3, "", "2A 13 4E", {{mLOW, "1"}, {mMID, "2"}, {mHIGH, "3"}}},
        {0, "", "32 2B FF", {{aMBLK, "-1"}}},
        {0, "", "32 2B 80", {{aMBLK, "-128"}}},
        {0, "", "3A 2B 01", {{aMBLK, ""}}},
        {0, "", "32 21 03", {{aRBLK, "3"}}},
        {0, "", "32 23 04", {{aBBLK, "4"}}},
        // The iris level comes from the address of the iris mode only.
        {0, "2", "32 2E 10", {{aIRIS, ""}}},
        {0, "2", "32 39 10", {{aIRIS, "16"}}},
        {0, "1", "32 2E 11", {{aIRIS, "17"}}},
    };
    for (const auto& c : cases) {
        PanelRig rig;
        rig.gainType(c.gainType);
        rig.field(mIRIS) = c.iris;
        rig.shared.CtrlReady = 0;
        rig.reply(c.reply);
        for (const auto& [f, v] : c.fields) EXPECT_EQ(rig.field(f), v) << c.reply << " field " << f;
        EXPECT_TRUE(rig.takeQueued().empty()) << c.reply;
        EXPECT_EQ(rig.shared.CtrlReady, 1) << c.reply;  // whatever it was before
    }
}

TEST(Replies, ControlsAndTally) {
    PanelRig rig;
    rig.filterType(1);
    for (const char* r : {"22 04 0E", "22 0F 00", "22 00 FA", "32 2B FF", "32 2C 05", "22 01 46"}) rig.reply(r);
    EXPECT_EQ(rig.form.OptWhite.selected(), 3);
    EXPECT_EQ(rig.form.OptMonsel.selected(), 16);
    EXPECT_EQ(rig.form.Label16.Caption, "5600K");
    EXPECT_EQ(rig.form.Label3.Caption, "-1");
    EXPECT_EQ(rig.form.Label1(2).Caption, "18dB");
    EXPECT_EQ(rig.form.OptGain.selected(), -1);  // the gain decoder never selects a button

    rig.reply("22 03 01");
    EXPECT_EQ(rig.form.Label15.BackColor, kColourRed);
    rig.reply("22 03 00");
    EXPECT_EQ(rig.form.Label15.BackColor, kColourGrey);
    rig.form.CallOn = 1;
    rig.reply("22 03 00");
    EXPECT_EQ(rig.form.Label15.BackColor, kColourRed);
    EXPECT_TRUE(rig.takeQueued().empty());

    rig.shared.cams.CamFclNo(1) = "12";  // a slot outside the tables: the decoder fails...
    rig.shared.CtrlReady = 0;
    EXPECT_THROW(rig.reply("22 01 00"), RuntimeError);
    EXPECT_EQ(rig.shared.CtrlReady, 1);  // ...and the guard is raised all the same
}

}  // namespace
}  // namespace station
