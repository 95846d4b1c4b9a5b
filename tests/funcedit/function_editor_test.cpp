// The function editor on the sample studio: what an item change puts on the line and where it
// is kept, and where a camera's function reply is stored and how it reads.
#include <gtest/gtest.h>

#include "funcedit/function_items.hpp"
#include "tests/app/station_rig.hpp"

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
