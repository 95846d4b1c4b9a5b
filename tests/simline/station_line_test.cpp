// The whole station on the in-process camera line of the sample studio: automatic set-up,
// page read and page write against cameras that keep their own registers.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <string>
#include <vector>

#include "app/station.hpp"
#include "sim/line.hpp"
#include "sim/line_setup.hpp"
#include "sim/sim_port.hpp"
#include "sim/tick_driver.hpp"
#include "tests/support/fake_dialogs.hpp"
#include "tests/support/fake_messages.hpp"

namespace station {
namespace {

using namespace std::chrono_literals;
constexpr const char* kStudio = STATION_SAMPLES_DIR "/studio.csd";

struct StudioLine {
    StudioLine() {
        sim::LineSetup setup;
        std::ifstream in(kStudio, std::ios::binary);
        sim::readSetupData(in, setup);
        setup.build(line);
        station.Form_Load();
        dialogs.openAnswer = kStudio;
        station.OPEN_Click();
        // The station's timers, each while its model timer is enabled, as the program runs them.
        ticks.every(40ms, [this] { station.Timer1_Timer(); }, [this] { return station.link.Timer1.Enabled; });
        ticks.every(100ms, [this] { station.Timer2_Timer(); }, [this] { return station.link.Timer2.Enabled; });
        ticks.every(500ms, [this] { station.Timer3_Timer(); }, [this] { return station.link.Timer3.Enabled; });
        ticks.every(500ms, [this] { station.Timer4_Timer(); }, [this] { return station.form1.Timer4.Enabled; });
        ticks.every(500ms, [this] { station.Form6Timer_Timer(); }, [this] { return station.form6.Timer1.Enabled; });
        ticks.run(1s);
    }

    bool settle(sim::Micros limit = 30s) {
        return ticks.runUntil(
            [this] { return station.link.queue().SendCnt() == 0 && station.link.AckWait() == -1; }, limit);
    }
    std::string& field(int f) { return station.stores.MainScnData(f, station.shared.CamNo, 0); }

