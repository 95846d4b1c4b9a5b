#include "sim/tool/tool_options.hpp"

#include <charconv>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>

#include "common/option_errors.hpp"
#include "common/option_reader.hpp"

namespace station::sim {

namespace {

long wholeNumber(const std::string& option, const std::string& text, long min, long max) {
    long v = 0;
    const char* end = text.data() + text.size();
    const auto [ptr, ec] = std::from_chars(text.data(), end, v);
    if (text.empty() || ec != std::errc() || ptr != end || v < min || v > max)
        throw std::invalid_argument(
            options::badValue(option, "expected a number from " + std::to_string(min) + " to " + std::to_string(max)));
    return v;
}

}  // namespace

ToolOptions parseToolOptions(const std::vector<std::string>& args) {
    ToolOptions out;
    bool described = false;
    std::optional<std::filesystem::path> definitions;  // --definitions, else the --setup file's folder
    options::OptionReader r(args);
    while (r.next()) {
        const std::string& name = r.name();
        if (name == "--help" || name == "-h") {
            r.flag(out.help);
        } else if (name == "--version") {
            r.flag(out.version);
        } else if (name == "--camera") {
            addCameraOption(r.value(), out.line);
            described = true;
        } else if (name == "--setup") {
            const std::string path = r.value();
            std::ifstream in(path, std::ios::binary);
            if (!in) throw std::invalid_argument(options::cannotRead("--setup", path));
            readSetupData(in, out.line);
            described = true;
            if (!definitions) definitions = std::filesystem::absolute(path).parent_path();
        } else if (name == "--definitions") {
            definitions = r.value();
            if (!std::filesystem::is_directory(*definitions))
                throw std::invalid_argument(options::badValue("--definitions", "a folder"));
        } else if (name == "--fault") {
            addFaultOption(r.value(), out.line);
        } else if (name == "--id-mode") {
            r.flag(out.line.idMode);
        } else if (name == "--speed") {
            const std::string v = r.value();
            if (v != "9600" && v != "19200") throw std::invalid_argument(options::badValue("--speed", "9600 or 19200"));
            out.line.speed = std::stoi(v);
        } else if (name == "--auto-delay") {
            out.line.autoDelay = Micros{wholeNumber(name, r.value(), 0, 600'000) * 1000};
        } else if (name == "--link") {
            out.linkPath = r.value("a path");
        } else if (name == "--trace") {
            r.flag(out.trace);
        } else if (name == "--exit-after") {
            out.exitAfter = static_cast<double>(wholeNumber(name, r.value(), 1, 86'400));
        } else {
            r.unknown();
        }
    }
    if (out.help || out.version) return out;
    if (definitions) out.line.startValues = startValuesIn(*definitions);
    if (!described) {
        CameraSetup& first = out.line.at(1);
        first.present = true;
        first.id = "01";
    }
    for (int p = 1; p <= kMaxCameras; ++p) {
        const CameraSetup& c = out.line.at(p);
        if (c.faulted && !c.present)
            throw std::invalid_argument("--fault " + std::to_string(p) + ":...: no camera at position " +
                                        std::to_string(p));
    }
    if (out.line.count() == 0) throw std::invalid_argument("no camera on the line");
    return out;
}

std::string toolHelp() {
    return "Usage: camera-sim [OPTION]...\n"
           "\n"
           "Puts a line of up to eight virtual studio cameras on a pseudo-terminal and prints\n"
           "the terminal's path as the first line of its output. The cameras acknowledge,\n"
           "apply and answer the station's frames at the line speed, as cameras on a real\n"
           "RS-232 line do, until the program is stopped (Ctrl-C).\n"
           "\n"
           "Pointing the station at it:\n"
           "  Start the station with the printed path as its serial port:\n"
           "      camera-sim --setup samples/studio.csd &      # prints e.g. /dev/pts/3\n"
           "      corvane-station --port /dev/pts/3\n"
           "  or give the line a fixed name with --link and use that name instead:\n"
           "      camera-sim --link /tmp/corvane-line --camera 1:AB1:01 &\n"
           "      corvane-station --port /tmp/corvane-line\n"
           "  (without --port the station reads the environment variable CORVANE_PORT).\n"
           "  Open the same setup data file in the station (\"&File\" > \"OPEN\"), or set its\n"
           "  line speed and camera ID setting to match the line's.\n"
           "  Any other program or script can open the path as a serial port: raw bytes,\n"
           "  9600 or 19200 bit/s, 8 data bits, no parity, 1 stop bit.\n"
           "\n"
           "Cameras:\n"
           "  --camera N:TYPE:ID    a camera at position N (1..8) with a type code and an ID,\n"
           "                        e.g. --camera 1:AB1:01 (repeat for more cameras)\n"
           "  --setup FILE          the cameras (\"[camera type/ID]\") and the camera ID setting\n"
           "                        (\"Camera Select=\") of a setup data file (*.csd)\n"
           "  --id-mode             cameras in ID mode: frames carry the camera's ID, and a\n"
           "                        frame without one is a group frame for every camera\n"
           "  --speed 9600|19200    line speed in bit/s (default 9600)\n"
           "  --auto-delay MS       time auto white / auto black takes (default 3000)\n"
           "  Without --camera or --setup, one camera stands at position 1 with ID 01.\n"
           "  --definitions FOLDER  the camera-type definitions (*.fcl) the cameras start\n"
           "                        from (default: the --setup file's folder)\n"
           "\n"
           "What a camera holds when it starts:\n"
           "  every function level at the lowest value its type allows (MIN in the type's\n"
           "  definition), every other register at 0: the panel's first buttons and middle\n"
           "  levels. A camera whose type has no definition starts everything at 0.\n"
           "  Not modelled: a camera type's own factory values beyond MIN; a filter stepped\n"
           "  by pulses (register 14) does not move the reported filter position; auto\n"
           "  white and auto black report their result but change no level; the lens.\n"
           "\n"
           "Faults, per camera (repeat for more):\n"
           "  --fault N:KIND[=VALUE]  camera N shows the fault KIND:\n" +
           faultHelp() +
           "\n"
           "Other:\n"
           "  --link PATH           also make PATH a symbolic link to the terminal\n"
           "                        (replaces an old link there, removed on exit)\n"
           "  --trace               show every transmission on standard error\n"
           "  --exit-after SECONDS  stop by itself after that long\n"
           "  --version             show the program's version\n"
           "  --help                show this text\n";
}

}  // namespace station::sim
