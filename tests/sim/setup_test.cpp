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

TEST(ToolOptions, CamerasSpeedAndFaults) {
    const ToolOptions o = parseToolOptions(Args{"--camera", "1:AB1:01", "--camera=3:CD2:7", "--speed", "19200",
                                                "--id-mode", "--auto-delay", "250", "--fault", "3:nak=4",
                                                "--fault", "3:split=2", "--fault", "1:auto-ng=1A", "--fault",
                                                "1:silent", "--link", "/tmp/x", "--trace", "--exit-after=5"});
    EXPECT_TRUE(o.line.idMode && o.trace);
    EXPECT_EQ(o.linkPath, "/tmp/x");
    EXPECT_EQ(o.exitAfter, 5.0);
    Line line;
    o.line.build(line);
    EXPECT_EQ(line.speed(), 19200);
    const Camera& three = line.at(3);
    EXPECT_EQ(three.id(), "7");
    EXPECT_EQ(three.faults.nak, 4);
    EXPECT_EQ(three.faults.split, Faults::kEvery);
    EXPECT_EQ(three.faults.splitAt, 2);
    EXPECT_EQ(three.timing.autoDelay, std::chrono::milliseconds(250));
    EXPECT_EQ(line.at(1).autoResultCode, 0x1A);
    EXPECT_TRUE(line.at(1).faults.silent);

    const ToolOptions plain = parseToolOptions({});  // one camera stands at position one
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
