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
        } else if (arg == "--simulate") {
            options.simulate = true;
        } else if (auto file = optionValue(args, i, "--log-file", options.error)) {
            if (options.error.empty() && file->empty()) options.error = "--log-file needs a file";
            options.logFile = std::filesystem::path(*file);
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
    return "Usage: corvane-station [--port DEVICE | --simulate] [--definitions FOLDER] [--log-file FILE]\n"
           "\n"
           "The camera control station: one operator sets up and controls up to eight\n"
           "studio cameras on one RS-232 line.\n"
           "\n"
           "  --port DEVICE        the serial device of port 1 for this run, e.g.\n"
           "                       /dev/ttyUSB0 or the terminal path that camera-sim\n"
           "                       prints. Without it (and without $CORVANE_PORT) the\n"
           "                       station uses the port chosen in \"&Setup\" > \"Port\" last\n"
           "                       time, at first its built-in simulated camera line.\n"
           "  --simulate           the built-in simulated camera line with the sample\n"
           "                       studio's cameras, for this run\n"
           "  --log-file FILE      append every entry of the line log to FILE\n"
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

PortChoice startPort(const ProgramOptions& options, const char* corvanePortVariable,
                     const std::optional<PortChoice>& remembered) {
    if (options.simulate) return PortChoice{{}, true};
    if (auto device = portDevice(options, corvanePortVariable)) return PortChoice{*device, false};
    if (remembered && (remembered->simulated || !remembered->device.empty())) return *remembered;
    return PortChoice{{}, true};
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
