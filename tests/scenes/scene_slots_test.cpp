// Scene slots of the selected camera, the GROUP position's share of them, and the refresh.
#include <gtest/gtest.h>

#include "tests/app/station_rig.hpp"

namespace station {
namespace {

using testing::StationRig;

TEST(SceneSlots, GroupScenesHoldMainSettingsOnlyAndEmptyCountsCopyNothing) {
    StationRig rig;
    Station& s = rig.station;
    s.stores.FuncScnData(0, 0, 0) = "2";
    s.stores.FuncScnData(1, 0, 3) = "05";
    rig.field(mBar, 0, 3) = "1";
    s.form1.Option9.click(0);
    s.scenes.ScnDataChange(0, 3);
    EXPECT_EQ(rig.field(mBar, 0), "1");
    EXPECT_EQ(s.stores.FuncScnData(1, 0, 0), "");
    s.form1.Option9.click(1);
    s.stores.FuncScnData(1, 1, 2) = "07";
    s.scenes.ScnDataChange(0, 2);
    EXPECT_EQ(s.stores.FuncScnData(1, 1, 0), "07");

    rig.field(mBar, 1, 2) = "1";
    for (const char* count : {"0", ""}) {
        s.stores.MainKey(0) = count;
        s.scenes.ScnDataChange(0, 2);
        EXPECT_EQ(rig.field(mBar, 1), "") << '"' << count << '"';
    }
}

TEST(SceneSlots, UntickingStoreReloadsTheSceneAndTheOtherButtonsSendNothing) {
    StationRig rig;
    Station& s = rig.station;
    rig.field(mBar, 1, 1) = "1";
    s.form1.ScnStore.setValue(1);
    EXPECT_EQ(s.form1.Option7.selected(), -1);
    s.form1.ScnStore.setValue(0);
    EXPECT_EQ(s.form1.Option7.selected(), 1);
    EXPECT_EQ(rig.field(mBar, 1), "1");
    rig.field(mBar, 1) = "0";
    s.scenes.Command1_Click();
    s.scenes.Command6_Click();
    EXPECT_EQ(rig.field(mBar, 1), "0");
    EXPECT_FALSE(s.form2.form.Visible);
    s.scenes.Command5_Click();
    EXPECT_TRUE(s.form2.form.Visible);
    EXPECT_EQ(s.link.queue().SendCnt(), 0);
}

TEST(InitSet, RefreshesEveryWindowWithoutSending) {
    StationRig rig;
    Station& s = rig.station;
    s.shared.cams.CamType(2) = "HD3";
    s.shared.cams.CamID(2) = "22";
    s.shared.AckMode = 1;
    s.shared.IDMode = 1;
    s.shared.ScnNo(1) = 4;
    rig.field(mDTL, 1, 4) = "1";
    rig.field(mMONSEL, 1, 4) = "3";
    s.InitSet();
    EXPECT_EQ(s.form1.Label12(2).Caption + s.form1.Label9(2).Caption, "HD322");
    EXPECT_EQ(s.form4.Option1[2].Caption + s.form4.Text1(2).text(), "HD322");
    EXPECT_TRUE(s.form1.ACK(1).Checked);
    EXPECT_FALSE(s.form1.ACK(0).Checked);
    EXPECT_TRUE(s.form1.IDcont.Checked);
    EXPECT_FALSE(s.link.Timer2.Enabled);
    EXPECT_EQ(s.form1.Option7.selected(), 4);
    EXPECT_EQ(s.form1.OptDtl.selected(), 1);
    EXPECT_EQ(s.form1.OptMonsel.selected(), 3);
    EXPECT_EQ(s.shared.CtrlReady, 1);
    EXPECT_EQ(s.link.queue().SendCnt(), 0);
}

}  // namespace
}  // namespace station
