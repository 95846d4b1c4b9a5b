// An operator's day on the sample studio, headless: open the setup file, select cameras and
// scenes, copy, store and clear, read and write pages, save and load again.
#include <gtest/gtest.h>

#include "tests/support/station_rig.hpp"

namespace station {
namespace {

using testing::Commands;
using testing::StationRig;

struct Studio : StationRig {
    Studio() {
        open(testing::kStudio);
        run(1000);  // both watches idle
    }
    // The shutter speed of the selected camera (a function kept per camera, not per scene).
    void shutter(const std::string& speed) {
        choose(form2.List1, "Shutter");
        choose(form2.List2, "Shutter Speed");
        choose(form2.List3, speed);
    }
};

TEST(Workflow, SelectStoreClearRecall) {
    Studio rig;
    Form1& f = rig.form1;
    EXPECT_TRUE(rig.messages.shown.empty());
    f.Option9.click(2);
    EXPECT_TRUE(rig.workingCopyIs(2, 2));  // camera 2 keeps scene 2
    EXPECT_EQ(f.Option7.selected(), 2);
    EXPECT_EQ(f.Option9[1].BackColor, kColourGrey);
    f.Option7.click(3);
    EXPECT_TRUE(rig.workingCopyIs(2, 3));
    EXPECT_EQ(f.Option7[3].BackColor, kColourSelected);
    rig.run(500);
    EXPECT_TRUE(rig.port.writes.empty());

    const int other = val(rig.field(mBar, 2)) == 0 ? 1 : 0;
    f.OptBar.click(other);
    EXPECT_EQ(rig.takeQueued(), Commands{other ? "200801FE" : "200800FE"});
    f.ScnStore.setValue(1);  // store into scene 4
    EXPECT_EQ(f.Option7.selected(), -1);
    f.Option7.click(4);
    EXPECT_EQ(rig.field(mBar, 2, 4), std::to_string(other));
    EXPECT_EQ(f.ScnStore.value(), 0);
    EXPECT_EQ(rig.readout.sceneOf(2), 4);

    // CLEAR throws away what was not stored.
    f.OptSht.click(val(rig.field(mSHT, 2)) == 0 ? 1 : 0);
    rig.takeQueued();
    f.Command2.click();
    EXPECT_TRUE(rig.workingCopyIs(2, 4));
    f.Option7.click(1);
    EXPECT_TRUE(rig.workingCopyIs(2, 1));
    EXPECT_TRUE(rig.takeQueued().empty());
}

// The title's mark is exactly "SAVE would write other bytes than the file holds"; the
// working copy is in no file and is told apart ("not stored" until STORE, CLEAR or recall).
TEST(Workflow, MarksTellWhatSaveAndStoreWouldKeep) {
    Studio rig;
    const StationReadout& r = rig.readout;
    Form1& f = rig.form1;
    EXPECT_FALSE(r.modified());
    f.Option9.click(2);  // selecting loads the stored scene: nothing new
    f.Option7.click(3);
    EXPECT_TRUE(r.modified());  // the file keeps each camera's scene number
    f.Option7.click(2);
    EXPECT_FALSE(r.modified());
    EXPECT_TRUE(r.workingCopyStored());

    const int bar = val(rig.field(mBar, 2)) == 0 ? 1 : 0;
    f.OptBar.click(bar);
    EXPECT_FALSE(r.modified());
    EXPECT_FALSE(r.workingCopyStored());
    EXPECT_TRUE(r.scenePressDropsChanges(3));
    EXPECT_FALSE(r.scenePressDropsChanges(2));  // the camera shown: nothing reloads
    f.OptBar.click(1 - bar);  // back as stored
    EXPECT_TRUE(r.workingCopyStored());

    // STORE into the scene shown: the scene, and so the file to be written, changed.
    f.OptBar.click(bar);
    f.ScnStore.setValue(1);
    f.Option7.click(r.sceneOf(2));
    EXPECT_TRUE(r.workingCopyStored());
    EXPECT_TRUE(r.modified());

    const auto file = rig.folder.path() / "day.csd";
    rig.dialogs.saveAnswer = file.string();
    rig.station.SAVE_AS_Click();
    std::string expected = testing::readBytes(testing::kStudio);
    expected.replace(expected.find("mBar=0,0,0,1,0,0"), 16, "mBar=0,0,0,1,0," + std::to_string(bar));
    EXPECT_EQ(testing::readBytes(file), expected);
    EXPECT_FALSE(r.modified());

    // A camera's reply fills the working copy: not stored, and no change to the file.
    rig.run(200);
    rig.port.arrive(testing::reply(bar == 1 ? "220800" : "220801"));
    rig.run(200);
    EXPECT_EQ(rig.field(mBar, 2), std::to_string(1 - bar));
    EXPECT_FALSE(r.workingCopyStored());
    EXPECT_FALSE(r.modified());
    f.Command2.click();  // CLEAR
    EXPECT_TRUE(r.workingCopyStored());
    f.Option9.click(0);  // GROUP shows its monitor select of none as 16: no change
    EXPECT_TRUE(r.workingCopyStored());
    f.Option9.click(2);

    // A plain function value is kept per camera, not per scene: straight into the file.
    rig.shutter("1/250");
    EXPECT_TRUE(r.modified());
    rig.station.SAVE_Click();  // to the same file, without a dialog
    EXPECT_FALSE(r.modified());

    // OPEN: the file's own bytes count. One written elsewhere (LF line ends) would be
    // written differently by SAVE, so it is marked from the start.
    f.OptBar.click(bar);
    rig.open(file);
    EXPECT_FALSE(r.modified());
    std::string lf = testing::readBytes(file);
    for (std::size_t at = lf.find("\r\n"); at != std::string::npos; at = lf.find("\r\n", at)) lf.erase(at, 1);
    rig.open(rig.folder.write("lf.csd", lf));
    EXPECT_TRUE(r.modified());

    StationRig fresh;  // no file: the settings at start-up count
    fresh.form1.OptBar.click(1);
    EXPECT_FALSE(fresh.readout.modified());
    fresh.form1.ScnStore.setValue(1);
    fresh.form1.Option7.click(1);
    EXPECT_TRUE(fresh.readout.modified());
    fresh.dialogs.openAnswer.reset();
    fresh.station.OPEN_Click();  // cancelled, nothing read: still marked
    EXPECT_TRUE(fresh.readout.modified());
}

TEST(Workflow, CopySameTypeOnly) {
    Studio rig;
    Form1& f = rig.form1;
    f.Option9.click(2);
    rig.shutter("1/250");
    rig.takeQueued();
    f.CamCopy.setValue(1);
    f.Option9.click(1);  // ST1 onto ST1
    EXPECT_EQ(f.CamCopy.value(), 0);
    EXPECT_EQ(rig.readout.sceneOf(1), 1);  // the target keeps its own scene
    for (int k = 1; k <= 4; ++k)
        for (int m = mBar; m <= mFILTER; ++m) EXPECT_EQ(rig.field(m, 1, k), rig.field(m, 2, k));
    EXPECT_TRUE(rig.workingCopyIs(1, 1));
    f.Option7.click(2);  // camera 2 works in scene 2: its functions, and the plain ones, came along
    EXPECT_EQ(rig.readout.functionSettings(1), rig.readout.functionSettings(2));

    // Onto a camera of another type: refused, nothing changes.
    const std::string before = rig.field(mWHITE, 3, 1) + rig.field(aMBLK, 3, 2);
    const auto functions = rig.readout.functionSettings(3);
    f.CamCopy.setValue(1);
    f.Option9.click(3);
    EXPECT_EQ(rig.messages.texts(), std::vector<std::string>{"Different the Camera Types"});
    EXPECT_EQ(rig.field(mWHITE, 3, 1) + rig.field(aMBLK, 3, 2), before);
    EXPECT_EQ(rig.readout.functionSettings(3), functions);
    EXPECT_EQ(rig.readout.queued(), 0);
}

}  // namespace
}  // namespace station
