#pragma once
// A surface's fader or encoder sends 50 to 100 values a second; the line takes one frame a
// 40 ms poll. A control's first value goes at once; the values of a move take turns in one
// lane: at most one frame from them waits in the send queue to be sent. While it does, newer
// values are kept here, per control, each
// replacing the one before; before each poll, once the lane's frame has gone out, the
// control kept the longest goes next with its newest value. Values reach the camera in the
// order they were given, eight faders that stop land within about one round of eight polls
// (the newest values, never a queue of old ones), and faders never fill the queue.
//
// The same record keeps pushes from fighting the operator: while a control's frame waits or
// a newer value is kept, the only value of it worth showing a surface is the newest one
// given; a camera's echo of an older value is stored by the station as usual, but not
// pushed. Echoes can come after the control's last frame has gone out (the camera answers
// the frame before it late, or several faders share the line): a value given earlier in the
// move is not pushed either until the control has been quiet for kSettlePolls polls. Once
// it has, what the camera settled on is pushed.
//
// Mode and button commands do not come here: they are never merged.

#include <functional>
#include <map>
#include <set>
#include <optional>
#include <string>


namespace station::remote {

class FaderPacer {
public:
    // What tells a queued frame apart: given by Send, asked about by Waiting.
    using Ticket = long;
    // Carries out a value (the gesture on the control) and answers the frame it queued, or
    // nothing when none was queued (the value was already held, or nothing is sent).
    using Send = std::function<std::optional<Ticket>(long value)>;
    // Whether this frame still waits in the send queue to be sent.
    using Waiting = std::function<bool(Ticket frame)>;

    static constexpr int kSettlePolls = 4;

    explicit FaderPacer(Waiting waiting) : waiting_(std::move(waiting)) {}

    // The newest value of `control`: carried out at once when it is the first of a move, or
    // no remote frame waits and nothing is kept; kept otherwise (replacing a kept one).
    void offer(const std::string& control, long value, Send send);
    // The value kept for `control`, else the last one carried out; nothing when neither
    // (an encoder steps from here).
    std::optional<long> latest(const std::string& control) const;
    // Once no remote frame waits, carries out the value kept the longest. Called before each
    // poll of the line. True when a control has just settled (what a surface was not shown
    // may be shown now).
    bool release();
    // Carries out every kept value now, waiting frames or not: another command is about to
    // act, and must find the values given before it in place (a scene store, a camera change).
    void flush();

    // Whether a surface should be shown `value` of `control` now (see above). `value` is the
    // number as the panel shows it; any other text always is shown.
    bool worthPushing(const std::string& control, const std::string& value) const;
    // Whether a frame of `control` waits or a value of it is kept.
    bool busy(const std::string& control) const;

private:
    struct Control {
        std::optional<Ticket> frame;  // the last frame queued for it
        std::optional<long> kept;
        Send send;                   // for the kept value
        long latest = 0;
        std::set<long> given;  // the values of this move, older echoes of which are not pushed
        int quiet = 0;         // polls since its last frame went and nothing was kept
        long keptSince = 0;    // its turn: kept values go in the order they were first kept
    };
    void carryOut(Control& c, long value, const Send& send);
    // Whether a frame from remote values waits in the send queue.
    bool laneWaiting() const;

    Waiting waiting_;
    std::map<std::string, Control> controls_;
    long turns_ = 0;
};

}  // namespace station::remote