    sim::Line line;
    sim::SimPort port{line};
    testing::FakeMessages messages;
    testing::FakeDialogs dialogs;
    DiskWriter writer;
    Station station{{port, messages, dialogs, writer, STATION_SAMPLES_DIR}};
    sim::TickDriver ticks{line};
};

TEST(StudioLine, AutoWhiteOkAndAutoBlackNg) {
    StudioLine rig;
    rig.station.autoSetup.Command8_Click();
    EXPECT_TRUE(rig.ticks.runUntil([&] { return rig.station.form6.Label2.Caption != "Now doing"; }, 10s));
    EXPECT_EQ(rig.station.form6.Label2.Caption, "OK");
    EXPECT_TRUE(rig.ticks.runUntil([&] { return !rig.station.form6.form.Visible; }, 3s));
    EXPECT_EQ(rig.line.at(1).lastAutoOperation, 0x10);

    rig.line.at(1).autoResultCode = 0x13;
    rig.station.autoSetup.Command7_Click();
    EXPECT_TRUE(rig.ticks.runUntil([&] { return rig.station.form6.Label2.Caption != "Now doing"; }, 10s));
    EXPECT_EQ(rig.station.form6.Label2.Caption, "NG : LOW LIGHT");
    EXPECT_EQ(rig.station.form6.Label1.Caption, "AUTO BLACK");
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(StudioLine, APageWriteThenAPageReadGivesTheSamePanel) {
    StudioLine rig;
    Station& s = rig.station;
    s.form1.Option9.click(3);  // HD3
    const char* values[] = {"", "1", "1", "0", "", "2", "2", "7", "-5", "33", "12", "-20", "21", "-1", "9", "", "", "", "3"};
    s.shared.CtrlReady = 0;
    for (int f = mBar; f <= mFILTER; ++f)
        if (*values[f] != '\0') rig.field(f) = values[f];
    s.panel.MainDsp();
    s.shared.CtrlReady = 1;
    s.pages.SEND_Click();
    ASSERT_TRUE(rig.settle());

    // Forget the station's copy, then read the camera back.
    s.shared.CtrlReady = 0;
    for (int f = mBar; f <= mFILTER; ++f) rig.field(f) = "0";
    s.panel.MainDsp();
    s.shared.CtrlReady = 1;
    s.pages.READ_Click();
    ASSERT_TRUE(rig.settle());
    rig.ticks.run(200ms);
    for (int f : {mBar, mDTL, mSHT, mIRIS, mMONSEL, aMBLK, aIRIS, aDTL, aRGAIN, aBGAIN, aRBLK, aBBLK, mFILTER})
        EXPECT_EQ(rig.field(f), values[f]) << "field " << f;
    EXPECT_EQ(s.form1.Label3.Caption, "-5");
    // The page write's white command puts the code beside the bits its mask opens, so the
    // camera's white bits are cleared rather than set: the value does not come back.
    EXPECT_EQ(rig.field(mWHITE), "0");
    EXPECT_TRUE(rig.messages.shown.empty());
}

// Every function value of one camera of each sample type: written to the camera, forgotten,
// read back and decoded to what was written.
TEST(StudioLine, FunctionValuesWrittenAndReadBackAreTheSame) {
    for (int camera : {1, 4, 5, 6}) {  // ST1, HD3, PT2, BX4
        SCOPED_TRACE("camera " + std::to_string(camera));
        StudioLine rig;
        Station& s = rig.station;
        s.form1.Option9.click(camera);
        std::vector<std::string*> values;
        for (int r = 1; r <= val(s.stores.FuncScnData(0, 0, 0)); ++r) values.push_back(&s.stores.FuncScnData(r, camera, 0));
        for (int r = 1; r <= val(s.stores.FuncData(0, 0)); ++r) values.push_back(&s.stores.FuncData(r, camera));
        std::vector<std::string> written;
        for (const std::string* v : values) written.push_back(*v);

        s.pages.SEND_Click();
        ASSERT_TRUE(rig.settle());
        for (std::string* v : values) v->clear();
        s.pages.READ_Click();
        ASSERT_TRUE(rig.settle());
        rig.ticks.run(200ms);
        // Rows of other types' items stay empty, as they were.
        for (std::size_t i = 0; i < values.size(); ++i) EXPECT_EQ(*values[i], written[i]) << "row " << i + 1;
        EXPECT_GE(std::count_if(written.begin(), written.end(), [](const std::string& v) { return !v.empty(); }), 7);
        EXPECT_TRUE(rig.messages.shown.empty());
    }
}

// A trimmed gain step goes to the camera in its gain type's layout; the camera's own account
// of the register brings back the same value.
TEST(StudioLine, GainStepsTrimmedAndReadBack) {
    struct Case {
        int camera;  // of gain type 0, 1, 2, 3
        std::vector<const char*> requests;
    };
    const Case cases[] = {{1, {"2301"}}, {5, {"2B06", "2B07"}}, {6, {"2B06", "2B07"}}, {3, {"2B13"}}};
    for (const Case& c : cases) {
        StudioLine rig;
        Station& s = rig.station;
        s.form1.Option9.click(c.camera);
        for (int step = 0; step <= 2; ++step) {
            SCOPED_TRACE("camera " + std::to_string(c.camera) + " step " + std::to_string(step));
            for (int f : {mLOW, mMID, mHIGH}) rig.field(f) = "0";
            s.panel.SpinButton1_SpinDown(step);  // already at the bottom (or fixed): nothing to send
            EXPECT_EQ(s.link.queue().SendCnt(), 0);
            if (!s.panel.gainStepRange(step).offered()) continue;
            s.panel.SpinButton1_SpinUp(step);
            ASSERT_TRUE(rig.settle());
            rig.field(mLOW + step) = "7";  // forget it, then ask the camera
            for (const char* request : c.requests) s.link.SendCmd(request);
            ASSERT_TRUE(rig.settle());
            rig.ticks.run(200ms);
            EXPECT_EQ(rig.field(mLOW + step), "1");
        }
        EXPECT_TRUE(rig.messages.shown.empty());
    }
}

}  // namespace
}  // namespace station
