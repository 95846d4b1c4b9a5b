// Receiving: cutting frames out of the bytes, answering them, dispatching by reply class.
#include <gtest/gtest.h>

#include "common/runtime_error.hpp"
#include "tests/link/link_rig.hpp"

namespace station {
namespace {

using testing::LinkRig;
using Calls = std::vector<std::string>;

const Bytes kAutoOk = bytesOf({0x02, 0x03, 0x40, 0x00, 0x00, 0xBC, 0xFF});

// A correctly summed reply frame for the given data bytes.
Bytes reply(std::initializer_list<int> data) {
    Bytes f{0x02, static_cast<std::uint8_t>(data.size())};
    int sum = static_cast<int>(data.size());
    for (int d : data) {
        f.push_back(static_cast<std::uint8_t>(d));
        sum += d;
    }
    const int chk = ~sum & 0xFFFF;
    f.push_back(static_cast<std::uint8_t>(chk & 0xFF));
    f.push_back(static_cast<std::uint8_t>(chk >> 8));
    return f;
}

int errorOfTick(LinkRig& rig) {
    try {
        rig.link.Timer1_Timer();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

TEST(Receive, AWholeFrameInOneTickIsDecodedAndAcknowledged) {
    LinkRig rig;
    rig.settle();
    rig.port.arrive(kAutoOk);
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.decoders.calls, Calls{"RecAuto(00,00)"});
    EXPECT_EQ(rig.port.takeWritten(), bytesOf({0x06}));
    EXPECT_TRUE(rig.link.RecBuff().empty());
    EXPECT_EQ(rig.link.Label11.Caption, " 02 03 40 00 00 BC FF");
    EXPECT_EQ(rig.link.Label10.Caption, " 06");
}

TEST(Receive, AFrameSplitOverTwoTicksIsDecodedInTheSecond) {
    LinkRig rig;
    rig.settle();
    rig.port.arrive(bytesOf({0x02, 0x03, 0x40}));
    rig.link.Timer1_Timer();
    EXPECT_TRUE(rig.decoders.calls.empty());
    EXPECT_TRUE(rig.port.writes.empty());
    EXPECT_EQ(rig.link.RecBuff().size(), 3u);
    rig.link.Timer1_Timer();  // nothing new: leftovers are not looked at
    EXPECT_TRUE(rig.decoders.calls.empty());
    rig.port.arrive(bytesOf({0x00, 0x00, 0xBC, 0xFF}));
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.decoders.calls, Calls{"RecAuto(00,00)"});
    EXPECT_EQ(rig.link.Label11.Caption, " 00 00 BC FF");
}

TEST(Receive, HeadersNoiseAndSeveralFramesInOneChunk) {
    LinkRig rig;
    rig.settle();
    Bytes chunk = bytesOf({0x01, 0x20, 0x20, 0x31, 0x55});  // an SOH/ID header and a noise byte
    const Bytes a = reply({0x22, 0x08, 0x01});
    const Bytes b = reply({0x32, 0x2B, 0x10});
    chunk.insert(chunk.end(), a.begin(), a.end());
    chunk.insert(chunk.end(), b.begin(), b.end());
    rig.port.arrive(chunk);
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.decoders.calls, (Calls{"RecModeMain(22,08,01)", "RecModeFunc(22,08,01)",
                                         "RecAnalogMain(32,2B,10)", "RecAnalogFunc(32,2B,10,)"}));
    EXPECT_EQ(rig.port.takeWritten(), bytesOf({0x06, 0x06}));
}

TEST(Dispatch, ReplyClassesReachTheirDecodersInOrder) {
    LinkRig rig;
    const auto decode = [&](std::initializer_list<int> data) {
        rig.decoders.calls.clear();
        const Bytes f = reply(data);
        rig.link.RecCmd(f, static_cast<int>(f.size()));
        return rig.decoders.calls;
    };
    EXPECT_EQ(decode({0x2A, 0x12, 0x08}), (Calls{"RecModeMain(2A,12,08)", "RecModeFunc(2A,12,08)"}));
    EXPECT_EQ(decode({0x3A, 0x40, 0x01, 0x02, 0x03}),
              (Calls{"RecAnalogMain(3A,40,01)", "RecAnalogFunc(3A,40,01,02)"}));
    EXPECT_EQ(decode({0x40, 0x10, 0x18}), Calls{"RecAuto(10,18)"});
    EXPECT_EQ(decode({0x40}), Calls{"RecAuto(,)"});
    EXPECT_EQ(decode({0x12, 0x00}), Calls{});
    EXPECT_EQ(decode({0x23, 0x00}), Calls{});
    EXPECT_EQ(decode({}), Calls{});
    EXPECT_EQ(decode({0x22, 1, 2, 3, 4, 5, 6, 7, 8, 9}), (Calls{"RecModeMain(22,01,02)", "RecModeFunc(22,01,02)"}));
}

TEST(Dispatch, AnUnknownClassIsStillAcknowledged) {
    LinkRig rig;
    rig.settle();
    rig.port.arrive(reply({0x12, 0x05}));
    rig.link.Timer1_Timer();
    EXPECT_TRUE(rig.decoders.calls.empty());
    EXPECT_EQ(rig.port.takeWritten(), bytesOf({0x06}));
}

TEST(Dispatch, MoreThanTenDataBytesIsASubscriptFaultAndTheFrameIsDropped) {
    LinkRig rig;
    rig.settle();
    Bytes chunk = reply({0x22, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    const Bytes next = reply({0x40, 0x10, 0x00});
    chunk.insert(chunk.end(), next.begin(), next.end());
    rig.port.arrive(chunk);
    EXPECT_EQ(errorOfTick(rig), 9);
    EXPECT_TRUE(rig.decoders.calls.empty());
    EXPECT_TRUE(rig.port.writes.empty());  // neither ACK nor NAK for it
    EXPECT_EQ(rig.link.RecBuff(), next);   // the rest waits for the next arrival
    rig.port.arrive(bytesOf({0x06}));
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.decoders.calls, Calls{"RecAuto(10,00)"});
}

TEST(Receive, ALoneTrailingStxIsAnInvalidArgumentUntilItsLengthArrives) {
    LinkRig rig;
    rig.settle();
    rig.port.arrive(bytesOf({0x55, 0x02}));
    EXPECT_EQ(errorOfTick(rig), 5);
    EXPECT_EQ(rig.link.RecBuff(), bytesOf({0x02}));
    rig.port.arrive(bytesOf({0x03, 0x40, 0x00, 0x00, 0xBC, 0xFF}));
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.decoders.calls, Calls{"RecAuto(00,00)"});
}

TEST(Receive, ABadChecksumIsAnsweredWithNak) {
    LinkRig rig;
    rig.settle();
    Bytes bad = kAutoOk;
    bad[5] = 0xBD;
    rig.port.arrive(bad);
    rig.link.Timer1_Timer();
    EXPECT_TRUE(rig.decoders.calls.empty());
    EXPECT_EQ(rig.port.takeWritten(), bytesOf({0x15}));
    EXPECT_EQ(rig.link.AnsWait(), 50);
    EXPECT_EQ(rig.link.Label10.Caption, " 15");
}

TEST(Receive, ACorrectFrameWithALowChecksumByteBelow10IsNakedAllTheSame) {
    LinkRig rig;
    rig.settle();
    rig.port.arrive(bytesOf({0x02, 0x02, 0x40, 0xB0, 0x0D, 0xFF}));
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.port.takeWritten(), bytesOf({0x15}));
}

}  // namespace
}  // namespace station
