#include "ui/program_options.hpp"

#include <algorithm>
#include <cctype>
#include <system_error>

#include "camtype/definition_folder.hpp"

namespace station::ui {

namespace {

// "--name VALUE" or "--name=VALUE": the value, advancing i past it; nothing when `arg` is
// not this option.
std::optional<std::string> optionValue(const std::vector<std::string>& args, std::size_t& i, const std::string& name,
                                       std::string& error) {
    const std::string& arg = args[i];
    if (arg == name) {
        if (i + 1 >= args.size()) {
            error = name + " needs a value";
            return std::string();
        }
        return args[++i];
    }
    if (arg.rfind(name + "=", 0) == 0) return arg.substr(name.size() + 1);
    return std::nullopt;
}

}  // namespace

ProgramOptions parseProgramOptions(const std::vector<std::string>& args) {
    ProgramOptions options;
    for (std::size_t i = 0; i < args.size() && options.error.empty(); ++i) {
        const std::string& arg = args[i];
        if (arg == "--help" || arg == "-h") {
            options.help = true;
        } else if (auto port = optionValue(args, i, "--port", options.error)) {
            if (options.error.empty() && port->empty()) options.error = "--port needs a device";
            options.port = *port;
        } else if (auto folder = optionValue(args, i, "--definitions", options.error)) {
            if (options.error.empty() && folder->empty()) options.error = "--definitions needs a folder";
            options.definitions = std::filesystem::path(*folder);
        } else {
            options.error = "unknown argument: " + arg;
        }
    }
    return options;
}

std::string programHelp() {
    return "Usage: corvane-station [--port DEVICE] [--definitions FOLDER]\n"
           "\n"
           "The camera control station: one operator sets up and controls up to eight\n"
           "studio cameras on one RS-232 line.\n"
           "\n"
           "  --port DEVICE        the serial device of port 1, e.g. /dev/ttyUSB0 or the\n"
           "                       terminal path that camera-sim prints. Without it (and\n"
           "                       without $CORVANE_PORT) the station runs on its built-in\n"
           "                       simulated camera line with the sample studio's cameras.\n"
           "  --definitions FOLDER the folder of the camera-type definitions (*.fcl);\n"
           "                       otherwise the remembered folder, else the working\n"
           "                       folder, else the samples shipped with the program.\n"
           "  --help               show this text\n";
}

std::optional<std::string> portDevice(const ProgramOptions& options, const char* corvanePortVariable) {
    if (options.port) return options.port;
    if (corvanePortVariable != nullptr && *corvanePortVariable != '\0') return std::string(corvanePortVariable);
    return std::nullopt;
}

std::optional<std::filesystem::path> samplesFolder(const std::filesystem::path& programFolder) {
    const std::filesystem::path candidates[] = {
        programFolder / ".." / "share" / "corvane-station",
        STATION_SOURCE_SAMPLES,
    };
    for (const auto& folder : candidates) {
        std::error_code ec;
        if (std::filesystem::is_regular_file(folder / "studio.csd", ec)) return folder.lexically_normal();
    }
    return std::nullopt;
}

bool hasDefinitionFiles(const std::filesystem::path& folder) {
    std::error_code ec;
    std::filesystem::directory_iterator it(folder, ec);
    for (const std::filesystem::directory_iterator end; !ec && it != end; it.increment(ec)) {
        std::string ext = it->path().extension().string();
        std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return std::tolower(c); });
        std::error_code typeEc;
        if (ext == ".fcl" && it->is_regular_file(typeEc)) return true;
    }
    return false;
}

std::filesystem::path definitionFolder(const ProgramOptions& options,
                                       const std::optional<std::filesystem::path>& remembered,
                                       const std::filesystem::path& workingFolder,
                                       const std::optional<std::filesystem::path>& samples) {
    const std::filesystem::path chosen = chooseDefinitionFolder(options.definitions, remembered, workingFolder);
    if (!options.definitions && samples && !hasDefinitionFiles(chosen)) return *samples;
    return chosen;
}

}  // namespace station::ui
