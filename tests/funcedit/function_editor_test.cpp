// The function editor on the sample studio: what an item change puts on the line and where it
// is kept, and where a camera's function reply is stored and how it reads.
#include <gtest/gtest.h>

#include <algorithm>

#include "funcedit/function_items.hpp"
#include "tests/support/station_rig.hpp"
#include "tests/support/temp_folder.hpp"

namespace station {
namespace {

using testing::Commands;
using testing::StationRig;

struct Studio : StationRig {
    Studio() {
        open(testing::kStudio);
        takeQueued();
    }

    // Selects a camera and shows one item of one function, without sending.
    void show(int camera, const std::string& function, const std::string& item) {
        s.form1.Option9.click(camera);
        s.form2.List1.setListIndex(indexOf(s.form2.List1, function));
        s.form2.List2.setListIndex(indexOf(s.form2.List2, item));
        EXPECT_TRUE(takeQueued().empty());
    }
    // The entry that reads `text`, or an item's line that starts with it.
    static int indexOf(const ListBox& list, const std::string& text) {
        for (int i = 0; i < list.listCount(); ++i)
            if (list.list(i) == text || list.list(i).rfind(text + ":", 0) == 0) return i;
        throw std::out_of_range(text);
    }
    std::string stored(const char* key, const char* code) {
        const std::string* v = s.editor.storedValue(key, code);
        return v ? *v : "(no row)";
    }
    std::string line(const std::string& item) { return s.form2.List2.list(indexOf(s.form2.List2, item)); }

