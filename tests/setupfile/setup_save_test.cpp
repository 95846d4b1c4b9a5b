// Saving the setup data file: its exact lines, the round trip through a load, the dialogs,
// and a previous file that survives every failure.
#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <random>

#include "tests/setupfile/setup_rig.hpp"

namespace station {
namespace {

using testing::crlf;
using testing::readBytes;
using testing::SetupRig;

const std::string kEmpty32(31, ',');
const std::string kEmpty8(7, ',');

TEST(SetupSave, LinesInOrder) {
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
    for (int j = 1; j <= 18; ++j)
        expected += rig.stores.MainKey(j) + (j == 1 ? "1" + kEmpty32 : j == 18 ? kEmpty32 + "3" : kEmpty32) + "\r\n";
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

// Whatever step fails, the file and its backup are each the old or the new version, never
// empty, and no temporary file of ours stays behind.
TEST(SetupSave, FailureKeepsTheFile) {
    using Step = testing::FlakyWriter::Step;
    const struct {
        const char* name;
        std::function<void(SetupRig&)> spoil;
        const char* reason;
        bool backedUp;
    } cases[] = {
        {"backup", [](SetupRig& r) { r.writer.failAt = Step::Backup; },
         "the previous version could not be kept as *.bak: No space left on device", false},
        {"backup rename", [](SetupRig& r) { r.writer.failAt = Step::BackupRename; },
         "the previous version could not be kept as *.bak: Permission denied", false},
        {"write", [](SetupRig& r) { r.writer.failAt = Step::Write; }, "Input/output error", true},
        {"full disk", [](SetupRig& r) { r.writer.diskFullAfter = 1000; }, "No space left on device", true},
        {"flush", [](SetupRig& r) { r.writer.failAt = Step::Flush; }, "Input/output error", true},
        {"refused rename", [](SetupRig& r) { r.writer.failAt = Step::Rename; }, "Permission denied", true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        SetupRig rig;
        fillRandomly(rig, 3);
        const auto target = rig.folder.write("studio.csd", "[system]\r\nACK Check=1\r\nprevious content\r\n");
        rig.folder.write("studio.csd.bak", "the backup before");
        const std::string before = readBytes(target);
        rig.file.FileName = target.string();
        c.spoil(rig);
        rig.file.CsdSave();
        EXPECT_EQ(readBytes(target), before);
        EXPECT_EQ(readBytes(rig.folder / "studio.csd.bak"), c.backedUp ? before : "the backup before");
        EXPECT_FALSE(std::filesystem::exists(rig.folder / "studio.csd.tmp"));
        EXPECT_FALSE(std::filesystem::exists(rig.folder / "studio.csd.bak.tmp"));
        ASSERT_EQ(rig.messages.shown.size(), 1U);
        std::string reason = c.reason;
        if (const auto star = reason.find('*'); star != std::string::npos)
            reason.replace(star, 1, (rig.folder / "studio.csd").string());
        EXPECT_EQ(rig.messages.shown[0].text, "The setup data file could not be saved: " + reason);
    }
}

// Links planted under the names a save uses: the file itself is refused; a link in place of
// the backup or a temporary file is replaced or removed, never written through. The files
// they point to stay as they were, byte for byte.
TEST(SetupSave, PlantedLinksAreNeverFollowed) {
    namespace fs = std::filesystem;
    for (const std::string planted : {"studio.csd", "studio.csd.bak", "studio.csd.tmp", "studio.csd.bak.tmp"}) {
        SCOPED_TRACE(planted);
        SetupRig rig;
        testing::TempFolder outside;
        const auto victim = outside.write("victim", "22 bytes of someone's");
        fs::create_directory(rig.folder / "show");
        const auto target = rig.folder / "show" / "studio.csd";
        if (planted != "studio.csd") rig.folder.write("show/studio.csd", "[system]\r\nold\r\n");
        fs::create_symlink(victim, rig.folder / "show" / planted);
        rig.file.FileName = target.string();
        rig.file.CsdSave();
        EXPECT_EQ(readBytes(victim), "22 bytes of someone's");
        EXPECT_EQ(std::distance(fs::directory_iterator(outside.path()), fs::directory_iterator()), 1);
        if (planted == "studio.csd") {
            ASSERT_EQ(rig.messages.shown.size(), 1U);
            EXPECT_EQ(rig.messages.shown[0].text, "The setup data file could not be saved: " + target.string() +
                                                      " is a symbolic link; it is not written through");
            EXPECT_TRUE(fs::is_symlink(target));
            EXPECT_FALSE(fs::exists(rig.folder / "show" / "studio.csd.bak"));
            continue;
        }
        EXPECT_TRUE(rig.messages.shown.empty());
        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(target)));
        EXPECT_EQ(readBytes(rig.folder / "show" / "studio.csd.bak"), "[system]\r\nold\r\n");
        EXPECT_FALSE(fs::exists(fs::symlink_status(rig.folder / "show" / "studio.csd.tmp")));
        EXPECT_FALSE(fs::exists(fs::symlink_status(rig.folder / "show" / "studio.csd.bak.tmp")));
    }
}

// Opening a file removes what an interrupted save of it left beside it, whether or not the
// file was ever used before; a folder of that name is not ours.
TEST(SetupSave, OpeningRemovesStaleTemporaries) {
    SetupRig rig;
    rig.folder.write("studio.csd.tmp", "[system]\r\nhalf");
    std::filesystem::create_directory(rig.folder / "studio.csd.bak.tmp");
    rig.folder.write("other.csd.tmp", "not this file's");
    rig.load("[system]\r\nACK Check=1\r\n");
    rig.file.FileName = rig.folder.write("studio.csd", "[system]\r\nACK Check=1\r\n").string();
    rig.file.CsdLoad();
    EXPECT_FALSE(std::filesystem::exists(rig.folder / "studio.csd.tmp"));
    EXPECT_TRUE(std::filesystem::is_directory(rig.folder / "studio.csd.bak.tmp"));
    EXPECT_EQ(readBytes(rig.folder / "other.csd.tmp"), "not this file's");
    EXPECT_EQ(rig.shared.AckMode, 1);
}

TEST(SetupSave, SaveAs) {
    for (const auto& [typed, saved] : std::vector<std::pair<std::string, std::string>>{
             {"studio.v2", "studio.v2.csd"}, {"STUDIO.CSD", "STUDIO.CSD"}}) {
        SCOPED_TRACE(typed);
        SetupRig rig;
        rig.dialogs.saveAnswer = (rig.folder / typed).string();
        rig.file.SAVE_AS_Click();
        EXPECT_TRUE(std::filesystem::is_regular_file(rig.folder / saved));
    }

    SetupRig rig;
    const auto existing = rig.folder.write("studio.csd", "[system]\r\nACK Check=1\r\nkept as it is\r\n");
    rig.file.FileName = "before.csd";
    rig.dialogs.saveAnswer = (rig.folder / "studio").string();
    rig.dialogs.replaceAnswer = false;
    rig.file.SAVE_AS_Click();
    EXPECT_EQ(rig.dialogs.calls.back(), "replace? " + existing.string());
    EXPECT_EQ(readBytes(existing), "[system]\r\nACK Check=1\r\nkept as it is\r\n");
    EXPECT_EQ(rig.file.FileName, "before.csd");

    rig.dialogs.replaceAnswer = true;
    rig.file.SAVE_AS_Click();
    EXPECT_EQ(rig.file.FileName, existing.string());
    EXPECT_NE(readBytes(existing), readBytes(rig.folder / "studio.csd.bak"));
}

}  // namespace
}  // namespace station
