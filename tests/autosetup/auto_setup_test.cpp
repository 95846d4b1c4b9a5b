// The auto-message window's life, driven through the real link: request frame on the line,
// result frame (or the console's injected frame) back, text shown, window hidden on time.
#include <gtest/gtest.h>

#include "autosetup/auto_setup.hpp"
#include "link/console.hpp"
#include "tests/support/fake_messages.hpp"
#include "tests/support/fake_port.hpp"

namespace station {
namespace {

using testing::FakeMessages;
using testing::FakePort;

// Routes "40" results to the automatic setup, as the station does.
class AutoOnly : public ReplyDecoders {
public:
    AutoSetup* autoSetup = nullptr;
    void RecModeMain(const std::string&, const std::string&, const std::string&) override {}
    void RecModeFunc(const std::string&, const std::string&, const std::string&) override {}
    void RecAnalogMain(const std::string&, const std::string&, const std::string&) override {}
    void RecAnalogFunc(const std::string&, const std::string&, const std::string&, const std::string&) override {}
    void RecAuto(const std::string& op, const std::string& result) override { autoSetup->RecAuto(op, result); }
};

struct AutoRig {
    AutoRig() {
        shared.CamNo = 1;
        decoders.autoSetup = &autoSetup;
        form6.Timer1.Interval = 500;
        link.Timer2_Timer();
        link.Timer3_Timer();
    }
    // The 500 ms countdown ticks while the window's timer runs.
    void countdown(int ticks) {
        for (int i = 0; i < ticks; ++i)
            if (form6.Timer1.Enabled) autoSetup.Timer1_Timer();
    }
    Bytes result(int op, int code) {
        Bytes f{0x02, 0x03, 0x40, static_cast<std::uint8_t>(op), static_cast<std::uint8_t>(code)};
        const int chk = ~(3 + 0x40 + op + code) & 0xFFFF;
        f.push_back(static_cast<std::uint8_t>(chk & 0xFF));
        f.push_back(static_cast<std::uint8_t>(chk >> 8));
        return f;
    }

    Shared shared;
    FakePort port;
    FakeMessages messages;
    AutoOnly decoders;
    Link link{shared, port, messages, decoders};
    Form6 form6;
    AutoSetup autoSetup{shared, link, form6};
    Console console{link};
};

TEST(AutoWhite, RequestResultAndHidingUnderAckOn) {
    AutoRig rig;
    rig.autoSetup.Command8_Click();
    EXPECT_TRUE(rig.form6.form.Visible);
    EXPECT_EQ(rig.form6.Label1.Caption, "AUTO WHITE");
    EXPECT_EQ(rig.form6.Label2.Caption, "Now doing");
    EXPECT_FALSE(rig.form6.Timer1.Enabled);  // waits for the camera
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.port.takeWritten(), bytesOf({0x02, 0x02, 0x40, 0x10, 0xAD, 0xFF}));

    rig.port.arrive(bytesOf({0x06}));
    rig.link.Timer1_Timer();
    rig.countdown(20);
    EXPECT_TRUE(rig.form6.form.Visible);  // no result yet: it stays up

    rig.port.arrive(rig.result(0x10, 0x01));
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.form6.Label2.Caption, "OK : COLOR TEMP.=3200K");
    EXPECT_EQ(rig.port.takeWritten(), bytesOf({0x06}));
    rig.countdown(2);
    EXPECT_TRUE(rig.form6.form.Visible);
    rig.countdown(1);
    EXPECT_FALSE(rig.form6.form.Visible);
    EXPECT_FALSE(rig.form6.Timer1.Enabled);
}

TEST(AutoWhite, TheConsoleFrameGivesOkAndHidesAfterThreeTicks) {
    AutoRig rig;
    rig.autoSetup.Command8_Click();
    rig.console.Command2_Click();
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.form6.Label2.Caption, "OK");
    EXPECT_EQ(rig.autoSetup.AutoCount(), 3);
    rig.countdown(3);
    EXPECT_FALSE(rig.form6.form.Visible);
}

TEST(AutoBlack, NgAndUnknownResults) {
    AutoRig rig;
    rig.autoSetup.Command7_Click();
    EXPECT_EQ(rig.form6.Label1.Caption, "AUTO BLACK");
    rig.port.arrive(rig.result(0x20, 0x18));
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.form6.Label2.Caption, "NG : ????");
    rig.countdown(5);
    EXPECT_TRUE(rig.form6.form.Visible);
    rig.countdown(1);
    EXPECT_FALSE(rig.form6.form.Visible);

    // A result for an operation the station does not know leaves the text and only counts down.
    rig.autoSetup.Command7_Click();
    rig.port.arrive(rig.result(0x05, 0x00));
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.form6.Label2.Caption, "Now doing");
    EXPECT_EQ(rig.autoSetup.AutoCount(), 6);
    rig.countdown(6);
    EXPECT_FALSE(rig.form6.form.Visible);
}

TEST(AutoBlack, UnderAckOffTheWindowHidesAfterFourTicks) {
    AutoRig rig;
    rig.shared.AckMode = 1;
    rig.autoSetup.Command7_Click();
    EXPECT_TRUE(rig.form6.Timer1.Enabled);
    EXPECT_EQ(rig.autoSetup.AutoCount(), 4);
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.port.takeWritten(), bytesOf({0x06, 0x02, 0x02, 0x40, 0x20, 0x9D, 0xFF}));
    rig.countdown(3);
    EXPECT_TRUE(rig.form6.form.Visible);
    rig.countdown(1);
    EXPECT_FALSE(rig.form6.form.Visible);
}

TEST(AutoResults, EveryCodeHasItsText) {
    EXPECT_EQ(AutoSetup::resultText("00"), "OK");
    EXPECT_EQ(AutoSetup::resultText("02"), "OK : COLOR TEMP.=5600K");
    EXPECT_EQ(AutoSetup::resultText("10"), "NG : EXECUTED TALLY");
    EXPECT_EQ(AutoSetup::resultText("12"), "NG : CHANGE WHITE BALANCE SW TO MEMORY");
    EXPECT_EQ(AutoSetup::resultText("17"), "NG : IRIS IS NOT CLOSED");
    EXPECT_EQ(AutoSetup::resultText("18"), "NG : ????");
    EXPECT_EQ(AutoSetup::resultText("19"), "NG : CONTROL LIMIT");
    EXPECT_EQ(AutoSetup::resultText("1B"), "NG : COLOR TEMP. HIGH CHANGE TO 5600K");
    EXPECT_EQ(AutoSetup::resultText("21"), "NG : LEVEL LOW");
    EXPECT_EQ(AutoSetup::resultText("22"), "NG : ????");
    EXPECT_EQ(AutoSetup::resultText(""), "NG : ????");
}

TEST(AutoResults, AResultAfterTheWindowWasHiddenDoesNotShowItAgain) {
    AutoRig rig;
    rig.autoSetup.RecAuto("10", "13");
    EXPECT_FALSE(rig.form6.form.Visible);
    EXPECT_EQ(rig.form6.Label2.Caption, "NG : LOW LIGHT");
    EXPECT_TRUE(rig.form6.Timer1.Enabled);
}

}  // namespace
}  // namespace station
