#pragma once
// Progress of a camera's part of a command on standard error. On a terminal it is one line
// per camera that counts up in place (replies so far / expected) and ends with the result;
// into a file or a pipe, where a carriage return would only garble a log, it is the start
// and the result as plain lines. Quiet, it is nothing: the summary alone remains.

#include <iosfwd>
#include <string>

namespace station::ctl {

class ProgressLine {
public:
    ProgressLine(std::ostream& err, bool terminal, bool quiet) : err_(err), terminal_(terminal), quiet_(quiet) {}

    void begin(const std::string& what, long expected);
    void update(long done);  // shown only when it changed
    void end(const std::string& result);
    // Clears a count left open when the run ends in the middle of it.
    void abandon();
    // A line that belongs to no camera ("camera 2: auto white").
    void note(const std::string& text);

private:
    void draw();

    std::ostream& err_;
    bool terminal_;
    bool quiet_;
    bool open_ = false;
    std::string what_;
    long expected_ = 0;
    long done_ = -1;
};

}  // namespace station::ctl
