#pragma once
// A passing word to the operator that needs no answer (the desktop program shows it in the
// main window's status bar), unlike a message box, which waits to be dismissed.

#include <functional>
#include <string>
#include <utility>

namespace station {

class Notice {
public:
    void raise(std::string text) {
        last_ = std::move(text);
        if (shown) shown(last_);
    }
    const std::string& last() const { return last_; }  // "" until one was raised

    std::function<void(const std::string&)> shown;  // the view that shows it

private:
    std::string last_;
};

}  // namespace station
