#pragma once
// How a run of corvane-ctl ended, as its exit status: scripts that back up or restore
// cameras with nobody watching act on it.

#include <stdexcept>
#include <string>

namespace station::ctl {

enum class ExitStatus : int {
    Done = 0,          // every command carried out, every camera answered
    CameraFailed = 1,  // a camera failed or a command was refused
    BadFile = 2,       // a bad command line, or an input or output file that cannot be used
    NoLine = 3,        // the camera line could not be opened
};

// Ends the run with `status`; what() is the one line that tells why.
class RunError : public std::runtime_error {
public:
    RunError(ExitStatus status, const std::string& why) : std::runtime_error(why), status_(status) {}
    ExitStatus status() const { return status_; }

private:
    ExitStatus status_;
};

// One line of standard error: line breaks in a text become "; ", so that a terminal shows
// all of it (a carriage return would let the next sentence overwrite the first).
std::string oneLine(const std::string& text);

}  // namespace station::ctl
