// corvane-ctl run unattended against camera-sim on a pseudo-terminal, in real time: what
// reaches the cameras, what is on disk afterwards, and the exit status. Time limits hold five
// times over on a busy machine.
#include <gtest/gtest.h>

#include <sstream>
#include <thread>

#include "tests/e2e/child_process.hpp"
#include "tests/support/temp_folder.hpp"

namespace station::testing {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
const std::string kStudio = STATION_SAMPLES_DIR "/studio.csd";

// camera-sim with the sample studio and the given faults; its transmissions go to a file.
struct Sim {
    Sim(const TempFolder& folder, std::vector<std::string> faults = {})
        : trace(folder / "trace.txt"), process(command(std::move(faults)), trace) {
        if (const auto path = process.readLine(50s)) device = *path;
        EXPECT_FALSE(device.empty());
    }
    static std::vector<std::string> command(std::vector<std::string> faults) {
        std::vector<std::string> words{CAMERA_SIM_PATH, "--trace", "--exit-after", "900", "--setup", kStudio};
        for (std::string& f : faults) words.insert(words.end(), {"--fault", std::move(f)});
        return words;
    }
    // Frames the station sent since the start (not its ACK bytes).
    int framesFromStation() const {
        std::istringstream in(readBytes(trace));
        int n = 0;
        for (std::string line; std::getline(in, line);) {
            const std::size_t at = line.find("station  ->");
            n += at != std::string::npos && line.size() - at > std::string("station  -> 06").size();
        }
        return n;
    }
    std::filesystem::path trace;
    ChildProcess process;
    std::string device;
};

struct CtlRun {
    int status;
    std::string err;
    Clock::duration took;
    bool says(const std::string& text) const { return err.find(text) != std::string::npos; }
};

CtlRun ctl(const TempFolder& folder, const std::string& device, const std::vector<std::string>& args) {
    std::vector<std::string> words{CORVANE_CTL_PATH, "--port", device, "--definitions", STATION_SAMPLES_DIR};
    words.insert(words.end(), args.begin(), args.end());
    const auto start = Clock::now();
    const int status = ChildProcess(words, folder / "ctl-err.txt").wait(300s);
    return {status, readBytes(folder / "ctl-err.txt"), Clock::now() - start};
}

TEST(CtlOnCameraSim, BackupRestoreRoundTrip) {
    TempFolder folder;
    Sim sim(folder);
    const std::string first = (folder / "first.csd").string();
    const std::string changed = (folder / "changed.csd").string();
    const std::string second = (folder / "second.csd").string();
    const auto run = [&](std::vector<std::string> args) {
        args.insert(args.begin(), "--quiet");
        const CtlRun r = ctl(folder, sim.device, args);
        EXPECT_NE(r.status, -1) << r.err;
        return r.status;
    };

    ASSERT_EQ(run({"--setup", kStudio, "read", "1-3", "--save", first}), 0);
    ASSERT_EQ(run({"--setup", first, "camera", "2,", "level", "mblk", "40,", "mode", "white", "ATW"}), 0);
    ASSERT_EQ(run({"--setup", first, "read", "2", "--save", changed}), 0);
    EXPECT_NE(readBytes(changed), readBytes(first));  // the camera did change
    ASSERT_EQ(run({"--setup", first, "write", "2"}), 0);
    ASSERT_EQ(run({"--setup", first, "read", "1-3", "--save", second}), 0);
    // The cameras started where their types allow (the knee point at its MIN, 40),
    // so the restore sends back exactly what was read.
    EXPECT_NE(readBytes(first).find("\r\n3051=40,60,66,7C,60,40,"), std::string::npos);
    EXPECT_EQ(readBytes(second), readBytes(first));
    EXPECT_EQ(run({"verify", first, "1-3"}), 0);

    // A camera that is not on the line fails the run; a refused command does too, and stops it.
    EXPECT_EQ(run({"--setup", first, "read", "7"}), 1);
    const int before = sim.framesFromStation();
    EXPECT_EQ(run({"--setup", first, "camera", "9,", "level", "mblk", "3"}), 1);
    EXPECT_EQ(sim.framesFromStation(), before);
    // A save named by a link is a command line that cannot be used; what it points to stays.
    TempFolder outside;
    const auto victim = outside.write("victim.csd", "outside");
    std::filesystem::create_symlink(victim, folder / "linked.csd");
    EXPECT_EQ(run({"--setup", first, "--save", (folder / "linked.csd").string()}), 2);
    EXPECT_EQ(readBytes(victim), "outside");
    EXPECT_EQ(sim.process.stop(), 0);
}

// A backup run while camera 3 misbehaves fails, names camera 3, and leaves the good backup
// exactly as it was; with --partial it writes what was read and names camera 3.
class FaultyCamera : public ::testing::TestWithParam<const char*> {};

TEST_P(FaultyCamera, BackupKeepsTheGoodFile) {
    TempFolder folder;
    Sim sim(folder, {std::string("3:") + GetParam()});
    const std::string good = readBytes(kStudio) + "\r\n";  // any file that is not a new save
    const auto backup = folder.write("good.csd", good);

    const CtlRun run = ctl(folder, sim.device, {"--setup", kStudio, "--quiet", "read", "3,4", "--save",
                                                backup.string(), ",", "level", "iris", "3"});
    EXPECT_EQ(run.status, 1) << run.err;
    EXPECT_EQ(readBytes(backup), good);
    EXPECT_FALSE(std::filesystem::exists(folder / "good.csd.bak"));
    EXPECT_TRUE(run.says("camera 3 did not answer every read")) << run.err;
    // Camera 3 fails alone: camera 4 after it answers, and the run then stops.
    EXPECT_TRUE(run.says("camera 4 (HD3, ID 4) read: ") && !run.says("camera 4 (HD3, ID 4) read: FAILED")) << run.err;
    EXPECT_TRUE(run.says("1 command was not carried out")) << run.err;
    EXPECT_LT(run.took, 60s);  // about 12 s with a late camera

    const CtlRun partial = ctl(folder, sim.device, {"--setup", kStudio, "--quiet", "read", "3,4", "--save",
                                                    backup.string(), "--partial"});
    EXPECT_EQ(partial.status, 1) << partial.err;
    EXPECT_NE(readBytes(backup), good);
    EXPECT_EQ(readBytes(folder / "good.csd.bak"), good);  // the previous backup is kept
    EXPECT_TRUE(partial.says("the columns of camera 3 are from")) << partial.err;
}

INSTANTIATE_TEST_SUITE_P(Faults, FaultyCamera, ::testing::Values("silent", "no-ack", "nak", "late=30000"));

// A restore is refused before anything is sent when its file is damaged or holds a value no
// item of the camera takes; a backup of cameras whose types have no definition is refused,
// unless the main settings alone are meant. An intact file is restored.
TEST(CtlUnattended, RefusedFilesSendNothing) {
    TempFolder folder;
    Sim sim(folder);
    const std::string good = readBytes(kStudio);
    std::string aboveMax = good;
    aboveMax.replace(aboveMax.find("305F=,,0258"), 11, "305F=,,FFFF");
    const std::pair<std::string, std::string> refused[] = {
        {":", good.substr(0, 1200)},
        {":", ""},
        {":61: camera 3: Shutter / Clear Scan cannot be \"FFFF\" (above MAX 07D0)", aboveMax},
    };
    for (const auto& [reason, text] : refused) {
        const auto file = folder.write("refused.csd", text);
        const CtlRun run = ctl(folder, sim.device, {"--setup", file.string(), "--quiet", "write", "1-6"});
        EXPECT_EQ(run.status, 2) << run.err;
        EXPECT_TRUE(run.says(file.string() + reason) && run.says("nothing was restored")) << run.err;
    }
    // A backup of cameras whose types have no definitions (neither beside the file nor in the
    // --definitions folder) would hold no function settings.
    const auto alone = folder.write("alone.csd", good);
    const std::vector<std::string> bare{"--definitions", folder.path().string(), "--setup", alone.string(), "--quiet"};
    const auto with = [&bare](std::vector<std::string> args) {
        args.insert(args.begin(), bare.begin(), bare.end());
        return args;
    };
    const auto backup = folder / "backup.csd";
    const CtlRun backupRun = ctl(folder, sim.device, with({"read", "1-2", "--save", backup.string()}));
    EXPECT_EQ(backupRun.status, 2) << backupRun.err;
    EXPECT_TRUE(backupRun.says("no definition of camera type ST1 in " + folder.path().string())) << backupRun.err;
    EXPECT_FALSE(std::filesystem::exists(backup));
    EXPECT_EQ(sim.framesFromStation(), 0);
    EXPECT_EQ(ctl(folder, sim.device, with({"--main-only", "read", "1-2", "--save", backup.string()})).status, 0);
    EXPECT_TRUE(std::filesystem::exists(backup));

    const CtlRun restored = ctl(folder, sim.device, {"--setup", kStudio, "write", "1"});
    EXPECT_EQ(restored.status, 0) << restored.err;
    EXPECT_TRUE(restored.says(" frames sent, ")) << restored.err;
    EXPECT_GT(sim.framesFromStation(), 10);
}

TEST(CtlUnattended, MissingPortFailsFastAndWritesNothing) {
    TempFolder folder;
    const CtlRun run = ctl(folder, "/dev/corvane-no-such-line",
                           {"--setup", kStudio, "read", "1-8", "--save", (folder / "x.csd").string()});
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.err, "corvane-ctl: cannot open /dev/corvane-no-such-line: No such file or directory\n");
    EXPECT_LT(run.took, 10s);  // at once: no retries
    EXPECT_FALSE(std::filesystem::exists(folder / "x.csd"));
}

