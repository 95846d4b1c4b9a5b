// The standalone line's description: options and the setup data file.
#include <gtest/gtest.h>

#include <sstream>

#include "sim/line_setup.hpp"
#include "sim/tool/tool_options.hpp"

namespace station::sim {
namespace {

using Args = std::vector<std::string>;

std::string errorOf(const Args& args) {
    try {
        parseToolOptions(args);
    } catch (const std::invalid_argument& e) {
        return e.what();
    }
    return "";
}

TEST(LineSetup, ReadsTheCamerasAndTheIdSettingOfASetupDataFile) {
    std::istringstream file(
        "[system]\r\nACK Check=0\r\nCamera Select=1\r\n[camera type/ID]\r\nCamera 1=AB1|01\r\n"
        "Camera 2=AB1|02\r\nCamera 3=|\r\nCamera 4=CD2|\r\nCamera 5=EF3\r\nCamera 9=AB1|09\r\n"
        "[scene no]\r\nScene=1,1,1,1,1,1,1,1\r\n[main data]\r\nCamera 6=AB1|06\r\n[end]\r\n");
    LineSetup setup;
    readSetupData(file, setup);
    EXPECT_TRUE(setup.idMode);
    EXPECT_EQ(setup.count(), 3);
    EXPECT_EQ(setup.at(1).type, "AB1");
    EXPECT_EQ(setup.at(2).id, "02");
    EXPECT_FALSE(setup.at(3).present);
    EXPECT_TRUE(setup.at(4).present);  // a type without an ID is still a camera
    EXPECT_FALSE(setup.at(5).present);  // no bar: not a camera line
    EXPECT_FALSE(setup.at(6).present);  // outside its section

    Line line;
    setup.build(line);
    EXPECT_TRUE(line.idMode());
    ASSERT_NE(line.camera(2), nullptr);
    EXPECT_EQ(line.camera(2)->header(), " 02");
    EXPECT_EQ(line.camera(3), nullptr);
}

TEST(ToolOptions, CamerasSpeedAndFaults) {
    const ToolOptions o = parseToolOptions(Args{"--camera", "1:AB1:01", "--camera=3:CD2:7", "--speed", "19200",
                                                "--id-mode", "--auto-delay", "250", "--fault", "3:nak=4",
                                                "--fault", "3:split=2", "--fault", "1:auto-ng=1A", "--fault",
                                                "1:silent", "--link", "/tmp/x", "--trace", "--exit-after=5"});
    EXPECT_EQ(o.line.count(), 2);
    EXPECT_EQ(o.line.speed, 19200);
    EXPECT_TRUE(o.line.idMode);
    EXPECT_EQ(o.linkPath, "/tmp/x");
    EXPECT_TRUE(o.trace);
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
}

TEST(ToolOptions, WithoutCamerasOneStandsAtPositionOne) {
    const ToolOptions o = parseToolOptions({});
    EXPECT_EQ(o.line.count(), 1);
    EXPECT_EQ(o.line.cameras[0].id, "01");
    EXPECT_EQ(o.line.speed, 9600);
    EXPECT_TRUE(parseToolOptions({"--help"}).help);
}

TEST(ToolOptions, MistakesAreNamed) {
    EXPECT_NE(errorOf({"--camera", "9:AB1:01"}).find("1 to 8"), std::string::npos);
    EXPECT_NE(errorOf({"--camera", "1:AB1"}).find("N:TYPE:ID"), std::string::npos);
    EXPECT_NE(errorOf({"--speed", "4800"}).find("9600 or 19200"), std::string::npos);
    EXPECT_NE(errorOf({"--fault", "2:nak"}).find("no camera at position 2"), std::string::npos);
    EXPECT_NE(errorOf({"--fault", "1:wobble"}).find("unknown fault"), std::string::npos);
    EXPECT_NE(errorOf({"--fault", "1:split=0"}).find("from 1 to 255"), std::string::npos);
    EXPECT_NE(errorOf({"--fault", "1:auto-ng=XY"}).find("(hex)"), std::string::npos);
    EXPECT_NE(errorOf({"--camera"}).find("missing value"), std::string::npos);
    EXPECT_NE(errorOf({"--trace=1"}).find("takes no value"), std::string::npos);
    EXPECT_NE(errorOf({"--setup", "/nonexistent/x.csd"}).find("cannot read"), std::string::npos);
    EXPECT_NE(errorOf({"-x"}).find("unknown option"), std::string::npos);
}

TEST(ToolOptions, HelpSaysHowToPointTheStationAtTheLine) {
    const std::string help = toolHelp();
    EXPECT_NE(help.find("CORVANE_PORT"), std::string::npos);
    EXPECT_NE(help.find("--link"), std::string::npos);
    EXPECT_NE(help.find("--camera N:TYPE:ID"), std::string::npos);
    EXPECT_NE(help.find("auto-ng=CODE"), std::string::npos);
}

}  // namespace
}  // namespace station::sim
