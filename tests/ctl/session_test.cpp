// A run of corvane-ctl on the in-process camera line, in the line's own time: a read ends
// as soon as every request is answered, and a camera that keeps answering NAK fails within
// its time limit while the next camera is read whole.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "app/station.hpp"
#include "ctl/ctl_session.hpp"
#include "ctl/exit_status.hpp"
#include "app/preset_dialogs.hpp"
#include "setupfile/file_writer.hpp"
#include "sim/line_setup.hpp"
#include "sim/sim_port.hpp"
#include "tests/support/temp_folder.hpp"
#include "sim/type_registers.hpp"

namespace station::ctl {
namespace {

using std::chrono::milliseconds;
constexpr const char* kStudio = STATION_SAMPLES_DIR "/studio.csd";

class SessionRig {
public:
    SessionRig() {
        std::ifstream in(kStudio, std::ios::binary);
        sim::LineSetup setup;
        sim::readSetupData(in, setup);
        setup.startValues = sim::startValuesIn(STATION_SAMPLES_DIR);  // cameras as switched on
        setup.build(line);
        station.watchLine(replies);
        station.watchLine(tally);
        station.Form_Load();
        dialogs.answerNextOpen(kStudio);
        station.OPEN_Click();
        session.settle();
    }
    sim::Camera& camera(int n) { return *line.camera(n); }
    // How long the command took on the line's clock.
    Micros timed(const std::string& command, bool& ok) {
        const Micros start = line.now();
        ok = session.run(command);
        return line.now() - start;
    }

