#include "tests/e2e/child_process.hpp"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>
#include <thread>

namespace station::testing {

using Clock = std::chrono::steady_clock;

ChildProcess::ChildProcess(const std::vector<std::string>& argv, const std::string& errors) {
    int fds[2];
    if (::pipe(fds) != 0) throw std::runtime_error("pipe");
    const pid_t parent = ::getpid();
    pid_ = ::fork();
    if (pid_ < 0) throw std::runtime_error("fork");
    if (pid_ == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (::getppid() != parent) ::_exit(127);
        ::dup2(fds[1], STDOUT_FILENO);
        if (!errors.empty()) ::dup2(::open(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644), STDERR_FILENO);
        ::close(fds[0]);
        ::close(fds[1]);
        std::vector<char*> args;
        for (const std::string& a : argv) args.push_back(const_cast<char*>(a.c_str()));
        args.push_back(nullptr);
        ::execv(args[0], args.data());
        ::_exit(127);
    }
    ::close(fds[1]);
    out_ = fds[0];
}

ChildProcess::~ChildProcess() {
    stop();
    if (out_ >= 0) ::close(out_);
}

std::optional<std::string> ChildProcess::readLine(std::chrono::milliseconds limit) {
    const Clock::time_point end = Clock::now() + limit;
    for (;;) {
        if (const auto nl = buffered_.find('\n'); nl != std::string::npos) {
            std::string line = buffered_.substr(0, nl);
            buffered_.erase(0, nl + 1);
            return line;
        }
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        if (left <= 0) return std::nullopt;
        pollfd p{out_, POLLIN, 0};
        if (::poll(&p, 1, static_cast<int>(left)) <= 0) continue;
        char buf[256];
        const ssize_t n = ::read(out_, buf, sizeof buf);
        if (n <= 0) return std::nullopt;
        buffered_.append(buf, static_cast<std::size_t>(n));
    }
}

int ChildProcess::wait(std::chrono::milliseconds limit) {
    if (pid_ <= 0) return -1;
    const Clock::time_point end = Clock::now() + limit;
    int status = 0;
    while (Clock::now() < end) {
        if (::waitpid(pid_, &status, WNOHANG) == pid_) {
            pid_ = -1;
            return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ::kill(pid_, SIGKILL);
    ::waitpid(pid_, &status, 0);
    pid_ = -1;
    return -1;
}

int ChildProcess::stop(std::chrono::milliseconds limit) {
    if (pid_ <= 0) return -1;
    ::kill(pid_, SIGTERM);
    return wait(limit);
}

}  // namespace station::testing
