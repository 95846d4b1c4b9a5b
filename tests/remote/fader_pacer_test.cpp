// The remote side's pacing of faders, on a stand-in send queue: what is pushed follows the
// operator's newest value, not the camera's late echoes. (The camera line's fader tests
// show the values' order and pace.)
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>

#include "remote/fader_pacer.hpp"

namespace station::remote {
namespace {

// A queue of frames (a ticket and the value) and the values that left it, in order.
struct Queue {
    bool waiting(FaderPacer::Ticket t) const {
        return std::any_of(frames.begin(), frames.end(), [t](const auto& f) { return f.first == t; });
    }
    FaderPacer::Send sender() {
        return [this](long value) -> std::optional<FaderPacer::Ticket> {
            frames.emplace_back(++tickets, static_cast<int>(value));
            return tickets;
        };
    }
    void poll() {
        if (frames.empty()) return;
        sent.push_back(frames.front().second);
        frames.pop_front();
    }
    std::deque<std::pair<FaderPacer::Ticket, int>> frames;
    FaderPacer::Ticket tickets = 0;
    std::vector<int> sent;  // values in the order they left
};

// The camera echoes each value it is sent, a poll or so later. While a newer value waits or
// is kept, an echo of an older one is not worth showing, nor for a few polls after; once the
// control is quiet, the camera's settled value is, whatever it is.
TEST(FaderPacer, EchoesOfOlderValuesAreNotPushed) {
    Queue q;
    FaderPacer pacer([&q](FaderPacer::Ticket t) { return q.waiting(t); });
    auto worth = [&pacer](int v) { return pacer.worthPushing("level mblk", std::to_string(v)); };
    pacer.offer("level mblk", -10, q.sender());
    EXPECT_TRUE(worth(-10));
    pacer.offer("level mblk", -5, q.sender());  // kept behind -10's frame
    EXPECT_TRUE(worth(-5));
    EXPECT_FALSE(worth(-10));
    q.poll();
    pacer.release();  // -5 goes
    EXPECT_FALSE(worth(-10));  // the echo of -10 arrives late
    pacer.offer("level mblk", 0, q.sender());
    EXPECT_FALSE(worth(-5));
    EXPECT_TRUE(worth(0));
    q.poll();
    pacer.release();
    EXPECT_FALSE(worth(-5));
    q.poll();  // nothing waits now, but a late echo of the move is still not shown
    EXPECT_FALSE(worth(-5));
    EXPECT_TRUE(worth(0));
    bool settled = false;
    for (int i = 0; i < FaderPacer::kSettlePolls; ++i) settled = pacer.release() || settled;
    EXPECT_TRUE(settled);
    EXPECT_TRUE(worth(-5));  // once the control is quiet, what the camera says is what it holds
    EXPECT_EQ(q.sent, (std::vector<int>{-10, -5, 0}));
    EXPECT_TRUE(pacer.worthPushing("level mblk", "on"));  // not a number: not the fader's
    EXPECT_TRUE(pacer.worthPushing("filter", "5600K"));
}

}  // namespace
}  // namespace station::remote
