// Sending: the queue, the handshake, the acknowledge and answer watches.
#include <gtest/gtest.h>

#include "common/hex.hpp"
#include "common/runtime_error.hpp"
#include "link/frame.hpp"
#include "tests/link/link_rig.hpp"

namespace station {
namespace {

using testing::LinkRig;

const Bytes kAck = bytesOf({0x06});
const Bytes kNak = bytesOf({0x15});

Bytes plainFrame(const std::string& cmd) { return buildFrame(cmd, FrameHeader{}); }

TEST(SendQueueShift, MovesEntriesUpAndCountsDown) {
    SendQueue q;
    q.SendBuffShift();
    EXPECT_EQ(q.SendCnt(), 0);
    q.append(bytesOf({1}));
    q.SendBuffShift();
    EXPECT_EQ(q.SendCnt(), 0);
    q.append(bytesOf({1}));
    q.append(bytesOf({2}));
    q.append(bytesOf({3}));
    q.SendBuffShift();
    EXPECT_EQ(q.SendCnt(), 2);
    EXPECT_EQ(q.entry(1).Data, bytesOf({2}));
    EXPECT_EQ(q.entry(2).Data, bytesOf({3}));
    EXPECT_EQ(q.entry(3).Data, bytesOf({3}));  // the stale copy stays
    EXPECT_EQ(q.entry(1).Kind, "S");
}

TEST(SendQueueShift, Holds256FramesAndThe257thIsASubscriptFault) {
    SendQueue q;
    for (int i = 0; i < 256; ++i) q.append(bytesOf({i & 0xFF}));
    EXPECT_EQ(q.SendCnt(), 256);
    try {
        q.append(bytesOf({0}));
        FAIL();
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), 9);
    }
    EXPECT_EQ(q.SendCnt(), 256);
    EXPECT_EQ(q.entry(256).Data, bytesOf({255}));
}

TEST(Handshake, NothingLeavesUntilBothWatchesHaveTickedOnceAfterStart) {
    LinkRig rig;
    rig.link.SendCmd("4010");
    EXPECT_EQ(rig.link.queue().SendCnt(), 1);
    rig.link.Timer1_Timer();
    EXPECT_TRUE(rig.port.writes.empty());
    rig.link.Timer2_Timer();
    rig.link.Timer1_Timer();
    EXPECT_TRUE(rig.port.writes.empty());  // the answer watch is still at 0
    rig.link.Timer3_Timer();
    EXPECT_TRUE(rig.messages.shown.empty());
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.port.takeWritten(), plainFrame("4010"));
    EXPECT_EQ(rig.link.AckWait(), 10);
    EXPECT_EQ(rig.link.queue().SendCnt(), 1);  // the head stays until its ACK
    EXPECT_EQ(rig.link.Label10.Caption, " 02 02 40 10 AD FF");
}

TEST(Handshake, AckRemovesTheHeadAndTheNextFrameGoesOutOnTheNextTick) {
    LinkRig rig;
    rig.settle();
    rig.link.SendCmd("4010");
    rig.link.SendCmd("4020");
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.port.takeWritten(), plainFrame("4010"));
    rig.link.Timer1_Timer();
    EXPECT_TRUE(rig.port.takeWritten().empty());  // waiting for the ACK
    rig.port.arrive(kAck);
    rig.link.Timer1_Timer();  // consumes the ACK, then sends the next head in the same tick
    EXPECT_EQ(rig.port.takeWritten(), plainFrame("4020"));
    EXPECT_EQ(rig.link.queue().SendCnt(), 1);
    EXPECT_EQ(rig.link.AckWait(), 10);
    EXPECT_EQ(rig.link.Label11.Caption, " 06");
}

TEST(Handshake, AnUnacknowledgedFrameTimesOutAfterTenTicksAndIsDropped) {
    LinkRig rig;
    rig.settle();
    rig.link.SendCmd("4010");
    rig.link.SendCmd("4020");
    rig.link.Timer1_Timer();
    rig.port.takeWritten();
    for (int i = 0; i < 9; ++i) rig.link.Timer2_Timer();
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(rig.link.AckWait(), 1);

    // While the message is up the counters and the queue are as they were.
    rig.messages.whileShown = [&](const std::string&) {
        EXPECT_EQ(rig.link.AckWait(), 0);
        EXPECT_EQ(rig.link.queue().SendCnt(), 2);
    };
    rig.link.Timer2_Timer();
    ASSERT_EQ(rig.messages.shown.size(), 1u);
    EXPECT_EQ(rig.messages.shown[0].text, "No Acknowledge");
    EXPECT_EQ(rig.messages.shown[0].icon, Icon::Exclamation);
    EXPECT_EQ(rig.link.AckWait(), -1);
    EXPECT_EQ(rig.link.queue().SendCnt(), 1);
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.port.takeWritten(), plainFrame("4020"));  // not the dropped one
    rig.link.Timer2_Timer();
    EXPECT_EQ(rig.messages.shown.size(), 1u);
}

