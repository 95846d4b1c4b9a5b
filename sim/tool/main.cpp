// camera-sim: a line of virtual cameras on a pseudo-terminal. See toolHelp().
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

#include "common/hex.hpp"
#include "common/version.hpp"
#include "sim/line.hpp"
#include "sim/tool/pty_server.hpp"
#include "sim/tool/tool_options.hpp"

namespace {

using namespace station;
using namespace station::sim;

void printTraffic(const Traffic& t) {
    const double ms = static_cast<double>(t.at.count()) / 1000.0;
    if (t.from == Traffic::From::Station)
        std::fprintf(stderr, "%12.3f ms  station  ->%s\n", ms, spacedHex(t.bytes).c_str());
    else
        std::fprintf(stderr, "%12.3f ms  camera %d <-%s\n", ms, t.camera, spacedHex(t.bytes).c_str());
}

// The stop signals arrive on a descriptor that the serving loop waits on with the terminal.
UniqueFd stopSignals() {
    sigset_t mask;
    sigemptyset(&mask);
    sigaddset(&mask, SIGINT);
    sigaddset(&mask, SIGTERM);
    sigaddset(&mask, SIGHUP);
    if (sigprocmask(SIG_BLOCK, &mask, nullptr) != 0) throw std::system_error(errno, std::generic_category(), "sigprocmask");
    UniqueFd fd(signalfd(-1, &mask, SFD_CLOEXEC));
    if (fd.get() < 0) throw std::system_error(errno, std::generic_category(), "signalfd");
    return fd;
}

// The --link symbolic link, removed again when the program ends.
class LinkName {
public:
    LinkName(std::string path, const std::string& target) : path_(std::move(path)) {
        namespace fs = std::filesystem;
        if (fs::is_symlink(fs::symlink_status(path_))) fs::remove(path_);
        fs::create_symlink(target, path_);
    }
    LinkName(const LinkName&) = delete;
    LinkName& operator=(const LinkName&) = delete;
    ~LinkName() {
        std::error_code ec;
        std::filesystem::remove(path_, ec);
    }

private:
    std::string path_;
};

int run(const ToolOptions& options) {
    Line line;
    options.line.build(line);
    if (options.trace) line.onTraffic = printTraffic;

    UniqueFd stop = stopSignals();
    PtyServer pty;
    std::optional<LinkName> link;
    if (!options.linkPath.empty()) link.emplace(options.linkPath, pty.path());

    std::printf("%s\n", pty.path().c_str());
    std::fflush(stdout);
    std::fprintf(stderr, "camera-sim: %d camera(s) at %d bit/s%s on %s\n", options.line.count(), options.line.speed,
                 options.line.idMode ? " in ID mode" : "", pty.path().c_str());

    std::optional<std::chrono::steady_clock::time_point> deadline;
    if (options.exitAfter)
        deadline = std::chrono::steady_clock::now() +
                   std::chrono::duration_cast<std::chrono::steady_clock::duration>(
                       std::chrono::duration<double>(*options.exitAfter));
    pty.serve(line, stop.get(), deadline);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    ToolOptions options;
    try {
        options = parseToolOptions(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const std::invalid_argument& e) {
        std::fprintf(stderr, "camera-sim: %s\nTry 'camera-sim --help'.\n", e.what());
        return 2;
    }
    if (options.help || options.version) {
        std::cout << (options.help ? toolHelp() : versionLine("camera-sim"));
        return 0;
    }
    try {
        return run(options);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "camera-sim: %s\n", e.what());
        return 1;
    }
}
