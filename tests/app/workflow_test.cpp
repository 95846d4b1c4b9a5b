// An operator's day on the sample studio, headless: open the setup file, select cameras and
// scenes, copy, store and clear, read and write pages, save and load again.
#include <gtest/gtest.h>

#include "tests/app/station_rig.hpp"

namespace station {
namespace {

using testing::Commands;
using testing::StationRig;

constexpr const char* kStudio = STATION_SAMPLES_DIR "/studio.csd";

struct Studio : StationRig {
    Studio() {
        open(kStudio);
        run(1000);  // both watches idle
    }
    Station& s = station;

    // A correctly summed reply frame for the given data bytes.
    static Bytes reply(std::initializer_list<int> data) {
        Bytes f{0x02, static_cast<std::uint8_t>(data.size())};
        int sum = static_cast<int>(data.size());
        for (int d : data) {
            f.push_back(static_cast<std::uint8_t>(d));
            sum += d;
        }
        const int chk = ~sum & 0xFFFF;
        f.push_back(static_cast<std::uint8_t>(chk & 0xFF));
        f.push_back(static_cast<std::uint8_t>(chk >> 8));
        return f;
    }

    bool workingCopyIs(int camera, int scene) {
        for (int f = mBar; f <= mFILTER; ++f)
            if (field(f, camera, 0) != field(f, camera, scene)) return false;
        return true;
    }
};

TEST(Workflow, OpeningTheStudioFileAppliesItEverywhereWithoutSending) {
    Studio rig;
    Station& s = rig.s;
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(s.shared.IDMode, 1);
    EXPECT_TRUE(s.form1.IDcont.Checked);
    EXPECT_EQ(s.shared.cams.CamType(3), "HD3");
    EXPECT_EQ(s.shared.cams.CamFclNo(3), "2");
    EXPECT_EQ(s.form1.Label12(5).Caption, "PT2");
    EXPECT_EQ(s.form1.Label9(6).Caption, "6");
    EXPECT_EQ(s.form4.Option1[1].Caption, "ST1");
    EXPECT_EQ(s.form4.Text1(4).text(), "4");
    EXPECT_EQ(s.shared.ScnNo(5), 3);
    EXPECT_TRUE(rig.workingCopyIs(1, 1));
    EXPECT_EQ(s.form1.OptWhite.selected(), static_cast<int>(val(rig.field(mWHITE, 1))));
    EXPECT_EQ(s.form2.List1.listCount(), 5);  // ST1's functions
    EXPECT_EQ(s.link.queue().SendCnt(), 0);
    rig.run(500);
    EXPECT_TRUE(rig.port.writes.empty());
}

TEST(Workflow, SelectingCamerasAndScenesReloadsThePanelAndNeverSends) {
    Studio rig;
    Station& s = rig.s;
    s.form1.Option9.click(2);
    EXPECT_EQ(s.shared.CamNo, 2);
    EXPECT_TRUE(rig.workingCopyIs(2, 2));  // camera 2 keeps scene 2
    EXPECT_EQ(s.form1.Option7.selected(), 2);
    EXPECT_EQ(s.form1.Option9[2].BackColor, kColourSelected);
    EXPECT_EQ(s.form1.Option9[1].BackColor, kColourGrey);
    EXPECT_EQ(s.form1.Option7[2].BackColor, kColourSelected);

    s.form1.Option7.click(3);
    EXPECT_EQ(s.shared.ScnNo(2), 3);
    EXPECT_TRUE(rig.workingCopyIs(2, 3));
    EXPECT_EQ(s.form1.Option7[3].BackColor, kColourSelected);
    EXPECT_EQ(s.form1.Option7[2].BackColor, kColourGrey);

    s.form1.Option9.click(0);  // GROUP: no handshake, whatever the setting
    EXPECT_FALSE(s.link.Timer2.Enabled);
    EXPECT_EQ(s.shared.AckMode, 0);
    s.form1.Option9.click(3);
    EXPECT_TRUE(s.link.Timer2.Enabled);
    EXPECT_EQ(s.link.queue().SendCnt(), 0);
}

TEST(Workflow, StoreClearAndRecallScenes) {
    Studio rig;
    Station& s = rig.s;
    s.form1.Option9.click(2);
    const int other = val(rig.field(mBar, 2)) == 0 ? 1 : 0;
    s.form1.OptBar.click(other);
    EXPECT_EQ(rig.takeQueued(), Commands{other ? "200801FE" : "200800FE"});

    // Store the working copy into scene 4.
    s.form1.ScnStore.setValue(1);
    EXPECT_EQ(s.form1.Option7.selected(), -1);
    s.form1.Option7.click(4);
    EXPECT_EQ(rig.field(mBar, 2, 4), std::to_string(other));
    EXPECT_EQ(s.form1.ScnStore.value(), 0);
    EXPECT_EQ(s.shared.ScnNo(2), 4);
    EXPECT_EQ(s.form1.Option7.selected(), 4);

    // Storing into the scene already selected works too.
    s.form1.OptDtl.click(val(rig.field(mDTL, 2)) == 0 ? 1 : 0);
    const std::string dtl = rig.field(mDTL, 2);
    s.form1.ScnStore.setValue(1);
    s.form1.Option7.click(4);
    EXPECT_EQ(rig.field(mDTL, 2, 4), dtl);

    // CLEAR throws away what was not stored.
    s.form1.OptSht.click(val(rig.field(mSHT, 2)) == 0 ? 1 : 0);
    rig.takeQueued();
    s.form1.Command2.Enabled = true;
    s.scenes.Command2_Click();
    EXPECT_TRUE(rig.workingCopyIs(2, 4));
    EXPECT_EQ(s.form1.OptSht.selected(), static_cast<int>(val(rig.field(mSHT, 2, 4))));

    // Recalling another scene and coming back.
    s.form1.Option7.click(1);
    EXPECT_TRUE(rig.workingCopyIs(2, 1));
    s.form1.Option7.click(4);
    EXPECT_EQ(rig.field(mBar, 2), std::to_string(other));
    EXPECT_TRUE(rig.takeQueued().empty());
}

TEST(Workflow, CopyingBetweenCamerasOfTheSameTypeOnly) {
    Studio rig;
    Station& s = rig.s;
    s.form1.Option9.click(2);
    const auto sceneRows = static_cast<int>(val(s.stores.FuncScnData(0, 0, 0)));
    ASSERT_GT(sceneRows, 0);

    s.form1.CamCopy.setValue(1);
    s.form1.Option9.click(1);  // ST1 onto ST1
    EXPECT_EQ(s.form1.CamCopy.value(), 0);
    EXPECT_EQ(s.shared.CamNo, 1);
    EXPECT_EQ(s.shared.ScnNo(1), 1);  // the target keeps its own scene
    for (int k = 1; k <= 4; ++k) {
        for (int f = mBar; f <= mFILTER; ++f) EXPECT_EQ(rig.field(f, 1, k), rig.field(f, 2, k));
        for (int r = 1; r <= sceneRows; ++r) EXPECT_EQ(s.stores.FuncScnData(r, 1, k), s.stores.FuncScnData(r, 2, k));
    }
    EXPECT_EQ(s.stores.FuncData(1, 1), s.stores.FuncData(1, 2));
    EXPECT_TRUE(rig.workingCopyIs(1, 1));
    EXPECT_EQ(s.form1.Option9[1].BackColor, kColourSelected);

    // Onto a camera of another type: refused, nothing changes.
    const std::string before = rig.field(mWHITE, 3, 1) + rig.field(aMBLK, 3, 2) + s.stores.FuncData(1, 3);
    s.form1.CamCopy.setValue(1);
    s.form1.Option9.click(3);
    EXPECT_EQ(rig.messages.texts(), std::vector<std::string>{"Different the Camera Types"});
    EXPECT_EQ(rig.field(mWHITE, 3, 1) + rig.field(aMBLK, 3, 2) + s.stores.FuncData(1, 3), before);
    EXPECT_EQ(s.shared.CamNo, 1);
    EXPECT_EQ(s.form1.CamCopy.value(), 0);
    EXPECT_EQ(s.link.queue().SendCnt(), 0);
}

TEST(Workflow, ReadAPageFromTheCameraAndFollowItsReplies) {
    Studio rig;
    Station& s = rig.s;
    s.pages.READ_Click();
    EXPECT_EQ(rig.takeQueued(),
              (Commands{"2300", "2301", "2302", "2304", "2305", "2308", "230F", "3318", "331A", "3321", "3323",
                        "332B", "332C", "332E", "3339", "2340", "3350", "2340", "2341", "2341", "3351", "3352",
                        "3353", "3354", "2342", "2343", "3355", "2344", "2344"}));

    // The camera answers; the panel follows and nothing goes back but the ACKs.
    Bytes answers;
    for (const Bytes& f : {Studio::reply({0x22, 0x04, 0x09}), Studio::reply({0x22, 0x08, 0x01}),
                           Studio::reply({0x32, 0x2B, 0xF0}), Studio::reply({0x32, 0x39, 0x21}),
                           Studio::reply({0x22, 0x00, 0x03})})
        answers.insert(answers.end(), f.begin(), f.end());
    rig.port.arrive(answers);
    rig.run(40);
    EXPECT_EQ(rig.field(mWHITE, 1), "2");
    EXPECT_EQ(rig.field(mIRIS, 1), "1");
    EXPECT_EQ(s.form1.OptWhite.selected(), 2);
    EXPECT_EQ(rig.field(mBar, 1), "1");
    EXPECT_EQ(rig.field(aMBLK, 1), "-16");
    EXPECT_EQ(s.form1.Label3.Caption, "-16");
    EXPECT_NE(rig.field(aIRIS, 1), "33");  // iris mode 1 takes its level from 2E only
    EXPECT_EQ(s.form1.Label16.Caption, "5600K+1/64ND");
    EXPECT_EQ(rig.port.takeWritten(), bytesOf({0x06, 0x06, 0x06, 0x06, 0x06}));
    EXPECT_EQ(s.link.queue().SendCnt(), 0);
}

TEST(Workflow, WriteAPageToTheCamera) {
    Studio rig;
    Station& s = rig.s;
    s.pages.SEND_Click();
    const Commands sent = rig.takeQueued();
    ASSERT_EQ(sent.size(), 15u);  // ST1 has monitor and filter, and the editor sends no pages yet
    EXPECT_EQ(sent[0].substr(0, 4), "2008");
    EXPECT_EQ(sent[5].substr(0, 4), "200F");
    EXPECT_EQ(sent[14].substr(0, 4), "2000");
    EXPECT_EQ(s.form2.List1.listIndex(), 0);

    s.form1.Option9.click(6);  // BX4: no monitor, no filter
    s.pages.SEND_Click();
    EXPECT_EQ(rig.takeQueued().size(), 13u);
    s.pages.Command3_Click();  // the editor's page: nothing until the editor sends pages
    EXPECT_TRUE(rig.takeQueued().empty());
}

TEST(Workflow, SaveAndLoadAgainGivesTheSameSetup) {
    Studio rig;
    Station& s = rig.s;
    s.form1.Option9.click(2);
    s.form1.OptWhite.click(1);
    s.form1.ScnStore.setValue(1);
    s.form1.Option7.click(3);
    rig.takeQueued();

    const auto saved = rig.folder / "day.csd";
    rig.dialogs.saveAnswer = saved.string();
    s.SAVE_AS_Click();
    EXPECT_EQ(s.setupFile.FileName, saved.string());
    EXPECT_TRUE(rig.messages.shown.empty());

    StationRig again;
    again.open(saved);
    Station& t = again.station;
    EXPECT_EQ(t.shared.AckMode, s.shared.AckMode);
    EXPECT_EQ(t.shared.IDMode, s.shared.IDMode);
    for (int camera = 1; camera <= 8; ++camera) {
        EXPECT_EQ(t.shared.ScnNo(camera), s.shared.ScnNo(camera));
        EXPECT_EQ(t.shared.cams.CamType(camera), s.shared.cams.CamType(camera));
        EXPECT_EQ(t.shared.cams.CamID(camera), s.shared.cams.CamID(camera));
        for (int scene = 1; scene <= 4; ++scene)
            for (int f = mBar; f <= mFILTER; ++f)
                EXPECT_EQ(again.field(f, camera, scene), rig.field(f, camera, scene));
    }
    EXPECT_EQ(t.stores.MainScnData(mWHITE, 2, 3), "1");
    EXPECT_EQ(t.stores.FuncScnData(0, 0, 0), s.stores.FuncScnData(0, 0, 0));
    EXPECT_EQ(t.stores.FuncData(0, 0), s.stores.FuncData(0, 0));
    for (int r = 1; r <= static_cast<int>(val(s.stores.FuncData(0, 0))); ++r)
        for (int camera = 0; camera <= 8; ++camera) EXPECT_EQ(t.stores.FuncData(r, camera), s.stores.FuncData(r, camera));
    EXPECT_TRUE(again.messages.shown.empty());
}

}  // namespace
}  // namespace station
