#include "ui/platform/stale_lock.hpp"

#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <string_view>

namespace station::ui {

namespace {

// The folders in which serial programs look for and put their lock files.
constexpr std::string_view kLockFolders[] = {"/var/lock", "/etc/locks",  "/var/spool/locks", "/var/spool/uucp",
                                             "/tmp",      "/var/tmp",    "/var/lock/lockdev", "/run/lock"};

// Whether a process runs: it exists and has not ended as a zombie waiting to be reaped.
bool running(long pid) {
    if (::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH) return false;
    std::ifstream stat("/proc/" + std::to_string(pid) + "/stat");
    std::string line;
    if (!std::getline(stat, line)) return true;  // no /proc to ask: trust kill()
    // "pid (name) S ...": the state follows the name, which may itself hold blanks.
    const auto close = line.rfind(')');
    if (close == std::string::npos || close + 2 >= line.size()) return true;
    const char state = line[close + 2];
    return state != 'Z' && state != 'X';
}

}  // namespace

std::vector<std::filesystem::path> lockFilesOf(const std::string& device) {
    std::string name = device.rfind("/dev/", 0) == 0 ? device.substr(5) : device;
    for (char& c : name)
        if (c == '/') c = '_';
    std::vector<std::filesystem::path> out;
    for (const std::string_view folder : kLockFolders) out.push_back(std::filesystem::path(folder) / ("LCK.." + name));
    return out;
}

bool lockIsStale(const std::string& firstLine) {
    std::size_t at = firstLine.find_first_not_of(' ');
    if (at == std::string::npos) return false;
    long pid = 0;
    std::size_t digits = 0;
    for (; at < firstLine.size() && firstLine[at] >= '0' && firstLine[at] <= '9' && digits < 10; ++at, ++digits)
        pid = pid * 10 + (firstLine[at] - '0');
    if (digits == 0 || pid <= 0 || (at < firstLine.size() && firstLine[at] != '\n' && firstLine[at] != ' '))
        return false;  // not a lock we can read: leave it to its owner
    // This process asks for the device, so it does not hold it: a lock with its id was left by
    // an earlier station that had the same id (process ids start afresh in a new container).
    if (pid == ::getpid()) return true;
    return !running(pid);
}

bool removeStaleLock(const std::string& device) {
    bool removed = false;
    for (const std::filesystem::path& file : lockFilesOf(device)) {
        std::ifstream in(file);
        std::string first;
        if (!in || !std::getline(in, first) || !lockIsStale(first)) continue;
        in.close();
        std::error_code ec;
        removed = std::filesystem::remove(file, ec) || removed;
    }
    return removed;
}

}  // namespace station::ui
