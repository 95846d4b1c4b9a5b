#pragma once
// The bare camera keys of the desktop program (1..8 and G) are easy to hit by mistake, and
// choosing a camera drops what the panel holds unstored. While something would be lost, a
// key chooses only when pressed twice within two seconds; a click on a camera button is
// never held back. Time comes in from the caller, in milliseconds.

#include <optional>

namespace station {

class SecondPress {
public:
    static constexpr long long kWithinMs = 2000;

    // Whether this press of `key` chooses now. `dropsChanges`: the choice would lose
    // changes not stored. A held-back press waits for the same key within kWithinMs.
    bool chooses(int key, bool dropsChanges, long long nowMs) {
        const bool second = first_ && first_->key == key && nowMs - first_->atMs <= kWithinMs;
        if (!dropsChanges || second) {
            first_.reset();
            return true;
        }
        first_ = Press{key, nowMs};
        return false;
    }

private:
    struct Press {
        int key;
        long long atMs;
    };
    std::optional<Press> first_;
};

}  // namespace station
