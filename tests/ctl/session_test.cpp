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

TEST(CtlSession, RepliesAreFramesNotBytes) {
    SessionRig rig;
    long stxBytes = 0;
    rig.line.onTraffic = [&](const sim::Traffic& t) {
        if (t.from == sim::Traffic::From::Camera)
            for (const std::uint8_t b : t.bytes) stxBytes += b == 0x02;
    };
    ASSERT_TRUE(rig.session.run("read 1-6"));
    long replies = 0;
    for (int camera = 1; camera <= 6; ++camera) replies += rig.replies.replies(camera);
    EXPECT_GT(stxBytes, replies);  // some answers carry 0x02 among their data
    EXPECT_EQ(rig.tally.counts().acknowledged, replies);  // one answer per request
}

TEST(CtlSession, SpoiltRepliesAreNotCounted) {
    SessionRig rig;
    rig.camera(1).faults.badChecksum = 3;  // three answers arrive spoilt and are sent again clean
    ASSERT_TRUE(rig.session.run("read 1")) << rig.err.str();
    EXPECT_EQ(rig.replies.replies(1), rig.tally.counts().acknowledged);
}

TEST(CtlSession, VerifyNamesAChangedFunctionItem) {
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
    EXPECT_EQ(testing::readBytes(kStudio), before);  // the file is never written
    EXPECT_EQ(rig.session.finish(), 1);
    EXPECT_NE(rig.err.str().find("camera 1 (ST1, ID 1) verify: FAILED, 1 setting differs from"), std::string::npos)
        << rig.err.str();
}

TEST(CtlSession, VerifyRefusesADamagedFileAndASilentCameraFails) {
    SessionRig rig;
    rig.session.definitions = STATION_SAMPLES_DIR;
    testing::TempFolder folder;
    const auto cut = folder.write("cut.csd", testing::readBytes(kStudio).substr(0, 900));
    EXPECT_THROW(rig.session.run("verify " + cut.string() + " 1"), RunError);
    rig.camera(2).faults.silent = true;
    EXPECT_FALSE(rig.session.run("verify " + std::string(kStudio) + " 2"));
    EXPECT_EQ(rig.out.str(), "");
    EXPECT_EQ(rig.session.finish(), 1);
    EXPECT_NE(rig.err.str().find("camera 2 (ST1, ID 2) verify: FAILED, No Acknowledge"), std::string::npos)
        << rig.err.str();
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

// The same file as a hand or another tool writes it: function codes and levels in lower
// case and without leading zeros ("2A" as "2a", "02" as "2").
std::string informal(const std::string& text) {
    std::string out;
    std::istringstream in(text);
    bool function = false;
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line[0] == '[') function = line.find("function") != std::string::npos;
        const std::size_t eq = line.find('=');
        if (function && eq != std::string::npos) {
            std::string values = line.substr(eq + 1), list;
            std::istringstream items(values);
            for (std::string v; std::getline(items, v, ',');) {
                while (v.size() > 1 && v[0] == '0') v.erase(0, 1);
                for (char& c : v) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
                list += v + ",";
            }
            if (!values.empty() && values.back() == ',') list += ",";
            line = line.substr(0, eq + 1) + list.substr(0, list.empty() ? 0 : list.size() - 1);
        }
        out += line + "\n";
    }
    return out;
}

// The promise of a backup: cameras of every sample type backed up, given another set-up,
// restored from the backup, and then found exactly as the backup says.
TEST(CtlRestore, BackupRestoreVerifyOnEveryCameraType) {
    SessionRig rig;
    rig.session.definitions = STATION_SAMPLES_DIR;
    Actions& actions = rig.commands.actions();
    ASSERT_TRUE(rig.session.run("read 1-6")) << rig.err.str();
    testing::TempFolder folder;
    const auto backup = folder.path() / "backup.csd";
    rig.dialogs.answerNextSave(backup.string());
    ASSERT_TRUE(actions.saveAs().ok());
    const auto loose = folder.write("loose.csd", informal(testing::readBytes(backup)));

    for (int c = 1; c <= 6; ++c) otherSetUp(rig.camera(c));
    rig.dialogs.answerNextOpen(loose.string());
    ASSERT_TRUE(actions.open().ok());
    ASSERT_TRUE(rig.session.run("write 1-6")) << rig.err.str();
    rig.out.str("");
    EXPECT_TRUE(rig.session.run("verify " + loose.string() + " 1-6")) << rig.out.str();
    EXPECT_EQ(rig.out.str(), "");
    EXPECT_EQ(rig.session.finish(), 0) << rig.err.str();
}

// The sample studio holds every gain step and white mode on some camera: restored and
// verified, nothing differs, and the summary says what went beyond the page.
TEST(CtlRestore, StudioRestoredSetsGainAndWhite) {
    SessionRig rig;
    rig.session.definitions = STATION_SAMPLES_DIR;
    for (int c = 1; c <= 6; ++c) otherSetUp(rig.camera(c));
    ASSERT_TRUE(rig.session.run("write 1-6")) << rig.err.str();
    EXPECT_TRUE(rig.session.run("verify " + std::string(kStudio) + " 1-6")) << rig.out.str();
    EXPECT_EQ(rig.out.str(), "");
    // Camera 2 holds scene 2: MID (type 0 carries its value with the step) and white A.
    EXPECT_EQ(rig.camera(2).mode(0x01) & 0x7F, 0x02);  // MID 1, sent as 1 + 1
    EXPECT_EQ(rig.camera(2).mode(0x04) & 0x0C, 0x04);
    EXPECT_EQ(rig.session.finish(), 0);
    EXPECT_NE(rig.err.str().find("camera 2 (ST1, ID 2) write: 33 frames sent, 33 acknowledged; set beyond the page: "
                                 "gain step MID, white A"),
              std::string::npos)
        << rig.err.str();
}

}  // namespace
}  // namespace station::ctl
