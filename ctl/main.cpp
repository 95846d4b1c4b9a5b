// corvane-ctl: the camera control station without windows. See ctlHelp().
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>

#include "app/station.hpp"
#include "common/runtime_error.hpp"
#include "common/version.hpp"
#include "ctl/files/backup_policy.hpp"
#include "ctl/command_run.hpp"
#include "ctl/ctl_options.hpp"
#include "ctl/ctl_session.hpp"
#include "ctl/files/definition_search.hpp"
#include "ctl/files/restore_check.hpp"
#include "ctl/files/type_items.hpp"
#include "ctl/exit_status.hpp"
#include "ctl/tick_loop.hpp"
#include "platform/termios_port.hpp"
#include "app/preset_dialogs.hpp"
#include "setupfile/file_writer.hpp"
#include "sim/line_setup.hpp"
#include "sim/sim_port.hpp"

namespace {

using namespace station;
namespace fs = std::filesystem;

fs::path definitionFolder(const ctl::CtlOptions& options) {
    return ctl::chooseDefinitions(options.definitions, ctl::definitionCandidates(options.setup), fs::current_path());
}

// A restore ("write") sends the --setup file's settings: that file is checked whole before
// the line is touched, and a damaged one refuses the run.
void checkRestores(const ctl::CtlOptions& options, const fs::path& definitions) {
    std::vector<int> cameras;
    for (const std::string& command : options.commands) {
        remote::Words words(remote::splitWords(command));
        if (remote::lower(words.peek()) != "write") continue;
        words.take("command");
        if (words.done()) continue;  // refused when it is carried out
        try {
            for (const int c : ctl::cameraList(words.take("cameras"))) cameras.push_back(c);
        } catch (const std::exception&) {
            continue;  // likewise
        }
    }
    if (cameras.empty()) return;
    if (!options.setup)
        throw ctl::RunError(ctl::ExitStatus::BadFile, "write needs --setup FILE: the settings to restore");
    const std::string name = options.setup->string();
    std::ifstream in(*options.setup, std::ios::binary);
    if (!in) throw ctl::RunError(ctl::ExitStatus::BadFile, "cannot read " + name);
    std::ostringstream text;
    text << in.rdbuf();
    if (const auto problem = ctl::checkRestore(text.str(), cameras, definitions))
        throw ctl::RunError(ctl::ExitStatus::BadFile,
                            name + (problem->lineNumber > 0 ? ":" + std::to_string(problem->lineNumber) : std::string()) + ": " +
                                problem->reason + "; nothing was restored");
}

// A backup (a read saved with --save) of cameras whose types have no definitions would hold
// the main settings only and replace a file that held function settings too: it is refused
// before the line is touched, unless --main-only says that is what is meant.
void checkBackupTypes(const ctl::CtlOptions& options, const fs::path& definitions) {
    if (!options.save || options.mainOnly || !options.setup) return;
    std::vector<int> cameras;
    for (const std::string& command : options.commands) {
        remote::Words words(remote::splitWords(command));
        if (remote::lower(words.peek()) != "read") continue;
        words.take("command");
        if (words.done()) continue;
        try {
            for (const int c : ctl::cameraList(words.take("cameras"))) cameras.push_back(c);
        } catch (const std::exception&) {
            continue;  // refused when it is carried out
        }
    }
    std::ifstream in(*options.setup, std::ios::binary);
    sim::LineSetup setup;
    sim::readSetupData(in, setup);
    std::vector<std::string> missing;
    for (const int camera : cameras) {
        const std::string& type = setup.at(camera).type;
        if (type.empty() || ctl::findTypeDefinition(definitions, type)) continue;
        if (std::find(missing.begin(), missing.end(), type) == missing.end()) missing.push_back(type);
    }
    if (missing.empty()) return;
    std::string types, looked;
    for (const std::string& t : missing) types += (types.empty() ? "" : ", ") + t;
    for (const fs::path& folder : ctl::definitionCandidates(options.setup))
        looked += (looked.empty() ? "" : ", ") + folder.string();
    throw ctl::RunError(ctl::ExitStatus::BadFile,
                        "no definition of camera type" + std::string(missing.size() == 1 ? " " : "s ") + types + " in " +
                            definitions.string() + " (looked in " + looked +
                            "): the backup would hold no function settings; nothing was read or saved "
                            "(--definitions FOLDER names them, --main-only saves the main settings alone)");
}

int run(const ctl::CtlOptions& options) {
    if (options.setup) {
        std::ifstream readable(*options.setup, std::ios::binary);
        if (!readable || fs::is_directory(*options.setup))
            throw ctl::RunError(ctl::ExitStatus::BadFile, "cannot read the setup file " + options.setup->string());
    }
    const fs::path definitions = definitionFolder(options);
    checkRestores(options, definitions);
    checkBackupTypes(options, definitions);
    std::unique_ptr<sim::Line> line;
    std::unique_ptr<SerialPort> device;
    if (options.simulate) {
        std::ifstream in(*options.setup, std::ios::binary);
        if (!in) throw std::invalid_argument("cannot read " + options.setup->string());
        sim::LineSetup setup;
        sim::readSetupData(in, setup);
        setup.startValues = sim::startValuesIn(definitions);
        line = std::make_unique<sim::Line>();
        setup.build(*line);
        device = std::make_unique<sim::SimPort>(*line);
    } else {
        const char* variable = std::getenv("CORVANE_PORT");
        if (!options.port && !(variable && *variable))
            throw std::invalid_argument("no camera line: give --port DEVICE or --simulate");
        device = std::make_unique<platform::TermiosPort>(options.port ? *options.port : std::string(variable));
        // The station would keep trying a device that cannot be opened; a script must hear
        // at once, before anything is read or written.
        try {
            device->open();
        } catch (const std::exception& e) {
            throw ctl::RunError(ctl::ExitStatus::NoLine, e.what());
        }
    }

    ctl::CtlMessages messages(std::cerr);
    NoDialogs none;
    PresetDialogs dialogs(none);
    DiskWriter writer;
    ctl::ReplyCount replies;  // watch the station's line: outlive it
    ctl::LinkTally tally;
    Station station({*device, messages, dialogs, writer, definitions});
    station.watchLine(replies);
    station.watchLine(tally);
    remote::CommandSet commands(station, dialogs, {});
    Actions& actions = commands.actions();

    std::unique_ptr<ctl::Clock> clock;
    if (line) clock = std::make_unique<ctl::LineClock>(*line);
    else clock = std::make_unique<ctl::RealClock>();
    ctl::TickLoop ticks(station, *clock);
    ctl::Session session(commands, ticks, replies, tally, messages, std::cout, std::cerr, options.quiet,
                         ::isatty(STDERR_FILENO) == 1);
    session.definitions = definitions;
    if (!line) session.device = options.port ? *options.port : std::string(std::getenv("CORVANE_PORT"));

    // What the station leaves out or changes without a box is said on the error stream.
    station.forms().notice.shown = [](const std::string& text) { std::cerr << "corvane-ctl: " << text << "\n"; };
    station.Form_Load();
    if (options.setup) {
        const std::string path = fs::absolute(*options.setup).string();
        dialogs.answerNextOpen(path);
        (void)actions.open();  // a failure is told on the error stream; the name tells the outcome
        if (actions.readout().fileName() != path) throw std::invalid_argument("cannot open " + path);
    }
    session.settle();

    ctl::runCommands(options.commands, options.keepGoing, [&](const std::string& c) { return session.run(c); },
                     std::cerr);

    int status = session.finish();
    if (options.save) {
        const std::string path = fs::absolute(*options.save).string();
        // The file named is replaced, never the one a link of that name points to.
        std::error_code ec;
        if (fs::is_symlink(fs::symlink_status(path, ec)))
            throw ctl::RunError(ctl::ExitStatus::BadFile, path + " is a symbolic link: not saved");
        const std::string from = options.setup ? options.setup->string() : std::string("the start-up values");
        const ctl::SaveDecision decision =
            ctl::decideSave(path, status != 0, session.unreadCameras(), options.partial, from);
        if (!decision.note.empty()) std::cerr << "corvane-ctl: " << decision.note << "\n";
        if (decision.write) {
            const int before = messages.failures();
            dialogs.answerNextSave(path);
            (void)actions.saveAs();
            if (messages.failures() != before || actions.readout().fileName() != path)
                throw ctl::RunError(ctl::ExitStatus::BadFile, path + " was not saved");
            std::cerr << "corvane-ctl: saved " << path << "\n";
        }
    }
    station.QUIT_Click();
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    ctl::CtlOptions options;
    try {
        options = ctl::parseCtlOptions(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const std::exception& e) {
        std::cerr << "corvane-ctl: " << e.what() << "\n\n" << ctl::ctlHelp();
        return 2;
    }
    if (options.help || options.version) {
        std::cout << (options.help ? ctl::ctlHelp() : versionLine("corvane-ctl"));
        return 0;
    }
    try {
        return run(options);
    } catch (const ctl::RunError& e) {
        std::cerr << "corvane-ctl: " << ctl::oneLine(e.what()) << "\n";
        return static_cast<int>(e.status());
    } catch (const RuntimeError& e) {
        std::cerr << "corvane-ctl: " << runtimeErrorText(e) << "\n";
    } catch (const std::exception& e) {
        std::cerr << "corvane-ctl: " << e.what() << "\n";
    }
    return 2;
}
