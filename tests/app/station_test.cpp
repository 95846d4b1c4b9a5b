// Start-up, the setup menu, the version box, shutdown and the error boundary.
#include <gtest/gtest.h>

#include "tests/app/station_rig.hpp"

namespace station {
namespace {

using testing::Commands;
using testing::StationRig;
using testing::wire;

TEST(StartUp, TheStationStartsOnCameraOneWithTheHandshakeOnAndSendsNothing) {
    StationRig rig;
    Station& s = rig.station;
    EXPECT_EQ(s.shared.CamNo, 1);
    for (int camera = 0; camera <= 8; ++camera) EXPECT_EQ(s.shared.ScnNo(camera), 1);
    EXPECT_EQ(s.shared.AckMode + s.shared.IDMode, 0);
    EXPECT_EQ(s.shared.CtrlReady, 1);
    EXPECT_EQ(rig.port.commPort, 1);
    EXPECT_EQ(rig.port.settings, "9600,N,8,1");
    EXPECT_TRUE(rig.port.opened);
    EXPECT_TRUE(s.link.Timer1.Enabled && s.link.Timer2.Enabled && s.link.Timer3.Enabled);
    EXPECT_EQ(s.link.Timer1.Interval, 40);
    EXPECT_EQ(s.link.Timer3.Interval + s.form1.Timer4.Interval + s.form6.Timer1.Interval, 1500);
    EXPECT_FALSE(s.form6.Timer1.Enabled);
    EXPECT_TRUE(s.form1.ACK(0).Checked);
    EXPECT_EQ(s.stores.MainKey(18), "mFILTER=");
    EXPECT_EQ(s.form4.List1.items(), (std::vector<std::string>{"delete", "BX4", "HD3", "PT2", "ST1"}));
    EXPECT_EQ(s.form1.Option9.selected(), 1);
    EXPECT_EQ(s.form1.Option7.selected(), 1);
    rig.run(2000);
    EXPECT_TRUE(rig.port.writes.empty());
    EXPECT_TRUE(rig.messages.shown.empty());

}

TEST(VersionBox, NamesTheLineSpeedAndPort) {
    StationRig rig;
    rig.station.HELP_Click();
    ASSERT_EQ(rig.messages.shown.size(), 1u);
    EXPECT_EQ(rig.messages.shown[0].icon, Icon::Information);
    const std::string& text = rig.messages.shown[0].text;
    EXPECT_EQ(text.substr(0, text.find('\r')), "Corvane Camera Setup Control 0.13");
    EXPECT_NE(text.find("\r       9600bps COM1\r"), std::string::npos);
    rig.station.Speed_Click(1);
    EXPECT_NE(rig.station.versionText().find("\r       19200bps COM1\r"), std::string::npos);
    EXPECT_EQ(rig.port.settings, "19200,N,8,1");
    EXPECT_TRUE(rig.station.form1.Speed(1).Checked);
    EXPECT_FALSE(rig.station.form1.Speed(0).Checked);
}

TEST(SetupMenu, AckOffTakesAwayEverythingThatWaitsForAnAnswer) {
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

TEST(SetupMenu, CameraIdTogglesAndChangesTheFrames) {
    StationRig rig;
    Station& s = rig.station;
    s.IDcont_Click();
    EXPECT_EQ(s.shared.IDMode, 1);
    EXPECT_TRUE(s.form1.IDcont.Checked);
    s.form1.OptBar.click(1);  // camera 1 has no ID yet: refused
    EXPECT_EQ(rig.messages.texts(), std::vector<std::string>{"No Camera ID"});
    EXPECT_EQ(s.link.queue().SendCnt(), 0);
    s.IDcont_Click();
    EXPECT_EQ(s.shared.IDMode, 0);
    EXPECT_FALSE(s.form1.IDcont.Checked);
}

TEST(Shutdown, QuittingStopsTheTimersAndSendsNothingQueued) {
    StationRig rig;
    Station& s = rig.station;
    s.form1.OptBar.click(1);
    s.form1.OptDtl.click(1);
    s.QUIT_Click();
    EXPECT_TRUE(s.ended());
    EXPECT_FALSE(s.link.Timer1.Enabled || s.link.Timer2.Enabled || s.link.Timer3.Enabled || s.form1.Timer4.Enabled);
    rig.run(2000);
    EXPECT_TRUE(rig.port.writes.empty());
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(ErrorBoundary, APollFaultIsShownInTheFaultLineAndTheStationGoesOn) {
    StationRig rig;
    rig.run(1000);
    for (int i = 0; i < 3; ++i) {
        rig.port.arrive(testing::reply("22 01 02 03 04 05 06 07 08 09 0A"));  // one data byte too many
        rig.run(40);
    }
    EXPECT_TRUE(rig.messages.shown.empty());  // no message box per tick
    EXPECT_EQ(rig.station.form1.faultLine.Caption, "Line: Run-time error 9: Subscript out of range");
    EXPECT_TRUE(rig.port.takeWritten().empty());  // neither ACK nor NAK for them

    rig.port.arrive(wire("02 03 40 00 00 BC FF"));
    rig.run(40);
    EXPECT_EQ(rig.station.form6.Label2.Caption, "OK");
    EXPECT_EQ(rig.port.takeWritten(), wire("06"));
    rig.port.arrive(wire("02"));  // a reply cut right after its STX
    rig.run(40);
    EXPECT_EQ(rig.station.form1.faultLine.Caption, "Line: Run-time error 5: Invalid procedure call or argument");
}

TEST(ErrorBoundary, AFailedActionLeavesThePanelLive) {
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
