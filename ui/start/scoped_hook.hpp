#pragma once
// A callback put into a slot for as long as this object lives, and taken out when it goes.
// Declared right after the part the callback calls, it goes before that part does, so a
// caller that outlives the part (and still calls the slot while it goes) finds it empty.

#include <functional>
#include <utility>

namespace station::ui {

template <class Signature>
class ScopedHook {
public:
    ScopedHook(std::function<Signature>& slot, std::function<Signature> call) : slot_(slot) {
        slot_ = std::move(call);
    }
    ~ScopedHook() { slot_ = nullptr; }
    ScopedHook(const ScopedHook&) = delete;
    ScopedHook& operator=(const ScopedHook&) = delete;

private:
    std::function<Signature>& slot_;
};

}  // namespace station::ui