// The line goes away in the middle of a backup (the adapter pulled): the run ends at once,
// naming the device, and the previous backup stays as it was.
TEST(CtlUnattended, LineLostMidBackupEndsTheRun) {
    TempFolder folder;
    Sim sim(folder);
    const std::string good = "the previous backup\r\n";
    const auto backup = folder.write("backup.csd", good);
    ChildProcess child({CORVANE_CTL_PATH, "--port", sim.device, "--definitions", STATION_SAMPLES_DIR, "--quiet",
                                "--setup", kStudio, "read", "1-6", "--save", backup.string()},
                       folder / "ctl-err.txt");
    // Camera 1 takes 29 requests; the line goes while camera 2 is read.
    for (const auto giveUp = Clock::now() + 100s; sim.framesFromStation() < 35 && Clock::now() < giveUp;)
        std::this_thread::sleep_for(20ms);
    sim.process.stop();
    const auto lost = Clock::now();
    EXPECT_EQ(child.wait(50s), 3);
    EXPECT_LT(Clock::now() - lost, 10s);  // within 2 s, five times over
    const std::string said = readBytes(folder / "ctl-err.txt");
    EXPECT_NE(said.find("corvane-ctl: the line " + sim.device + " was lost: "), std::string::npos) << said;
    EXPECT_EQ(said.find("no answer in time"), std::string::npos) << said;
    EXPECT_EQ(readBytes(backup), good);
}

}  // namespace
}  // namespace station::testing
