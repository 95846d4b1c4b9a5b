// The function editor on the sample studio: what an item change puts on the line and where it
// is kept, and where a camera's function reply is stored and how it reads.
#include <gtest/gtest.h>

#include <algorithm>

#include "funcedit/function_items.hpp"
#include "tests/support/station_rig.hpp"

namespace station {
namespace {

using testing::Commands;

struct Studio : testing::StudioRig {

    // Selects a camera and shows one item of one function, without sending.
    void show(int camera, const std::string& function, const std::string& item) {
        form1.Option9.click(camera);
        choose(form2.List1, function);
        choose(form2.List2, item);
        EXPECT_TRUE(takeQueued().empty());
    }
    // What the selected camera keeps for an item code: its working copy's, or its one value.
    std::string stored(const std::string& code) const {
        for (const auto& [c, v] : readout.functionSettings(readout.selectedCamera()))
            if (c == code) return v;
        return "(no row)";
    }
    std::string line(const std::string& item) const {
        for (const std::string& l : form2.List2.items())
            if (l.rfind(item + ":", 0) == 0) return l;
        return "(no line)";
    }
};

TEST(FuncEdit, ChangeSentAndKept) {
    const struct {
        int camera;
        const char *function, *item;
        const char* choice;  // a value's name, or the analog value as a number in hex
        const char* sent;
        const char *code, *kept;  // its row, and what the row keeps afterwards
    } changes[] = {
        {1, "Gamma", "Gamma Mode", "CINE", "204002FC", "2040FC", "02"},
        {1, "Gamma", "Gamma Level", "7F", "30507F00", "3050", "7F"},
        {1, "Knee", "Knee Point", "20", "30514000", "3051", "40"},  // below MIN: held at MIN
        {4, "Shutter", "Clear Scan", "02A8", "305F02A8", "305F", "02A8"},  // two value bytes, high first
        {1, "Shutter", "Shutter Speed", "1/250", "30550200", "3055", "02"},
        {4, "Shutter", "Shutter Speed", "1/60.0", "30550015", "3055", "0015"},  // a variable-shutter step
        {2, "System", "Auto Setup", "AUTO KNEE", "4031", "", ""},
    };
    for (const auto& c : changes) {
        SCOPED_TRACE(std::string(c.item) + " " + c.choice);
        Studio rig;
        rig.show(c.camera, c.function, c.item);
        EXPECT_NE(rig.form2.HScroll1.Enabled, rig.form2.List3.Enabled);  // the window offers one setter
        if (rig.form2.HScroll1.Enabled) {
            rig.form2.HScroll1.setValue(std::stoi(c.choice, nullptr, 16));
        } else {
            Studio::choose(rig.form2.List3, c.choice);
        }
        EXPECT_EQ(rig.takeQueued(), Commands{c.sent});
        if (*c.code != '\0') {
            EXPECT_EQ(rig.stored(c.code), c.kept);
        } else {  // an action keeps nothing; its result is shown by the "Auto Message" window
            EXPECT_EQ(rig.form2.List3.listIndex(), -1);
            EXPECT_TRUE(rig.readout.autoShown());
            EXPECT_EQ(rig.readout.autoOperation(), c.choice);
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
    Studio rig;  // then the hand-edited file
    rig.open(rig.folder.write("hand.csd", text));
    rig.takeQueued();
    Form2& f = rig.form2;
    rig.form1.Option9.click(1);
    Studio::choose(f.List1, "Gamma");
    EXPECT_EQ(f.List2.list(0), "Gamma Mode: CINE");
    EXPECT_EQ(f.List2.list(1), "Gamma Level: 0A");
    EXPECT_EQ(f.List2.list(2), "Black Gamma: HIGH");
    f.List2.setListIndex(1);
    EXPECT_EQ(f.HScroll1.value(), 0x0A);
    rig.form1.Command3.click();  // "1Page to CAM"
    EXPECT_EQ(rig.takeQueued(), (Commands{"204002FC", "30500A00", "204008F3"}));

    Studio::choose(f.List1, "Knee");
    EXPECT_EQ(f.List2.list(2), "Knee Point: 40");
    EXPECT_EQ(f.List2.list(3), "Knee Slope: 15");
    const std::string told = "Knee, Knee Point: the stored value 20 is outside 40 to C0; 40 is shown and sent";
    EXPECT_EQ(rig.forms.notice.last(), told);
    EXPECT_EQ(rig.logged().front(), told);
    rig.form1.Command3.click();
    rig.form1.Command3.click();  // told once
    EXPECT_EQ(rig.takeQueued(), (Commands{"204100FE", "204100FD", "30514000", "30521500", "204100FE", "204100FD",
                                          "30514000", "30521500"}));
    const std::vector<std::string> logged = rig.logged();
    EXPECT_EQ(std::count(logged.begin(), logged.end(), told), 1);

    // Saved as the file had it; an item the operator changes holds its new value in its form.
    f.List2.setListIndex(3);
    f.HScroll1.setValue(0x16);
    EXPECT_EQ(rig.stored("3052"), "16");
    rig.dialogs.saveAnswer = (rig.folder.path() / "saved.csd").string();
    rig.station.SAVE_AS_Click();
    const std::string saved = testing::readBytes(rig.folder.path() / "saved.csd");
    for (const char* kept : {"\r\n2040FC=2,", "\r\n3050=a,", "\r\n2040F3=8,", "\r\n3051=20,", "\r\n3052=015,"})
        EXPECT_NE(saved.find(kept), std::string::npos) << kept;
}

TEST(FuncEdit, ReplyKeptAndShown) {
    const struct {
        const char *frame, *code, *kept;  // reply data bytes, the row and what it keeps
        const char* shown;  // the item's line, or "" when its page is not shown
    } replies[] = {
        {"224009", "2040FC", "01", "Gamma Mode: FILM"},    // one register, two mode items:
        {"224009", "2040F3", "08", "Black Gamma: HIGH"},   // each takes its own bits
        {"22400B", "2040FC", "03", "Gamma Mode: unknown (03)"},
        {"3250C4", "3050", "C4", "Gamma Level: C4"},
        {"32550200", "3055", "02", ""},      // a named speed from a two-byte level
        {"3255000A", "3055", "000A", ""},    // a variable-shutter step
        {"2A4401", "2044FE", "01", ""},      // class 28's reply leaves register 20/44 alone
    };
    for (const auto& r : replies) {
        SCOPED_TRACE(r.frame);
        Studio rig;
        rig.show(2, "Gamma", "Gamma Mode");  // camera 2 works in scene 2
        const auto cameraOne = rig.readout.functionSettings(1);
        rig.port.arrive(testing::frame(testing::wire(r.frame)));
        rig.run(80);
        EXPECT_EQ(rig.stored(r.code), r.kept);
        if (*r.shown != '\0') {
            EXPECT_EQ(rig.line(std::string(r.shown).substr(0, std::string(r.shown).find(':'))), r.shown);
        }
        EXPECT_EQ(rig.readout.functionSettings(1), cameraOne);
        EXPECT_TRUE(rig.takeQueued().empty());
    }
}

}  // namespace
}  // namespace station