    sim::Line line;
    sim::SimPort port{line};
    std::ostringstream out, err;
    CtlMessages messages{err};
    NoDialogs none;
    PresetDialogs dialogs{none};
    DiskWriter writer;
    ReplyCount replies;  // watch the station's line: outlive it
    LinkTally tally;
    Station station{{port, messages, dialogs, writer, STATION_SAMPLES_DIR}};
    remote::CommandSet commands{station, dialogs, {}};
    LineClock clock{line};
    TickLoop ticks{station, clock};
    Session session{commands, ticks, replies, tally, messages, out, err, true};
};

TEST(CtlSession, ReadEndsWhenEveryRequestIsAnswered) {
    SessionRig rig;
    bool ok = false;
    const Micros took = rig.timed("read 1-6", ok);
    ASSERT_TRUE(ok) << rig.err.str();
    long replies = 0;
    for (int camera = 1; camera <= 6; ++camera) replies += rig.replies.replies(camera);
    EXPECT_GE(replies, 6 * 20);
    // One request and its answer per 40 ms poll, and a poll between cameras: no waits for
    // silence (600 ms each).
    const Micros floor = milliseconds(40) * replies;
    EXPECT_LE(took, floor + milliseconds(40) * 6 * 2) << took.count() << " us for " << replies << " replies";
    EXPECT_TRUE(rig.session.unreadCameras().empty());
}

TEST(CtlSession, NakingCameraFailsAloneWithinItsLimit) {
    SessionRig rig;
    rig.camera(3).faults.nak = sim::Faults::kEvery;
    bool ok = true;
    const Micros took = rig.timed("read 3,4", ok);
    EXPECT_FALSE(ok);
    EXPECT_EQ(rig.session.unreadCameras(), std::vector<int>{3});
    // Camera 3's frames were dropped when its time ran out; camera 4 was read whole.
    EXPECT_LT(took, cameraTimeLimit(40) + milliseconds(40) * 40);
    EXPECT_EQ(rig.session.finish(), 1);
    EXPECT_NE(rig.err.str().find("camera 3 (HD3, ID 3) read: FAILED, no answer in time (0 replies)"), std::string::npos)
        << rig.err.str();
    EXPECT_NE(rig.err.str().find("camera 4 (HD3, ID 4) read: 30 replies"), std::string::npos) << rig.err.str();

    // The line is clean afterwards: a command for camera 4 goes out and is acknowledged.
    rig.camera(3).faults.nak = 0;
    EXPECT_TRUE(rig.session.run("camera 4"));
    EXPECT_TRUE(rig.session.run("level iris 3"));
}

// One reply per request, counted by frames (some answers carry 0x02 among their data), and
// three answers that arrive spoilt and are sent again clean are counted once.
TEST(CtlSession, RepliesAreWholeIntactFrames) {
    SessionRig rig;
    rig.camera(1).faults.badChecksum = 3;
    long stxBytes = 0;
    rig.line.onTraffic = [&](const sim::Traffic& t) {
        if (t.from == sim::Traffic::From::Camera)
            for (const std::uint8_t b : t.bytes) stxBytes += b == 0x02;
    };
    ASSERT_TRUE(rig.session.run("read 1-6")) << rig.err.str();
    long replies = 0;
    for (int camera = 1; camera <= 6; ++camera) replies += rig.replies.replies(camera);
    EXPECT_GT(stxBytes, replies);
    EXPECT_EQ(rig.tally.counts().acknowledged, replies);
}

// Verify reads the cameras and names what differs from the file, which it never writes; a
// damaged file is refused and a silent camera fails.
TEST(CtlSession, VerifyNamesWhatDiffers) {
    SessionRig rig;
    rig.session.definitions = STATION_SAMPLES_DIR;
    const std::string before = testing::readBytes(kStudio);
    ASSERT_TRUE(rig.session.run("write 1")) << rig.err.str();
    ASSERT_TRUE(rig.session.run("verify " + std::string(kStudio) + " 1")) << rig.out.str() << rig.err.str();

    // Someone changes the gamma mode on camera 1 (scene 1 holds CINE in the file).
    ASSERT_TRUE(rig.session.run("function Gamma \"Gamma Mode\" FILM")) << rig.out.str();
    rig.out.str("");
    EXPECT_FALSE(rig.session.run("verify " + std::string(kStudio) + " 1"));
    EXPECT_EQ(rig.out.str(), "camera 1: Gamma / Gamma Mode: file CINE camera FILM\n");
    EXPECT_EQ(testing::readBytes(kStudio), before);

    testing::TempFolder folder;
    const auto cut = folder.write("cut.csd", before.substr(0, 900));
    EXPECT_THROW(rig.session.run("verify " + cut.string() + " 1"), RunError);
    rig.camera(2).faults.silent = true;
    rig.out.str("");
    EXPECT_FALSE(rig.session.run("verify " + std::string(kStudio) + " 2"));
    EXPECT_EQ(rig.out.str(), "");
    EXPECT_EQ(rig.session.finish(), 1);
    for (const char* said : {"camera 1 (ST1, ID 1) verify: FAILED, 1 setting differs from",
                             "camera 2 (ST1, ID 2) verify: FAILED, No Acknowledge"})
        EXPECT_NE(rig.err.str().find(said), std::string::npos) << rig.err.str();
}

// Another set-up on the camera: every register a page reaches holds something else.
void otherSetUp(sim::Camera& camera) {
    for (int a = 0; a < 0x70; ++a) {
        const auto address = static_cast<std::uint8_t>(a);
        if (address == sim::kTallyRegister) continue;
        for (const std::uint8_t bank : {sim::kModeClass, sim::kModeClass2}) camera.setMode(address, 0x5A, bank);
        for (const std::uint8_t bank : {sim::kLevelClass, sim::kLevelClass2}) camera.setLevel(address, 0x0147, bank);
    }
}

// The promise of a backup, on cameras of every sample type: the studio restored over another
// set-up is found exactly as the file says, gain step and white mode included; a backup of
// them, restored over another set-up again, is found exactly as the backup says.
TEST(CtlRestore, RestoreThenVerifyOnEveryCameraType) {
    SessionRig rig;
    rig.session.definitions = STATION_SAMPLES_DIR;
    for (int c = 1; c <= 6; ++c) otherSetUp(rig.camera(c));
    ASSERT_TRUE(rig.session.run("write 1-6")) << rig.err.str();
    EXPECT_TRUE(rig.session.run("verify " + std::string(kStudio) + " 1-6")) << rig.out.str();
    // Camera 2 holds scene 2: MID (type 0 carries its value with the step) and white A.
    EXPECT_EQ(rig.camera(2).mode(0x01) & 0x7F, 0x02);  // MID 1, sent as 1 + 1
    EXPECT_EQ(rig.camera(2).mode(0x04) & 0x0C, 0x04);

    testing::TempFolder folder;
    const auto backup = folder.path() / "backup.csd";
    Actions& actions = rig.commands.actions();
    rig.dialogs.answerNextSave(backup.string());
    ASSERT_TRUE(actions.saveAs().ok());
    for (int c = 1; c <= 6; ++c) otherSetUp(rig.camera(c));
    rig.dialogs.answerNextOpen(backup.string());
    ASSERT_TRUE(actions.open().ok());
    ASSERT_TRUE(rig.session.run("write 1-6")) << rig.err.str();
    EXPECT_TRUE(rig.session.run("verify " + backup.string() + " 1-6")) << rig.out.str();
    EXPECT_EQ(rig.out.str(), "");
    EXPECT_EQ(rig.session.finish(), 0) << rig.err.str();
    EXPECT_NE(rig.err.str().find("camera 2 (ST1, ID 2) write: 33 frames sent, 33 acknowledged; set beyond the page: "
                                 "gain step MID, white A"),
              std::string::npos)
        << rig.err.str();
}

// A restore while cameras 3 and 5 each drop one acknowledge: camera 3 fails, camera 4 after it
// is restored whole, and its frames are counted as its own although they were queued while
// camera 3's last frame was still on its way.
TEST(CtlRestore, EachCameraCountsItsOwnFrames) {
    SessionRig rig;
    rig.session.definitions = STATION_SAMPLES_DIR;
    rig.camera(3).faults.noAck = 1;
    rig.camera(5).faults.noAck = 1;
    EXPECT_FALSE(rig.session.run("write 2-4"));
    EXPECT_EQ(rig.session.finish(), 1);
    for (const char* said : {"camera 2 (ST1, ID 2) write: 33 frames sent, 33 acknowledged",
                             "camera 3 (HD3, ID 3) write: FAILED, No Acknowledge (1 frames sent, 0 acknowledged)",
                             "camera 4 (HD3, ID 4) write: 33 frames sent, 33 acknowledged"})
        EXPECT_NE(rig.err.str().find(said), std::string::npos) << rig.err.str();
}

}  // namespace
}  // namespace station::ctl
