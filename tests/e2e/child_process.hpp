#pragma once
// Runs a program as a child with its standard output on a pipe, and makes sure it ends:
// stopped with SIGTERM when the object goes, and told to end by the kernel if the test
// process dies first.

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace station::testing {

class ChildProcess {
public:
    // Its standard error goes to `errors` when one is named.
    explicit ChildProcess(const std::vector<std::string>& argv, const std::string& errors = "");
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // One line of its output without the line end, or nullopt when none came in time.
    std::optional<std::string> readLine(std::chrono::milliseconds limit);

    // Sends SIGTERM and waits; the exit status, or -1 when it had to be killed.
    int stop(std::chrono::milliseconds limit = std::chrono::milliseconds(3000));
    // Waits for it to end by itself; the exit status, or -1 when it had to be killed.
    int wait(std::chrono::milliseconds limit);

private:
    int pid_ = -1;
    int out_ = -1;
    std::string buffered_;
};

}  // namespace station::testing
