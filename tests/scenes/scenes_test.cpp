// Scenes, page reads and the camera set dialog on a started station.
#include <gtest/gtest.h>

#include "common/runtime_error.hpp"
#include "tests/support/station_rig.hpp"

namespace station {
namespace {

using testing::Commands;
using testing::StationRig;

struct PageRig : StationRig {
    PageRig() { station.shared.cams.CamFclNo(1) = "1"; }
    void item(int function, int j, const char* kind, const char* code) {
        TypeTables& t = station.types;
        t.ItemList(1, function, j) = kind;
        t.ItemList(1, function, j + kItemCodeCell) = code;
    }
    Commands read() {
        station.pages.Command12_Click();
        return takeQueued();
    }
};

TEST(PageRead, FixedBySwitches) {
    PageRig rig;
    TypeTables& t = rig.station.types;
    t.FormGain(1) = 3;
    EXPECT_EQ(rig.read(), (Commands{"2B12", "2B13", "2302", "2304", "2305", "2308", "3318", "331A", "3321", "3323",
                                    "332B", "332C", "332E", "3339"}));
    t.FormFilter(1) = 2;
    t.FormMonitor(1) = 1;
    t.FormGain(1) = 2;
    const Commands all = rig.read();
    ASSERT_EQ(all.size(), 17u);
    EXPECT_EQ(Commands(all.begin(), all.begin() + 4), (Commands{"2300", "2B12", "2B06", "2B07"}));
    EXPECT_EQ(all[8], "230F");
    t.FormGain(1) = 1;
    const Commands family1 = rig.read();
    EXPECT_EQ(Commands(family1.begin() + 1, family1.begin() + 4), (Commands{"2301", "2B06", "2B07"}));
    t.FormGain(1) = 9;  // an unknown gain family asks for no gain at all
    EXPECT_EQ(rig.read().size(), 14u);
}

TEST(PageRead, ItemsByKind) {
    PageRig rig;
    TypeTables& t = rig.station.types;
    t.FuncList(1, 0, 0) = "2";
    t.ItemList(1, 1, 0) = "3";
    rig.item(1, 1, "M", "204AFE");
    rig.item(1, 2, "A", "305B");
    rig.item(1, 3, "T", "40");
    t.ItemList(1, 2, 0) = "2";
    rig.item(2, 1, "S", "305C");
    // The request code is written without a leading zero: "D" + "10" goes out as D1 0.
    rig.item(2, 2, "M", "0A10FE");
    EXPECT_EQ(PageTransfer::requestCode("0A10FE"), "D");
    const Commands r = rig.read();
    EXPECT_EQ(Commands(r.begin() + 13, r.end()), (Commands{"234A", "335B", "335C", "D100"}));
}

TEST(CameraSet, TypesIdsAndConfirm) {
    testing::StationRig rig;
    Station& s = rig.station;
    const auto choose = [&](const std::string& type) {
        for (int i = 0; i < s.form4.List1.listCount(); ++i)
            if (s.form4.List1.list(i) == type) s.form4.List1.setListIndex(i);
    };
    s.Camera_ID_Click();
    s.form4.Option1.click(2);
    choose("PT2");
    EXPECT_EQ(s.shared.cams.CamType(2) + s.form4.Option1[2].Caption + s.form1.Label12(2).Caption, "PT2PT2PT2");
    s.form4.Text1(2).setText("07");
    EXPECT_EQ(s.form1.Label9(2).Caption, "07");  // at once, before any confirmation
    s.form4.Command1.Enabled = true;
    s.cameraSet.Command1_Click();
    EXPECT_EQ(s.shared.cams.CamFclNo(2), "1");
    EXPECT_EQ(s.types.FormFilter(1), 2);
    EXPECT_EQ(s.shared.CtrlReady, 1);

    // "delete" empties the position; after confirming it has no slot and no message.
    s.form4.Option1.click(2);
    choose("delete");
    EXPECT_EQ(s.shared.cams.CamType(2) + s.form4.Label5.Caption + s.shared.cams.CamID(2), "07");
    s.cameraSet.Command1_Click();
    EXPECT_EQ(s.shared.cams.CamFclNo(2), "");
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(s.link.queue().SendCnt(), 0);
}

}  // namespace
}  // namespace station
