#include <gtest/gtest.h>

#include "link/console.hpp"
#include "tests/link/link_rig.hpp"

namespace station {
namespace {

using testing::LinkRig;

struct ConsoleRig : LinkRig {
    Console console{link};
};

TEST(CommandConsole, ThePresetFrameIsProcessedOnTheNextTick) {
    ConsoleRig rig;
    rig.settle();
    EXPECT_EQ(rig.console.Text2.text(), "0203400000BCFF");
    rig.console.Command2_Click();
    EXPECT_EQ(rig.console.Text3.text(), "7");
    EXPECT_TRUE(rig.decoders.calls.empty());
    EXPECT_TRUE(rig.port.writes.empty());  // the console itself sends nothing
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.link.Label11.Caption, " 02 03 40 00 00 BC FF");
    EXPECT_EQ(rig.decoders.calls, std::vector<std::string>{"RecAuto(00,00)"});
    EXPECT_EQ(rig.link.Label10.Caption, " 06");
    EXPECT_EQ(rig.link.TestCnt(), 0);
}

TEST(CommandConsole, ConsoleBytesFollowThePortBytesInTheSameTick) {
    ConsoleRig rig;
    rig.settle();
    rig.port.arrive(bytesOf({0x02, 0x03, 0x40}));
    rig.console.Text1.setText("0000BCFF");
    rig.console.Command1_Click();
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.decoders.calls, std::vector<std::string>{"RecAuto(00,00)"});
    EXPECT_EQ(rig.link.Label11.Caption, " 00 00 BC FF");  // the last chunk shown
}

TEST(CommandConsole, ShortAndEmptyTextsAndASecondClick) {
    ConsoleRig rig;
    rig.settle();
    rig.console.Text1.setText("06");
    rig.console.Command1_Click();
    EXPECT_EQ(rig.console.Text3.text(), "1");
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.link.Label11.Caption, " 06");

    rig.console.Command2_Click();
    rig.console.Text1.setText("");
    rig.console.Command1_Click();  // replaces the waiting bytes with nothing
    EXPECT_EQ(rig.console.Text3.text(), "0");
    rig.link.Timer1_Timer();
    EXPECT_TRUE(rig.decoders.calls.empty());
    EXPECT_EQ(rig.link.Label11.Caption, " 06");
}

TEST(CommandConsole, AChangedChecksumDigitIsNaked) {
    ConsoleRig rig;
    rig.settle();
    rig.console.Text1.setText("0203400000BCFE");
    rig.console.Command1_Click();
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.link.Label10.Caption, " 15");
    EXPECT_TRUE(rig.decoders.calls.empty());
}

TEST(CommandConsole, UnderAckOffTheBytesWait) {
    ConsoleRig rig;
    rig.shared.AckMode = 1;
    rig.console.Command2_Click();
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.link.TestCnt(), 7);
    EXPECT_TRUE(rig.decoders.calls.empty());
    rig.shared.AckMode = 0;
    rig.settle();
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.decoders.calls, std::vector<std::string>{"RecAuto(00,00)"});
}

}  // namespace
}  // namespace station
