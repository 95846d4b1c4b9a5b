// A run of corvane-ctl on the in-process camera line, in the line's own time: a read ends
// as soon as every request is answered, and a camera that keeps answering NAK fails within
// its time limit while the next camera is read whole.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "ctl/ctl_session.hpp"
#include "remote/preset_dialogs.hpp"
#include "setupfile/file_writer.hpp"
#include "sim/line_setup.hpp"
#include "sim/sim_port.hpp"

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
        setup.build(line);
        station.link.watch(&tally);
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
    remote::NoDialogs none;
    remote::PresetDialogs dialogs{none};
    DiskWriter writer;
    Station station{{port, messages, dialogs, writer, STATION_SAMPLES_DIR}};
    remote::CommandSet commands{station, dialogs, {}};
    LineClock clock{line};
    TickLoop ticks{station, clock};
    LinkTally tally{station.link.watcher()};
    Session session{station, commands, ticks, tally, messages, out, err, true};
};

TEST(CtlSession, ReadEndsWhenEveryRequestIsAnswered) {
    SessionRig rig;
    bool ok = false;
    const Micros took = rig.timed("read 1-6", ok);
    ASSERT_TRUE(ok) << rig.err.str();
    const long replies = rig.tally.counts().received;
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
    const long replies = rig.tally.counts().received;
    EXPECT_GT(stxBytes, replies);  // some answers carry 0x02 among their data
    EXPECT_EQ(rig.tally.counts().acknowledged, replies);  // one answer per request
}

TEST(CtlSession, SpoiltRepliesAreNotCounted) {
    SessionRig rig;
    rig.camera(1).faults.badChecksum = 3;  // three answers arrive spoilt and are sent again clean
    ASSERT_TRUE(rig.session.run("read 1")) << rig.err.str();
    EXPECT_EQ(rig.tally.counts().received, rig.tally.counts().acknowledged);
}

}  // namespace
}  // namespace station::ctl
