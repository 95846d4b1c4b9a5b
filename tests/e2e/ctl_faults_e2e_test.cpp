// corvane-ctl run unattended against camera-sim's faults and damaged files, in real time:
// what reaches the camera, what is on disk afterwards, and the exit status.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <thread>

#include "tests/e2e/child_process.hpp"
#include "tests/support/temp_folder.hpp"

namespace station {
namespace {

using namespace std::chrono_literals;
using testing::ChildProcess;

std::string quoted(const std::string& word) {
    std::string out = "'";
    for (const char c : word) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

// camera-sim with the sample studio and the given faults; its transmissions go to a file.
struct Sim {
    Sim(const testing::TempFolder& folder, const std::vector<std::string>& faults)
        : trace(folder / "trace.txt"), process(command(faults, trace)) {
        if (const auto path = process.readLine(10s)) device = *path;
    }
    static std::vector<std::string> command(const std::vector<std::string>& faults, const std::filesystem::path& trace) {
        std::string line = "exec " CAMERA_SIM_PATH " --trace --exit-after 120 --setup " STATION_SAMPLES_DIR "/studio.csd";
        for (const std::string& f : faults) line += " --fault " + f;
        return {"/bin/sh", "-c", line + " 2>" + quoted(trace.string())};
    }
    // Frames the station sent since the start (not its ACK bytes).
    int framesFromStation() const {
        std::istringstream in(testing::readBytes(trace));
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
    std::chrono::milliseconds took;
};

CtlRun ctl(const testing::TempFolder& folder, const std::string& device, const std::vector<std::string>& args) {
    std::string line = "exec " CORVANE_CTL_PATH " --port " + quoted(device) + " --definitions " STATION_SAMPLES_DIR;
    for (const std::string& a : args) line += " " + quoted(a);
    const auto err = folder / "ctl-err.txt";
    const auto start = std::chrono::steady_clock::now();
    ChildProcess child({"/bin/sh", "-c", line + " 2>" + quoted(err.string())});
    const int status = child.wait(60s);
    return {status, testing::readBytes(err),
            std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start)};
}

bool says(const CtlRun& run, const std::string& text) { return run.err.find(text) != std::string::npos; }

// A backup run while camera 3 misbehaves fails, names camera 3, and leaves the good backup
// exactly as it was; with --partial it writes what was read and names camera 3.
class FaultyCamera : public ::testing::TestWithParam<const char*> {};

TEST_P(FaultyCamera, BackupKeepsTheGoodFile) {
    testing::TempFolder folder;
    Sim sim(folder, {std::string("3:") + GetParam()});
    ASSERT_FALSE(sim.device.empty());
    const std::string good = testing::readBytes(STATION_SAMPLES_DIR "/studio.csd") + "\r\n";  // any file that is not a new save
    const auto backup = folder.write("good.csd", good);

    const CtlRun run = ctl(folder, sim.device, {"--setup", STATION_SAMPLES_DIR "/studio.csd", "--quiet", "read", "3,4",
                                             "--save", backup.string(), ",", "level", "iris", "3"});
    EXPECT_EQ(run.status, 1) << run.err;
    EXPECT_EQ(testing::readBytes(backup), good);
    EXPECT_FALSE(std::filesystem::exists(folder / "good.csd.bak"));
    EXPECT_TRUE(says(run, "camera 3 did not answer every read")) << run.err;
    // Camera 3 fails alone: camera 4 after it answers, and the run then stops.
    EXPECT_TRUE(says(run, "camera 4 (HD3, ID 4) read: ") && !says(run, "camera 4 (HD3, ID 4) read: FAILED")) << run.err;
    EXPECT_TRUE(says(run, "1 command was not carried out")) << run.err;
    EXPECT_LT(run.took, 12s);

    const CtlRun partial = ctl(folder, sim.device, {"--setup", STATION_SAMPLES_DIR "/studio.csd", "--quiet", "read",
                                                 "3,4", "--save", backup.string(), "--partial"});
    EXPECT_EQ(partial.status, 1) << partial.err;
    EXPECT_NE(testing::readBytes(backup), good);
    EXPECT_EQ(testing::readBytes(folder / "good.csd.bak"), good);  // the previous backup is kept
    EXPECT_TRUE(says(partial, "the columns of camera 3 are from")) << partial.err;
}

INSTANTIATE_TEST_SUITE_P(Faults, FaultyCamera, ::testing::Values("silent", "no-ack", "nak", "late=30000"),
                         [](const auto& param) {
                             std::string name = param.param;
                             name = name.substr(0, name.find('='));
                             return name == "no-ack" ? std::string("noAck") : name;
                         });

TEST(CtlUnattended, DamagedRestoreSendsNothing) {
    testing::TempFolder folder;
    Sim sim(folder, {});
    ASSERT_FALSE(sim.device.empty());
    const std::string good = testing::readBytes(STATION_SAMPLES_DIR "/studio.csd");
    const std::pair<std::string, std::string> damaged[] = {
        {"cut.csd", good.substr(0, 1200)},
        {"empty.csd", ""},
        {"nomain.csd", good.substr(0, good.find("[main data]")) + good.substr(good.find("mBar="))},
    };
    for (const auto& [name, text] : damaged) {
        const auto file = folder.write(name, text);
        const CtlRun run = ctl(folder, sim.device, {"--setup", file.string(), "--quiet", "write", "1"});
        EXPECT_EQ(run.status, 2) << name << ": " << run.err;
        EXPECT_TRUE(says(run, file.string() + ":")) << run.err;
        EXPECT_TRUE(says(run, "nothing was restored")) << run.err;
    }
    // Values no control or item of the camera can take: a level beyond its bar, a gain step
    // the type lacks, a function level above its MAX.
    auto changed = [&good](const std::string& from, const std::string& to) {
        std::string text = good;
        text.replace(text.find(from), from.size(), to);
        return text;
    };
    const std::pair<std::string, std::string> outOfRange[] = {
        {"23: camera 1: aMBLK cannot be 999", changed("aMBLK=0,", "aMBLK=999,")},
        {"19: camera 6: mGAIN cannot be 7", changed("mGAIN=0,1,2,0,0,1,2,0,0,1,2,0,0,1,2,0,0,1,2,0,0,", "mGAIN=0,1,2,0,0,1,2,0,0,1,2,0,0,1,2,0,0,1,2,0,7,")},
        {"61: camera 3: Shutter / Clear Scan cannot be \"FFFF\" (above MAX 07D0)", changed("305F=,,0258", "305F=,,FFFF")},
    };
    for (const auto& [reason, text] : outOfRange) {
        const auto file = folder.write("range.csd", text);
        const CtlRun run = ctl(folder, sim.device, {"--setup", file.string(), "--quiet", "write", "1-6"});
        EXPECT_EQ(run.status, 2) << run.err;
        EXPECT_TRUE(says(run, file.string() + ":" + reason)) << run.err;
    }
    // A file whose folder has no definitions, restored with no --definitions: the type is
    // looked for elsewhere, and without it the restore is refused.
    const auto alone = folder.write("alone.csd", good);
    const CtlRun run = ctl(folder, sim.device, {"--definitions", folder.path().string(), "--setup", alone.string(),
                                             "--quiet", "write", "1"});
    EXPECT_EQ(run.status, 2) << run.err;
    EXPECT_TRUE(says(run, "no definition of camera type ST1")) << run.err;
    EXPECT_EQ(sim.framesFromStation(), 0);

    // An intact file is restored and each camera's frames are reported.
    const CtlRun restored = ctl(folder, sim.device, {"--setup", STATION_SAMPLES_DIR "/studio.csd", "write", "1"});
    EXPECT_EQ(restored.status, 0) << restored.err;
    EXPECT_TRUE(says(restored, " frames sent, ")) << restored.err;
    EXPECT_GT(sim.framesFromStation(), 10);
}

// A restore while camera 3 drops one acknowledge: camera 3 fails, camera 4 after it is
// restored whole, and its frames are counted as its own although they were queued while
// camera 3's last frame was still on its way.
TEST(CtlUnattended, RestoreReportsEachCamerasFrames) {
    testing::TempFolder folder;
    Sim sim(folder, {"3:no-ack=1", "5:no-ack=1"});
    ASSERT_FALSE(sim.device.empty());
    const CtlRun run = ctl(folder, sim.device, {"--setup", STATION_SAMPLES_DIR "/studio.csd", "write", "2-4"});
    EXPECT_EQ(run.status, 1) << run.err;
    EXPECT_TRUE(says(run, "camera 2 (ST1, ID 2) write: 33 frames sent, 33 acknowledged")) << run.err;
    EXPECT_TRUE(says(run, "camera 3 (HD3, ID 3) write: FAILED, No Acknowledge (1 frames sent, 0 acknowledged)"))
        << run.err;
    EXPECT_TRUE(says(run, "camera 4 (HD3, ID 4) write: 33 frames sent, 33 acknowledged")) << run.err;
}

TEST(CtlUnattended, RefusedCommandStopsTheRun) {
    testing::TempFolder folder;
    Sim sim(folder, {});
    ASSERT_FALSE(sim.device.empty());
    const CtlRun run = ctl(folder, sim.device, {"--setup", STATION_SAMPLES_DIR "/studio.csd", "--quiet", "camera", "9,",
                                             "level", "iris", "3,", "write", "1"});
    EXPECT_EQ(run.status, 1) << run.err;
    EXPECT_TRUE(says(run, "2 commands were not carried out")) << run.err;
    EXPECT_EQ(sim.framesFromStation(), 0);

    const CtlRun going = ctl(folder, sim.device, {"--setup", STATION_SAMPLES_DIR "/studio.csd", "--quiet", "--keep-going",
                                               "camera", "9,", "level", "iris", "3"});
    EXPECT_EQ(going.status, 1) << going.err;
    EXPECT_EQ(sim.framesFromStation(), 1);
}

TEST(CtlUnattended, MissingPortFailsFastAndWritesNothing) {
    testing::TempFolder folder;
    const CtlRun run = ctl(folder, "/dev/corvane-no-such-line",
                        {"--setup", STATION_SAMPLES_DIR "/studio.csd", "read", "1-8", "--save", (folder / "x.csd").string()});
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.err, "corvane-ctl: cannot open /dev/corvane-no-such-line: No such file or directory\n");
    EXPECT_LT(run.took, 2s);
    EXPECT_FALSE(std::filesystem::exists(folder / "x.csd"));
}

// A backup of cameras whose types have no definitions would hold no function settings: it
// is refused and the old file kept, unless the main settings alone are meant.
TEST(CtlUnattended, BackupWithoutDefinitionsIsRefused) {
    testing::TempFolder folder;
    Sim sim(folder, {});
    ASSERT_FALSE(sim.device.empty());
    const auto setup = folder.write("studio.csd", testing::readBytes(STATION_SAMPLES_DIR "/studio.csd"));
    const auto backup = folder.path() / "backup.csd";
    const CtlRun run = ctl(folder, sim.device, {"--definitions", folder.path().string(), "--setup", setup.string(),
                                             "--quiet", "read", "1-2", "--save", backup.string()});
    EXPECT_EQ(run.status, 2) << run.err;
    EXPECT_TRUE(says(run, "no definition of camera type ST1 in " + folder.path().string())) << run.err;
    EXPECT_FALSE(std::filesystem::exists(backup));
    EXPECT_EQ(sim.framesFromStation(), 0);

    const CtlRun mainOnly = ctl(folder, sim.device, {"--definitions", folder.path().string(), "--setup", setup.string(),
                                                  "--quiet", "--main-only", "read", "1-2", "--save", backup.string()});
    EXPECT_EQ(mainOnly.status, 0) << mainOnly.err;
    EXPECT_TRUE(std::filesystem::exists(backup));
}

// The line goes away in the middle of a backup (the adapter pulled): the run ends at once,
// naming the device, and the previous backup stays as it was.
TEST(CtlUnattended, LineLostMidBackupEndsTheRun) {
    testing::TempFolder folder;
    Sim sim(folder, {});
    ASSERT_FALSE(sim.device.empty());
    const std::string good = "the previous backup\r\n";
    const auto backup = folder.write("backup.csd", good);
    const auto err = folder / "ctl-err.txt";
    ChildProcess child({"/bin/sh", "-c",
                        std::string("exec " CORVANE_CTL_PATH " --port ") + (quoted)(sim.device) +
                            " --definitions " STATION_SAMPLES_DIR " --quiet --setup " STATION_SAMPLES_DIR
                            "/studio.csd read 1-6 --save " + (quoted)(backup.string()) + " 2>" + (quoted)(err.string())});
    // Camera 1 takes 29 requests; the line goes while camera 2 is read.
    const auto giveUp = std::chrono::steady_clock::now() + 20s;
    while (sim.framesFromStation() < 35 && std::chrono::steady_clock::now() < giveUp) std::this_thread::sleep_for(20ms);
    sim.process.stop();
    const auto lost = std::chrono::steady_clock::now();
    const int status = child.wait(10s);
    const auto took = std::chrono::steady_clock::now() - lost;
    EXPECT_EQ(status, 3);
    EXPECT_LT(took, 2s * 5);  // within 2 s, with the slack of a loaded machine
    const std::string said = testing::readBytes(err);
    EXPECT_NE(said.find("corvane-ctl: the line " + sim.device + " was lost: "), std::string::npos) << said;
    EXPECT_EQ(said.find("no answer in time"), std::string::npos) << said;
    EXPECT_EQ(testing::readBytes(backup), good);
}

}  // namespace
}  // namespace station
