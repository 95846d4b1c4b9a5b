// Following the cameras' replies on the panel, without a frame ever going back.
#include <gtest/gtest.h>

#include <utility>

#include "tests/support/station_rig.hpp"

namespace station {
namespace {

using testing::Commands;

// The studio opened, `camera` selected, its iris mode set, the line started.
struct Replies : testing::StationRig {
    explicit Replies(int camera, int iris = -1) {
        open(testing::kStudio);
        form1.Option9.click(camera);
        if (iris >= 0) form1.OptIris.click(iris);
        run(600);
        takeQueued();
        port.takeWritten();
    }
    void reply(const std::string& data) {
        port.arrive(testing::reply(data));
        run(80);
    }
};

TEST(Replies, StoreFields) {
    using Fields = std::vector<std::pair<int, const char*>>;
    const struct {
        int camera;  // 1: gain family 0, 5: family 1, 6: family 2, 3: family 3
        int iris;    // the iris mode before the reply (-1: as stored)
        const char* reply;
        Fields fields;
    } cases[] = {
        {1, -1, "22040E", {{mWHITE, "3"}, {mIRIS, "2"}}},
        {1, -1, "220200", {{mDTL, "0"}}},
        // Family 0: the step in bits 0..3 (1, 3 or 6) and its value in bits 6..7.
        {1, -1, "220146", {{mGAIN, "2"}, {mHIGH, "1"}}},
        {1, -1, "220140", {{mGAIN, "0"}, {mLOW, "1"}}},
        {1, -1, "220103", {{mGAIN, "1"}, {mMID, "2"}}},
        {5, -1, "220140", {{mGAIN, "2"}}},
        {5, -1, "2A0609", {{mMID, "9"}}},
        {6, -1, "2A1204", {{mGAIN, "1"}}},
        {6, -1, "220160", {{mGAIN, "0"}}},  // families 2 and 3 report under 2A only
        {3, -1, "2A134E", {{mLOW, "1"}, {mMID, "2"}, {mHIGH, "3"}}},
        {1, -1, "322BFF", {{aMBLK, "-1"}}},
        {1, -1, "322103", {{aRBLK, "3"}}},
        // The iris level comes from the address of the iris mode only.
        {1, 2, "322E10", {{aIRIS, "-4"}}},
        {1, 2, "323910", {{aIRIS, "16"}}},
        {1, 1, "322E11", {{aIRIS, "17"}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reply);
        Replies rig(c.camera, c.iris);
        rig.reply(c.reply);
        for (const auto& [f, v] : c.fields) EXPECT_EQ(rig.field(f, c.camera), v) << " field " << f;
        EXPECT_TRUE(rig.takeQueued().empty());
        EXPECT_TRUE(rig.readout.panelLive());
    }
}

TEST(Replies, ControlsAndTally) {
    Replies rig(1);
    for (const char* r : {"22040E", "220F00", "2200FA", "322BFF", "322C05", "220146"}) rig.reply(r);
    EXPECT_EQ(rig.form1.OptWhite.selected(), 3);
    EXPECT_EQ(rig.form1.OptMonsel.selected(), 16);
    EXPECT_EQ(rig.form1.Label16.Caption, "5600K");
    EXPECT_EQ(rig.form1.Label3.Caption, "-1");
    EXPECT_EQ(rig.form1.Label1(2).Caption, "18dB");
    EXPECT_EQ(rig.form1.OptGain.selected(), 0);  // the gain decoder never selects a button

    rig.reply("220301");
    EXPECT_TRUE(rig.readout.tally());
    rig.reply("220300");
    EXPECT_FALSE(rig.readout.tally());
    rig.form1.Command9.mouseDown();  // CALL held: the lamp stays lit
    rig.reply("220300");
    EXPECT_TRUE(rig.readout.tally());
}

}  // namespace
}  // namespace station
