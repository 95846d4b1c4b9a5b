#pragma once
// The desktop program's command line and the start-up choices that follow from it: which
// serial device stands for port 1 (none: the built-in simulated camera line), and which
// folder holds the camera-type definitions. The options are read with Qt's command-line
// parser, which needs no display, so --help and --version are answered without one.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "line/line_state.hpp"

namespace station::ui {

// Control from outside; `enabled` when --remote or any of the address and port options was given.
struct RemoteOptions {
    bool enabled = false;
    std::optional<std::string> address;              // --remote-address ADDR
    std::optional<int> tcpPort;                      // --remote-port N
    std::optional<int> oscPort;                      // --osc-port N
    std::optional<std::filesystem::path> folder;     // --remote-folder DIR
    std::optional<int> idleSeconds;                  // --remote-idle SECONDS
    std::optional<std::filesystem::path> passcodeFile;  // --remote-passcode-file FILE
    // --web [ADDRESS:]PORT: the browser panel, for this run.
    struct Web {
        std::optional<std::string> address;
        int port = 0;
    };
    std::optional<Web> web;
};

struct ProgramOptions {
    std::optional<std::string> port;                  // --port DEVICE
    std::optional<std::filesystem::path> definitions;  // --definitions FOLDER
    bool simulate = false;                             // --simulate
    std::optional<std::filesystem::path> logFile;      // --log-file FILE
    bool noRestore = false;                            // --no-restore: not the last file, nor remote control
    RemoteOptions remote;
    bool exactChecksum = false;                        // --exact-checksum, for this run
    bool help = false;
    bool version = false;
    std::string error;  // not empty: the command line could not be read
};

// Reads the arguments after the program name. "--port" and "--definitions" take their
// value as the next argument or after "="; the last one given wins.
ProgramOptions parseProgramOptions(const std::vector<std::string>& args);

// The arguments without the options that Qt's windowing takes for itself (-platform NAME,
// -style NAME, -reverse ...), so that the program's own options can be read, and wrong ones
// reported, before the windowing system is opened.
std::vector<std::string> withoutQtOptions(const std::vector<std::string>& args);

std::string programHelp();
std::string programVersion();  // "corvane-station 0.13"

// The device for port 1: --port, else $CORVANE_PORT when set and not empty (the variable
// camera-sim tells its users to set); nothing means the built-in camera line.
std::optional<std::string> portDevice(const ProgramOptions& options, const char* corvanePortVariable);

// Port 1 for this run: --simulate, else the device of portDevice(), else the choice
// remembered from the last run, else the built-in simulated line.
PortChoice startPort(const ProgramOptions& options, const char* corvanePortVariable,
                     const std::optional<PortChoice>& remembered);

// The folder holding the sample camera types and studio: installed beside the program
// (<prefix>/share/corvane-station, with the program in <prefix>/bin), else the source
// tree's samples folder. Nothing when neither holds the sample studio.
std::optional<std::filesystem::path> samplesFolder(const std::filesystem::path& programFolder);

// Whether a folder holds any camera-type definition file ("*.fcl", any case).
bool hasDefinitionFiles(const std::filesystem::path& folder);

// The definition folder: the option, else the remembered setting, else the working folder;
// when no option was given and that folder holds no definitions, the samples folder, so
// that a first start finds the types of the sample studio.
std::filesystem::path definitionFolder(const ProgramOptions& options,
                                       const std::optional<std::filesystem::path>& remembered,
                                       const std::filesystem::path& workingFolder,
                                       const std::optional<std::filesystem::path>& samples);

}  // namespace station::ui
