#include <gtest/gtest.h>

#include "tests/setupfile/setup_rig.hpp"

namespace station {
namespace {

using testing::crlf;
using testing::SetupRig;

std::string list(const std::string& head, int commas) { return head + std::string(static_cast<std::size_t>(commas), ','); }

TEST(SetupLoad, TheFormatExampleFillsTheSettings) {
    SetupRig rig;
    rig.load(crlf({"[system]", "ACK Check=1", "Camera Select=1", "[camera type/ID]", "Camera 1=AB1|01",
                   "Camera 2=AB1|02", "Camera 3=|", "Camera 4=|", "Camera 5=|", "Camera 6=|", "Camera 7=|",
                   "Camera 8=|", "[scene no]", "Scene=1,1,1,1,1,1,1,1", "[main data]",
                   list("mBar=0,0,0,0,1,1,1,1", 24), "[function scene data]", list("6A=00,00,01,00,01,01,01,01", 24),
                   "[function data]", "7C=00,01,,,,,,", "[end]"}));
    EXPECT_EQ(rig.shared.AckMode, 1);
    EXPECT_EQ(rig.shared.IDMode, 1);
    EXPECT_EQ(rig.shared.cams.CamType(2), "AB1");
    EXPECT_EQ(rig.shared.cams.CamID(2), "02");
    EXPECT_EQ(rig.shared.cams.CamType(3), "");
    EXPECT_EQ(rig.shared.ScnNo(8), 1);
    EXPECT_EQ(rig.stores.MainScnData(1, 1, 4), "0");
    EXPECT_EQ(rig.stores.MainScnData(1, 2, 1), "1");
    EXPECT_EQ(rig.stores.MainScnData(1, 3, 1), "");
    EXPECT_EQ(rig.stores.MainScnData(1, 2, 0), "");  // the working scene is not in the file
    EXPECT_EQ(rig.stores.FuncScnData(0, 0, 0), "1");
    EXPECT_EQ(rig.stores.FuncScnData(1, 0, 0), "6A");
    EXPECT_EQ(rig.stores.FuncScnData(1, 1, 3), "01");
    EXPECT_EQ(rig.stores.FuncData(0, 0), "1");
    EXPECT_EQ(rig.stores.FuncData(1, 0), "7C");
    EXPECT_EQ(rig.stores.FuncData(1, 2), "01");
    EXPECT_EQ(rig.stores.FuncData(1, 3), "");
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(SetupLoad, AShortListRepeatsItsLastValue) {
    SetupRig rig;
    rig.load(crlf({"[scene no]", "Scene=2", "[main data]", "aMBLK=5,6", "mDTL=", "[function data]", "7C=9"}));
    for (int c = 1; c <= 8; ++c) EXPECT_EQ(rig.shared.ScnNo(c), 2);
    EXPECT_EQ(rig.stores.MainScnData(8, 1, 1), "5");
    EXPECT_EQ(rig.stores.MainScnData(8, 1, 2), "6");
    EXPECT_EQ(rig.stores.MainScnData(8, 8, 4), "6");
    EXPECT_EQ(rig.stores.MainScnData(2, 5, 3), "");
    EXPECT_EQ(rig.stores.FuncData(1, 8), "9");

    rig.load(crlf({"[scene no]", "Scene=1,2"}));
    EXPECT_EQ(rig.shared.ScnNo(1), 1);
    EXPECT_EQ(rig.shared.ScnNo(2), 2);
    EXPECT_EQ(rig.shared.ScnNo(8), 2);
}

TEST(SetupLoad, HeadersMatchAsWholeLinesAndUnknownKeysFillTheSpareRow) {
    SetupRig rig;
    rig.load(crlf({"[main data] ", "mBar=7", "[main data]", "mZOOM=3,4", "mFILTER=2", "[system]extra",
                   "ACK Check=1", "[system]", "Ack Check=1", "[camera type/ID]", "Camera 9=X|9", "Camera 1 =Y|1"}));
    EXPECT_EQ(rig.stores.MainScnData(1, 1, 1), "");  // under "[main data] " nothing is read
    EXPECT_EQ(rig.stores.MainScnData(19, 1, 1), "3");
    EXPECT_EQ(rig.stores.MainScnData(19, 8, 4), "4");
    EXPECT_EQ(rig.stores.MainScnData(18, 4, 4), "2");
    EXPECT_EQ(rig.shared.AckMode, 0);
    EXPECT_EQ(rig.shared.cams.CamType(1), "");
}

TEST(SetupLoad, AMalformedLineEndsTheLoadSilentlyKeepingWhatWasRead) {
    SetupRig rig;
    rig.load(crlf({"[camera type/ID]", "Camera 1=AB1|01", "Camera 2=AB1", "Camera 3=XY1|03", "[system]",
                   "ACK Check=1"}));
    EXPECT_EQ(rig.shared.cams.CamType(1), "AB1");
    EXPECT_EQ(rig.shared.cams.CamType(2), "");
    EXPECT_EQ(rig.shared.cams.CamType(3), "");
    EXPECT_EQ(rig.shared.AckMode, 0);

    rig.load(crlf({"[system]", "Camera Select=40000", "ACK Check=1"}));  // beyond an Integer
    EXPECT_EQ(rig.shared.IDMode, 0);
    EXPECT_EQ(rig.shared.AckMode, 0);
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(SetupLoad, AMissingOrUnreadableFileChangesNothing) {
    SetupRig rig;
    rig.shared.AckMode = 1;
    rig.file.FileName = (rig.folder / "absent.csd").string();
    rig.file.CsdLoad();
    rig.file.FileName = "";
    rig.file.CsdLoad();
    rig.file.FileName = rig.folder.path().string();  // a folder, not a file
    rig.file.CsdLoad();
    EXPECT_EQ(rig.shared.AckMode, 1);
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(SetupLoad, FunctionRowsAreRenumberedByTheFile) {
    SetupRig rig;
    for (const char* code : {"A", "B", "C", "D", "E"}) FuncItemSet(rig.stores, rig.messages, code);
    rig.load(crlf({"[function data]", "X=1", "C=2", "Y=3", "[function scene data]", "no equals sign", "S=4"}));
    EXPECT_EQ(rig.stores.FuncData(0, 0), "3");
    EXPECT_EQ(rig.stores.FuncData(1, 0), "X");
    EXPECT_EQ(rig.stores.FuncData(2, 0), "C");
    EXPECT_EQ(rig.stores.FuncData(4, 0), "D");  // no longer counted, still there
    EXPECT_EQ(rig.stores.FuncScnData(0, 0, 0), "1");  // the line without "=" was skipped
    EXPECT_EQ(rig.stores.FuncScnData(1, 0, 0), "S");

    // A later registration finds the loaded rows and appends after them.
    FuncItemSet(rig.stores, rig.messages, "C");
    FuncItemSet(rig.stores, rig.messages, "Z");
    EXPECT_EQ(rig.stores.FuncData(0, 0), "4");
    EXPECT_EQ(rig.stores.FuncData(4, 0), "Z");
}

TEST(SetupLoad, APlainFunctionLineWithoutAKeyStopsTheLoad) {
    SetupRig rig;
    rig.load(crlf({"[function data]", "A=1", "orphan", "B=2", "[system]", "ACK Check=1"}));
    EXPECT_EQ(rig.stores.FuncData(0, 0), "2");  // counted before the line failed
    EXPECT_EQ(rig.stores.FuncData(1, 0), "A");
    EXPECT_EQ(rig.stores.FuncData(2, 0), "");
    EXPECT_EQ(rig.shared.AckMode, 0);
}

TEST(SetupLoad, TheRowAfterTheLastStopsTheLoadWithTheCountIntact) {
    SetupRig rig;
    std::string text = "[function scene data]\r\n";
    for (int r = 1; r <= 301; ++r) text += "R" + std::to_string(r) + "=" + std::to_string(r) + "\r\n";
    text += "[system]\r\nACK Check=1\r\n";
    rig.load(text);
    EXPECT_EQ(rig.stores.FuncScnData(0, 0, 0), "300");
    EXPECT_EQ(rig.stores.FuncScnData(300, 8, 4), "300");
    EXPECT_EQ(rig.shared.AckMode, 0);
    FScnItemSet(rig.stores, rig.messages, "R5");  // the store is still usable
    EXPECT_TRUE(rig.messages.shown.empty());
}

}  // namespace
}  // namespace station
