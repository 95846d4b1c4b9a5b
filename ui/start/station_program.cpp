#include "ui/start/station_program.hpp"

#include <QApplication>
#include <QMessageBox>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

#include "app/station_readout.hpp"
#include "camtype/definition_folder.hpp"
#include "common/runtime_error.hpp"
#include "ui/main/checksum_menu.hpp"
#include "ui/main/main_window.hpp"
#include "ui/platform/qt_serial_port.hpp"
#include "ui/remote/remembered_remote.hpp"
#include "ui/remote/remote_menu.hpp"
#include "ui/start/remembered_port.hpp"

namespace station::ui {

namespace {

int startFailed(const std::string& what) {
    std::cerr << "corvane-station: " << what << "\n";
    QMessageBox::critical(nullptr, QString::fromLatin1(kApplicationTitle), QString::fromStdString(what));
    return 1;
}

// The folder of camera type definitions; a folder remembered under the program's old settings
// file is taken over first.
std::filesystem::path findDefinitions(const ProgramOptions& options, RememberedSettings& remembered,
                                      const std::optional<std::filesystem::path>& samples) {
    remembered.takeOldDefinitionFolder(rememberedSettingFile(std::getenv("XDG_CONFIG_HOME"), std::getenv("HOME")));
    std::error_code ec;
    return definitionFolder(options, remembered.definitionFolder(), std::filesystem::current_path(ec), samples);
}

}  // namespace

StationProgram::StationProgram(ProgramOptions options, WebSettings web)
    : options_(std::move(options)),
      web_(std::move(web)),
      samples_(samplesFolder(QCoreApplication::applicationDirPath().toStdString())),
      remembered_(settings_),
      definitions_(findDefinitions(options_, remembered_, samples_)),
      choice_(startPort(options_, std::getenv("CORVANE_PORT"), rememberedPort())),
      screen_(modal_),
      messages_(screen_),
      qtDialogs_(modal_),
      dialogs_(qtDialogs_),
      studio_(samples_ ? *samples_ / "studio.csd" : std::filesystem::path()) {
    switchPort(choice_);
    if (choice_.simulated)
        std::cerr << "corvane-station: built-in simulated camera line with the cameras of " << studio_.string() << "\n";
    else
        std::cerr << "corvane-station: serial port 1 is " << choice_.device << "\n";
}

int StationProgram::run() {
    if (const auto ended = start()) return *ended;
    const int status = QApplication::exec();
    port_.close();  // released now, its lock file with it, whatever ended the program
    return status;
}

std::optional<int> StationProgram::start() {
    station_.emplace(StationPlatform{port_, messages_, dialogs_, writer_, definitions_});
    if (options_.logFile) {
        logFile_.open(*options_.logFile, std::ios::app);
        if (!logFile_) return startFailed("cannot open the log file " + options_.logFile->string());
    }
    hookLine();
    showStation();
    try {
        station_->Form_Load();
    } catch (const RuntimeError& e) {
        return startFailed(runtimeErrorText(e));
    }
    std::cerr << "corvane-station: " << StationReadout(*station_).typeCount() << " camera types from " << definitions_.string()
              << "\n";
    restoreSession();
    if (station_->ended()) return 0;
    serveRemote();
    installMenus();
    return std::nullopt;
}

void StationProgram::showStation() {
    view_.emplace(*station_, modal_, [this] { beforePoll(); }, [this] { return lineBusy(); });
    pollWaking_.emplace(wakePoll_, [this] { view_->timers().wake(); });
    view_->onEnded = [] { QCoreApplication::quit(); };
    // Ended from outside: the same shutdown as "&Quit", so that the port and its lock go.
    endSignals_.emplace([this] { view_->forward([this] { station_->QUIT_Click(); }); });
}

void StationProgram::restoreSession() {
    if (line_ && choice_.simulated && StationReadout(*station_).connected()) openStudio(*station_, dialogs_, studio_);
    // Only now, so that the sample studio does not join the recent files.
    session_.emplace(remembered_, *view_, *station_, dialogs_, writer_);
    // The session comes back: the setup file last opened or saved, through OPEN as the
    // operator would open it (a file that is gone is told and taken off the list).
    if (const auto last = remembered_.lastFile(); last && !options_.noRestore)
        if (!openNamedFile(*station_, dialogs_, *last)) remembered_.forgetFile(*last);
    view_->refresh();
}

void StationProgram::serveRemote() {
    // Without remote-control options (and unless told to start clean) the station comes up
    // as the operator last left it; options hold for this run only and are never kept.
    std::string checkedBefore;  // the options' errors were told before the start
    const RemoteSettings remoteSettings = startRemote(options_, settings_, checkedBefore);
    // The browser panel likewise: --web holds for this run, the menu's choice is remembered.
    const WebSettings web =
        !options_.remote.web && !options_.noRestore ? rememberedWeb(settings_, web_) : web_;
    remote_.emplace(*station_, dialogs_, remoteSettings, [this] { view_->refresh(); },
                    RemoteScreen{[this] { return modal_.text(); }, [this] { return modal_.closeTop(); }, &messages_});
    redrawTelling_.emplace(view_->onRedrawn, [this] { remote_->changed(); });
    if (remoteSettings.enabled && !remote_->setEnabled(true))
        std::cerr << "corvane-station: remote control could not start: " << remote_->error().toStdString() << "\n";
    remote_->setWebSettings(web);
    if (web.enabled && !remote_->setWebEnabled(true))
        std::cerr << "corvane-station: the browser panel could not start: " << remote_->webError().toStdString()
                  << "\n";
    else if (remote_->webEnabled())
        std::cerr << "corvane-station: " << remote_->webStatus().toStdString() << "\n";
}

void StationProgram::installMenus() {
    installRemoteMenu(
        view_->mainWindow(), *remote_, [this](bool on) { rememberRemoteOn(settings_, on); },
        [this](const RemoteSettings& kept) { rememberRemote(settings_, kept, kept.enabled); },
        [this](bool on) { rememberWeb(settings_, remote_->webSettings(), on); });
    installChecksumMenu(view_->mainWindow(), *station_, settings_, options_.exactChecksum);
}

void StationProgram::hookLine() {
    Station& station = *station_;
    station.assembleLine(choice_, [this](const PortChoice& choice) { switchPort(choice); }, rememberPort);
    if (logFile_.is_open())
        station.copyLineLogTo([this](const std::string& entry) { logFile_ << entry << std::endl; });
}

void StationProgram::switchPort(const PortChoice& choice) {
    if (!choice.simulated) {
        auto device = std::make_unique<QtSerialPort>(choice.device);
        device->onActivity = [this] {
            if (wakePoll_) wakePoll_();
        };
        return port_.use(std::move(device));
    }
    if (!line_ && samples_) {
        try {
            line_ = std::make_unique<BuiltinLine>(studio_);
        } catch (const std::exception& e) {
            std::cerr << "corvane-station: " << e.what() << "\n";
        }
    }
    if (line_) port_.use(line_->port());
    else port_.use(std::unique_ptr<SerialPort>());
}

bool StationProgram::onBuiltinLine() const { return line_ && StationReadout(*station_).portChoice().simulated; }

void StationProgram::beforePoll() {
    if (onBuiltinLine()) line_->advance();
    if (remote_) remote_->beforePoll();
}

bool StationProgram::lineBusy() {
    if (onBuiltinLine())
        return line_->line().nextActivity().has_value() || line_->line().waitingForStation() > 0;
    return port_.isOpen() && port_.bytesWaiting() > 0;
}

}  // namespace station::ui
