// The auto-message window's life, driven through the real link: request frame on the line,
// result frame back, text shown, window hidden on time.
#include <gtest/gtest.h>

#include "autosetup/auto_setup.hpp"
#include "tests/link/link_rig.hpp"
#include "tests/support/frames.hpp"

namespace station {
namespace {

using testing::reply;
using testing::wire;

// Routes "40" results to the automatic setup, as the station does.
struct AutoOnly : testing::RecordingDecoders {
    AutoSetup* autoSetup = nullptr;
    void RecAuto(const std::string& op, const std::string& result) override { autoSetup->RecAuto(op, result); }
};

struct AutoRig : testing::BasicLinkRig<AutoOnly> {
    AutoRig() {
        decoders.autoSetup = &autoSetup;
        form6.Timer1.Interval = 500;
        settle();
    }
    // Runs the 500 ms countdown for `ticks` ticks; whether the window is still up after them.
    bool visibleAfter(int ticks) {
        for (int i = 0; i < ticks; ++i)
            if (form6.Timer1.Enabled) autoSetup.Timer1_Timer();
        return form6.form.Visible;
    }

    Form6 form6;
    AutoSetup autoSetup{shared, link, form6};
};

TEST(AutoSetup, WhiteOkHides) {
    AutoRig rig;
    rig.autoSetup.Command8_Click();
    EXPECT_EQ(rig.form6.Label1.Caption + " / " + rig.form6.Label2.Caption, "AUTO WHITE / Now doing");
    EXPECT_EQ(rig.tick(), wire("02 02 40 10 AD FF"));
    rig.tick(wire("06"));
    EXPECT_TRUE(rig.visibleAfter(20));  // no result yet: the countdown has not started
    EXPECT_EQ(rig.tick(reply("40 10 01")), wire("06"));
    EXPECT_EQ(rig.form6.Label2.Caption, "OK : COLOR TEMP.=3200K");
    EXPECT_TRUE(rig.visibleAfter(2));
    EXPECT_FALSE(rig.visibleAfter(1));
    EXPECT_FALSE(rig.form6.Timer1.Enabled);
}

TEST(AutoSetup, BlackNgAndUnknown) {
    AutoRig rig;
    rig.autoSetup.Command7_Click();
    EXPECT_EQ(rig.form6.Label1.Caption, "AUTO BLACK");
    rig.tick(reply("40 20 18"));
    EXPECT_EQ(rig.form6.Label2.Caption, "NG : ????");
    EXPECT_TRUE(rig.visibleAfter(5));
    EXPECT_FALSE(rig.visibleAfter(1));

    // A result for an operation the station does not know leaves the text and only counts down.
    rig.autoSetup.Command7_Click();
    rig.tick(reply("40 05 00"));
    EXPECT_EQ(rig.form6.Label2.Caption, "Now doing");
    EXPECT_TRUE(rig.visibleAfter(5));
    EXPECT_FALSE(rig.visibleAfter(1));

    // A result after the window was hidden does not show it again.
    rig.autoSetup.RecAuto("10", "13");
    EXPECT_FALSE(rig.form6.form.Visible);
    EXPECT_EQ(rig.form6.Label2.Caption, "NG : LOW LIGHT");
}

TEST(AutoSetup, AckOffHides) {
    AutoRig rig;
    rig.shared.AckMode = 1;
    rig.autoSetup.Command7_Click();
    EXPECT_EQ(rig.tick(), wire("06 02 02 40 20 9D FF"));
    EXPECT_TRUE(rig.visibleAfter(3));
    EXPECT_FALSE(rig.visibleAfter(1));
}

}  // namespace
}  // namespace station
