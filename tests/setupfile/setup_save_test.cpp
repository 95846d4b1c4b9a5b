// Saving the setup data file: its exact lines, the round trip through a load, the dialogs,
// and a previous file that survives every failure.
#include <gtest/gtest.h>

#include <functional>
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
    for (int j = 1; j <= 18; ++j)
        expected += rig.stores.MainKey(j) + (j == 1 ? "1" + kEmpty32 : j == 18 ? kEmpty32 + "3" : kEmpty32) + "\r\n";
    expected += crlf({"[function scene data]", "6A=,,,,01" + std::string(27, ','), "[function data]",
                      "7C=00" + kEmpty8, "[end]"});
    EXPECT_EQ(readBytes(rig.folder / "new.csd"), expected);
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_FALSE(std::filesystem::exists(rig.folder / "new.csd.tmp"));

    // The diagnostic listing leaves out the camera select, scene and end lines.
    ListBox list;
    list.addItem("old");
    rig.file.CsdSave_Mon(list);
    ASSERT_EQ(list.items().size(), 2U + 1 + 8 + 1 + 18 + 2 + 2);
    EXPECT_EQ(list.items()[2] + " " + list.items()[11] + " " + list.items()[33],
              "[camera type/ID] [main data] 7C=00" + kEmpty8);
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
        EXPECT_EQ(loaded.shared.cams.CamID(c), saved.shared.cams.CamID(c));  // a bar inside an ID survives
        EXPECT_EQ(loaded.stores.MainScnData(18, c, 4), saved.stores.MainScnData(18, c, 4));
    }
    // Rows never set are dropped, the others come back in order.
    EXPECT_EQ(loaded.stores.FuncData(0, 0), "258");
    EXPECT_EQ(loaded.stores.FuncScnData(7, 0, 0), "S8");
    EXPECT_EQ(loaded.stores.FuncScnData(7, 8, 4), saved.stores.FuncScnData(8, 8, 4));
    // And everything else: the loaded settings save to the very same bytes.
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

TEST(SetupSave, AFailedSaveLeavesThePreviousFileAsItWasAndSaysWhy) {
    using Step = testing::FlakyWriter::Step;
    const struct {
        const char* name;
        std::function<void(SetupRig&)> spoil;
        const char* reason;
        bool backedUp;
    } cases[] = {
        {"backup", [](SetupRig& r) { r.writer.failAt = Step::Backup; },
         "the previous version could not be kept as *.bak: No space left on device", false},
        {"full disk", [](SetupRig& r) { r.writer.diskFullAfter = 1000; }, "No space left on device", true},
        {"flush", [](SetupRig& r) { r.writer.failAt = Step::Flush; }, "Input/output error", true},
        {"refused rename", [](SetupRig& r) { r.writer.failAt = Step::Rename; }, "Permission denied", true},
        // The name the new content would take is held by a folder: creating it fails for any user.
        {"held name", [](SetupRig& r) { std::filesystem::create_directory(r.folder / "studio.csd.tmp"); },
         "Is a directory", true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        SetupRig rig;
        fillRandomly(rig, 3);
        const auto target = rig.folder.write("studio.csd", "[system]\r\nACK Check=1\r\nprevious content\r\n");
        const std::string before = readBytes(target);
        rig.file.FileName = target.string();
        c.spoil(rig);
        rig.file.CsdSave();
        EXPECT_EQ(readBytes(target), before);
        if (c.backedUp) {
            EXPECT_EQ(readBytes(rig.folder / "studio.csd.bak"), before);
        }
        EXPECT_FALSE(std::filesystem::is_regular_file(rig.folder / "studio.csd.tmp"));
        ASSERT_EQ(rig.messages.shown.size(), 1U);
        std::string reason = c.reason;
        if (const auto star = reason.find('*'); star != std::string::npos)
            reason.replace(star, 1, (rig.folder / "studio.csd").string());
        EXPECT_EQ(rig.messages.shown[0].text, "The setup data file could not be saved: " + reason);
        EXPECT_EQ(rig.messages.shown[0].icon, Icon::Exclamation);
    }
    SetupRig rig;
    rig.file.FileName = (rig.folder / "gone" / "x.csd").string();
    rig.file.CsdSave();
    EXPECT_EQ(rig.messages.texts(),
              std::vector<std::string>{"The setup data file could not be saved: No such file or directory"});
    EXPECT_FALSE(std::filesystem::exists(rig.folder / "gone"));
}

}  // namespace
}  // namespace station

namespace station {
namespace {

TEST(SetupSave, ReplacingKeepsThePreviousVersionAndSaysWhereWhenItWasNoSetupFile) {
    for (const auto& [previous, told] : std::vector<std::pair<std::string, bool>>{
             {"[system]\r\nACK Check=1\r\n", false}, {"\xEF\xBB\xBF[system]\r\n", false}, {"64 KB of else\n", true}}) {
        SetupRig rig;
        std::vector<std::string> notices, used;
        rig.file.Notify = [&](const std::string& text) { notices.push_back(text); };
        rig.file.FileUsed = [&](const std::string& path) { used.push_back(path); };
        const auto target = rig.folder.write("studio.csd", previous);
        rig.folder.write("studio.csd.tmp", "left by a save that was cut short");
        rig.file.FileName = target.string();
        rig.file.CsdSave();
        EXPECT_EQ(readBytes(target).substr(0, 10), "[system]\r\n");
        EXPECT_EQ(readBytes(rig.folder / "studio.csd.bak"), previous);
        EXPECT_FALSE(std::filesystem::exists(rig.folder / "studio.csd.tmp"));
        EXPECT_EQ(used, std::vector<std::string>{target.string()});
        const std::string where = "The replaced file did not look like setup data; its previous content is kept in " +
                                  target.string() + ".bak";
        EXPECT_EQ(notices, told ? std::vector<std::string>{where} : std::vector<std::string>{});
    }
}

TEST(SetupSave, SaveAsAddsTheExtensionAndAsksBeforeReplacing) {
    for (const auto& [typed, saved] : std::vector<std::pair<std::string, std::string>>{
             {"studio", "studio.csd"}, {"studio.csd", "studio.csd"}, {"STUDIO.CSD", "STUDIO.CSD"},
             {"studio.v2", "studio.v2.csd"}, {"studio.", "studio..csd"}}) {
        SCOPED_TRACE(typed);
        SetupRig rig;
        rig.dialogs.saveAnswer = (rig.folder / typed).string();
        rig.file.SAVE_AS_Click();
        EXPECT_EQ(rig.file.FileName, (rig.folder / saved).string());
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
    EXPECT_FALSE(std::filesystem::exists(rig.folder / "studio.csd.bak"));
    EXPECT_EQ(rig.file.FileName, "before.csd");

    rig.dialogs.replaceAnswer = true;
    rig.file.SAVE_AS_Click();
    EXPECT_EQ(rig.file.FileName, existing.string());
    EXPECT_NE(readBytes(existing), readBytes(rig.folder / "studio.csd.bak"));
}

}  // namespace
}  // namespace station
