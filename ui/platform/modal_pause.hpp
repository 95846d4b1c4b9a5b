#pragma once
// While a modal box or dialog is up, the station's timers must stand still: the logic
// goes on (updates its counters, sends the next frame) only after the operator has
// dismissed the box, and a tick must never run inside another tick's message.
// The message box and the file dialogs hold a Scope while they are up; the timers say
// what pausing and resuming means.
//
// The boxes up are known by their text, and the one on top can be closed from outside
// (remote control) exactly as its OK button closes it (a dialog without one: as Cancel).

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace station::ui {

class ModalPause {
public:
    std::function<void()> onEnter;
    std::function<void()> onLeave;
    int depth = 0;  // boxes up now

    // The text of the box on top; nothing while no box is up.
    std::optional<std::string> text() const {
        if (boxes_.empty()) return std::nullopt;
        return boxes_.back().text;
    }
    // Closes the box on top as its own button does; false when no box is up.
    bool closeTop() {
        if (boxes_.empty() || !boxes_.back().close) return false;
        boxes_.back().close();
        return true;
    }

    class Scope {
    public:
        explicit Scope(ModalPause& pause, std::string text = {}, std::function<void()> close = {}) : pause_(pause) {
            ++pause_.depth;
            pause_.boxes_.push_back({std::move(text), std::move(close)});
            if (pause_.onEnter) pause_.onEnter();
        }
        ~Scope() {
            --pause_.depth;
            pause_.boxes_.pop_back();
            if (pause_.onLeave) pause_.onLeave();
        }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        ModalPause& pause_;
    };

private:
    struct Box {
        std::string text;
        std::function<void()> close;
    };
    std::vector<Box> boxes_;
};

}  // namespace station::ui
