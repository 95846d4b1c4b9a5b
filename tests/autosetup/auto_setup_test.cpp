// The auto-message window's life on a started station: request frame on the line, result
// frame back, text shown, window hidden after its count of 500 ms ticks.
#include <gtest/gtest.h>

#include "tests/support/station_rig.hpp"

namespace station {
namespace {

using testing::reply;
using testing::wire;
using testing::operator+;

struct AutoRig : testing::StationRig {
    AutoRig() { run(600); }  // the handshake's start-up wait
    // Moves the clock to the next instant of the auto message's 500 ms grid.
    void align() {
        run(static_cast<int>((500 - now % 500) % 500));
        aligned = now;
    }
    // Whether the window stays up until the `instants`th grid instant after the alignment,
    // and is gone on it.
    bool hidesAfter(int instants) {
        run(static_cast<int>(aligned + instants * 500 - 20 - now));
        const bool stayed = readout.autoShown();
        run(20);
        return stayed && !readout.autoShown();
    }
    long aligned = 0;
};

TEST(AutoSetup, WhiteOkHides) {
    AutoRig rig;
    rig.form1.Command8.click();
    EXPECT_EQ(rig.readout.autoOperation() + " / " + rig.readout.autoResult(), "AUTO WHITE / Now doing");
    rig.run(40);
    EXPECT_EQ(rig.port.takeWritten(), wire("02 02 40 10 AD FF"));
    rig.port.arrive(wire("06"));
    rig.run(10000);  // no result yet: the countdown has not started
    EXPECT_TRUE(rig.readout.autoShown());
    rig.align();
    rig.port.arrive(reply("401001"));
    rig.run(40);
    EXPECT_EQ(rig.port.takeWritten(), wire("06"));
    EXPECT_EQ(rig.readout.autoResult(), "OK : COLOR TEMP.=3200K");
    EXPECT_TRUE(rig.hidesAfter(3));
    EXPECT_FALSE(rig.ticks[StationTick::AutoMessage].model.Enabled);
}

TEST(AutoSetup, BlackNgUnknownLateAndAckOff) {
    AutoRig rig;
    rig.form1.Command7.click();
    EXPECT_EQ(rig.readout.autoOperation(), "AUTO BLACK");
    rig.align();
    rig.port.arrive(wire("06") + reply("402018"));
    rig.run(40);
    EXPECT_EQ(rig.readout.autoResult(), "NG : ????");
    EXPECT_TRUE(rig.hidesAfter(6));

    // A result for an operation the station does not know leaves the text and only counts down.
    rig.form1.Command7.click();
    rig.align();
    rig.port.arrive(wire("06") + reply("400500"));
    rig.run(40);
    EXPECT_EQ(rig.readout.autoResult(), "Now doing");
    EXPECT_TRUE(rig.hidesAfter(6));

    // A result after the window was hidden does not show it again.
    rig.port.arrive(reply("401013"));
    rig.run(80);
    EXPECT_FALSE(rig.readout.autoShown());
    EXPECT_EQ(rig.readout.autoResult(), "NG : LOW LIGHT");

    // Under Ack Off no result is awaited: the countdown starts at once.
    rig.port.takeWritten();
    rig.station.ACK_Click(1);
    rig.align();
    rig.form1.Command7.click();
    rig.run(40);
    EXPECT_EQ(rig.port.takeWritten(), wire("06 02 02 40 20 9D FF"));
    EXPECT_TRUE(rig.hidesAfter(4));
}

}  // namespace
}  // namespace station
