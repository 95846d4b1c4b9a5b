#include "ui/platform/end_signals.hpp"

#include <fcntl.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>

namespace station::ui {

namespace {

// A signal handler can reach nothing but what is at file scope; it may only write a byte.
volatile sig_atomic_t signalFd = -1;

void onSignal(int) {
    const int saved = errno;
    const char byte = 1;
    if (signalFd >= 0) {
        // A byte that does not fit finds the pipe already holding one: the wake-up is there.
        const ssize_t written = ::write(signalFd, &byte, 1);
        static_cast<void>(written);
    }
    errno = saved;
}

void handle(int signal, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, nullptr);
}

}  // namespace

EndSignals::EndSignals(std::function<void()> end) : end_(std::move(end)) {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, fds_) != 0)
        throw std::runtime_error("cannot watch for end signals");
    notifier_ = std::make_unique<QSocketNotifier>(fds_[1], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] {
        char buf[16];
        while (::read(fds_[1], buf, sizeof buf) > 0) {}
        if (end_) end_();
    });
    signalFd = fds_[0];
    handle(SIGTERM, onSignal);
    handle(SIGINT, onSignal);
}

EndSignals::~EndSignals() {
    handle(SIGTERM, SIG_DFL);
    handle(SIGINT, SIG_DFL);
    signalFd = -1;
    notifier_.reset();
    ::close(fds_[0]);
    ::close(fds_[1]);
}

}  // namespace station::ui
