// corvane-ctl's reply count: a reply is credited to the camera whose frame went out last,
// as the queue recorded it, and a frame that failed its checksum is no reply.
#include <gtest/gtest.h>

#include "ctl/ctl_session.hpp"

namespace station {
namespace {

TEST(ReplyCount, CreditsTheCameraTheFrameWasQueuedFor) {
    ctl::ReplyCount count;
    const Bytes reply{0x02, 0x03, 0x40, 0x00, 0x00, 0xBC, 0xFF};
    count.frameSent(SendRec{"S", {0x02}, 3}, false);
    count.frameReceived(reply, true);
    count.frameReceived(reply, false);  // NAKed: the camera sends it again
    count.frameSent(SendRec{"S", {0x02}, 5}, true);
    count.frameReceived(reply, true);
    count.frameReceived(reply, true);
    EXPECT_EQ(count.replies(3), 1);
    EXPECT_EQ(count.replies(5), 2);
    EXPECT_EQ(count.replies(1), 0);
    EXPECT_EQ(count.replies(9), 0);  // no such camera
}

}  // namespace
}  // namespace station
