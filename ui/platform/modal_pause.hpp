#pragma once
// While a modal box or dialog is up, the station's timers must stand still: the logic
// goes on (updates its counters, sends the next frame) only after the operator has
// dismissed the box, and a tick must never run inside another tick's message.
// The message box and the file dialogs hold a Scope while they are up; the timers say
// what pausing and resuming means.

#include <functional>

namespace station::ui {

class ModalPause {
public:
    std::function<void()> onEnter;
    std::function<void()> onLeave;
    int depth = 0;  // boxes up now

    class Scope {
    public:
        explicit Scope(ModalPause& pause) : pause_(pause) {
            ++pause_.depth;
            if (pause_.onEnter) pause_.onEnter();
        }
        ~Scope() {
            --pause_.depth;
            if (pause_.onLeave) pause_.onLeave();
        }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        ModalPause& pause_;
    };
};

}  // namespace station::ui
