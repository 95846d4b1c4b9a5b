#pragma once
// What a control surface shows that changed, told to every transport that subscribes,
// driven by changes rather than by looking every few milliseconds: a remote command, an
// operator's gesture or timer tick that redrew the windows, and anything on the line (a
// frame sent, acknowledged or received, a time-out) mark the state as possibly changed; the
// first mark asks the host once, through `wake`, to deliver soon. Delivering compares the
// state with what was last told and hands each subscriber the differences; at rest nothing
// is marked, so nothing runs.
//
//   ChangeFeed feed(commands);
//   feed.wake = [&] { QTimer::singleShot(0, [&] { feed.deliver(); }); };
//   auto subscription = feed.subscribe([&](const StateList& changed) { ... });
//   feed.changed();  // after the window redrew

#include <functional>
#include <map>

#include "link/link_events.hpp"
#include "remote/command_set.hpp"

namespace station::remote {

class ChangeFeed {
public:
    using Listener = std::function<void(const StateList& changed)>;

    // Ends a subscription when it goes.
    class Subscription {
    public:
        Subscription() = default;
        Subscription(ChangeFeed& feed, int id) : feed_(&feed), id_(id) {}
        Subscription(Subscription&& other) noexcept : feed_(other.feed_), id_(other.id_) { other.feed_ = nullptr; }
        Subscription& operator=(Subscription&& other) noexcept;
        Subscription(const Subscription&) = delete;
        Subscription& operator=(const Subscription&) = delete;
        ~Subscription() { reset(); }
        void reset();

    private:
        ChangeFeed* feed_ = nullptr;
        int id_ = 0;
    };

    // Watches `commands` (each command it carries out) and the line of its station; both
    // must outlive the station's polls, as the command set does.
    explicit ChangeFeed(CommandSet& commands);
    ChangeFeed(const ChangeFeed&) = delete;
    ChangeFeed& operator=(const ChangeFeed&) = delete;

    [[nodiscard]] Subscription subscribe(Listener listener);
    // Something a surface shows may have changed; the first mark since the last delivery
    // calls `wake`.
    void changed();
    bool due() const { return due_; }
    // Tells subscribers what changed since the last delivery (nothing when nothing did).
    // A value held back (a camera's echo of an older fader value) keeps the feed due until
    // the line moves again.
    void deliver();
    // Forgets what was told: the next delivery tells only what changes from now on.
    void restart();

    // Asked once per batch of marks to call deliver() soon; unset, deliver() is the
    // caller's to call.
    std::function<void()> wake;
    // How many deliveries ran, and how many of them told something (for tests and benchmarks).
    long deliveries() const { return deliveries_; }
    long pushes() const { return pushes_; }

private:
    // Marks the feed on everything the line does.
    class LineWatch final : public LinkEvents {
    public:
        explicit LineWatch(ChangeFeed& feed) : feed_(feed) {}
        void frameSent(const SendRec&, bool) override { feed_.changed(); }
        void frameAcknowledged(const SendRec&) override { feed_.changed(); }
        void frameReceived(const Bytes&, bool) override { feed_.changed(); }
        void noAcknowledge(const SendRec&) override { feed_.changed(); }
        void noAnswer() override { feed_.changed(); }

    private:
        ChangeFeed& feed_;
    };

    CommandSet& commands_;
    LineWatch line_{*this};
    std::map<int, Listener> listeners_;
    int nextId_ = 1;
    bool due_ = false;
    long deliveries_ = 0;
    long pushes_ = 0;
};

}  // namespace station::remote
