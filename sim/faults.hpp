#pragma once
// Faults that a camera shows on demand. Each counted fault applies to the next `count`
// occasions and then stops; kEvery makes it permanent. Tests and the standalone program
// set them, between ticks if they like; the line consumes them.

#include <chrono>

#include "sim/wire.hpp"

namespace station::sim {

struct Faults {
    static constexpr int kEvery = -1;

    int noAck = 0;        // a good frame is applied and answered, but its ACK never leaves
    int nak = 0;          // a good frame is answered with NAK and not applied
    int badChecksum = 0;  // a reply leaves with a spoilt checksum (resends are clean)
    int split = 0;        // a reply is cut after `splitAt` bytes and the rest follows later
    int splitAt = 1;
    Micros splitGap{60'000};  // longer than the station's 40 ms poll
    int noise = 0;            // `noiseBytes` stray bytes go out before a reply
    int noiseBytes = 3;
    int late = 0;             // a reply (or a resend) is held back by `lateBy`
    Micros lateBy{30'000'000};
    bool silent = false;      // hears nothing, sends nothing: a camera switched off

    // Consumes one occasion of a counted fault; true when the fault applies to it.
    static bool take(int& count) {
        if (count == 0) return false;
        if (count > 0) --count;
        return true;
    }
};

}  // namespace station::sim
