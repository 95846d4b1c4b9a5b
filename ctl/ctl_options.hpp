#pragma once
// The command line of corvane-ctl, the station without windows:
//
//   corvane-ctl --port /dev/ttyUSB0 --setup studio.csd read 1-8 --save backup.csd
//   corvane-ctl --port /dev/ttyUSB0 --setup backup.csd write 3
//   corvane-ctl --simulate --setup studio.csd auto white 2 , camera 1 , level iris 10
//
// Words that are not options are commands; "," or ";" (alone or ending a word), or an
// option, separates one command from the next. --script adds the lines of a file as commands, after those
// of the command line.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace station::ctl {

struct CtlOptions {
    std::optional<std::string> port;                   // --port DEVICE
    bool simulate = false;                             // --simulate: the in-process camera line
    std::optional<std::filesystem::path> setup;        // --setup FILE, opened before the commands
    std::optional<std::filesystem::path> save;         // --save FILE, written after them
    std::optional<std::filesystem::path> definitions;  // --definitions FOLDER
    std::vector<std::string> commands;                 // one command per entry
    bool quiet = false;                                // --quiet: no progress lines
    bool keepGoing = false;                            // --keep-going: on past a failed command
    bool partial = false;                              // --partial: save what was read after a failure
    bool mainOnly = false;                             // --main-only: a backup without function settings is meant
    bool help = false;
    bool version = false;                              // --version
};

// Reads the arguments after the program name; std::invalid_argument with the reason when
// they cannot be used.
CtlOptions parseCtlOptions(const std::vector<std::string>& args);

// The command lines of a script: blank lines and lines starting with "#" are left out.
std::vector<std::string> scriptCommands(const std::string& text);

std::string ctlHelp();

}  // namespace station::ctl
