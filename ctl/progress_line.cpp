#include "ctl/progress_line.hpp"

#include <ostream>

namespace station::ctl {

namespace {
constexpr const char* kClearToEnd = "\x1b[K";
}

void ProgressLine::begin(const std::string& what, long expected) {
    what_ = what;
    expected_ = expected;
    done_ = -1;
    if (quiet_) return;
    if (!terminal_) {
        err_ << "corvane-ctl: " << what_ << "\n";
        return;
    }
    open_ = true;
    update(0);
}

void ProgressLine::update(long done) {
    if (!open_ || done == done_) return;
    done_ = done;
    draw();
}

void ProgressLine::draw() {
    err_ << "\rcorvane-ctl: " << what_ << " " << done_ << "/" << expected_ << kClearToEnd << std::flush;
}

void ProgressLine::end(const std::string& result) {
    if (quiet_) return;
    if (open_) err_ << "\r";
    err_ << "corvane-ctl: " << what_ << ": " << result << (open_ ? kClearToEnd : "") << "\n";
    open_ = false;
}

void ProgressLine::abandon() {
    if (open_) err_ << "\r" << kClearToEnd << std::flush;
    open_ = false;
}

void ProgressLine::note(const std::string& text) {
    if (!quiet_) err_ << "corvane-ctl: " << text << "\n";
}

}  // namespace station::ctl
