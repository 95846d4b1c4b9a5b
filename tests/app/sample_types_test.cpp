// Every sample camera type on the studio line: each control of the main panel puts the exact
// frame on the wire, and the camera's replies bring the panel into line with nothing sent
// back but acknowledges. The frames are worked out here independently of the link's code.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/app/station_rig.hpp"

namespace station {
namespace {

using testing::Commands;
using testing::frame;
using testing::reply;
using testing::StationRig;
using testing::wire;
using testing::operator+;

struct TypeCase {
    int camera;
    const char* type;
    Commands gain;     // OptGain 1, then 2
    Commands filter;   // one SpinUp from position 3 (and the pulse release)
    bool monitor;
    bool tally;
};

class SampleTypes : public ::testing::TestWithParam<TypeCase> {};

TEST_P(SampleTypes, EveryControlSendsItsFrameAndRepliesComeBackQuietly) {
    const TypeCase& c = GetParam();
    StationRig rig;
    rig.open(testing::kStudio);
    Station& s = rig.station;
    rig.run(1000);
    s.form1.Option9.click(c.camera);
    ASSERT_EQ(s.shared.cams.CamType(c.camera), c.type);
    const std::string id = s.shared.cams.CamID(c.camera);

    // A known working copy, drawn without sending.
    s.shared.CtrlReady = 0;
    const char* start[] = {"", "0", "0", "0", "0", "0", "0", "1", "0", "0", "0", "0", "0", "0", "0", "1", "2", "1", "3"};
    for (int f = mBar; f <= mFILTER; ++f) rig.field(f, c.camera) = start[f];
    s.panel.MainDsp();
    s.shared.CtrlReady = 1;
    EXPECT_EQ(s.form1.Frame12.Enabled, c.monitor);
    EXPECT_EQ(s.form1.Frame19.Enabled, c.tally);
    EXPECT_EQ(s.form1.Frame17.Enabled, !c.filter.empty());

    Commands expected{"200801FE", "200210EF", "200501FE", "200408F3", "200401FC"};
    s.form1.OptBar.click(1);
    s.form1.OptDtl.click(1);
    s.form1.OptSht.click(1);
    s.form1.OptWhite.click(2);
    s.form1.OptIris.click(1);
    if (s.form1.Frame12.Enabled) {
        s.form1.OptMonsel.click(16);
        expected.push_back("200F10E0");
    }
    s.form1.OptGain.click(1);
    s.form1.OptGain.click(2);
    expected.insert(expected.end(), c.gain.begin(), c.gain.end());
    s.form1.VrMblk.setValue(-3);
    s.form1.VrIris.setValue(20);
    s.form1.VrDtl.setValue(7);
    s.form1.VrRGain.setValue(1);
    s.form1.VrBGain.setValue(-1);
    s.form1.VrRBlk.setValue(2);
    s.form1.VrBBlk.setValue(-2);
    expected.insert(expected.end(), {"302BFD00", "302E1400", "302C0700", "30180100", "301AFF00", "30210200", "3023FE00"});
    if (s.form1.Frame17.Enabled) s.panel.SpinButton2_SpinUp();
    if (s.form1.Frame19.Enabled) {
        s.panel.Command9_MouseDown();
        EXPECT_EQ(s.form1.Label15.BackColor, kColourRed);
        s.panel.Command9_MouseUp();
    }
    s.autoSetup.Command8_Click();

    // Let every frame go out, acknowledging each as a camera would. The filter pulse's release
    // joins the queue on the release timer's tick, behind what was waiting: the frames are
    // compared in order of their bytes (the queue's order is the link's own business).
    std::vector<std::string> sent, frames;
    for (int i = 0; i < 200 && (s.link.queue().SendCnt() > 0 || i < 20); ++i) {
        rig.run(40);
        for (const Bytes& out : rig.port.writes) sent.push_back(hexText(out));
        if (!rig.port.writes.empty()) rig.port.arrive(bytesOf({0x06}));
        rig.port.writes.clear();
    }
    expected.insert(expected.end(), c.filter.begin(), c.filter.end());
    if (c.tally) expected.insert(expected.end(), {"200304FB", "200300FB"});
    expected.push_back("4010");
    for (const std::string& cmd : expected) frames.push_back(hexText(frame(wire(cmd), id)));
    std::sort(sent.begin(), sent.end());
    std::sort(frames.begin(), frames.end());
    EXPECT_EQ(sent, frames);

    // The camera's replies: the panel follows, only acknowledges go back.
    rig.port.arrive(reply("22 04 0D") + reply("32 2B 85") + reply("40 10 00"));
    rig.run(40);
    EXPECT_EQ(rig.port.takeWritten(), wire("06 06 06"));
    EXPECT_EQ(s.form1.OptWhite.selected(), 3);
    EXPECT_EQ(s.form1.Label3.Caption, "-123");
    EXPECT_EQ(s.form6.Label2.Caption, "OK");
    rig.run(2000);
    EXPECT_TRUE(rig.port.takeWritten().empty());
    EXPECT_TRUE(rig.messages.shown.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Studio, SampleTypes,
    ::testing::Values(TypeCase{1, "ST1", {"20010380", "20010680"}, {"200000F8"}, true, true},
                      TypeCase{3, "HD3", {"281204F3", "281208F3"}, {"200000F8"}, true, true},
                      TypeCase{5, "PT2", {"2001209F", "2001409F"}, {"201401FE", "201400FE"}, false, false},
                      TypeCase{6, "BX4", {"281204F3", "281208F3"}, {}, false, false}),
    [](const ::testing::TestParamInfo<TypeCase>& p) { return std::string(p.param.type); });

}  // namespace
}  // namespace station
