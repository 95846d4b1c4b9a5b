// How corvane-ctl reads its command line: options, commands split at "," and ";", camera lists.
#include <gtest/gtest.h>

#include "ctl/ctl_options.hpp"
#include "ctl/ctl_session.hpp"

namespace station::ctl {
namespace {

using Lines = std::vector<std::string>;

TEST(CtlOptions, SplitCommands) {
    const CtlOptions o = parseCtlOptions({"--port", "/dev/ttyUSB0", "--setup=studio.csd", "read", "1-8", "--save",
                                          "backup.csd", "camera", "2,", "level", "iris", "-3", ";", "auto", "white"});
    EXPECT_EQ(o.port, "/dev/ttyUSB0");
    EXPECT_EQ(o.setup, "studio.csd");
    EXPECT_EQ(o.save, "backup.csd");
    EXPECT_EQ(o.commands, (Lines{"read 1-8", "camera 2", "level iris -3", "auto white"}));
    EXPECT_EQ(scriptCommands("# show start\r\n camera 1\r\n\r\nscene recall 2 \n"),
              (Lines{"camera 1", "scene recall 2"}));
}

TEST(CtlOptions, RefusedWithReason) {
    const std::pair<Lines, const char*> bad[] = {
        {{"--port"}, "--port needs a value"},
        {{"--simulate"}, "--simulate needs --setup: its cameras make the line"},
        {{"--port", "x", "--simulate", "--setup", "s.csd"}, "--port and --simulate exclude each other"},
        {{"--colour"}, "unknown option --colour"},
        {{"--quiet=yes"}, "--quiet takes no value"},
        {{"--script", "/nonexistent/show.txt"}, "--script /nonexistent/show.txt: cannot read the file"},
    };
    for (const auto& [args, reason] : bad) {
        try {
            parseCtlOptions(args);
            ADD_FAILURE() << reason;
        } catch (const std::invalid_argument& e) {
            EXPECT_STREQ(e.what(), reason);
        }
    }
}

TEST(CtlOptions, CameraLists) {
    EXPECT_EQ(cameraList("1-3,5,8"), (std::vector<int>{1, 2, 3, 5, 8}));
    for (const char* bad : {"0", "9", "3-1", "a", "1-", ""}) EXPECT_THROW(cameraList(bad), std::invalid_argument) << bad;
}

}  // namespace
}  // namespace station::ctl
