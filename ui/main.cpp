// corvane-station: the camera control station's desktop program. See programHelp().
#include <QApplication>
#include <QMessageBox>
#include <QSettings>

#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "app/station.hpp"
#include "app/station_readout.hpp"
#include "camtype/definition_folder.hpp"
#include "common/runtime_error.hpp"
#include "common/version.hpp"
#include "line/chosen_port.hpp"
#include "setupfile/file_writer.hpp"
#include "ui/start/builtin_line.hpp"
#include "ui/main/main_window.hpp"
#include "ui/platform/end_signals.hpp"
#include "ui/platform/modal_pause.hpp"
#include "ui/start/program_options.hpp"
#include "ui/platform/qt_file_dialogs.hpp"
#include "ui/platform/qt_messages.hpp"
#include "ui/platform/qt_serial_port.hpp"
#include "ui/start/remembered_session.hpp"
#include "ui/remote/remote_control.hpp"
#include "ui/remote/remote_menu.hpp"
#include "ui/main/checksum_menu.hpp"
#include "ui/remote/remembered_remote.hpp"
#include "ui/start/remembered_port.hpp"
#include "ui/main/station_view.hpp"

namespace {

using namespace station;
using namespace station::ui;

int startFailed(const std::string& what) {
    std::cerr << "corvane-station: " << what << "\n";
    QMessageBox::critical(nullptr, QString::fromLatin1(kApplicationTitle), QString::fromStdString(what));
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    // The options are read before the windowing system is opened, so that help, the version and
    // a wrong option are answered without a display.
    const ProgramOptions options = parseProgramOptions(withoutQtOptions(std::vector<std::string>(argv + 1, argv + argc)));
    if (options.help || options.version) {
        std::cout << (options.help ? programHelp() : programVersion());
        return 0;
    }
    std::string remoteError;
    RemoteSettings remoteSettings = station::ui::remoteSettings(options.remote, remoteError);
    WebSettings web = webSettings(options.remote, remoteError);
    if (!options.error.empty() || !remoteError.empty()) {
        std::cerr << "corvane-station: " << (options.error.empty() ? remoteError : options.error) << "\n\n"
                  << programHelp();
        return 2;
    }
    QApplication app(argc, argv);  // takes its own options (-platform, -style) out of argv
    QApplication::setApplicationName(QStringLiteral("corvane-station"));
    QApplication::setOrganizationName(QStringLiteral("corvane-station"));
    QApplication::setApplicationVersion(QString::fromUtf8(kStationVersion.data(), static_cast<qsizetype>(kStationVersion.size())));
    QApplication::setStyle(QStringLiteral("Fusion"));

    const std::filesystem::path programFolder = QCoreApplication::applicationDirPath().toStdString();
    const auto samples = samplesFolder(programFolder);
    QSettings settings;
    RememberedSettings remembered(settings);
    remembered.takeOldDefinitionFolder(rememberedSettingFile(std::getenv("XDG_CONFIG_HOME"), std::getenv("HOME")));
    std::error_code ec;
    const std::filesystem::path definitions =
        definitionFolder(options, remembered.definitionFolder(), std::filesystem::current_path(ec), samples);
    const PortChoice choice = startPort(options, std::getenv("CORVANE_PORT"), rememberedPort());

    ModalPause modal;
    QtMessages screen(modal);
    remote::HeldMessages messages(screen);  // a remote command's failure is its client's, not a box
    QtFileDialogs qtDialogs(modal);
    // Start-up (the sample studio, the last file) and remote file commands name their file here.
    PresetDialogs dialogs(qtDialogs);
    DiskWriter writer;

    // Port 1 is whatever the operator chooses: a serial device, or the built-in line of
    // the sample studio's cameras (made when first chosen).
    ChosenPort port;
    std::unique_ptr<BuiltinLine> line;
    std::function<void()> wakePoll;  // a byte came in: the sleeping poll wakes on its grid
    const std::filesystem::path studio = samples ? *samples / "studio.csd" : std::filesystem::path();
    const auto switchPort = [&](const PortChoice& c) {
        if (!c.simulated) {
            auto device = std::make_unique<QtSerialPort>(c.device);
            device->onActivity = [&wakePoll] {
                if (wakePoll) wakePoll();
            };
            return port.use(std::move(device));
        }
        if (!line && samples) {
            try {
                line = std::make_unique<BuiltinLine>(studio);
            } catch (const std::exception& e) {
                std::cerr << "corvane-station: " << e.what() << "\n";
            }
        }
        if (line) port.use(line->port());
        else port.use(std::unique_ptr<SerialPort>());
    };
    switchPort(choice);
    if (choice.simulated)
        std::cerr << "corvane-station: built-in simulated camera line with the cameras of " << studio.string() << "\n";
    else
        std::cerr << "corvane-station: serial port 1 is " << choice.device << "\n";

    Station station({port, messages, dialogs, writer, definitions});
    station.assembleLine(choice, switchPort, rememberPort);
    std::ofstream logFile;
    if (options.logFile) {
        logFile.open(*options.logFile, std::ios::app);
        if (!logFile) return startFailed("cannot open the log file " + options.logFile->string());
        station.copyLineLogTo([&logFile](const std::string& entry) { logFile << entry << std::endl; });
    }
    std::function<void()> remoteBeforePoll;  // set once remote control exists
    const std::function<void()> beforePoll = [&line, &station, &remoteBeforePoll] {
        if (line && StationReadout(station).portChoice().simulated) line->advance();
        if (remoteBeforePoll) remoteBeforePoll();
    };
    // Bytes waiting at the port, or, on the built-in line, anything its cameras still do.
    const std::function<bool()> lineBusy = [&line, &station, &port] {
        if (line && StationReadout(station).portChoice().simulated)
            return line->line().nextActivity().has_value() || line->line().waitingForStation() > 0;
        return port.isOpen() && port.bytesWaiting() > 0;
    };
    StationView view(station, modal, beforePoll, lineBusy);
    wakePoll = [&view] { view.timers().wake(); };
    // Once the view is gone nothing may wake it (a port tells of its closing, too).
    struct Unwake {
        std::function<void()>& wake;
        ~Unwake() { wake = nullptr; }
    } const unwake{wakePoll};
    view.onEnded = [] { QCoreApplication::quit(); };
    // Ended from outside: the same shutdown as "&Quit", so that the port and its lock go.
    const EndSignals endSignals([&view, &station] { view.forward([&station] { station.QUIT_Click(); }); });

    try {
        station.Form_Load();
    } catch (const RuntimeError& e) {
        return startFailed(runtimeErrorText(e));
    }
    std::cerr << "corvane-station: " << StationReadout(station).typeCount() << " camera types from " << definitions.string()
              << "\n";
    if (line && choice.simulated && StationReadout(station).connected()) openStudio(station, dialogs, studio);
    // Only now, so that the sample studio does not join the recent files.
    const RememberedSession session(remembered, view, station, dialogs, writer);
    // The session comes back: the setup file last opened or saved, through OPEN as the
    // operator would open it (a file that is gone is told and taken off the list).
    if (const auto last = remembered.lastFile(); last && !options.noRestore)
        if (!openNamedFile(station, dialogs, *last)) remembered.forgetFile(*last);
    view.refresh();
    if (station.ended()) return 0;

    // Without remote-control options (and unless told to start clean) the station comes up
    // as the operator last left it; options hold for this run only and are never kept.
    remoteSettings = startRemote(options, settings, remoteError);
    // The browser panel likewise: --web holds for this run, the menu's choice is remembered.
    if (!options.remote.web && !options.noRestore) web = rememberedWeb(settings, web);
    RemoteControl remote(station, dialogs, remoteSettings, [&view] { view.refresh(); },
                         {[&modal] { return modal.text(); }, [&modal] { return modal.closeTop(); }, &messages});
    view.onRedrawn = [&remote] { remote.changed(); };
    if (remoteSettings.enabled && !remote.setEnabled(true))
        std::cerr << "corvane-station: remote control could not start: " << remote.error().toStdString() << "\n";
    remote.setWebSettings(web);
    if (web.enabled && !remote.setWebEnabled(true))
        std::cerr << "corvane-station: the browser panel could not start: " << remote.webError().toStdString() << "\n";
    else if (remote.webEnabled())
        std::cerr << "corvane-station: " << remote.webStatus().toStdString() << "\n";
    remoteBeforePoll = [&remote] { remote.beforePoll(); };
    installRemoteMenu(
        view.mainWindow(), remote, [&settings](bool on) { rememberRemoteOn(settings, on); },
        [&settings](const RemoteSettings& kept) { rememberRemote(settings, kept, kept.enabled); },
        [&settings, &remote](bool on) { rememberWeb(settings, remote.webSettings(), on); });
    installChecksumMenu(view.mainWindow(), station, settings, options.exactChecksum);
    // The view goes before the remote control: it no longer tells it of redraws.
    struct Untell {
        std::function<void()>& tell;
        ~Untell() { tell = nullptr; }
    } const untell{view.onRedrawn};
    const int status = app.exec();
    port.close();  // released now, its lock file with it, whatever ended the program
    return status;
}
