// The named actions: each refuses while the control its gesture needs is greyed (and then
// nothing is queued or changed), and acts as the click does once the control is offered.
// A frame is credited to the camera it was queued for, whichever camera is selected when
// it goes out or is answered.
#include <gtest/gtest.h>

#include <functional>

#include "app/actions.hpp"
#include "app/availability.hpp"
#include "tests/support/station_rig.hpp"

namespace station {
namespace {

using namespace std::chrono_literals;
using testing::Commands;
using testing::StationRig;

struct StudioRig : StationRig {
    StudioRig() {
        open(testing::kStudio);
        run(1000);
        takeQueued();
    }
    Actions actions{station};
};

TEST(Actions, GreyedControlRefusesItsAction) {
    struct Case {
        const char* what;
        std::function<void(Station&)> grey;
        std::function<ActionResult(Actions&)> act;
        std::string refusal;
    };
    const std::string na = " is not available for this camera now";
    const std::vector<Case> cases{
        {"monitor frame", [](Station& s) { s.form1.Frame12.Enabled = false; },
         [](Actions& a) { return a.setMode(Mode::Monitor, 3); }, "mode monitor" + na},
        {"filter frame", [](Station& s) { s.form1.Frame17.Enabled = false; },
         [](Actions& a) { return a.stepFilter(true); }, "the filter" + na},
        {"tally frame", [](Station& s) { s.form1.Frame19.Enabled = false; },
         [](Actions& a) { return a.call(true); }, "the call button" + na},
        {"read button", [](Station& s) { s.form1.Command12.Enabled = false; },
         [](Actions& a) { return a.readPage(); }, "page read" + na},
        // LOW of a gain type with a one-bit LOW, already up: the up arrow is at its limit.
        {"gain at its limit", [](Station& s) {
             Actions a(s);
             (void)a.stepGain(0, true);
             (void)a.dropQueued();
         },
         [](Actions& a) { return a.stepGain(0, true, 3); }, "gain value low up" + na},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        StudioRig offered;
        const ActionResult done = c.act(offered.actions);
        EXPECT_TRUE(done.ok()) << done.why();
        StudioRig greyed;
        c.grey(greyed.station);
        const std::string before = greyed.actions.readout().cameraName(1) + greyed.station.form1.Label2.Caption;
        const ActionResult refused = c.act(greyed.actions);
        EXPECT_EQ(refused.status(), ActionResult::Status::Refused);
        EXPECT_EQ(refused.why(), c.refusal);
        greyed.run(200);
        EXPECT_TRUE(greyed.takeQueued().empty());
        EXPECT_TRUE(greyed.port.takeWritten().empty());
        EXPECT_EQ(greyed.station.shared.CamNo, 1);
        EXPECT_EQ(greyed.actions.readout().cameraName(1) + greyed.station.form1.Label2.Caption, before);
    }
}

TEST(Actions, FollowTheWindowsGreyingAndTheGesturesMeaning) {
    StudioRig rig;
    Actions& a = rig.actions;
    // A camera type without tally greys the tally frame, and CALL with it.
    ASSERT_TRUE(a.selectCamera(6).ok());
    EXPECT_FALSE(rig.station.form1.Frame19.Enabled);
    EXPECT_EQ(a.call(true).status(), ActionResult::Status::Refused);
    ASSERT_TRUE(a.selectCamera(1).ok());
    EXPECT_TRUE(a.call(true).ok());
    EXPECT_TRUE(a.call(false).ok());
    // GROUP has no functions to choose from.
    ASSERT_TRUE(a.selectCamera(0).ok());
    EXPECT_EQ(a.chooseFunctionValue(1, 1, 1).why(), "the selected camera has no functions (GROUP, or no camera type)");
    // An action item (HD3's Auto Setup) is run from its MODE/VALUE list.
    ASSERT_TRUE(a.selectCamera(3).ok());
    rig.takeQueued();
    int function = 0, item = 0;
    const std::vector<std::string> titles = a.readout().functionTitles();
    for (int f = 1; f <= static_cast<int>(titles.size()); ++f)
        for (int i = 1; i <= a.readout().itemCount(f); ++i)
            if (a.readout().item(f, i).name() == "Auto Setup") function = f, item = i;
    ASSERT_GT(function, 0);
    EXPECT_TRUE(a.chooseFunctionValue(function, item, 1).ok());
    EXPECT_EQ(rig.takeQueued().size(), 1u);
    ASSERT_TRUE(a.selectCamera(1).ok());
    rig.takeQueued();
    // Ack Off greys "Camera to PC".
    rig.station.ACK_Click(1);
    EXPECT_EQ(a.readPage().why(), "page read" + notAvailable(""));
    rig.station.ACK_Click(0);
    rig.takeQueued();

    // A ticked box turns a press into another gesture: refused rather than done otherwise.
    rig.station.form1.CamCopy.setValue(1);
    EXPECT_EQ(a.selectCamera(2).why(), "COPY is ticked on the panel");
    rig.station.form1.CamCopy.setValue(0);
    rig.station.form1.ScnStore.setValue(1);
    EXPECT_EQ(a.recallScene(2).why(), "STORE is ticked on the panel");
    rig.station.form1.ScnStore.setValue(0);
    EXPECT_TRUE(rig.takeQueued().empty());

    // A page that does not fit in the queue is not begun.
    for (int i = 0; i < 250; ++i) rig.station.link.SendCmd("200801FE");
    const ActionResult full = a.readPage();
    EXPECT_EQ(full.why().rfind("page read needs ", 0), 0u);
    EXPECT_EQ(rig.station.link.queue().SendCnt(), 250);
}

TEST(Actions, FailureEndsAtTheBoundary) {
    StudioRig rig;
    rig.station.shared.cams.CamFclNo(2) = "9";  // a slot outside the tables
    const ActionResult failed = rig.actions.selectCamera(2);
    EXPECT_EQ(failed.status(), ActionResult::Status::Failed);
    EXPECT_TRUE(failed.acted());
    EXPECT_EQ(failed.why(), "Run-time error 9: Subscript out of range");
    EXPECT_EQ(rig.messages.texts(), std::vector<std::string>{failed.why()});
    EXPECT_EQ(rig.station.shared.CtrlReady, 1);
}

// Without camera IDs a frame carries nothing that names its camera: the queue remembers it.
TEST(Actions, FrameCreditedToTheCameraItWasQueuedFor) {
    using testing::wire;
    StudioRig rig;
    Actions& a = rig.actions;
    const auto state = [&](int camera) { return rig.station.line.answers.state(camera, rig.clock); };

    ASSERT_TRUE(a.setLevel(Level::Iris, 20).ok());  // for camera 1
    ASSERT_TRUE(a.selectCamera(2).ok());
    ASSERT_TRUE(a.setLevel(Level::Iris, 21).ok());  // for camera 2
    ASSERT_TRUE(a.selectCamera(3).ok());
    EXPECT_EQ(rig.station.link.queue().entry(1).Camera, 1);
    rig.run(40);
    rig.port.arrive(wire("06"));  // camera 1 acknowledges its frame
    rig.run(40);
    EXPECT_EQ(state(1), Answer::Answering);
    EXPECT_EQ(state(3), Answer::NotHeard);
    // The head moved up: the next frame is camera 2's, and camera 2 stays silent.
    EXPECT_EQ(rig.station.link.queue().head().Camera, 2);
    rig.run(1200);
    EXPECT_EQ(state(2), Answer::NotAnswering);
    EXPECT_EQ(state(3), Answer::NotHeard);
    const auto& log = rig.station.line.log.entries();
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(log.front().what, "No Acknowledge");
    EXPECT_EQ(log.front().camera, 2);
}

}  // namespace
}  // namespace station
