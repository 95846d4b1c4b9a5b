#include <gtest/gtest.h>

#include <random>

#include "tests/setupfile/setup_rig.hpp"

namespace station {
namespace {

using testing::crlf;
using testing::readBytes;
using testing::SetupRig;

const std::string kEmpty32(31, ',');
const std::string kEmpty8(7, ',');

TEST(SetupSave, WritesEveryLineInOrderEndingInCrLf) {
    SetupRig rig;
    rig.shared.AckMode = 1;
    rig.shared.cams.CamType(1) = "AB1";
    rig.shared.cams.CamID(1) = "01";
    rig.shared.cams.CamID(3) = "07";
    for (int c = 0; c <= 8; ++c) rig.shared.ScnNo(c) = 1;
    rig.shared.ScnNo(2) = 4;
    rig.stores.MainScnData(1, 1, 1) = "1";
    rig.stores.MainScnData(18, 8, 4) = "3";
    rig.stores.MainScnData(18, 8, 0) = "9";  // the working scene is not saved
    FScnItemSet(rig.stores, rig.messages, "6A");
    FScnItemSet(rig.stores, rig.messages, "6B");  // never set: left out
    rig.stores.FuncScnData(1, 2, 1) = "01";
    FuncItemSet(rig.stores, rig.messages, "7C");
    rig.stores.FuncData(1, 1) = "00";
    rig.file.FileName = (rig.folder / "new.csd").string();
    rig.file.CsdSave();

    std::string expected = crlf({"[system]", "ACK Check=1", "Camera Select=0", "[camera type/ID]", "Camera 1=AB1|01",
                                 "Camera 2=|", "Camera 3=|07", "Camera 4=|", "Camera 5=|", "Camera 6=|", "Camera 7=|",
                                 "Camera 8=|", "[scene no]", "Scene=1,4,1,1,1,1,1,1", "[main data]"});
    for (int j = 1; j <= 18; ++j) {
        std::string values = kEmpty32;
        if (j == 1) values = "1" + kEmpty32;
        if (j == 18) values = kEmpty32 + "3";
        expected += rig.stores.MainKey(j) + values + "\r\n";
    }
    expected += crlf({"[function scene data]", "6A=,,,,01" + std::string(27, ','), "[function data]",
                      "7C=00" + kEmpty8, "[end]"});
    EXPECT_EQ(readBytes(rig.folder / "new.csd"), expected);
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_FALSE(std::filesystem::exists(rig.folder / "new.csd.tmp"));
}

// Fills every setting the file keeps with varied values, some empty.
void fillRandomly(SetupRig& rig, unsigned seed) {
    std::mt19937 gen(seed);
    const auto value = [&] {
        const unsigned n = gen() % 300;
        return n < 40 ? std::string() : std::to_string(n);
    };
    rig.shared.AckMode = static_cast<Integer>(gen() % 2);
    rig.shared.IDMode = static_cast<Integer>(gen() % 2);
    for (int c = 1; c <= 8; ++c) {
        rig.shared.ScnNo(c) = static_cast<Integer>(1 + gen() % 4);
        rig.shared.cams.CamType(c) = c % 3 == 0 ? "" : "T" + std::to_string(c % 4);
        rig.shared.cams.CamID(c) = c % 4 == 0 ? "" : std::to_string(c) + "|x";
        for (int j = 1; j <= 18; ++j)
            for (int s = 1; s <= 4; ++s) rig.stores.MainScnData(j, c, s) = value();
    }
    for (int r = 1; r <= 300; ++r) {
        FScnItemSet(rig.stores, rig.messages, "S" + std::to_string(r));
        FuncItemSet(rig.stores, rig.messages, "F" + std::to_string(r));
        const bool unset = r % 7 == 0;  // rows never set are not kept
        for (int c = 1; c <= 8; ++c) {
            rig.stores.FuncData(r, c) = unset ? "" : value();
            for (int s = 1; s <= 4; ++s) rig.stores.FuncScnData(r, c, s) = unset ? "" : value();
        }
    }
}

TEST(SetupSave, SaveThenLoadGivesTheSameSettings) {
    SetupRig saved;
    fillRandomly(saved, 7);
    saved.file.FileName = (saved.folder / "full.csd").string();
    saved.file.CsdSave();

    SetupRig loaded;
    loaded.file.FileName = saved.file.FileName;
    loaded.file.CsdLoad();

    EXPECT_EQ(loaded.shared.AckMode, saved.shared.AckMode);
    EXPECT_EQ(loaded.shared.IDMode, saved.shared.IDMode);
    for (int c = 1; c <= 8; ++c) {
        EXPECT_EQ(loaded.shared.ScnNo(c), saved.shared.ScnNo(c));
        EXPECT_EQ(loaded.shared.cams.CamType(c), saved.shared.cams.CamType(c));
        EXPECT_EQ(loaded.shared.cams.CamID(c), saved.shared.cams.CamID(c));
        for (int j = 1; j <= 18; ++j)
            for (int s = 1; s <= 4; ++s) ASSERT_EQ(loaded.stores.MainScnData(j, c, s), saved.stores.MainScnData(j, c, s));
    }
    // The rows come back in order, without the ones that were never set.
    int r2 = 0;
    for (int r = 1; r <= 300; ++r) {
        if (r % 7 == 0) continue;
        ++r2;
        ASSERT_EQ(loaded.stores.FuncData(r2, 0), saved.stores.FuncData(r, 0));
        ASSERT_EQ(loaded.stores.FuncScnData(r2, 0, 0), saved.stores.FuncScnData(r, 0, 0));
        for (int c = 1; c <= 8; ++c) {
            ASSERT_EQ(loaded.stores.FuncData(r2, c), saved.stores.FuncData(r, c));
            for (int s = 1; s <= 4; ++s) ASSERT_EQ(loaded.stores.FuncScnData(r2, c, s), saved.stores.FuncScnData(r, c, s));
        }
    }
    EXPECT_EQ(loaded.stores.FuncData(0, 0), std::to_string(r2));
    EXPECT_EQ(loaded.stores.FuncScnData(0, 0, 0), std::to_string(r2));

    // And the loaded settings save to the very same bytes.
    loaded.file.FileName = (loaded.folder / "again.csd").string();
    loaded.file.CsdSave();
    EXPECT_EQ(readBytes(loaded.folder / "again.csd"), readBytes(saved.folder / "full.csd"));
}

TEST(SetupSave, SaveWithoutAFileAsksForOneAndACancelSavesNothing) {
    SetupRig rig;
    rig.file.SAVE_Click();
    EXPECT_EQ(rig.dialogs.calls, std::vector<std::string>{"save Camera setup data files (*.csd)|*.csd|"});
    EXPECT_EQ(rig.file.FileName, "");
    EXPECT_TRUE(rig.writer.written.empty());
    EXPECT_TRUE(rig.messages.shown.empty());

    const auto first = rig.folder / "first.csd";
    rig.dialogs.saveAnswer = first.string();
    rig.file.SAVE_Click();
    EXPECT_EQ(rig.file.FileName, first.string());
    EXPECT_TRUE(std::filesystem::exists(first));

    // Now SAVE goes to the current file without asking; SAVE AS always asks.
    rig.dialogs.calls.clear();
    rig.shared.AckMode = 1;
    rig.file.SAVE_Click();
    EXPECT_TRUE(rig.dialogs.calls.empty());
    EXPECT_NE(readBytes(first).find("ACK Check=1\r\n"), std::string::npos);

    rig.dialogs.saveAnswer.reset();
    rig.file.SAVE_AS_Click();
    EXPECT_EQ(rig.dialogs.calls.size(), 1U);
    EXPECT_EQ(rig.file.FileName, first.string());
}

struct FailingSaveRig : SetupRig {
    FailingSaveRig() {
        fillRandomly(*this, 3);
        target = folder.write("studio.csd", "[system]\r\nACK Check=1\r\nprevious content\r\n");
        before = readBytes(target);
        file.FileName = target.string();
    }
    void expectUntouched(const std::string& reason) {
        EXPECT_EQ(readBytes(target), before);
        EXPECT_FALSE(std::filesystem::is_regular_file(folder / "studio.csd.tmp"));
        ASSERT_EQ(messages.shown.size(), 1U);
        EXPECT_EQ(messages.shown[0].text, "The setup data file could not be saved: " + reason);
        EXPECT_EQ(messages.shown[0].icon, Icon::Exclamation);
    }
    std::filesystem::path target;
    std::string before;
};

TEST(SetupSave, AFullDiskLeavesThePreviousFileAsItWas) {
    FailingSaveRig rig;
    rig.writer.diskFullAfter = 1000;
    rig.file.CsdSave();
    rig.expectUntouched("No space left on device");
    EXPECT_EQ(rig.writer.written, std::vector<std::filesystem::path>{rig.folder / "studio.csd.tmp"});
}

TEST(SetupSave, ARefusedRenameLeavesThePreviousFileAsItWas) {
    FailingSaveRig rig;
    rig.writer.refuseRename = true;
    rig.file.CsdSave();
    rig.expectUntouched("Permission denied");
}

TEST(SetupSave, AFileThatCannotBeCreatedLeavesThePreviousFileAsItWas) {
    FailingSaveRig rig;
    // The name the new content would take is held by a folder: creating it fails for any user.
    std::filesystem::create_directory(rig.folder / "studio.csd.tmp");
    rig.file.CsdSave();
    EXPECT_EQ(readBytes(rig.target), rig.before);
    EXPECT_TRUE(std::filesystem::is_directory(rig.folder / "studio.csd.tmp"));
    ASSERT_EQ(rig.messages.shown.size(), 1U);
    EXPECT_EQ(rig.messages.shown[0].text, "The setup data file could not be saved: Is a directory");
}

TEST(SetupSave, AFolderThatCannotBeWrittenLeavesThePreviousFileAsItWas) {
    FailingSaveRig rig;
    namespace fs = std::filesystem;
    fs::permissions(rig.folder.path(), fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
    {
        // Whoever may write anyway (the superuser) cannot see this failure.
        std::ofstream probe(rig.folder / "probe");
        if (probe) GTEST_SKIP() << "the folder stays writable for this user";
    }
    rig.file.CsdSave();
    rig.expectUntouched("Permission denied");
}

TEST(SetupSave, AMissingFolderIsReported) {
    SetupRig rig;
    rig.file.FileName = (rig.folder / "gone" / "x.csd").string();
    rig.file.CsdSave();
    EXPECT_EQ(rig.messages.texts(),
              std::vector<std::string>{"The setup data file could not be saved: No such file or directory"});
    EXPECT_FALSE(std::filesystem::exists(rig.folder / "gone"));
}

TEST(SetupSave, TheListingLeavesOutTheCameraSelectSceneAndEndLines) {
    SetupRig rig;
    rig.shared.cams.CamType(2) = "HD3";
    FuncItemSet(rig.stores, rig.messages, "7C");
    rig.stores.FuncData(1, 8) = "5";
    ListBox list;
    list.addItem("old");
    rig.file.CsdSave_Mon(list);
    const auto& lines = list.items();
    ASSERT_EQ(lines.size(), 2U + 1 + 8 + 1 + 18 + 1 + 1 + 1);
    EXPECT_EQ(lines[0], "[system]");
    EXPECT_EQ(lines[1], "ACK Check=0");
    EXPECT_EQ(lines[2], "[camera type/ID]");
    EXPECT_EQ(lines[4], "Camera 2=HD3|");
    EXPECT_EQ(lines[11], "[main data]");
    EXPECT_EQ(lines[12], "mBar=" + kEmpty32);
    EXPECT_EQ(lines[30], "[function scene data]");
    EXPECT_EQ(lines[31], "[function data]");
    EXPECT_EQ(lines[32], "7C=" + kEmpty8 + "5");
    EXPECT_TRUE(rig.writer.written.empty());
}

}  // namespace
}  // namespace station
