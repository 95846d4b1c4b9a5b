// Saving the setup data file: the dialogs, and a previous file that survives every failure.
// The bytes it writes are the sample studio's round trip in the load tests.
#include <gtest/gtest.h>

#include <functional>
#include <iterator>

#include "tests/setupfile/setup_rig.hpp"

namespace station {
namespace {

using testing::readBytes;
using testing::SetupRig;

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
        rig.load(readBytes(STATION_SAMPLES_DIR "/studio.csd"));  // a file of some size
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
