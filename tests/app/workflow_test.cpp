// An operator's day on the sample studio, headless: open the setup file, select cameras and
// scenes, copy, store and clear, read and write pages, save and load again.
#include <gtest/gtest.h>

#include "app/second_press.hpp"
#include "setupfile/setup_text.hpp"
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
    Station& s = station;
};

TEST(Workflow, SelectReloadsQuietly) {
    Studio rig;
    Station& s = rig.s;
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(s.form1.Label12(5).Caption, "PT2");
    EXPECT_EQ(s.form2.List1.listCount(), 5);  // ST1's functions
    s.form1.Option9.click(2);
    EXPECT_TRUE(rig.workingCopyIs(2, 2));  // camera 2 keeps scene 2
    EXPECT_EQ(s.form1.Option7.selected(), 2);
    EXPECT_EQ(s.form1.Option9[1].BackColor, kColourGrey);
    s.form1.Option7.click(3);
    EXPECT_TRUE(rig.workingCopyIs(2, 3));
    EXPECT_EQ(s.form1.Option7[3].BackColor, kColourSelected);

    s.form1.Option9.click(0);  // GROUP: no handshake, whatever the setting
    EXPECT_FALSE(s.link.Timer2.Enabled);
    s.form1.Option9.click(3);
    EXPECT_TRUE(s.link.Timer2.Enabled);
    rig.run(500);
    EXPECT_TRUE(rig.port.writes.empty());
}

TEST(Workflow, StoreClearRecall) {
    Studio rig;
    Station& s = rig.s;
    s.form1.Option9.click(2);
    const int other = val(rig.field(mBar, 2)) == 0 ? 1 : 0;
    s.form1.OptBar.click(other);
    EXPECT_EQ(rig.takeQueued(), Commands{other ? "200801FE" : "200800FE"});

    s.form1.ScnStore.setValue(1);  // store into scene 4
    EXPECT_EQ(s.form1.Option7.selected(), -1);
    s.form1.Option7.click(4);
    EXPECT_EQ(rig.field(mBar, 2, 4), std::to_string(other));
    EXPECT_EQ(s.form1.ScnStore.value(), 0);
    EXPECT_EQ(s.shared.ScnNo(2), 4);

    // CLEAR throws away what was not stored.
    s.form1.OptSht.click(val(rig.field(mSHT, 2)) == 0 ? 1 : 0);
    rig.takeQueued();
    s.form1.Command2.Enabled = true;
    s.scenes.Command2_Click();
    EXPECT_TRUE(rig.workingCopyIs(2, 4));

    s.form1.Option7.click(1);
    EXPECT_TRUE(rig.workingCopyIs(2, 1));
    EXPECT_TRUE(rig.takeQueued().empty());
}

// The title's mark is exactly "SAVE would write other bytes than the file holds"; the
// working copy is in no file and is told apart ("not stored" until STORE, CLEAR or recall).
TEST(Workflow, MarksTellWhatSaveAndStoreWouldKeep) {
    Studio rig;
    Station& s = rig.s;
    const auto stored = [&s] { return s.scenes.workingCopyStored(); };
    EXPECT_FALSE(s.setupFile.modified());
    s.form1.Option9.click(2);  // selecting loads the stored scene: nothing new
    s.form1.Option7.click(3);
    EXPECT_TRUE(s.setupFile.modified());  // the file keeps each camera's scene number
    s.form1.Option7.click(2);
    EXPECT_FALSE(s.setupFile.modified());
    EXPECT_TRUE(stored());

    const int bar = val(rig.field(mBar, 2)) == 0 ? 1 : 0;
    s.form1.OptBar.click(bar);
    EXPECT_FALSE(s.setupFile.modified());
    EXPECT_FALSE(stored());
    EXPECT_TRUE(s.scenes.pressDropsChanges(3));
    EXPECT_FALSE(s.scenes.pressDropsChanges(2));  // the camera shown: nothing reloads
    s.form1.OptBar.click(1 - bar);  // back as stored
    EXPECT_TRUE(stored());

    // STORE into the scene shown: the scene, and so the file to be written, changed.
    s.form1.OptBar.click(bar);
    s.form1.ScnStore.setValue(1);
    s.form1.Option7.click(s.shared.ScnNo(2));
    EXPECT_TRUE(stored());
    EXPECT_TRUE(s.setupFile.modified());

    const auto file = rig.folder.path() / "day.csd";
    rig.dialogs.saveAnswer = file.string();
    s.SAVE_AS_Click();
    EXPECT_EQ(testing::readBytes(file), setupText(s.shared, s.stores));
    EXPECT_FALSE(s.setupFile.modified());

    // A camera's reply fills the working copy: not stored, and no change to the file.
    rig.run(200);
    rig.port.arrive(testing::reply(bar == 1 ? "220800" : "220801"));
    rig.run(200);
    EXPECT_EQ(rig.field(mBar, 2), std::to_string(1 - bar));
    EXPECT_FALSE(stored());
    EXPECT_FALSE(s.setupFile.modified());
    s.form1.Command2.Enabled = true;
    s.scenes.Command2_Click();  // CLEAR
    EXPECT_TRUE(stored());
    s.form1.Option9.click(0);  // GROUP shows its monitor select of none as 16: no change
    EXPECT_TRUE(stored());
    s.form1.Option9.click(2);

    // A plain function value is kept per camera, not per scene: straight into the file.
    s.stores.FuncData(1, 2) += "1";
    EXPECT_TRUE(s.setupFile.modified());
    s.SAVE_Click();  // to the same file, without a dialog
    EXPECT_FALSE(s.setupFile.modified());

    // OPEN: the file's own bytes count. One written elsewhere (LF line ends) would be
    // written differently by SAVE, so it is marked from the start.
    s.form1.OptBar.click(bar);
    rig.open(file);
    EXPECT_FALSE(s.setupFile.modified());
    std::string lf = testing::readBytes(file);
    for (std::size_t at = lf.find("\r\n"); at != std::string::npos; at = lf.find("\r\n", at)) lf.erase(at, 1);
    rig.open(rig.folder.write("lf.csd", lf));
    EXPECT_TRUE(s.setupFile.modified());

    StationRig fresh;  // no file: the settings at start-up count
    fresh.station.form1.OptBar.click(1);
    EXPECT_FALSE(fresh.station.setupFile.modified());
    fresh.station.form1.ScnStore.setValue(1);
    fresh.station.form1.Option7.click(1);
    EXPECT_TRUE(fresh.station.setupFile.modified());
    fresh.dialogs.openAnswer.reset();
    fresh.station.OPEN_Click();  // cancelled, nothing read: still marked
    EXPECT_TRUE(fresh.station.setupFile.modified());
}

