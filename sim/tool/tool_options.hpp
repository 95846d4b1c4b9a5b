#pragma once
// The command line of the standalone camera line, camera-sim.

#include <optional>
#include <string>
#include <vector>

#include "sim/line_setup.hpp"

namespace station::sim {

struct ToolOptions {
    LineSetup line;
    std::string linkPath;             // --link: a symbolic link to the terminal
    bool trace = false;               // --trace: transmissions on standard error
    bool help = false;
    bool version = false;
    std::optional<double> exitAfter;  // --exit-after: seconds
};

// Parses the arguments after the program name. Raises std::invalid_argument with a
// message for the user. Without --camera or --setup, one camera stands at position 1.
ToolOptions parseToolOptions(const std::vector<std::string>& args);

std::string toolHelp();

}  // namespace station::sim
