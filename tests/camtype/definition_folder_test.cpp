#include <gtest/gtest.h>

#include "camtype/definition_folder.hpp"
#include "tests/support/temp_folder.hpp"

namespace station {
namespace {

using testing::TempFolder;

TEST(DefinitionFolder, SettingFileFromTheEnvironment) {
    EXPECT_EQ(rememberedSettingFile("/cfg", "/home/op"),
              std::filesystem::path("/cfg/corvane-station/definition-folder"));
    for (const char* config : {"", static_cast<const char*>(nullptr)})
        EXPECT_EQ(rememberedSettingFile(config, "/home/op"),
                  std::filesystem::path("/home/op/.config/corvane-station/definition-folder"));
    EXPECT_FALSE(rememberedSettingFile(nullptr, nullptr));
}

TEST(DefinitionFolder, TheOldSettingFileNamesTheFolderInItsFirstLine) {
    TempFolder tmp;
    EXPECT_FALSE(readRememberedFolder(tmp / "definition-folder"));
    tmp.write("lf", "/usr/share/corvane-station\n");
    EXPECT_EQ(readRememberedFolder(tmp / "lf"), std::filesystem::path("/usr/share/corvane-station"));

    tmp.write("crlf", "C:\\Types\r\nignored\r\n");
    EXPECT_EQ(readRememberedFolder(tmp / "crlf"), std::filesystem::path("C:\\Types"));
    tmp.write("empty", "\r\n/second\r\n");
    EXPECT_FALSE(readRememberedFolder(tmp / "empty"));
}

TEST(DefinitionFolder, OptionThenRememberedThenWorkingFolder) {
    TempFolder tmp;
    const std::filesystem::path working = "/work/here";
    const std::filesystem::path remembered = tmp.path();
    EXPECT_EQ(chooseDefinitionFolder(std::filesystem::path("/opt/x"), remembered, working), "/opt/x");
    EXPECT_EQ(chooseDefinitionFolder(std::nullopt, remembered, working), remembered);
    EXPECT_EQ(chooseDefinitionFolder(std::nullopt, std::nullopt, working), working);
    // A remembered folder that is gone does not hide the working folder.
    EXPECT_EQ(chooseDefinitionFolder(std::nullopt, tmp / "gone", working), working);
}

}  // namespace
}  // namespace station
