// The type list, load slots, item rows and the definition folder.
#include <gtest/gtest.h>

#include "camtype/definition_folder.hpp"
#include "camtype/item_rows.hpp"
#include "tests/camtype/type_rig.hpp"
#include "tests/support/fake_messages.hpp"
#include "tests/support/temp_folder.hpp"

namespace station {
namespace {

using testing::crlf;
using testing::TypeRig;

std::string typeFile(const std::string& code, const std::string& note = "") {
    return crlf({"[camera type]", "CODE=" + code, "NOTE=" + note});
}

TEST(TypeList, NameOrder) {
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

TEST(TypeSlots, FirstAppearanceOrder) {
    SlotRig rig;
    rig.camera(1, "XXX");
    rig.camera(2, "YYY");
    rig.camera(3, "XXX");
    rig.camera(5, "ZZZ");
    rig.types.FclDataSet();
    EXPECT_EQ(rig.slots(), (std::vector<std::string>{"1", "2", "1", "", "3", "", "", ""}));
    const TypeTables& t = rig.tables;  // the later of the two YYY files
    EXPECT_EQ(t.FclName(0) + " " + t.FclName(1) + " " + t.FclName(2) + " " + t.FclName(3), "3 1x.fcl 4y.fcl 3z.fcl");
    EXPECT_TRUE(rig.messages.shown.empty());
}

using testing::FakeMessages;

struct Rows {
    SettingStores stores;
    FakeMessages messages;
    void scene(const std::string& code) { FScnItemSet(stores, messages, code); }
    void plain(const std::string& code) { FuncItemSet(stores, messages, code); }
    std::string sceneKey(int r) const { return stores.FuncScnData(r, 0, 0); }
    std::string plainKey(int r) const { return stores.FuncData(r, 0); }
};

TEST(ItemRows, Row300IsLast) {
    Rows rows;
    for (int n = 1; n <= 299; ++n) rows.scene("S" + std::to_string(n));
    rows.scene("LAST");
    rows.scene("S17");  // known codes are still fine
    EXPECT_EQ(rows.sceneKey(0) + " " + rows.sceneKey(300), "300 LAST");
    EXPECT_TRUE(rows.messages.shown.empty());

    rows.scene("NEW1");
    rows.scene("NEW2");
    ASSERT_EQ(rows.messages.shown.size(), 2U);
    EXPECT_EQ(rows.messages.shown[0].text, "Number of the total Scene Items is exceeding 300");
    EXPECT_EQ(rows.messages.shown[0].icon, Icon::Stop);
    EXPECT_EQ(rows.sceneKey(0), "300");

    for (int n = 1; n <= 300; ++n) rows.plain("P" + std::to_string(n));
    rows.plain("P301");
    EXPECT_EQ(rows.messages.shown.back().text, "Number of the total Items is exceeding 300");
    EXPECT_EQ(rows.plainKey(0), "300");
}

using testing::TempFolder;

TEST(DefFolder, Precedence) {
    TempFolder tmp;
    const std::filesystem::path working = "/work/here";
    const std::filesystem::path remembered = tmp.path();
    EXPECT_EQ(chooseDefinitionFolder(std::filesystem::path("/opt/x"), remembered, working), "/opt/x");
    EXPECT_EQ(chooseDefinitionFolder(std::nullopt, remembered, working), remembered);
    EXPECT_EQ(chooseDefinitionFolder(std::nullopt, std::nullopt, working), working);
    // A remembered folder that is gone does not hide the working folder.
    EXPECT_EQ(chooseDefinitionFolder(std::nullopt, tmp / "gone", working), working);
}

}  // namespace
}  // namespace station
