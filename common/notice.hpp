#pragma once
// A passing word to the operator that needs no answer (the desktop program shows it in the
// main window's status bar), unlike a message box, which waits to be dismissed.

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace station {

class Notice {
public:
    void raise(std::string text) {
        last_ = std::move(text);
        if (shown) shown(last_);
        else waiting_.push_back(last_);
    }
    const std::string& last() const { return last_; }  // "" until one was raised

    // The words raised while nothing showed them, oldest first; handed over once.
    std::vector<std::string> takeWaiting() { return std::exchange(waiting_, {}); }

    std::function<void(const std::string&)> shown;  // the view that shows it

private:
    std::string last_;
    std::vector<std::string> waiting_;
};

}  // namespace station
