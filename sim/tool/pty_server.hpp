#pragma once
// Serves a camera line on a pseudo-terminal in real time: the station's bytes read from
// the terminal go onto the line as they come, and the cameras' bytes are written out when
// the line says they have arrived, so the station sees them paced at the line speed.

#include <chrono>
#include <optional>
#include <string>

#include "sim/line.hpp"

namespace station::sim {

// A file descriptor closed when it goes out of scope.
class UniqueFd {
public:
    UniqueFd() = default;
    explicit UniqueFd(int fd) : fd_(fd) {}
    UniqueFd(UniqueFd&& o) noexcept : fd_(o.release()) {}
    UniqueFd& operator=(UniqueFd&& o) noexcept;
    UniqueFd(const UniqueFd&) = delete;
    UniqueFd& operator=(const UniqueFd&) = delete;
    ~UniqueFd();
    int get() const { return fd_; }
    int release() {
        const int fd = fd_;
        fd_ = -1;
        return fd;
    }

private:
    int fd_ = -1;
};

class PtyServer {
public:
    // Opens a pseudo-terminal in raw mode; raises std::system_error when it cannot.
    PtyServer();

    // The path the station opens.
    const std::string& path() const { return path_; }

    // Serves until `stopFd` becomes readable or `deadline` passes.
    void serve(Line& line, int stopFd, std::optional<std::chrono::steady_clock::time_point> deadline);

private:
    UniqueFd master_;
    UniqueFd slave_;  // held open so that the terminal outlives the station's closing it
    std::string path_;
};

}  // namespace station::sim
