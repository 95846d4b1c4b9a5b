#pragma once
// How long one camera may take for its part of a command. The station resends on every NAK
// without a limit, so a camera that keeps answering NAK would hold the line for ever; the
// command-line station instead gives each camera a time that follows from the frames it
// expects, and when that runs out the camera fails and the next one starts clean.

#include <chrono>

namespace station::ctl {

using Micros = std::chrono::microseconds;

struct TimeAllowance {
    Micros perFrame{160'000};  // four 40 ms polls for each frame and its answer
    Micros waits{1'600'000};   // the acknowledge watch (1 s) and the wait for silence (600 ms)
};

constexpr Micros cameraTimeLimit(long frames, const TimeAllowance& allowance = {}) {
    return allowance.perFrame * (frames < 0 ? 0 : frames) + allowance.waits;
}

}  // namespace station::ctl
