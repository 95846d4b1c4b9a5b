#include <gtest/gtest.h>

#include "tests/camtype/type_rig.hpp"

namespace station {
namespace {

using testing::crlf;
using testing::TypeRig;

std::string typeFile(const std::string& code, const std::string& note = "") {
    return crlf({"[camera type]", "CODE=" + code, "NOTE=" + note});
}

TEST(TypeList, FilesInNameOrderFillTheListAndTheDialog) {
    TypeRig rig;
    rig.folder.write("b.fcl", crlf({"[camera type]", "CODE=BBBB", "NOTE=first note", "CODE=B22",
                                    "NOTE= Portable, 2 functions ", "[form control]", "CODE=XYZ"}));
    rig.folder.write("A.FCL", typeFile("A11"));
    rig.folder.write("c.fcl", crlf({"[camera\ttype]", "CODE=C33"}));  // the list does not read tabs as blanks
    rig.folder.write("notes.txt", typeFile("TXT"));
    rig.folder.write("d.fcl.bak", typeFile("BAK"));
    std::filesystem::create_directory(rig.folder / "folder.fcl");
    rig.List1.addItem("left over");
    rig.list();

    const TypeTables& t = rig.tables;
    EXPECT_EQ(t.TypeFile(0) + " " + t.TypeFile(1) + " " + t.TypeFile(2) + " " + t.TypeFile(3), "3 A.FCL b.fcl c.fcl");
    // The later line wins, cut to three characters; the note keeps its blanks.
    EXPECT_EQ(t.TypeCode(2) + "|" + t.TypeNote(2) + "|" + t.TypeCode(3), "B22| Portable, 2 functions |");
    EXPECT_EQ(rig.List1.items(), (std::vector<std::string>{"delete", "A11", "B22", ""}));
}

TEST(TypeList, AtMost64FilesAreListedAndAMissingFolderListsNone) {
    TypeRig rig;
    for (int n = 1; n <= 66; ++n) {
        char name[16];
        std::snprintf(name, sizeof name, "t%02d.fcl", n);
        rig.folder.write(name, typeFile("T" + std::to_string(n)));
    }
    rig.list();
    EXPECT_EQ(rig.tables.TypeFile(0) + " " + rig.tables.TypeFile(64), "64 t64.fcl");
    EXPECT_EQ(rig.List1.listCount(), 65);
    rig.types.DefinitionFolder = rig.folder / "nowhere";
    rig.list();
    EXPECT_EQ(rig.tables.TypeFile(0), "0");
    EXPECT_EQ(rig.List1.items(), std::vector<std::string>{"delete"});
}

struct SlotRig : TypeRig {
    SlotRig() {
        folder.write("1x.fcl", typeFile("XXX"));
        folder.write("2y.fcl", typeFile("YYY"));
        folder.write("3z.fcl", typeFile("ZZZ"));
        folder.write("4y.fcl", typeFile("YYY"));  // a second file with code YYY
        list();
    }
    std::vector<std::string> slots() const {
        std::vector<std::string> out;
        for (int k = 1; k <= 8; ++k) out.push_back(shared.cams.CamFclNo(k));
        return out;
    }
};

TEST(TypeSlots, SlotsFollowTheCamerasOrderOfFirstAppearance) {
    SlotRig rig;
    rig.camera(1, "XXX");
    rig.camera(2, "YYY");
    rig.camera(3, "XXX");
    rig.camera(5, "ZZZ");
    rig.types.FclDataSet();
    EXPECT_EQ(rig.slots(), (std::vector<std::string>{"1", "2", "1", "", "3", "", "", ""}));
    EXPECT_EQ(rig.shared.cams.CamTypeNo(2), "4");  // the later of the two YYY files
    const TypeTables& t = rig.tables;
    EXPECT_EQ(t.FclName(0) + " " + t.FclName(1) + " " + t.FclName(2) + " " + t.FclName(3), "3 1x.fcl 4y.fcl 3z.fcl");
    EXPECT_TRUE(rig.messages.shown.empty());

    for (int n = 1; n <= 8; ++n) rig.camera(n, "ZZZ");  // eight cameras of one type share one slot
    rig.types.FclDataSet();
    EXPECT_EQ(t.FclName(0), "1");
    EXPECT_EQ(rig.slots(), std::vector<std::string>(8, "1"));
}

TEST(TypeSlots, AnUnknownTypeIsReportedAndKeepsItsOldSlot) {
    SlotRig rig;
    rig.camera(1, "ZZZ");
    rig.camera(2, "XXX");
    rig.types.FclDataSet();
    ASSERT_EQ(rig.slots()[1], "2");
    rig.camera(2, "QQQ");
    rig.camera(3, "XX");
    rig.types.FclDataSet();
    EXPECT_EQ(rig.messages.texts(), std::vector<std::string>(2, "There is loss file for Camera Contol"));
    EXPECT_EQ(rig.messages.shown[0].icon, Icon::Exclamation);
    EXPECT_EQ(rig.shared.cams.CamTypeNo(2), "");
    EXPECT_EQ(rig.slots()[1], "2");  // stale, as the station always left it
    EXPECT_EQ(rig.tables.FclName(0), "1");

    // A camera without a type has no slot and raises no message.
    rig.messages.shown.clear();
    rig.camera(2, "");
    rig.camera(3, "");
    rig.types.FclDataSet();
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(rig.slots()[1] + rig.shared.cams.CamTypeNo(2), "");
}

TEST(TypeSlots, FclLoadReadsTheFileOfEverySlot) {
    TypeRig rig;
    rig.folder.write("one.fcl", crlf({"[camera type]", "CODE=ONE", "[form control]", "GAIN=2", "[function menu]",
                                      "FS=Paint", "M Knee=20 41 FE"}));
    rig.folder.write("two.fcl", crlf({"[camera type]", "CODE=TWO", "[form control]", "GAIN=3", "[function menu]",
                                      "F=Lens", "A Zoom=30 5D", "F=Again", "M Knee=20 41 FE"}));
    rig.list();
    rig.camera(1, "TWO");
    rig.camera(2, "ONE");
    rig.camera(3, "TWO");
    rig.types.FclDataSet();
    rig.types.FclLoad();
    EXPECT_EQ(rig.tables.FormGain(1) * 10 + rig.tables.FormGain(2), 32);
    EXPECT_EQ(rig.tables.FuncList(1, 1, 1) + rig.tables.FuncList(2, 1, 1), "LensPaint");
    EXPECT_EQ(rig.stores.FuncData(0, 0) + " " + rig.stores.FuncScnData(1, 0, 0), "2 2041FE");
    EXPECT_TRUE(rig.messages.shown.empty());

    // A file that went missing since the list was made is passed over.
    std::filesystem::remove(rig.folder / "two.fcl");
    rig.tables.FormGain(1) = 0;
    rig.types.FclLoad();
    EXPECT_EQ(rig.tables.FormGain(1), 0);
    EXPECT_EQ(rig.tables.FormGain(2), 2);
}

}  // namespace
}  // namespace station
