// Sending: the queue, the handshake, the acknowledge and answer watches.
#include <gtest/gtest.h>

#include "common/hex.hpp"
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

TEST(SendQueue, ShiftMovesEntriesUpAndTheQueueHolds256Frames) {
    SendQueue q;
    q.SendBuffShift();
    q.append(wire("01"));
    q.SendBuffShift();
    EXPECT_EQ(q.SendCnt(), 0);
    for (const char* b : {"01", "02", "03"}) q.append(wire(b));
    q.SendBuffShift();
    EXPECT_EQ(q.SendCnt(), 2);
    EXPECT_EQ(q.entry(1).Data + q.entry(2).Data + q.entry(3).Data, wire("02 03 03"));  // a stale copy stays
    EXPECT_EQ(q.entry(1).Kind, "S");

    SendQueue full;
    for (int i = 0; i < 256; ++i) full.append(bytesOf({i & 0xFF}));
    EXPECT_EQ(errorOf([&] { full.append(wire("00")); }), 9);
    EXPECT_EQ(full.SendCnt(), 256);
    EXPECT_EQ(full.entry(256).Data, wire("FF"));
}

TEST(Handshake, NothingLeavesUntilBothWatchesHaveTickedOnceAfterStart) {
    LinkRig rig;
    rig.link.SendCmd("4010");
    EXPECT_TRUE(rig.tick().empty());
    rig.link.Timer2_Timer();
    EXPECT_TRUE(rig.tick().empty());  // the answer watch is still at 0
    rig.link.Timer3_Timer();
    EXPECT_EQ(rig.tick(), wire("02 02 40 10 AD FF"));
    EXPECT_EQ(rig.link.AckWait(), 10);
    EXPECT_EQ(rig.link.queue().SendCnt(), 1);  // the head stays until its ACK
    EXPECT_EQ(rig.link.Label10.Caption, " 02 02 40 10 AD FF");
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(Handshake, AckRemovesTheHeadAndTheNextFrameGoesOutInTheSameTick) {
    LinkRig rig;
    rig.settle();
    rig.link.SendCmd("4010");
    rig.link.SendCmd("4020");
    EXPECT_EQ(rig.tick(wire("06 15")), frame(wire("40 10")));  // nothing awaited: both dropped
    EXPECT_TRUE(rig.link.RecBuff().empty());
    EXPECT_TRUE(rig.tick().empty());  // waiting for the ACK
    EXPECT_EQ(rig.tick(kAck), frame(wire("40 20")));
    EXPECT_EQ(rig.link.queue().SendCnt(), 1);
    EXPECT_EQ(rig.link.AckWait(), 10);
    EXPECT_EQ(rig.link.Label11.Caption, " 06");
}

TEST(Handshake, AnUnacknowledgedFrameTimesOutAfterTenTicksAndIsDropped) {
    LinkRig rig;
    rig.settle();
    rig.link.SendCmd("4010");
    rig.link.SendCmd("4020");
    rig.tick();
    for (int i = 0; i < 9; ++i) rig.link.Timer2_Timer();
    EXPECT_TRUE(rig.messages.shown.empty());
    // While the message is up the counters and the queue are as they were.
    rig.messages.whileShown = [&](const std::string&) {
        EXPECT_EQ(rig.link.AckWait(), 0);
        EXPECT_EQ(rig.link.queue().SendCnt(), 2);
    };
    rig.link.Timer2_Timer();
    ASSERT_EQ(rig.messages.texts(), testing::Calls{"No Acknowledge"});
    EXPECT_EQ(rig.messages.shown[0].icon, Icon::Exclamation);
    EXPECT_EQ(rig.link.AckWait(), -1);
    EXPECT_EQ(rig.tick(), frame(wire("40 20")));  // not the dropped one
    EXPECT_EQ(rig.link.queue().SendCnt(), 1);
}

TEST(Handshake, EveryNakResendsTheHeadAndRestartsTheWatch) {
    LinkRig rig;
    rig.settle();
    rig.link.SendCmd("4010");
    rig.tick();
    for (int n = 0; n < 3; ++n) {
        for (int i = 0; i < 5; ++i) rig.link.Timer2_Timer();
        EXPECT_EQ(rig.tick(kNak), frame(wire("40 10")));
        EXPECT_EQ(rig.link.AckWait(), 10);
    }
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(HandshakeFree, AckOffSendsOneFramePerTickWithoutWaitingOrReading) {
    LinkRig rig;
    rig.shared.AckMode = 1;
    for (int i = 0; i < 10; ++i) rig.link.SendCmd("40" + hexByte(static_cast<std::uint8_t>(i)));
    rig.port.arrive(wire("02 03 40 00 00 BC FF"));
    for (int i = 0; i < 10; ++i) EXPECT_EQ(rig.tick(), frame(bytesOf({0x40, i}), "", true)) << i;
    EXPECT_TRUE(rig.tick().empty());
    EXPECT_EQ(rig.port.bytesWaiting(), 7);  // never read
    EXPECT_TRUE(rig.decoders.calls.empty());
    EXPECT_EQ(rig.link.Label11.Caption, "Recieve Data");
    for (int i = 0; i < 20; ++i) rig.link.Timer2_Timer();
    EXPECT_TRUE(rig.messages.shown.empty());
}

TEST(HandshakeFree, GroupSelectionSendsWithoutHandshakeEvenWithAckOn) {
    LinkRig rig;
    rig.shared.CamNo = 0;
    rig.link.SendCmd("4010");  // no watch has ticked: the handshake path would hold it
    EXPECT_EQ(rig.tick(), frame(wire("40 10")));
    EXPECT_EQ(rig.link.queue().SendCnt(), 0);
}

TEST(CameraId, IdModeNeedsAnIdForTheSelectedCameraButNotForTheGroup) {
    LinkRig rig;
    rig.shared.IDMode = 1;
    rig.shared.CamNo = 3;
    rig.link.SendCmd("4010");
    EXPECT_EQ(rig.messages.texts(), testing::Calls{"No Camera ID"});
    EXPECT_EQ(rig.link.queue().SendCnt(), 0);
    rig.shared.cams.CamID(3) = "1";
    rig.link.SendCmd("4010");
    rig.shared.CamNo = 0;
    rig.link.SendCmd("4010");
    EXPECT_EQ(rig.link.queue().entry(1).Data, wire("01 20 20 31 02 02 40 10 3A FF"));
    EXPECT_EQ(rig.link.queue().entry(2).Data, frame(wire("40 10")));
    EXPECT_EQ(rig.messages.shown.size(), 1u);
}

TEST(AnswerWatch, ABadFrameHoldsTheQueueUntilTheWatchExpiresAndAGoodOneDisarmsIt) {
    LinkRig rig;
    rig.settle();
    rig.link.SendCmd("4010");
    EXPECT_EQ(rig.tick(wire("02 03 40 00 00 BD FF")), kNak);  // and the head is held
    EXPECT_EQ(rig.link.AnsWait(), 50);
    for (int i = 0; i < 49; ++i) rig.link.Timer3_Timer();
    EXPECT_TRUE(rig.tick().empty());
    EXPECT_TRUE(rig.messages.shown.empty());
    rig.link.Timer3_Timer();
    EXPECT_EQ(rig.messages.texts(), testing::Calls{"No Answer from Camera"});
    EXPECT_EQ(rig.link.AnsWait(), -1);
    EXPECT_EQ(rig.tick(), frame(wire("40 10")));

    EXPECT_EQ(rig.tick(kAck + wire("02 03 40 00 00 BD FF")), kNak);
    EXPECT_EQ(rig.link.AnsWait(), 50);
    rig.tick(wire("02 03 40 00 00 BC FF"));
    EXPECT_EQ(rig.link.AnsWait(), -1);
}

}  // namespace
}  // namespace station
