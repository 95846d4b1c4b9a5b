// The remote side's pacing of faders, on a stand-in send queue: one frame of a control waits
// at a time, the newest value goes next, values never go out of order, and what is pushed
// follows the operator's newest value, not the camera's late echoes.
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

TEST(FaderPacer, OneFrameWaitsAndTheNewestGoesNext) {
    Queue q;
    FaderPacer pacer([&q](FaderPacer::Ticket t) { return q.waiting(t); });
    int mostWaiting = 0;
    // A fader from 0 to 99 at 100 updates a second, the queue taking one frame every 40 ms.
    for (int v = 0; v < 100; ++v) {
        pacer.offer("level mblk", v, q.sender());
        mostWaiting = std::max(mostWaiting, static_cast<int>(q.frames.size()));
        if (v % 4 == 3) {
            pacer.release();
            q.poll();
        }
        pacer.release();
    }
    EXPECT_EQ(mostWaiting, 1);
    EXPECT_EQ(pacer.latest("level mblk"), 99);
    for (int i = 0; i < 3; ++i) {
        pacer.release();
        q.poll();
    }
    ASSERT_FALSE(q.sent.empty());
    EXPECT_EQ(q.sent.back(), 99);                               // the camera ends where the hand stopped
    EXPECT_TRUE(std::is_sorted(q.sent.begin(), q.sent.end()));  // and never went back on the way
    EXPECT_LT(q.sent.size(), 40u);
    EXPECT_FALSE(pacer.busy("level mblk"));
}

TEST(FaderPacer, ControlsArePacedApartAndFlushPutsKeptValuesInPlace) {
    Queue q;
    FaderPacer pacer([&q](FaderPacer::Ticket t) { return q.waiting(t); });
    pacer.offer("level mblk", 5, q.sender());
    pacer.offer("level iris", 7, q.sender());  // another control's first value is not held up
    pacer.offer("level mblk", 6, q.sender());
    EXPECT_EQ(q.frames.size(), 2u);
    EXPECT_TRUE(pacer.busy("level mblk"));
    pacer.flush();  // another command follows: the 6 given before it goes before it
    EXPECT_EQ(q.frames.size(), 3u);
    for (int i = 0; i < 3; ++i) q.poll();
    pacer.release();
    EXPECT_EQ(q.sent, (std::vector<int>{5, 7, 6}));
    EXPECT_FALSE(pacer.busy("level mblk"));

    // A value that queued nothing (the control held it already) holds nothing up.
    pacer.offer("level mblk", 6, [](long) { return std::optional<FaderPacer::Ticket>(); });
    pacer.offer("level mblk", 7, q.sender());
    EXPECT_EQ(q.frames.size(), 1u);
}

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

// Eight faders moving at once: after each one's first value (which goes at once, as a click
// would), the queue never holds more than one of their frames, and when they stop each goes
// out next with its newest value, in the order they were kept.
TEST(FaderPacer, FadersTakeTurnsWithTheirNewestValues) {
    Queue q;
    FaderPacer pacer([&q](FaderPacer::Ticket t) { return q.waiting(t); });
    for (int f = 0; f < 8; ++f) pacer.offer("fader " + std::to_string(f), f * 100, q.sender());
    EXPECT_EQ(q.frames.size(), 8u);
    for (int i = 0; i < 8; ++i) q.poll();
    q.sent.clear();
    for (int v = 1; v < 10; ++v)
        for (int f = 0; f < 8; ++f) pacer.offer("fader " + std::to_string(f), f * 100 + v, q.sender());
    EXPECT_EQ(q.frames.size(), 1u);
    for (int i = 0; i < 8; ++i) {
        q.poll();
        pacer.release();
        EXPECT_LE(q.frames.size(), 1u);
    }
    q.poll();
    EXPECT_EQ(q.sent, (std::vector<int>{1, 109, 209, 309, 409, 509, 609, 709, 9}));
}

}  // namespace
}  // namespace station::remote
