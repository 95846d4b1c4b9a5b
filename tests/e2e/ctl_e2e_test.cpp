// corvane-ctl against the standalone camera line on a pseudo-terminal, in real time: a
// backup of the studio, a change on a camera, the backup written back, and a second
// backup that comes out the same as the first.
#include <gtest/gtest.h>


#include "tests/e2e/child_process.hpp"
#include "tests/support/temp_folder.hpp"

namespace station {
namespace {

using namespace std::chrono_literals;
using testing::ChildProcess;

struct Ctl {
    std::string device;
    int run(std::vector<std::string> args) const {
        args.insert(args.begin(), {CORVANE_CTL_PATH, "--port", device, "--definitions", STATION_SAMPLES_DIR, "--quiet"});
        ChildProcess ctl(args);
        return ctl.wait(60s);
    }
};

TEST(CtlOnCameraSim, BackupRestoreRoundTrip) {
    ChildProcess sim({CAMERA_SIM_PATH, "--setup", STATION_SAMPLES_DIR "/studio.csd", "--exit-after", "150"});
    const auto path = sim.readLine(10s);
    ASSERT_TRUE(path.has_value());
    const Ctl ctl{*path};
    testing::TempFolder folder;
    const std::string first = (folder / "first.csd").string();
    const std::string changed = (folder / "changed.csd").string();
    const std::string second = (folder / "second.csd").string();

    ASSERT_EQ(ctl.run({"--setup", STATION_SAMPLES_DIR "/studio.csd", "read", "1-3", "--save", first}), 0);
    ASSERT_EQ(ctl.run({"--setup", first, "camera", "2,", "level", "mblk", "40,", "mode", "white", "ATW"}), 0);
    ASSERT_EQ(ctl.run({"--setup", first, "read", "2", "--save", changed}), 0);
    EXPECT_NE(testing::readBytes(changed), testing::readBytes(first));  // the camera did change
    ASSERT_EQ(ctl.run({"--setup", first, "write", "2"}), 0);
    ASSERT_EQ(ctl.run({"--setup", first, "read", "1-3", "--save", second}), 0);
    // The cameras started where their types allow (the knee point at its MIN, 40),
    // so the restore sends back exactly what was read.
    EXPECT_NE(testing::readBytes(first).find("\r\n3051=40,60,66,7C,60,40,"), std::string::npos);
    EXPECT_EQ(testing::readBytes(second), testing::readBytes(first));
    EXPECT_EQ(ctl.run({"verify", first, "1-3"}), 0);

    // A camera that is not on the line fails the run; a refused command does too.
    EXPECT_EQ(ctl.run({"--setup", first, "read", "7"}), 1);
    EXPECT_EQ(ctl.run({"--setup", first, "level", "iris", "900"}), 1);
    // A save named by a link is a command line that cannot be used; what it points to stays.
    testing::TempFolder outside;
    const auto victim = outside.write("victim.csd", "outside");
    std::filesystem::create_symlink(victim, folder / "linked.csd");
    EXPECT_EQ(ctl.run({"--setup", first, "--save", (folder / "linked.csd").string()}), 2);
    EXPECT_EQ(testing::readBytes(victim), "outside");
    EXPECT_EQ(sim.stop(), 0);
}

}  // namespace
}  // namespace station
