// corvane-ctl: the camera control station without windows. See ctlHelp().
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>

#include "app/station.hpp"
#include "common/runtime_error.hpp"
#include "ctl/ctl_options.hpp"
#include "ctl/ctl_session.hpp"
#include "ctl/tick_loop.hpp"
#include "platform/termios_port.hpp"
#include "app/preset_dialogs.hpp"
#include "setupfile/file_writer.hpp"
#include "sim/line_setup.hpp"
#include "sim/sim_port.hpp"

namespace {

using namespace station;
namespace fs = std::filesystem;

bool holdsDefinitions(const fs::path& folder) {
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(folder, ec)) {
        std::string ext = entry.path().extension().string();
        for (char& c : ext) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (ext == ".fcl") return true;
    }
    return false;
}

fs::path definitionFolder(const ctl::CtlOptions& options) {
    if (options.definitions) return *options.definitions;
    if (options.setup) {
        const fs::path folder = fs::absolute(*options.setup).parent_path();
        if (holdsDefinitions(folder)) return folder;
    }
    return fs::current_path();
}

int run(const ctl::CtlOptions& options) {
    std::unique_ptr<sim::Line> line;
    std::unique_ptr<SerialPort> device;
    if (options.simulate) {
        std::ifstream in(*options.setup, std::ios::binary);
        if (!in) throw std::invalid_argument("cannot read " + options.setup->string());
        sim::LineSetup setup;
        sim::readSetupData(in, setup);
        line = std::make_unique<sim::Line>();
        setup.build(*line);
        device = std::make_unique<sim::SimPort>(*line);
    } else {
        const char* variable = std::getenv("CORVANE_PORT");
        if (!options.port && !(variable && *variable))
            throw std::invalid_argument("no camera line: give --port DEVICE or --simulate");
        device = std::make_unique<platform::TermiosPort>(options.port ? *options.port : std::string(variable));
    }

    ctl::CtlMessages messages(std::cerr);
    NoDialogs none;
    PresetDialogs dialogs(none);
    DiskWriter writer;
    ctl::ReplyCount replies;  // watches the station's line: outlives it
    Station station({*device, messages, dialogs, writer, definitionFolder(options)});
    station.watchLine(replies);
    remote::CommandSet commands(station, dialogs, {});
    Actions& actions = commands.actions();

    std::unique_ptr<ctl::Clock> clock;
    if (line) clock = std::make_unique<ctl::LineClock>(*line);
    else clock = std::make_unique<ctl::RealClock>();
    ctl::TickLoop ticks(station, *clock);
    ctl::Session session(commands, ticks, replies, messages, std::cout, std::cerr, options.quiet);

    // What the station leaves out or changes without a box is said on the error stream.
    station.notice.shown = [](const std::string& text) { std::cerr << "corvane-ctl: " << text << "\n"; };
    station.Form_Load();
    if (options.setup) {
        const std::string path = fs::absolute(*options.setup).string();
        dialogs.answerNextOpen(path);
        (void)actions.open();  // a failure is told on the error stream; the name tells the outcome
        if (actions.readout().fileName() != path) throw std::invalid_argument("cannot open " + path);
    }
    session.settle();

    for (const std::string& command : options.commands) session.run(command);

    int status = session.finish();
    if (options.save) {
        const std::string path = fs::absolute(*options.save).string();
        // The file named is replaced, never the one a link of that name points to.
        std::error_code ec;
        if (fs::is_symlink(fs::symlink_status(path, ec)))
            throw std::invalid_argument(path + " is a symbolic link: not saved");
        const int before = messages.failures();
        dialogs.answerNextSave(path);
        (void)actions.saveAs();
        if (messages.failures() != before || actions.readout().fileName() != path) {
            std::cerr << "corvane-ctl: " << path << " was not saved\n";
            status = 1;
        } else {
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
        std::cout << (options.help ? ctl::ctlHelp() : ctl::ctlVersion());
        return 0;
    }
    try {
        return run(options);
    } catch (const RuntimeError& e) {
        std::cerr << "corvane-ctl: " << runtimeErrorText(e) << "\n";
    } catch (const std::exception& e) {
        std::cerr << "corvane-ctl: " << e.what() << "\n";
    }
    return 2;
}
