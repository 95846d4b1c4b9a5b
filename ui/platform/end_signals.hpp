#pragma once
// SIGTERM and SIGINT (a service manager stopping the station, Ctrl+C in its terminal) end
// the program the way "&Quit" does, from the event loop: the windows close, the port is
// released and its lock file removed, instead of the process dying with the lock left
// behind. While an EndSignals lives its handlers are installed; afterwards the defaults.

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace station::ui {

class EndSignals {
public:
    // `end` runs in the event loop once per signal received.
    explicit EndSignals(std::function<void()> end);
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    int fds_[2] = {-1, -1};  // the handler writes a byte to [0]; the event loop reads [1]
    std::function<void()> end_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace station::ui
