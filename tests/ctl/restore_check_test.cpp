// A restore is refused before anything is sent when its file is damaged, a camera's type has
// no definition, or a value is not one the type can take; an intact file passes.
#include <gtest/gtest.h>

#include "ctl/files/restore_check.hpp"
#include "ctl/files/setting_compare.hpp"
#include "ctl/files/type_items.hpp"
#include "tests/support/temp_folder.hpp"

namespace station::ctl {
namespace {

std::string studio() { return station::testing::readBytes(STATION_SAMPLES_DIR "/studio.csd"); }

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

const std::string kMid = "mMID=1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,";

struct Damage {
    const char* what;
    std::string text;
    std::vector<int> cameras;
    int line;
    const char* reason;  // a part of the reason
};

TEST(RestoreCheck, RefusesDamagedFilesWithLineAndReason) {
    const std::string good = studio();
    const std::string iris = "mIRIS=2,2,2,2,2,2,2,2,2,2,2,2";
    const Damage cases[] = {
        {"cut short", good.substr(0, 1200), {1}, 30, "32 values expected"},
        {"cut at a line end", good.substr(0, good.find("[function data]")), {1}, 53, "cut short"},
        {"no [main data]", replaced(good, "[main data]\r\n", ""), {1}, 15, "8 scene numbers expected"},
        {"a line cut in half", replaced(good, iris, "mIRIS=2,2,2,2,2,2\r\n2,2,2,2,2,2"), {2}, 21, "32 values expected"},
        {"empty", "", {1}, 0, "no [system]"},
        {"junk", "\x7f" "ELF\x01\x02 not a setup\n", {1}, 1, "not [system]"},
        {"unknown main setting", replaced(good, "mMID=", "mMIDDLE="), {1}, 31, "unknown main setting"},
        {"main value not a number", replaced(good, "aIRIS=-4,", "aIRIS=x4,"), {1}, 24, "not a whole number"},
        {"mode value the type lacks", replaced(good, "2040FC=02,", "2040FC=07,"), {1}, 35, "Gamma / Gamma Mode"},
        {"analog value wider than its size", replaced(good, "3051=55,", "3051=155,"), {1}, 40, "Knee / Knee Point"},
        {"shutter step the type lacks", replaced(good, "3055=02,", "3055=0999,"), {1}, 56, "Shutter / Shutter Speed"},
        {"camera without a type", good, {7}, 11, "camera 7 has no camera type"},
        {"scene number 5", replaced(good, "Scene=1,2,", "Scene=5,2,"), {1}, 14, "not 1 to 4"},
        // Main settings beyond what their controls take: gain type 0 (camera 1) has three steps,
        // gain type 1 (camera 5) four.
        {"bar past its end", replaced(good, "aMBLK=0,", "aMBLK=128,"), {1}, 23, "aMBLK cannot be 128: its bar runs -128 to 127"},
        {"gain step 3 of 3", replaced(good, "mGAIN=0,", "mGAIN=3,"), {1}, 19, "mGAIN cannot be 3"},
        {"MID value 32", replaced(good, kMid + "9,", kMid + "32,"), {5}, 31, "mMID cannot be 32"},
    };
    for (const Damage& d : cases) {
        const auto problem = checkRestore(d.text, d.cameras, STATION_SAMPLES_DIR);
        ASSERT_TRUE(problem.has_value()) << d.what;
        EXPECT_EQ(problem->lineNumber, d.line) << d.what << ": " << problem->reason;
        EXPECT_NE(problem->reason.find(d.reason), std::string::npos) << d.what << ": " << problem->reason;
    }
}

TEST(RestoreCheck, IntactFileAndOtherCamerasValuesPass) {
    const std::string good = studio();
    EXPECT_FALSE(checkRestore(good, {1, 2, 3, 4, 5, 6}, STATION_SAMPLES_DIR).has_value());
    // Camera 3's bad value does not stop a restore of camera 1; it does stop camera 3's.
    const std::string bad3 = replaced(good, "2040FC=02,00,01,02,00,01,02,00,01,", "2040FC=02,00,01,02,00,01,02,00,09,");
    EXPECT_FALSE(checkRestore(bad3, {1}, STATION_SAMPLES_DIR).has_value());
    EXPECT_TRUE(checkRestore(bad3, {3}, STATION_SAMPLES_DIR).has_value());
    // Each control's ends are taken; without ranges (verify), a value past them is read.
    for (const auto& [from, to] : std::vector<std::pair<std::string, std::string>>{
             {"aMBLK=0,", "aMBLK=127,"}, {"aMBLK=0,", "aMBLK=-128,"}, {"mGAIN=0,", "mGAIN=2,"}, {kMid + "9,", kMid + "31,"}})
        EXPECT_FALSE(checkRestore(replaced(good, from, to), {1, 5}, STATION_SAMPLES_DIR).has_value()) << to;
    EXPECT_FALSE(checkRestore(replaced(good, "aMBLK=0,", "aMBLK=128,"), {1}, STATION_SAMPLES_DIR, false).has_value());
}

TEST(TypeItems, NamesItemsAndTheirValues) {
    const auto st1 = findTypeDefinition(STATION_SAMPLES_DIR, "st1");
    ASSERT_TRUE(st1.has_value());
    const TypeItem* mode = st1->item("2040fc");
    ASSERT_NE(mode, nullptr);
    EXPECT_EQ(mode->function + " / " + mode->name, "Gamma / Gamma Mode");
    EXPECT_TRUE(mode->sceneFunction);
    EXPECT_EQ(st1->valueName(*mode, "01"), "FILM");
    const TypeItem* speed = st1->item("3055");
    ASSERT_NE(speed, nullptr);
    EXPECT_FALSE(speed->sceneFunction);
    EXPECT_EQ(st1->valueName(*speed, "000A"), "1/64.7");
    EXPECT_EQ(st1->item("40"), nullptr);  // an action item keeps no setting
    const TypeItem* level = st1->item("3050");
    ASSERT_NE(level, nullptr);
    // Levels in any form the window reads: case, width, leading zeros.
    for (const char* takes : {"", "00", "FF", "7f", "F", "0"}) EXPECT_TRUE(st1->takes(*level, takes)) << takes;
    for (const char* refuses : {"100", "G0", "-1"}) EXPECT_FALSE(st1->takes(*level, refuses)) << refuses;
    // The knee point runs from MIN 40 to MAX C0.
    const TypeItem* knee = st1->item("3051");
    EXPECT_EQ(st1->levelProblem(*knee, "00").value_or(""), "below MIN 40");
    EXPECT_EQ(st1->levelProblem(*knee, "C1").value_or(""), "above MAX C0");
    EXPECT_FALSE(st1->levelProblem(*knee, "c0").has_value());
    EXPECT_TRUE(st1->takes(*mode, "2") && !st1->takes(*mode, "09"));
    EXPECT_FALSE(findTypeDefinition(STATION_SAMPLES_DIR, "ZZ9").has_value());
}

// Verify compares what the values denote; a level the item cannot take is a difference
// whatever the camera holds, and says why.
TEST(SettingCompare, ValuesNotText) {
    const auto st1 = findTypeDefinition(STATION_SAMPLES_DIR, "ST1");
    ASSERT_TRUE(st1.has_value());
    CameraSettings file, read;
    file.main[7] = "05";  // level mblk
    read.main[7] = "5";
    file.items["3050"] = "2a";
    read.items["3050"] = "2A";
    file.items["2040FC"] = "2";
    read.items["2040FC"] = "02";
    EXPECT_TRUE(settingDifferences(1, file, read, *st1).empty());
    file.items["3051"] = "00";
    read.items["3051"] = "40";
    EXPECT_EQ(settingDifferences(1, file, read, *st1),
              std::vector<std::string>{"camera 1: Knee / Knee Point: file 00 (below MIN 40) camera 40"});
}

}  // namespace
}  // namespace station::ctl
