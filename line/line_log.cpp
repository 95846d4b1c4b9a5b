#include "line/line_log.hpp"

#include <ctime>

namespace station {

std::string clockText(std::chrono::system_clock::time_point when) {
    const std::time_t t = std::chrono::system_clock::to_time_t(when);
    std::tm local{};
    ::localtime_r(&t, &local);
    char buf[32];
    const std::size_t n = std::strftime(buf, sizeof buf, "%Y-%m-%d %H:%M:%S", &local);
    return std::string(buf, n);
}

void LineLog::add(LineLogEntry entry) {
    if (sink) sink(line(entry));
    entries_.push_front(std::move(entry));
    if (entries_.size() > kKept) entries_.pop_back();
    ++revision_;
}

std::string LineLog::line(const LineLogEntry& entry) {
    std::string out = entry.time + "  ";
    out += entry.camera > 0 ? "CAM" + std::to_string(entry.camera) : std::string("    ");
    out += entry.id.empty() ? std::string() : " (" + entry.id + ")";
    out += "  " + entry.what;
    if (!entry.frame.empty()) out += "  [" + entry.frame.substr(entry.frame.front() == ' ' ? 1 : 0) + "]";
    return out;
}

std::string LineLog::text() const {
    std::string out;
    for (const LineLogEntry& e : entries_) out += line(e) + "\n";
    return out;
}

}  // namespace station
