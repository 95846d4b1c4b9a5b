// Start-up, the setup menu and the error boundary.
#include <gtest/gtest.h>

#include "tests/support/station_rig.hpp"

namespace station {
namespace {

using testing::Commands;
using testing::StationRig;

TEST(Station, StartsQuietAndAckOffGreysWhatWaitsForAnswers) {
    StationRig rig;
    const StationReadout& r = rig.readout;
    EXPECT_EQ(r.selectedCamera() + r.sceneOf(8), 2);
    EXPECT_TRUE(r.handshake() && !r.cameraIdOn() && r.panelLive());
    EXPECT_EQ(rig.port.settings, "9600,N,8,1");
    using T = StationTick;
    EXPECT_TRUE(rig.ticks[T::Poll].model.Enabled && rig.ticks[T::AckWatch].model.Enabled &&
                rig.ticks[T::AnswerWatch].model.Enabled);
    EXPECT_EQ(rig.ticks[T::Poll].model.Interval, 40);
    EXPECT_EQ(rig.ticks[T::AnswerWatch].model.Interval + rig.ticks[T::FilterRelease].model.Interval +
                  rig.ticks[T::AutoMessage].model.Interval,
              1500);
    EXPECT_FALSE(rig.ticks[T::AutoMessage].model.Enabled);
    EXPECT_EQ(rig.form4.List1.items(), (std::vector<std::string>{"delete", "BX4", "HD3", "PT2", "ST1"}));
    rig.run(2000);
    EXPECT_TRUE(rig.port.writes.empty());
    EXPECT_TRUE(rig.messages.shown.empty());

    // Ack Off in the Setup menu; camera 1 of the studio is of a type with tally.
    rig.open(testing::kStudio);
    const Form1& f = rig.form1;
    // Both watches, the BLACK button, the tally group, the filter label, the menu ticks.
    const auto state = [&] {
        std::string out;
        for (bool on : {rig.ticks[StationTick::AckWatch].model.Enabled, rig.ticks[StationTick::AnswerWatch].model.Enabled,
                        f.Command12.Enabled, f.Frame19.Enabled, f.Label16.Enabled, f.ACK(0).Checked, f.ACK(1).Checked})
            out += on ? '1' : '0';
        return out;
    };
    rig.station.ACK_Click(1);
    EXPECT_FALSE(rig.readout.handshake());
    EXPECT_EQ(state(), "0000001");
    rig.station.ACK_Click(0);
    EXPECT_EQ(state(), "1111110");
    rig.form1.Option9.click(6);  // a type without tally
    rig.station.ACK_Click(1);
    rig.station.ACK_Click(0);
    EXPECT_EQ(state(), "1110110");
}

// A damaged file gives camera 2 a white setting no button has: selecting it fails half-way
// through the redraw. The operator is told, the action (and a client) hears why, and the
// panel answers the next gesture.
TEST(Station, FailedActionKeepsPanelLive) {
    StationRig rig;
    std::string text = testing::readBytes(testing::kStudio);
    text.replace(text.find("mWHITE=0,1,2,3,0,1"), 18, "mWHITE=0,1,2,3,0,9");
    rig.open(rig.folder.write("damaged.csd", text));
    rig.takeQueued();
    const ActionResult failed = rig.actions.selectCamera(2);
    EXPECT_EQ(failed.status(), ActionResult::Status::Failed);
    EXPECT_TRUE(failed.acted());
    EXPECT_EQ(failed.why(), "Run-time error 9: Subscript out of range");
    EXPECT_EQ(rig.messages.texts(), std::vector<std::string>{failed.why()});
    EXPECT_TRUE(rig.readout.panelLive());
    rig.form1.OptBar.click(1);
    EXPECT_EQ(rig.takeQueued(), Commands{"200801FE"});
}

}  // namespace
}  // namespace station
