// Start-up, the setup menu, the version box, shutdown and the error boundary.
#include <gtest/gtest.h>

#include "tests/support/station_rig.hpp"

namespace station {
namespace {

using testing::Commands;
using testing::StationRig;

TEST(Station, StartsQuiet) {
    StationRig rig;
    Station& s = rig.station;
    EXPECT_EQ(s.shared.CamNo + s.shared.ScnNo(8) + s.shared.AckMode + s.shared.IDMode, 2);
    EXPECT_EQ(s.shared.CtrlReady, 1);
    EXPECT_EQ(rig.port.settings, "9600,N,8,1");
    EXPECT_TRUE(s.link.Timer1.Enabled && s.link.Timer2.Enabled && s.link.Timer3.Enabled);
    EXPECT_EQ(s.link.Timer1.Interval, 40);
    EXPECT_EQ(s.link.Timer3.Interval + s.form1.Timer4.Interval + s.form6.Timer1.Interval, 1500);
    EXPECT_FALSE(s.form6.Timer1.Enabled);
    EXPECT_EQ(s.form4.List1.items(), (std::vector<std::string>{"delete", "BX4", "HD3", "PT2", "ST1"}));
    rig.run(2000);
    EXPECT_TRUE(rig.port.writes.empty());
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(Station, AckOffMenu) {
    StationRig rig;
    rig.open(testing::kStudio);  // camera 1 is of a type with tally
    Station& s = rig.station;
    // Both watches, the BLACK button, the tally group, the filter label, the menu ticks.
    const auto state = [&] {
        std::string out;
        for (bool on : {s.link.Timer2.Enabled, s.link.Timer3.Enabled, s.form1.Command12.Enabled,
                        s.form1.Frame19.Enabled, s.form1.Label16.Enabled, s.form1.ACK(0).Checked,
                        s.form1.ACK(1).Checked})
            out += on ? '1' : '0';
        return out;
    };
    s.ACK_Click(1);
    EXPECT_EQ(s.shared.AckMode, 1);
    EXPECT_EQ(state(), "0000001");
    s.ACK_Click(0);
    EXPECT_EQ(state(), "1111110");
    s.form1.Option9.click(6);  // a type without tally
    s.ACK_Click(1);
    s.ACK_Click(0);
    EXPECT_EQ(state(), "1110110");
}

TEST(Station, FailedActionKeepsPanelLive) {
    StationRig rig;
    Station& s = rig.station;
    s.shared.cams.CamFclNo(1) = "9";  // a slot outside the tables
    s.act([&] { s.form1.Option9.setValue(1, false); s.form1.Option9.click(1); });
    EXPECT_EQ(rig.messages.texts(), std::vector<std::string>{"Run-time error 9: Subscript out of range"});
    EXPECT_EQ(s.shared.CtrlReady, 1);
    s.shared.cams.CamFclNo(1) = "";
    s.form1.OptBar.click(1);
    EXPECT_EQ(rig.takeQueued(), Commands{"200801FE"});
}

}  // namespace
}  // namespace station
