// The named actions: each refuses while the control its gesture needs is greyed (and then
// nothing is queued or changed), and acts as the click does once the control is offered.
// A frame is credited to the camera it was queued for, whichever camera is selected when
// it goes out or is answered.
#include <gtest/gtest.h>

#include <functional>

#include "tests/support/station_rig.hpp"

namespace station {
namespace {

using testing::Commands;
using testing::StationRig;

struct StudioRig : StationRig {
    StudioRig() {
        open(testing::kStudio);
        run(1000);
        takeQueued();
    }
};

TEST(Actions, GreyedControlRefusesItsAction) {
    struct Case {
        const char* what;
        std::function<void(StudioRig&)> grey;
        std::function<ActionResult(Actions&)> act;
        std::string refusal;
    };
    const std::string na = notAvailable("");
    const auto bx4 = [](StudioRig& r) { r.form1.Option9.click(6); r.takeQueued(); };  // no filter
    const auto pt2 = [](StudioRig& r) { r.form1.Option9.click(5); r.takeQueued(); };  // no monitor, no tally
    const std::vector<Case> cases{
        {"monitor", pt2, [](Actions& a) { return a.setMode(Mode::Monitor, 3); }, "mode monitor" + na},
        {"filter", bx4, [](Actions& a) { return a.stepFilter(true); }, "the filter" + na},
        {"call", pt2, [](Actions& a) { return a.call(true); }, "the call button" + na},
        {"read under Ack Off", [](StudioRig& r) { r.station.ACK_Click(1); },
         [](Actions& a) { return a.readPage(); }, "page read" + na},
        // LOW of a gain type with a one-bit LOW, already up: the up arrow is at its limit.
        {"gain at its limit", [](StudioRig& r) { (void)r.actions.stepGain(0, true); r.takeQueued(); },
         [](Actions& a) { return a.stepGain(0, true, 3); }, "gain value low up" + na},
        {"function in GROUP", [](StudioRig& r) { r.form1.Option9.click(0); },
         [](Actions& a) { return a.chooseFunctionValue(1, 1, 1); },
         "the selected camera has no functions (GROUP, or no camera type)"},
        // A ticked box turns a press into another gesture: refused rather than done otherwise.
        {"COPY ticked", [](StudioRig& r) { r.form1.CamCopy.setValue(1); },
         [](Actions& a) { return a.selectCamera(2); }, "COPY is ticked on the panel"},
        {"STORE ticked", [](StudioRig& r) { r.form1.ScnStore.setValue(1); },
         [](Actions& a) { return a.recallScene(2); }, "STORE is ticked on the panel"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        StudioRig offered;
        const ActionResult done = c.act(offered.actions);
        EXPECT_TRUE(done.ok()) << done.why();
        StudioRig greyed;
        c.grey(greyed);
        const int camera = greyed.readout.selectedCamera();
        const std::string before = greyed.readout.cameraName(1) + greyed.readout.mainSetting(mWHITE, camera);
        const ActionResult refused = c.act(greyed.actions);
        EXPECT_EQ(refused.status(), ActionResult::Status::Refused);
        EXPECT_EQ(refused.why(), c.refusal);
        greyed.run(200);
        EXPECT_TRUE(greyed.takeQueued().empty());
        EXPECT_EQ(greyed.readout.selectedCamera(), camera);
        EXPECT_EQ(greyed.readout.cameraName(1) + greyed.readout.mainSetting(mWHITE, camera), before);
    }
}

TEST(Actions, DoWhatTheClickDoes) {
    StudioRig rig;
    Actions& a = rig.actions;
    // An action item (HD3's Auto Setup) is run from its MODE/VALUE list.
    ASSERT_TRUE(a.selectCamera(3).ok());
    int function = 0, item = 0;
    for (int f = 1; f <= static_cast<int>(rig.readout.functionTitles().size()); ++f)
        for (int i = 1; i <= rig.readout.itemCount(f); ++i)
            if (rig.readout.item(f, i).name() == "Auto Setup") function = f, item = i;
    ASSERT_GT(function, 0);
    EXPECT_TRUE(a.chooseFunctionValue(function, item, 1).ok());
    EXPECT_EQ(rig.takeQueued().size(), 1u);

    // A page that does not fit in the queue is not begun.
    for (int i = 0; i < 125; ++i) {
        rig.form1.OptBar.click(1);
        rig.form1.OptBar.click(0);
    }
    const ActionResult full = a.readPage();
    EXPECT_EQ(full.why().rfind("page read needs ", 0), 0u);
    EXPECT_EQ(rig.readout.queued(), 250);
}

// Without camera IDs a frame carries nothing that names its camera: the queue remembers it.
TEST(Actions, FrameCreditedToTheCameraItWasQueuedFor) {
    StudioRig rig;
    Actions& a = rig.actions;
    const auto state = [&](int camera) { return rig.readout.answer(camera, rig.clock); };

    ASSERT_TRUE(a.setLevel(Level::Iris, 20).ok());  // for camera 1
    ASSERT_TRUE(a.selectCamera(2).ok());
    ASSERT_TRUE(a.setLevel(Level::Iris, 21).ok());  // for camera 2
    ASSERT_TRUE(a.selectCamera(3).ok());
    EXPECT_EQ(rig.readout.queuedFrame(1).Camera, 1);
    rig.run(40);
    rig.port.arrive(testing::wire("06"));  // camera 1 acknowledges its frame
    rig.run(40);
    EXPECT_EQ(state(1), Answer::Answering);
    EXPECT_EQ(state(3), Answer::NotHeard);
    // The head moved up: the next frame is camera 2's, and camera 2 stays silent.
    EXPECT_EQ(rig.readout.queuedFrame(1).Camera, 2);
    rig.run(1200);
    EXPECT_EQ(state(2), Answer::NotAnswering);
    EXPECT_EQ(state(3), Answer::NotHeard);
    const auto& log = rig.forms.log.entries();
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(log.front().what, "No Acknowledge");
    EXPECT_EQ(log.front().camera, 2);
}

}  // namespace
}  // namespace station
