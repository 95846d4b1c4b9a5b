#pragma once
// A surface's fader or encoder sends 50 to 100 values a second; the line takes one frame a
// 40 ms poll. For each control (a level, a function level) at most one frame from remote
// commands waits in the send queue to be sent. While it does, newer values are kept here,
// each replacing the one before, and the newest goes to the queue once the control's frame
// has gone out: values reach the camera in the order they were given, a fader that stops
// leaves the camera at most two polls behind, and one fader never fills the queue.
//
// The same record keeps pushes from fighting the operator: while a control's frame waits or
// a newer value is kept, the only value of it worth showing a surface is the newest one
// given; a camera's echo of an older value is stored by the station as usual, but not
// pushed. Once nothing waits, what the camera settled on is pushed.
//
// Mode and button commands do not come here: they are never merged.

#include <functional>
#include <map>
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

    explicit FaderPacer(Waiting waiting) : waiting_(std::move(waiting)) {}

    // The newest value of `control`: carried out at once when none of its frames waits,
    // kept otherwise (replacing a kept one).
    void offer(const std::string& control, long value, Send send);
    // The value kept for `control`, else the last one carried out; nothing when neither
    // (an encoder steps from here).
    std::optional<long> latest(const std::string& control) const;
    // Carries out every kept value whose control's frame has left the queue. Called before
    // each poll of the line and after each command.
    void release();
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
    };
    void carryOut(Control& c, long value, const Send& send);

    Waiting waiting_;
    std::map<std::string, Control> controls_;
};

}  // namespace station::remote
