// The link engine: the send queue and its handshake, receiving and dispatching replies.
#include <gtest/gtest.h>

#include "common/hex.hpp"
#include "link/console.hpp"
#include "tests/link/link_rig.hpp"

namespace station {
namespace {

using testing::errorOf;
using testing::frame;
using testing::LinkRig;
using testing::wire;
using testing::operator+;

const Bytes kAck = wire("06");
const Bytes kNak = wire("15");

TEST(Handshake, NoAckAfterTenTicks) {
    LinkRig rig;
    rig.settle();
    rig.link.SendCmd("4010");
    rig.link.SendCmd("4020");
    rig.tick();
    for (int i = 0; i < 9; ++i) rig.link.Timer2_Timer();
    EXPECT_TRUE(rig.messages.shown.empty());
    rig.link.Timer2_Timer();
    ASSERT_EQ(rig.messages.texts(), testing::Calls{"No Acknowledge"});
    EXPECT_EQ(rig.tick(), frame(wire("40 20")));  // not the dropped one
}

TEST(Handshake, AckOffNeverWaits) {
    LinkRig rig;
    rig.shared.AckMode = 1;
    for (int i = 0; i < 10; ++i) rig.link.SendCmd("40" + hexByte(static_cast<std::uint8_t>(i)));
    rig.port.arrive(wire("02 03 40 00 00 BC FF"));
    for (int i = 0; i < 10; ++i) EXPECT_EQ(rig.tick(), frame(bytesOf({0x40, i}), "", true)) << i;
    EXPECT_TRUE(rig.tick().empty());
    EXPECT_EQ(rig.port.bytesWaiting(), 7);  // never read
    for (int i = 0; i < 20; ++i) rig.link.Timer2_Timer();
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(Handshake, AnswerWatch) {
    LinkRig rig;
    rig.settle();
    rig.link.SendCmd("4010");
    EXPECT_EQ(rig.tick(wire("02 03 40 00 00 BD FF")), kNak);  // and the head is held
    EXPECT_EQ(rig.link.AnsWait(), 50);
    for (int i = 0; i < 49; ++i) rig.link.Timer3_Timer();
    EXPECT_TRUE(rig.tick().empty());
    rig.link.Timer3_Timer();
    EXPECT_EQ(rig.messages.texts(), testing::Calls{"No Answer from Camera"});
    EXPECT_EQ(rig.tick(), frame(wire("40 10")));

    EXPECT_EQ(rig.tick(kAck + wire("02 03 40 00 00 BD FF")), kNak);
    EXPECT_EQ(rig.link.AnsWait(), 50);
    rig.tick(wire("02 03 40 00 00 BC FF"));
    EXPECT_EQ(rig.link.AnsWait(), -1);
}

using testing::Calls;
using testing::reply;

TEST(Receive, DispatchByClass) {
    const struct {
        const char* data;
        Calls calls;
    } cases[] = {
        {"2A 12 08", {"RecModeMain(2A,12,08)", "RecModeFunc(2A,12,08)"}},
        {"3A 40 01 02 03", {"RecAnalogMain(3A,40,01)", "RecAnalogFunc(3A,40,01,02)"}},
        {"40 10 18", {"RecAuto(10,18)"}},
        {"40", {"RecAuto(,)"}},
        {"22 01 02 03 04 05 06 07 08 09", {"RecModeMain(22,01,02)", "RecModeFunc(22,01,02)"}},
        {"12 00", {}},
        {"23 00", {}},
        {"", {}},
    };
    for (const auto& c : cases) {
        LinkRig rig;
        const Bytes f = reply(c.data);
        rig.link.RecCmd(f, static_cast<int>(f.size()));
        EXPECT_EQ(rig.decoders.calls, c.calls) << c.data;
    }
    LinkRig rig;  // an unknown class is still acknowledged
    rig.settle();
    EXPECT_EQ(rig.tick(reply("12 05")), wire("06"));
}

TEST(Receive, ElevenBytesDropped) {
    LinkRig rig;
    rig.settle();
    const Bytes next = reply("40 10 00");
    rig.port.arrive(reply("22 01 02 03 04 05 06 07 08 09 0A") + next);
    EXPECT_EQ(errorOf([&] { rig.link.Timer1_Timer(); }), 9);
    EXPECT_TRUE(rig.decoders.calls.empty());
    EXPECT_TRUE(rig.port.writes.empty());  // neither ACK nor NAK for it
    EXPECT_EQ(rig.link.RecBuff(), next);   // the rest waits for the next arrival
    rig.tick(wire("06"));
    EXPECT_EQ(rig.decoders.calls, Calls{"RecAuto(10,00)"});
}

// The command console feeds its bytes into the receive path on the next poll, after the
// port's own bytes, and sends nothing itself; a spoilt frame is NAKed like one from a camera.
TEST(Console, InjectsOnNextPoll) {
    LinkRig rig;
    rig.settle();
    Console console{rig.link};
    EXPECT_EQ(console.Text2.text(), "0203400000BCFF");
    console.Command2_Click();
    EXPECT_EQ(console.Text3.text(), "7");
    EXPECT_TRUE(rig.port.writes.empty());
    EXPECT_EQ(rig.tick(), kAck);
    EXPECT_EQ(rig.decoders.calls, testing::Calls{"RecAuto(00,00)"});
    EXPECT_EQ(rig.link.Label11.Caption, " 02 03 40 00 00 BC FF");

    console.Text1.setText("0203400000BCFE");  // one checksum digit changed
    console.Command1_Click();
    EXPECT_EQ(rig.tick(), kNak);
    EXPECT_EQ(rig.decoders.calls.size(), 1U);
}

}  // namespace
}  // namespace station
