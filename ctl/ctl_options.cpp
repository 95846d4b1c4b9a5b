#include "ctl/ctl_options.hpp"

#include <fstream>
#include <sstream>
#include <stdexcept>

#include "common/option_errors.hpp"
#include "common/option_reader.hpp"

namespace station::ctl {

CtlOptions parseCtlOptions(const std::vector<std::string>& args) {
    CtlOptions out;
    std::vector<std::string> script;
    std::string command;
    auto finish = [&] {
        if (!command.empty()) out.commands.push_back(command);
        command.clear();
    };
    options::OptionReader r(args);
    while (r.next()) {
        const std::string& name = r.name();
        // An option ends the command before it.
        if (r.isOption()) finish();
        if (name == "--help" || name == "-h") r.flag(out.help);
        else if (name == "--version") r.flag(out.version);
        else if (name == "--port") out.port = r.value();
        else if (name == "--simulate") r.flag(out.simulate);
        else if (name == "--quiet") r.flag(out.quiet);
        else if (name == "--keep-going") r.flag(out.keepGoing);
        else if (name == "--partial") r.flag(out.partial);
        else if (name == "--main-only") r.flag(out.mainOnly);
        else if (name == "--setup") out.setup = r.value();
        else if (name == "--save") out.save = r.value();
        else if (name == "--definitions") out.definitions = r.value();
        else if (name == "--script") {
            const std::string path = r.value();
            std::ifstream in(path, std::ios::binary);
            if (!in) throw std::invalid_argument(options::cannotRead("--script", path));
            std::ostringstream text;
            text << in.rdbuf();
            for (std::string& line : scriptCommands(text.str())) script.push_back(std::move(line));
        } else if (r.isOption()) {
            r.unknown();
        } else {
            std::string word = r.word();
            const bool ends = !word.empty() && (word.back() == ',' || word.back() == ';');
            if (ends) word.pop_back();
            if (!word.empty()) command += (command.empty() ? "" : " ") + word;
            if (ends) finish();
        }
    }
    finish();
    out.commands.insert(out.commands.end(), script.begin(), script.end());
    if (out.help || out.version) return out;
    if (out.port && out.simulate) throw std::invalid_argument("--port and --simulate exclude each other");
    if (out.simulate && !out.setup) throw std::invalid_argument("--simulate needs --setup: its cameras make the line");
    return out;
}

std::vector<std::string> scriptCommands(const std::string& text) {
    std::vector<std::string> out;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line)) {
        while (!line.empty() && (line.back() == '\r' || line.back() == ' ' || line.back() == '\t')) line.pop_back();
        const std::size_t start = line.find_first_not_of(" \t");
        if (start == std::string::npos || line[start] == '#') continue;
        out.push_back(line.substr(start));
    }
    return out;
}

std::string ctlHelp() {
    return "Usage: corvane-ctl (--port DEVICE | --simulate) [--setup FILE] [COMMAND [, COMMAND]...]\n"
           "                   [--script FILE] [--save FILE [--partial] [--main-only]]\n"
           "                   [--definitions FOLDER]\n"
           "                   [--keep-going] [--quiet]\n"
           "       corvane-ctl --version | --help\n"
           "\n"
           "The camera control station without windows: it runs the station on the serial\n"
           "line, carries out the commands in order and ends. The first command that is\n"
           "refused or whose camera fails ends the run: nothing after it is sent. Progress\n"
           "and a summary of the cameras that answered go to standard error.\n"
           "\n"
           "Exit status:\n"
           "  0  every command carried out, every camera answered\n"
           "  1  a camera failed or a command was refused (e.g. camera 9)\n"
           "  2  a bad command line, or an input or output file that cannot be used\n"
           "     (a damaged file to restore, a save that is refused)\n"
           "  3  the camera line could not be opened\n"
           "\n"
           "  --port DEVICE        the serial device of the camera line (else $CORVANE_PORT)\n"
           "  --simulate           run on the in-process camera line built from --setup\n"
           "  --setup FILE         open this setup data file first\n"
           "  --save FILE          save the setup data to FILE at the end, only when every\n"
           "                       camera answered every read (else FILE stays as it was);\n"
           "                       the replaced version is kept as FILE.bak\n"
           "  --partial            with --save: write what was read even after a failure,\n"
           "                       naming the cameras whose columns were not read\n"
           "  --main-only          with --save: a backup of the main settings alone is meant\n"
           "                       (else a backup of cameras whose types have no definitions\n"
           "                       is refused: it would hold no function settings)\n"
           "  --keep-going         go on past a refused command or a failed camera (the\n"
           "                       exit status still tells of it)\n"
           "  --script FILE        further commands, one per line (# starts a comment)\n"
           "  --definitions FOLDER the camera-type definitions (*.fcl); else the first that\n"
           "                       holds some of: the setup file's folder, the station's\n"
           "                       remembered definitions folder, the installed samples;\n"
           "                       else the working folder\n"
           "  --quiet              no progress lines, only the summary\n"
           "  --version            show the program's version\n"
           "  --help               show this text\n"
           "\n"
           "Commands (\",\" or \";\" separates them on the command line):\n"
           "  read CAMERAS         page read of each camera in turn (\"1-8\", \"2\", \"1,3,5\"),\n"
           "                       waiting until its replies stop; the settings read become\n"
           "                       the camera's selected scene\n"
           "  write CAMERAS        page send of each camera's selected scene; the --setup\n"
           "                       file is checked whole first and a damaged one, or one\n"
           "                       whose camera types have no definitions, sends nothing\n"
           "  verify FILE CAMERAS  read the cameras and list every setting that differs\n"
           "                       from FILE, one line each on standard output; exit 1\n"
           "                       when any differs or a camera does not answer. Changes\n"
           "                       neither the file nor the cameras (the station takes\n"
           "                       FILE's settings for the rest of the run)\n"
           "  auto white|black [CAMERA]  auto set-up, waiting for its result\n"
           "  raw HEX              bytes fed to the station as if the line had sent them\n"
           "  wait MS              let the station run for MS milliseconds\n"
           "  any remote command   camera, scene, mode, level, gain, filter, call, page,\n"
           "                       function, get\n"
           "                       (docs/remote-control.md)\n";
}

}  // namespace station::ctl
