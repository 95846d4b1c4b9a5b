// The camera set dialog: types and IDs of the eight camera positions.
#include <gtest/gtest.h>

#include "tests/app/station_rig.hpp"

namespace station {
namespace {

TEST(CameraSet, ChoosingTypesAndIdsAndConfirmingLoadsTheirDefinitions) {
    testing::StationRig rig;
    Station& s = rig.station;
    const auto choose = [&](const std::string& type) {
        for (int i = 0; i < s.form4.List1.listCount(); ++i)
            if (s.form4.List1.list(i) == type) s.form4.List1.setListIndex(i);
    };
    s.Camera_ID_Click();
    EXPECT_TRUE(s.form4.form.Visible);
    choose("HD3");  // before any camera: only the note
    EXPECT_FALSE(s.form4.Label5.Caption.empty());
    for (int camera = 1; camera <= 8; ++camera) EXPECT_EQ(s.shared.cams.CamType(camera), "");

    s.form4.Option1.click(2);
    choose("PT2");
    EXPECT_EQ(s.shared.cams.CamType(2) + s.form4.Option1[2].Caption + s.form1.Label12(2).Caption, "PT2PT2PT2");
    s.form4.Text1(2).setText("07");
    EXPECT_EQ(s.shared.cams.CamID(2), "07");  // at once, before any confirmation
    EXPECT_EQ(s.form1.Label9(2).Caption, "07");
    s.form4.Command1.Enabled = true;
    s.cameraSet.Command1_Click();
    EXPECT_FALSE(s.form4.form.Visible);
    EXPECT_EQ(s.shared.cams.CamFclNo(2), "1");
    EXPECT_EQ(s.types.FormFilter(1), 2);
    EXPECT_EQ(s.shared.CtrlReady, 1);

    // "delete" empties the position; after confirming it has no slot and no message.
    s.form4.Option1.click(2);
    choose("delete");
    EXPECT_EQ(s.shared.cams.CamType(2) + s.form4.Label5.Caption + s.shared.cams.CamID(2), "07");
    s.cameraSet.Command1_Click();
    EXPECT_EQ(s.shared.cams.CamFclNo(2), "");
    EXPECT_EQ(s.types.FclName(0), "0");
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(s.link.queue().SendCnt(), 0);
}

}  // namespace
}  // namespace station
