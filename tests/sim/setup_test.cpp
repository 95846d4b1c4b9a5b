// The standalone line's description: options and the setup data file.
#include <gtest/gtest.h>

#include <sstream>

#include "sim/line_setup.hpp"
#include "sim/tool/tool_options.hpp"

namespace station::sim {
namespace {

using Args = std::vector<std::string>;

TEST(LineSetup, ReadsTheCamerasAndTheIdSettingOfASetupDataFile) {
    std::istringstream file(
        "[system]\r\nACK Check=0\r\nCamera Select=1\r\n[camera type/ID]\r\nCamera 1=AB1|01\r\n"
        "Camera 2=AB1|02\r\nCamera 3=|\r\nCamera 4=CD2|\r\nCamera 5=EF3\r\nCamera 9=AB1|09\r\n"
        "[main data]\r\nCamera 6=AB1|06\r\n[end]\r\n");
    LineSetup setup;
    readSetupData(file, setup);
    EXPECT_TRUE(setup.idMode);
    EXPECT_EQ(setup.count(), 3);
    // A type without an ID is still a camera; a line without the bar or outside its section is not.
    std::string present;
    for (int p = 1; p <= 6; ++p) present += setup.at(p).present ? '1' : '0';
    EXPECT_EQ(present, "110100");
    Line line;
    setup.build(line);
    EXPECT_TRUE(line.idMode());
    ASSERT_NE(line.camera(2), nullptr);
    EXPECT_EQ(line.camera(2)->header(), " 02");
}

// The options that take effect on the line are shown by the camera-sim run in tests/e2e.
TEST(ToolOptions, WithoutCamerasOneStandsAtPositionOne) {
    const ToolOptions plain = parseToolOptions({});
    EXPECT_EQ(plain.line.count(), 1);
    EXPECT_EQ(plain.line.cameras[0].id, "01");
    EXPECT_EQ(plain.line.speed, 9600);
    EXPECT_NE(toolHelp().find("CORVANE_PORT"), std::string::npos);
}

TEST(ToolOptions, MistakesAreNamed) {
    const std::pair<Args, const char*> cases[] = {
        {{"--camera", "9:AB1:01"}, "1 to 8"}, {{"--camera", "1:AB1"}, "N:TYPE:ID"},
        {{"--speed", "4800"}, "9600 or 19200"}, {{"--fault", "2:nak"}, "no camera at position 2"},
        {{"--fault", "1:wobble"}, "unknown fault"}, {{"--fault", "1:split=0"}, "from 1 to 255"},
        {{"--fault", "1:auto-ng=XY"}, "(hex)"}, {{"--camera"}, "missing value"}, {{"--trace=1"}, "takes no value"},
        {{"--setup", "/nonexistent/x.csd"}, "cannot read"}, {{"-x"}, "unknown option"}};
    for (const auto& [args, says] : cases) {
        try {
            parseToolOptions(args);
            ADD_FAILURE() << args[0] << " accepted";
        } catch (const std::invalid_argument& e) {
            EXPECT_NE(std::string(e.what()).find(says), std::string::npos) << e.what();
        }
    }
}

}  // namespace
}  // namespace station::sim
