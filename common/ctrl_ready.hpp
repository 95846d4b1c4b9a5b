#pragma once
// Guards on CtrlReady, the flag that lets a control's event store and send. Setting a
// control from code must not send, so code that redraws holds the flag at 0 meanwhile.

#include "common/vb_conv.hpp"

namespace station {

// Holds CtrlReady at 0 while controls are set by code, and puts back what it found.
class QuietControls {
public:
    explicit QuietControls(Integer& ctrlReady) : ctrlReady_(ctrlReady), saved_(ctrlReady) { ctrlReady_ = 0; }
    ~QuietControls() { ctrlReady_ = saved_; }
    QuietControls(const QuietControls&) = delete;
    QuietControls& operator=(const QuietControls&) = delete;

private:
    Integer& ctrlReady_;
    Integer saved_;
};

// A reply decoder's guard: CtrlReady is 0 while the reply is drawn and 1 afterwards, whatever
// it was before, also when the decoder fails.
class ReplyGuard {
public:
    explicit ReplyGuard(Integer& ctrlReady) : ctrlReady_(ctrlReady) { ctrlReady_ = 0; }
    ~ReplyGuard() { ctrlReady_ = 1; }
    ReplyGuard(const ReplyGuard&) = delete;
    ReplyGuard& operator=(const ReplyGuard&) = delete;

private:
    Integer& ctrlReady_;
};

}  // namespace station
