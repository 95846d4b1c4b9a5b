// Page reads and writes of the sample studio's camera types, and the camera set window.
#include <gtest/gtest.h>

#include "tests/support/station_rig.hpp"

namespace station {
namespace {

using testing::Commands;

struct Studio : testing::StudioRig {
    Commands read(int camera) {
        form1.Option9.click(camera);
        form1.Command12.click();  // "Camera to PC"
        return takeQueued();
    }
};

TEST(Pages, ReadAndWriteByTypeGainFamilyAndItem) {
    Studio rig;
    rig.form1.Command12.click();  // "Camera to PC"
    EXPECT_EQ(rig.takeQueued(),
              (Commands{"2300", "2301", "2302", "2304", "2305", "2308", "230F", "3318", "331A", "3321", "3323",
                        "332B", "332C", "332E", "3339", "2340", "3350", "2340", "2341", "2341", "3351", "3352",
                        "3353", "3354", "2342", "2343", "3355", "2344", "2344"}));
    // The main panel (15 commands: ST1 has monitor and filter), then every function page in
    // list order, each item with a value in item order; the action item is never sent.
    rig.form1.Command13.click();  // "PC to Camera"
    Commands sent = rig.takeQueued();
    ASSERT_EQ(sent.size(), 15u + 14u);
    EXPECT_EQ(Commands(sent.begin() + 15, sent.end()),
              (Commands{"204002FC", "30502A00", "204008F3", "204100FE", "204100FD", "30515500", "30521500",
                        "30530200", "30540A00", "204200FE", "204302FC", "30550200", "204400FE", "204400FD"}));
    EXPECT_EQ(rig.form2.List1.listIndex(), 0);

    rig.form1.Option9.click(6);  // BX4: no monitor, no filter
    rig.form1.Option7.click(2);  // recalling a scene shows its page without sending it
    EXPECT_TRUE(rig.takeQueued().empty());
    rig.form1.Command12.click();
    sent = rig.takeQueued();
    EXPECT_EQ(Commands(sent.begin() + 15, sent.end()), (Commands{"2340", "335C", "2B22", "335D", "335E", "2343", "3355"}));
    rig.form1.Command13.click();
    sent = rig.takeQueued();
    ASSERT_EQ(sent.size(), 13u + 7u);
    EXPECT_EQ(Commands(sent.begin() + 13, sent.end()),
              (Commands{"204002FC", "305C2A00", "282201FE", "305D0500", "305E0500", "204301FC", "30550100"}));

    // Which gain registers a page read asks for depends on the type's gain family.
    const Commands hd3 = rig.read(3);  // family 3: the steps' values in one extended register
    EXPECT_EQ(Commands(hd3.begin(), hd3.begin() + 4), (Commands{"2300", "2B12", "2B13", "2302"}));
    EXPECT_EQ(hd3.size(), 30u);
    const Commands pt2 = rig.read(5);  // family 1: the step, then MID and HIGH apart
    EXPECT_EQ(Commands(pt2.begin(), pt2.begin() + 5), (Commands{"2300", "2301", "2B06", "2B07", "2302"}));
    // A request code is written without a leading zero: "D" + "10" goes out as D1 0.
    EXPECT_EQ(PageTransfer::requestCode("0A10FE"), "D");
}

TEST(CameraSet, TypesIdsAndConfirm) {
    testing::StationRig rig;
    Form4& f = rig.form4;
    rig.station.Camera_ID_Click();
    f.Option1.click(2);
    rig.choose(f.List1, "PT2");
    EXPECT_EQ(rig.readout.cameraType(2) + f.Option1[2].Caption + rig.form1.Label12(2).Caption, "PT2PT2PT2");
    f.Text1(2).setText("07");
    EXPECT_EQ(rig.form1.Label9(2).Caption, "07");  // at once, before any confirmation
    f.Command1.click();
    rig.form1.Option9.click(2);
    EXPECT_TRUE(rig.readout.panelLive());
    EXPECT_EQ(rig.readout.functionTitles().size(), 4u);  // PT2's
    EXPECT_TRUE(rig.readout.offered().filter);

    // "delete" empties the position; after confirming it has no type and no message.
    f.Option1.click(2);
    rig.choose(f.List1, "delete");
    EXPECT_EQ(rig.readout.cameraType(2) + f.Label5.Caption + rig.readout.cameraId(2), "07");
    f.Command1.click();
    rig.form1.Option9.click(1);
    rig.form1.Option9.click(2);
    EXPECT_TRUE(rig.readout.functionTitles().empty());
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(rig.readout.queued(), 0);
}

}  // namespace
}  // namespace station
