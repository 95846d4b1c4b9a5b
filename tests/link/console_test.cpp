// The command console: raw bytes fed into the receive path on the next poll.
#include <gtest/gtest.h>

#include "link/console.hpp"
#include "tests/link/link_rig.hpp"

namespace station {
namespace {

using testing::Calls;
using testing::wire;

struct ConsoleRig : testing::LinkRig {
    ConsoleRig() { settle(); }
    void inject(const std::string& text) {
        console.Text1.setText(text);
        console.Command1_Click();
    }
    Console console{link};
};

TEST(CommandConsole, ThePresetFrameIsProcessedOnTheNextTickAfterThePortsBytes) {
    ConsoleRig rig;
    EXPECT_EQ(rig.console.Text2.text(), "0203400000BCFF");
    rig.console.Command2_Click();
    EXPECT_EQ(rig.console.Text3.text(), "7");
    EXPECT_TRUE(rig.port.writes.empty());  // the console itself sends nothing
    EXPECT_EQ(rig.tick(), wire("06"));
    EXPECT_EQ(rig.decoders.calls, Calls{"RecAuto(00,00)"});
    EXPECT_EQ(rig.link.Label11.Caption, " 02 03 40 00 00 BC FF");
    EXPECT_EQ(rig.link.Label10.Caption, " 06");
    EXPECT_EQ(rig.link.TestCnt(), 0);

    rig.inject("0000BCFF");
    rig.tick(wire("02 03 40"));
    EXPECT_EQ(rig.decoders.calls, (Calls{"RecAuto(00,00)", "RecAuto(00,00)"}));
    EXPECT_EQ(rig.link.Label11.Caption, " 00 00 BC FF");  // the last chunk shown
}

TEST(CommandConsole, ShortEmptyAndSpoiltTexts) {
    ConsoleRig rig;
    rig.inject("06");
    EXPECT_EQ(rig.console.Text3.text(), "1");
    rig.tick();
    EXPECT_EQ(rig.link.Label11.Caption, " 06");
    rig.console.Command2_Click();
    rig.inject("");  // replaces the waiting bytes with nothing
    EXPECT_EQ(rig.console.Text3.text(), "0");
    rig.tick();
    EXPECT_TRUE(rig.decoders.calls.empty());
    EXPECT_EQ(rig.link.Label11.Caption, " 06");

    rig.inject("0203400000BCFE");  // one checksum digit changed
    EXPECT_EQ(rig.tick(), wire("15"));
    EXPECT_EQ(rig.link.Label10.Caption, " 15");
    EXPECT_TRUE(rig.decoders.calls.empty());
}

TEST(CommandConsole, UnderAckOffTheBytesWait) {
    ConsoleRig rig;
    rig.shared.AckMode = 1;
    rig.console.Command2_Click();
    rig.tick();
    EXPECT_EQ(rig.link.TestCnt(), 7);
    EXPECT_TRUE(rig.decoders.calls.empty());
    rig.shared.AckMode = 0;
    rig.tick();
    EXPECT_EQ(rig.decoders.calls, Calls{"RecAuto(00,00)"});
}

}  // namespace
}  // namespace station
