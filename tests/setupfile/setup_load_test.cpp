// Loading the setup data file: the reader's rules, opening through the dialog, the samples.
#include <gtest/gtest.h>

#include "tests/setupfile/setup_rig.hpp"

namespace station {
namespace {

using testing::crlf;
using testing::SetupRig;


TEST(SetupLoad, ShortListRepeatsLast) {
    SetupRig rig;
    rig.load(crlf({"[scene no]", "Scene=1,2", "[main data]", "aMBLK=5,6", "mDTL=", "[function data]", "7C=9"}));
    EXPECT_EQ(rig.shared.ScnNo(1) * 10 + rig.shared.ScnNo(2) * 100 + rig.shared.ScnNo(8), 212);
    const SettingStores& st = rig.stores;
    EXPECT_EQ(st.MainScnData(8, 1, 1) + st.MainScnData(8, 1, 2) + st.MainScnData(8, 8, 4) + "|" + st.MainScnData(2, 5, 3),
              "566|");
    EXPECT_EQ(st.FuncData(1, 8), "9");
}

TEST(SetupLoad, MalformedLineEndsLoad) {
    SetupRig rig;
    rig.load(crlf({"[camera type/ID]", "Camera 1=AB1|01", "Camera 2=AB1", "Camera 3=XY1|03", "[system]",
                   "ACK Check=1"}));
    EXPECT_EQ(rig.shared.cams.CamType(1) + "|" + rig.shared.cams.CamType(2) + rig.shared.cams.CamType(3), "AB1|");
    EXPECT_EQ(rig.shared.AckMode, 0);
    rig.load(crlf({"[function data]", "A=1", "orphan", "B=2", "[system]", "ACK Check=1"}));
    EXPECT_EQ(rig.shared.AckMode, 0);
    EXPECT_EQ(rig.stores.FuncData(0, 0) + rig.stores.FuncData(1, 0) + "|" + rig.stores.FuncData(2, 0), "2A|");
    // Still silent where it stops, with a word in passing about where and why.
    EXPECT_EQ(rig.told, std::vector<std::string>(2, "load.csd, line 3: the load stopped (Run-time error 5: Invalid "
                                                    "procedure call or argument); the rest of the file is left out"));

    // A missing, unnamed or unreadable file changes nothing.
    rig.shared.AckMode = 1;
    for (const std::string& name : {(rig.folder / "absent.csd").string(), std::string(), rig.folder.path().string()}) {
        rig.file.FileName = name;
        rig.file.CsdLoad();
    }
    EXPECT_EQ(rig.shared.AckMode, 1);
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(SetupLoad, RowsRenumbered) {
    SetupRig rig;
    for (const char* code : {"A", "B", "C", "D", "E"}) FuncItemSet(rig.stores, rig.messages, code);
    rig.load(crlf({"[function data]", "X=1", "C=2", "Y=3", "[function scene data]", "no equals sign", "S=4"}));
    const SettingStores& st = rig.stores;
    // Three rows counted; row 4 is no longer counted but still there; the line without "=" is skipped.
    EXPECT_EQ(st.FuncData(0, 0) + st.FuncData(1, 0) + st.FuncData(2, 0) + st.FuncData(4, 0), "3XCD");
    EXPECT_EQ(st.FuncScnData(0, 0, 0) + st.FuncScnData(1, 0, 0), "1S");
    // A later registration finds the loaded rows and appends after them.
    FuncItemSet(rig.stores, rig.messages, "C");
    FuncItemSet(rig.stores, rig.messages, "Z");
    EXPECT_EQ(st.FuncData(0, 0) + st.FuncData(4, 0), "4Z");
}

TEST(SetupLoad, Row301StopsLoad) {
    SetupRig rig;
    std::string text = "[function scene data]\r\n";
    for (int r = 1; r <= 301; ++r) text += "R" + std::to_string(r) + "=" + std::to_string(r) + "\r\n";
    rig.load(text + "[system]\r\nACK Check=1\r\n");
    EXPECT_EQ(rig.stores.FuncScnData(0, 0, 0) + " " + rig.stores.FuncScnData(300, 8, 4), "300 300");
    EXPECT_EQ(rig.shared.AckMode, 0);
    FScnItemSet(rig.stores, rig.messages, "R5");  // the store is still usable
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(rig.told, std::vector<std::string>{"load.csd, line 302: more than 300 function rows; the load stopped "
                                                 "there, and the rest of the file is left out"});
}

// Lines the load cannot place are left out as before, with one word for all of them.
TEST(SetupLoad, NotUnderstoodTold) {
    SetupRig rig;
    rig.load(crlf({"stray", "[system]", "ACK Check=1", "Volume=11", "[main data] ", "mBar=1", "[camera type/ID]",
                   "Camera 9=AB1|09", "[main data]", "mFOO=1", "", "[end]"}));
    EXPECT_EQ(rig.shared.AckMode, 1);
    EXPECT_EQ(rig.told, std::vector<std::string>{"load.csd, line 1: \"stray\" is not understood (nor 4 more lines); "
                                                 "left out"});
    rig.told.clear();
    rig.load(crlf({"[system]", "Camera Select=1", "[function scene data]", "", "[end]"}));
    EXPECT_TRUE(rig.told.empty());
}


// One byte-order mark at the very start of a setup or definition file is skipped; a second
// one, a part of one or one further on is text, and the line it begins is not a section.
TEST(SetupLoad, ByteOrderMark) {
    const std::string bom = "\xEF\xBB\xBF", system = "[system]\r\nACK Check=1\r\n";
    for (const auto& [text, ackMode] : std::vector<std::pair<std::string, int>>{
             {bom + system, 1}, {bom + bom + system, 0}, {"\xEF\xBB" + system, 0}, {"[end]\r\n" + bom + system, 0}}) {
        SetupRig rig;
        rig.load(text);
        EXPECT_EQ(rig.shared.AckMode, ackMode) << ::testing::PrintToString(text);
    }
    SetupRig rig;
    const std::string gain = crlf({"[form control]", "GAIN=1"});
    rig.types.loadDefinition(1, bom + gain);
    rig.types.loadDefinition(2, "x" + bom + gain);
    EXPECT_EQ(rig.tables.FormGain(1) * 10 + rig.tables.FormGain(2), 10);
}

using testing::readBytes;

// The sample studio, one camera's type without a definition, opened through the dialog: the
// missing type is told, the window refreshed once when everything is in place, and a save
// writes the same bytes.
TEST(CamFileOpen, StudioOpensAndSavesSame) {
    const std::filesystem::path samples = STATION_SAMPLES_DIR;
    SetupRig rig;
    std::string studio = readBytes(samples / "studio.csd");
    studio.replace(studio.find("Camera 2=ST1|2"), 14, "Camera 2=ZZ9|2");
    rig.types.DefinitionFolder = samples;
    rig.list();
    const auto refreshed = [&rig] { return rig.shared.cams.CamFclNo(1) + "/" + rig.stores.FuncScnData(0, 0, 0); };
    std::vector<std::string> refreshes;
    rig.file.InitSet = [&] { refreshes.push_back(refreshed()); };
    rig.dialogs.openAnswer = rig.folder.write("studio.csd", studio).string();
    rig.file.CamFileOpen();
    EXPECT_EQ(rig.dialogs.calls, std::vector<std::string>{"open Camera setup data files (*.csd)|*.csd|"});
    EXPECT_EQ(rig.messages.texts(), std::vector<std::string>{"There is loss file for Camera Contol"});
    EXPECT_EQ(refreshes, std::vector<std::string>{refreshed()});
    EXPECT_NE(rig.shared.cams.CamFclNo(1), "");
    EXPECT_EQ(rig.tables.FclName(0), "4");
    rig.file.FileName = (rig.folder / "copy.csd").string();
    rig.file.CsdSave();
    EXPECT_EQ(readBytes(rig.folder / "copy.csd"), studio);
}

}  // namespace
}  // namespace station