TEST(Handshake, EveryNakResendsTheHeadAndRestartsTheWatch) {
    LinkRig rig;
    rig.settle();
    rig.link.SendCmd("4010");
    rig.link.Timer1_Timer();
    rig.port.takeWritten();
    for (int n = 0; n < 3; ++n) {
        for (int i = 0; i < 5; ++i) rig.link.Timer2_Timer();
        EXPECT_EQ(rig.link.AckWait(), 5);
        rig.port.arrive(kNak);
        rig.link.Timer1_Timer();
        EXPECT_EQ(rig.port.takeWritten(), plainFrame("4010"));
        EXPECT_EQ(rig.link.AckWait(), 10);
    }
    EXPECT_TRUE(rig.messages.shown.empty());
    EXPECT_EQ(rig.link.queue().SendCnt(), 1);
}

TEST(Handshake, StrayAckAndNakChangeNothing) {
    LinkRig rig;
    rig.settle();
    rig.link.SendCmd("4010");
    rig.link.SendCmd("4020");
    rig.link.Timer2_Timer();  // already idle
    rig.port.arrive(bytesOf({0x06, 0x15}));
    rig.link.Timer1_Timer();  // nothing awaited: both bytes dropped, then the head goes out
    EXPECT_EQ(rig.link.queue().SendCnt(), 2);
    EXPECT_EQ(rig.port.takeWritten(), plainFrame("4010"));
    EXPECT_TRUE(rig.link.RecBuff().empty());
}

TEST(HandshakeFree, AckOffSendsOneFramePerTickWithoutWaitingOrReading) {
    LinkRig rig;
    rig.shared.AckMode = 1;
    for (int i = 0; i < 10; ++i) rig.link.SendCmd("40" + hexByte(static_cast<std::uint8_t>(i)));
    rig.port.arrive(bytesOf({0x02, 0x03, 0x40, 0x00, 0x00, 0xBC, 0xFF}));
    for (int i = 0; i < 10; ++i) {
        rig.link.Timer1_Timer();
        ASSERT_EQ(rig.port.writes.size(), static_cast<std::size_t>(i + 1));
        EXPECT_EQ(rig.port.writes.back().front(), 0x06);
    }
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.port.writes.size(), 10u);
    EXPECT_EQ(rig.link.queue().SendCnt(), 0);
    EXPECT_EQ(rig.port.bytesWaiting(), 7);  // never read
    EXPECT_TRUE(rig.decoders.calls.empty());
    EXPECT_EQ(rig.link.Label11.Caption, "Recieve Data");
}

TEST(HandshakeFree, GroupSelectionSendsWithoutHandshakeEvenWithAckOn) {
    LinkRig rig;
    rig.shared.CamNo = 0;
    rig.link.SendCmd("4010");  // no watch has ticked: the handshake path would hold it
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.port.takeWritten(), plainFrame("4010"));
    EXPECT_EQ(rig.link.queue().SendCnt(), 0);
}

TEST(CameraId, IdModeNeedsAnIdForTheSelectedCamera) {
    LinkRig rig;
    rig.shared.IDMode = 1;
    rig.shared.CamNo = 3;
    rig.link.SendCmd("4010");
    EXPECT_EQ(rig.messages.texts(), std::vector<std::string>{"No Camera ID"});
    EXPECT_EQ(rig.link.queue().SendCnt(), 0);

    rig.shared.cams.CamID(3) = "1";
    rig.link.SendCmd("4010");
    EXPECT_EQ(rig.link.queue().head().Data,
              bytesOf({0x01, 0x20, 0x20, 0x31, 0x02, 0x02, 0x40, 0x10, 0x3A, 0xFF}));

    LinkRig group;
    group.shared.IDMode = 1;
    group.shared.CamNo = 0;
    group.link.SendCmd("4010");
    EXPECT_TRUE(group.messages.shown.empty());
    EXPECT_EQ(group.link.queue().head().Data, plainFrame("4010"));
}

TEST(AnswerWatch, ABadFrameHoldsTheQueueUntilTheWatchExpires) {
    LinkRig rig;
    rig.settle();
    rig.link.SendCmd("4010");
    rig.port.arrive(bytesOf({0x02, 0x03, 0x40, 0x00, 0x00, 0xBD, 0xFF}));
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.port.takeWritten(), bytesOf({0x15}));  // NAK, and the head is held
    EXPECT_EQ(rig.link.AnsWait(), 50);
    for (int i = 0; i < 49; ++i) rig.link.Timer3_Timer();
    rig.link.Timer1_Timer();
    EXPECT_TRUE(rig.port.takeWritten().empty());
    EXPECT_TRUE(rig.messages.shown.empty());
    rig.link.Timer3_Timer();
    EXPECT_EQ(rig.messages.texts(), std::vector<std::string>{"No Answer from Camera"});
    EXPECT_EQ(rig.link.AnsWait(), -1);
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.port.takeWritten(), plainFrame("4010"));
}

TEST(AnswerWatch, AGoodFrameDisarmsIt) {
    LinkRig rig;
    rig.settle();
    rig.port.arrive(bytesOf({0x02, 0x03, 0x40, 0x00, 0x00, 0xBD, 0xFF}));
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.link.AnsWait(), 50);
    rig.port.arrive(bytesOf({0x02, 0x03, 0x40, 0x00, 0x00, 0xBC, 0xFF}));
    rig.link.Timer1_Timer();
    EXPECT_EQ(rig.link.AnsWait(), -1);
}

}  // namespace
}  // namespace station
