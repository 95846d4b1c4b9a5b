#pragma once
// The line log: every fault and state change of the line with its time, the camera it
// concerns and the frame in hexadecimal. Newest first, the last 1000 kept; every new line
// can also go to a log file.

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>

namespace station {

struct LineLogEntry {
    std::string time;   // "2026-11-23 16:05:09"
    std::string what;   // "No Acknowledge", "Line lost: ...", ...
    int camera = 0;     // 1..8, 0 when no camera is concerned
    std::string id;     // that camera's ID text
    std::string frame;  // the frame as spaced hex, or empty
};

class LineLog {
public:
    static constexpr std::size_t kKept = 1000;

    void add(LineLogEntry entry);
    const std::deque<LineLogEntry>& entries() const { return entries_; }  // newest first
    // Changes with every entry added, so that a view redraws only then.
    std::uint64_t revision() const { return revision_; }

    // One entry as a line of text; all entries, newest first, one per line.
    static std::string line(const LineLogEntry& entry);
    std::string text() const;

    // Receives each new entry's line, e.g. to append it to a log file.
    std::function<void(const std::string&)> sink;

private:
    std::deque<LineLogEntry> entries_;
    std::uint64_t revision_ = 0;
};

// A time as the line log and the tooltips show it: "2026-11-23 16:05:09", local time.
std::string clockText(std::chrono::system_clock::time_point when);

}  // namespace station
