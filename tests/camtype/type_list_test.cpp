// The type list, load slots, item rows and the definition folder.
#include <gtest/gtest.h>

#include "camtype/definition_folder.hpp"
#include "camtype/item_rows.hpp"
#include "tests/camtype/type_rig.hpp"

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

// The list reads a file's "[camera type]" head and skips what follows unread, up to a later
// "[camera type]" section: it finds what a line-by-line reading of the whole file finds.
TEST(TypeList, HeadAndLaterSections) {
    const std::string head = "[camera type]\r\nCODE=AB1\r\nNOTE=head\r\n";
    const struct {
        std::string text;
        const char* found;  // code|note
    } cases[] = {
        {head + "[function menu]\r\nF=x\r\nCODE=ZZZ\r\n", "AB1|head"},
        {head + "[function menu]\r\nNOTE=see [camera type]\r\nCODE=ZZZ", "AB1|head"},
        {head + "[function menu]\r\n[camera type] again\r\nCODE=CD2\r\n[variable shutter]\r\n1=0", "CD2|head"},
        {head + "[camera type\r\nCODE=ZZZ", "AB1|head"},
        {"[form control]\rGAIN=1\n[camera type]\rCODE=FF6\nNOTE=lone ends", "FF6|lone ends"},
        {"[form control]\r\n[camera type]\r\nCODE=GG7", "GG7|"},
        {"\xEF\xBB\xBF[camera type]\r\nCODE=HH8", "HH8|"},
        {"[form control]\r\nCODE=ZZZ\r\n", "|"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        TypeRig rig;
        rig.types.readTypeEntry(1, c.text);
        EXPECT_EQ(rig.tables.TypeCode(1) + "|" + rig.tables.TypeNote(1), c.found);
    }
}

// Files beyond the 64th are left out of the list as before, with a word that says which.
TEST(TypeList, Beyond64Told) {
    TypeRig rig;
    std::vector<std::string> told;
    rig.types.Notify = [&told](const std::string& text) { told.push_back(text); };
    for (int n = 1; n <= 64; ++n) rig.folder.write("t" + std::to_string(100 + n) + ".fcl", typeFile("T" + std::to_string(n)));
    rig.list();
    EXPECT_TRUE(told.empty());
    for (int n = 65; n <= 67; ++n) rig.folder.write("t" + std::to_string(100 + n) + ".fcl", typeFile("T" + std::to_string(n)));
    rig.list();
    EXPECT_EQ(rig.tables.TypeFile(0) + " " + rig.tables.TypeFile(64), "64 t164.fcl");
    EXPECT_EQ(told, std::vector<std::string>{rig.folder.path().string() + ": 67 definition files; only the first 64 "
                                             "are listed, t165.fcl and the 2 after it are left out"});
    EXPECT_TRUE(rig.messages.shown.empty());
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

TEST(ItemRows, Row300IsLast) {
    TypeRig rig;
    for (int n = 1; n <= 299; ++n) FScnItemSet(rig.stores, rig.messages, "S" + std::to_string(n));
    for (const char* code : {"LAST", "S17", "NEW1", "NEW2"}) FScnItemSet(rig.stores, rig.messages, code);
    EXPECT_EQ(rig.stores.FuncScnData(0, 0, 0) + " " + rig.stores.FuncScnData(300, 0, 0), "300 LAST");
    EXPECT_EQ(rig.messages.texts(), std::vector<std::string>(2, "Number of the total Scene Items is exceeding 300"));
}

}  // namespace
}  // namespace station