    Station& s = station;
};

struct Change {
    int camera;
    const char* function;
    const char* item;
    const char* choice;  // a value's name, or the analog value as a number in hex
    const char* sent;
    const char* key;     // the store: "FS" or "F"
    const char* code;    // its row
    const char* kept;    // what the row keeps afterwards
};

TEST(FuncEdit, ChangeSentAndKept) {
    const Change changes[] = {
        {1, "Gamma", "Gamma Mode", "CINE", "204002FC", "FS", "2040FC", "02"},
        {1, "Gamma", "Gamma Level", "7F", "30507F00", "FS", "3050", "7F"},
        {1, "Knee", "Knee Point", "20", "30514000", "FS", "3051", "40"},  // below MIN: held at MIN
        {4, "Shutter", "Clear Scan", "02A8", "305F02A8", "F", "305F", "02A8"},  // two value bytes, high first
        {1, "Shutter", "Shutter Speed", "1/250", "30550200", "F", "3055", "02"},
        {4, "Shutter", "Shutter Speed", "1/60.0", "30550015", "F", "3055", "0015"},  // a variable-shutter step
        {2, "System", "Auto Setup", "AUTO KNEE", "4031", "F", "", ""},
    };
    for (const Change& c : changes) {
        SCOPED_TRACE(std::string(c.item) + " " + c.choice);
        Studio rig;
        rig.show(c.camera, c.function, c.item);
        if (rig.s.form2.HScroll1.Enabled) {
            rig.s.form2.HScroll1.setValue(std::stoi(c.choice, nullptr, 16));
        } else {
            rig.s.form2.List3.setListIndex(Studio::indexOf(rig.s.form2.List3, c.choice));
        }
        EXPECT_EQ(rig.takeQueued(), Commands{c.sent});
        if (*c.code != '\0') {
            EXPECT_EQ(rig.stored(c.key, c.code), c.kept);
        } else {  // an action keeps nothing; its result is shown by the "Auto Message" window
            EXPECT_EQ(rig.s.form2.List3.listIndex(), -1);
            EXPECT_TRUE(rig.s.form6.form.Visible);
            EXPECT_EQ(rig.s.form6.Label1.Caption, c.choice);
        }
    }
}

TEST(FuncEdit, StepGrid) {
    TypeTables t;
    auto range = [&](const char* size, const char* min, const char* max, const char* step) {
        t.ItemList(1, 1, 1) = "A";
        for (auto [row, v] : {std::pair{kAnalogSize, size}, {kAnalogMin, min}, {kAnalogMax, max}, {kAnalogStep, step}})
            t.ModeList(1, 1, 1, row, 1) = v;
        return FunctionItem(t, 1, 1, 1).range();
    };
    const auto r = range("2", "10", "3F", "04");
    EXPECT_EQ((std::vector<long>{r.snap(0x13), r.snap(0x12), r.snap(0x3F), r.snap(0x05), r.snap(0x90)}),
              (std::vector<long>{0x14, 0x14, 0x3C, 0x10, 0x3C}));
    const auto wide = range("4", "", "", "");
    EXPECT_EQ((std::vector<long>{wide.digits, wide.min, wide.max, wide.step}), (std::vector<long>{4, 0, 0xFFFF, 1}));
}

TEST(FuncEdit, ValueInItsForm) {
    TypeTables t;
    auto item = [&](const char* kind, std::vector<std::pair<const char*, const char*>> values) {
        t.ItemList(1, 1, 1) = kind;
        int k = 0;
        for (const auto& [name, code] : values) {
            ++k;
            t.ModeList(1, 1, 1, k, 0) = name;
            t.ModeList(1, 1, 1, k, 1) = code;
        }
        t.ModeList(1, 1, 1, 0, 0) = std::to_string(k);
        return FunctionItem(t, 1, 1, 1);
    };
    struct Case {
        const char* stored;
        const char* shown;
        bool clamped;
    };
    const auto check = [](const FunctionItem& it, std::initializer_list<Case> cases) {
        for (const Case& c : cases) {
            SCOPED_TRACE(c.stored);
            const FunctionItem::Value v = it.valueOf(c.stored);
            EXPECT_EQ(v.text, c.shown);
            EXPECT_EQ(v.clamped, c.clamped);
        }
    };
    // Analog rows: SIZE, MIN, MAX, STEP in the first four value cells.
    check(item("A", {{"SIZE", "2"}, {"MIN", "10"}, {"MAX", "C0"}, {"STEP", "01"}}),
          {{"7", "10", true}, {"1a", "1A", false}, {"0C0", "C0", false}, {"1A0", "C0", true}, {"7g", "", false},
           {"", "", false}});
    check(item("A", {{"SIZE", "4"}, {"MIN", "0000"}, {"MAX", "0200"}, {"STEP", "01"}}),
          {{"1A0", "01A0", false}, {"1", "0001", false}, {"FFFFFFFF", "0200", true}});
    check(item("M", {{"OFF", "00"}, {"ON", "01"}}), {{"1", "01", false}, {"0a", "0A", false}, {"1FC", "", false}});
    // A shutter item: two-digit speeds, then (for want of a shutter table here) none of its steps.
    check(item("S", {{"1/100", "01"}, {"1/250", "02"}}),
          {{"2", "02", false}, {"18", "18", false}, {"018", "0018", false}, {"10000", "", false}});
}

// A hand-edited file holds values in other forms: the editor shows and sends what they denote,
// in each item's form and range, tells about a value it had to bring into range, and a save
// writes the file's own texts back until the operator changes an item.
TEST(FuncEdit, HandWrittenValuesGoOutAsShown) {
    std::string text = testing::readBytes(testing::kStudio);
    for (const auto& [from, to] : {std::pair{"2040FC=02,", "2040FC=2,"}, {"3050=2A,", "3050=a,"},
                                   {"2040F3=08,", "2040F3=8,"}, {"3051=55,", "3051=20,"}, {"3052=15,", "3052=015,"}}) {
        const auto at = text.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        text.replace(at, std::string(from).size(), to);
    }
    testing::TempFolder folder;
    StationRig rig;
    rig.open(folder.write("hand.csd", text));
    rig.takeQueued();
    Station& s = rig.station;
    s.form1.Option9.click(1);
    s.form2.List1.setListIndex(Studio::indexOf(s.form2.List1, "Gamma"));
    EXPECT_EQ(s.form2.List2.list(0), "Gamma Mode: CINE");
    EXPECT_EQ(s.form2.List2.list(1), "Gamma Level: 0A");
    EXPECT_EQ(s.form2.List2.list(2), "Black Gamma: HIGH");
    s.form2.List2.setListIndex(1);
    EXPECT_EQ(s.form2.HScroll1.value(), 0x0A);
    s.pages.Command3_Click();  // "1Page to CAM"
    EXPECT_EQ(rig.takeQueued(), (Commands{"204002FC", "30500A00", "204008F3"}));

    s.form2.List1.setListIndex(Studio::indexOf(s.form2.List1, "Knee"));
    EXPECT_EQ(s.form2.List2.list(2), "Knee Point: 40");
    EXPECT_EQ(s.form2.List2.list(3), "Knee Slope: 15");
    const std::string told = "Knee, Knee Point: the stored value 20 is outside 40 to C0; 40 is shown and sent";
    EXPECT_EQ(s.notice.last(), told);
    EXPECT_EQ(rig.logged().front(), told);
    s.pages.Command3_Click();
    s.pages.Command3_Click();  // told once
    EXPECT_EQ(rig.takeQueued(), (Commands{"204100FE", "204100FD", "30514000", "30521500", "204100FE", "204100FD",
                                          "30514000", "30521500"}));
    const std::vector<std::string> logged = rig.logged();
    EXPECT_EQ(std::count(logged.begin(), logged.end(), told), 1);

    // Saved as the file had it; an item the operator changes holds its new value in its form.
    s.form2.List2.setListIndex(3);
    s.form2.HScroll1.setValue(0x16);
    EXPECT_EQ(*s.editor.storedValue("FS", "3052"), "16");
    s.setupFile.FileName = (folder / "saved.csd").string();
    s.SAVE_Click();
    const std::string saved = testing::readBytes(folder / "saved.csd");
    for (const char* kept : {"\r\n2040FC=2,", "\r\n3050=a,", "\r\n2040F3=8,", "\r\n3051=20,", "\r\n3052=015,"})
        EXPECT_NE(saved.find(kept), std::string::npos) << kept;
}

struct Reply {
    const char* frame;  // reply data bytes
    const char* key;
    const char* code;
    const char* kept;
    const char* shown;  // the item's line, or "" when its page is not shown
};

TEST(FuncEdit, ReplyKeptAndShown) {
    const Reply replies[] = {
        {"224009", "FS", "2040FC", "01", "Gamma Mode: FILM"},    // one register, two mode items:
        {"224009", "FS", "2040F3", "08", "Black Gamma: HIGH"},   // each takes its own bits
        {"22400B", "FS", "2040FC", "03", "Gamma Mode: unknown (03)"},
        {"3250C4", "FS", "3050", "C4", "Gamma Level: C4"},
        {"32550200", "F", "3055", "02", ""},      // a named speed from a two-byte level
        {"3255000A", "F", "3055", "000A", ""},    // a variable-shutter step
        {"2A4401", "F", "2044FE", "01", ""},      // class 28's reply leaves register 20/44 alone
    };
    for (const Reply& r : replies) {
        SCOPED_TRACE(r.frame);
        Studio rig;
        rig.show(2, "Gamma", "Gamma Mode");  // camera 2 works in scene 2
        const std::string cameraOne = rig.s.stores.FuncScnData(1, 1, 0);
        const std::string sceneTwo = rig.s.stores.FuncScnData(1, 2, 2);
        rig.port.arrive(testing::frame(testing::wire(r.frame)));
        rig.run(80);
        EXPECT_EQ(rig.stored(r.key, r.code), r.kept);
        if (*r.shown != '\0') {
            EXPECT_EQ(rig.line(std::string(r.shown).substr(0, std::string(r.shown).find(':'))), r.shown);
        }
        EXPECT_EQ(rig.s.stores.FuncScnData(1, 1, 0) + rig.s.stores.FuncScnData(1, 2, 2), cameraOne + sceneTwo);
        EXPECT_TRUE(rig.takeQueued().empty());
    }
}

}  // namespace
}  // namespace station
