// Receiving: cutting frames out of the bytes, answering them, dispatching by reply class.
#include <gtest/gtest.h>

#include "tests/link/link_rig.hpp"

namespace station {
namespace {

using testing::Calls;
using testing::errorOf;
using testing::LinkRig;
using testing::reply;
using testing::wire;
using testing::operator+;

const Bytes kAutoOk = wire("02 03 40 00 00 BC FF");

TEST(Receive, AWholeFrameInOneTickIsDecodedAndAcknowledged) {
    LinkRig rig;
    rig.settle();
    EXPECT_EQ(rig.tick(kAutoOk), wire("06"));
    EXPECT_EQ(rig.decoders.calls, Calls{"RecAuto(00,00)"});
    EXPECT_TRUE(rig.link.RecBuff().empty());
    EXPECT_EQ(rig.link.Label11.Caption, " 02 03 40 00 00 BC FF");
    EXPECT_EQ(rig.link.Label10.Caption, " 06");
}

TEST(Receive, AFrameSplitOverTwoTicksIsDecodedInTheSecond) {
    LinkRig rig;
    rig.settle();
    EXPECT_TRUE(rig.tick(wire("02 03 40")).empty());
    EXPECT_TRUE(rig.tick().empty());  // nothing new: leftovers are not looked at
    EXPECT_TRUE(rig.decoders.calls.empty());
    EXPECT_EQ(rig.link.RecBuff().size(), 3u);
    EXPECT_EQ(rig.tick(wire("00 00 BC FF")), wire("06"));
    EXPECT_EQ(rig.decoders.calls, Calls{"RecAuto(00,00)"});
    EXPECT_EQ(rig.link.Label11.Caption, " 00 00 BC FF");
}

TEST(Receive, HeadersNoiseAndSeveralFramesInOneChunk) {
    LinkRig rig;
    rig.settle();
    // An SOH/ID header and a noise byte before two replies.
    EXPECT_EQ(rig.tick(wire("01 20 20 31 55") + reply("22 08 01") + reply("32 2B 10")), wire("06 06"));
    EXPECT_EQ(rig.decoders.calls, (Calls{"RecModeMain(22,08,01)", "RecModeFunc(22,08,01)",
                                         "RecAnalogMain(32,2B,10)", "RecAnalogFunc(32,2B,10,)"}));
}

TEST(Receive, BadChecksumsAreNakedAndArmTheAnswerWatch) {
    for (const char* bad : {"02 03 40 00 00 BD FF", "02 02 40 B0 0D FF" /* correct, but a low byte below 10 */}) {
        LinkRig rig;
        rig.settle();
        EXPECT_EQ(rig.tick(wire(bad)), wire("15")) << bad;
        EXPECT_TRUE(rig.decoders.calls.empty());
        EXPECT_EQ(rig.link.AnsWait(), 50);
        EXPECT_EQ(rig.link.Label10.Caption, " 15");
    }
}

TEST(Dispatch, ReplyClassesReachTheirDecoders) {
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

TEST(Receive, MoreThanTenDataBytesIsASubscriptFaultAndTheFrameIsDropped) {
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

TEST(Receive, ALoneTrailingStxIsAnInvalidArgumentUntilItsLengthArrives) {
    LinkRig rig;
    rig.settle();
    rig.port.arrive(wire("55 02"));
    EXPECT_EQ(errorOf([&] { rig.link.Timer1_Timer(); }), 5);
    EXPECT_EQ(rig.link.RecBuff(), wire("02"));
    rig.tick(wire("03 40 00 00 BC FF"));
    EXPECT_EQ(rig.decoders.calls, Calls{"RecAuto(00,00)"});
}

}  // namespace
}  // namespace station