// A bare camera key that would drop changes waits for its second press within two seconds.
TEST(Workflow, SecondPressWithinTwoSeconds) {
    SecondPress press;
    EXPECT_TRUE(press.chooses(3, false, 0));
    EXPECT_FALSE(press.chooses(3, true, 1000));
    EXPECT_TRUE(press.chooses(3, true, 3000));  // 2 s after the first
    EXPECT_FALSE(press.chooses(3, true, 4000));
    EXPECT_FALSE(press.chooses(4, true, 4500));  // another key starts again
    EXPECT_FALSE(press.chooses(3, true, 5000));
    EXPECT_FALSE(press.chooses(3, true, 7001));  // too late: a first press again
    EXPECT_TRUE(press.chooses(3, true, 7500));
}

TEST(Workflow, CopySameTypeOnly) {
    Studio rig;
    Station& s = rig.s;
    s.form1.Option9.click(2);
    const auto sceneRows = static_cast<int>(val(s.stores.FuncScnData(0, 0, 0)));
    ASSERT_GT(sceneRows, 0);

    s.form1.CamCopy.setValue(1);
    s.form1.Option9.click(1);  // ST1 onto ST1
    EXPECT_EQ(s.form1.CamCopy.value(), 0);
    EXPECT_EQ(s.shared.ScnNo(1), 1);  // the target keeps its own scene
    for (int k = 1; k <= 4; ++k) {
        for (int f = mBar; f <= mFILTER; ++f) EXPECT_EQ(rig.field(f, 1, k), rig.field(f, 2, k));
        for (int r = 1; r <= sceneRows; ++r) EXPECT_EQ(s.stores.FuncScnData(r, 1, k), s.stores.FuncScnData(r, 2, k));
    }
    EXPECT_EQ(s.stores.FuncData(1, 1), s.stores.FuncData(1, 2));
    EXPECT_TRUE(rig.workingCopyIs(1, 1));

    // Onto a camera of another type: refused, nothing changes.
    const std::string before = rig.field(mWHITE, 3, 1) + rig.field(aMBLK, 3, 2) + s.stores.FuncData(1, 3);
    s.form1.CamCopy.setValue(1);
    s.form1.Option9.click(3);
    EXPECT_EQ(rig.messages.texts(), std::vector<std::string>{"Different the Camera Types"});
    EXPECT_EQ(rig.field(mWHITE, 3, 1) + rig.field(aMBLK, 3, 2) + s.stores.FuncData(1, 3), before);
    EXPECT_EQ(s.link.queue().SendCnt(), 0);
}

TEST(Workflow, PageReadWrite) {
    Studio rig;
    Station& s = rig.s;
    s.pages.READ_Click();
    EXPECT_EQ(rig.takeQueued(),
              (Commands{"2300", "2301", "2302", "2304", "2305", "2308", "230F", "3318", "331A", "3321", "3323",
                        "332B", "332C", "332E", "3339", "2340", "3350", "2340", "2341", "2341", "3351", "3352",
                        "3353", "3354", "2342", "2343", "3355", "2344", "2344"}));
    // The main panel (15 commands: ST1 has monitor and filter), then every function page in
    // list order, each item with a value in item order; the action item is never sent.
    s.pages.SEND_Click();
    Commands sent = rig.takeQueued();
    ASSERT_EQ(sent.size(), 15u + 14u);
    EXPECT_EQ(Commands(sent.begin() + 15, sent.end()),
              (Commands{"204002FC", "30502A00", "204008F3", "204100FE", "204100FD", "30515500", "30521500",
                        "30530200", "30540A00", "204200FE", "204302FC", "30550200", "204400FE", "204400FD"}));
    EXPECT_EQ(s.form2.List1.listIndex(), 0);

    s.form1.Option9.click(6);  // BX4: no monitor, no filter
    s.form1.Option7.click(2);  // recalling a scene shows its page without sending it
    EXPECT_TRUE(rig.takeQueued().empty());
    s.editor.storedValue("FS", "2040FC")->clear();  // an item never set is not sent
    s.pages.SEND_Click();
    sent = rig.takeQueued();
    ASSERT_EQ(sent.size(), 13u + 6u);
    EXPECT_EQ(Commands(sent.begin() + 13, sent.end()),
              (Commands{"305C2A00", "282201FE", "305D0500", "305E0500", "204301FC", "30550100"}));
}

}  // namespace
}  // namespace station
