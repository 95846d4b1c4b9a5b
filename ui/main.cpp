// corvane-station: the camera control station's desktop program. See programHelp().
#include <QApplication>
#include <QMessageBox>
#include <QSettings>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "app/station.hpp"
#include "camtype/definition_folder.hpp"
#include "common/runtime_error.hpp"
#include "setupfile/file_writer.hpp"
#include "ui/builtin_line.hpp"
#include "ui/main_window.hpp"
#include "ui/modal_pause.hpp"
#include "ui/program_options.hpp"
#include "ui/qt_file_dialogs.hpp"
#include "ui/qt_messages.hpp"
#include "ui/qt_serial_port.hpp"
#include "ui/remembered_session.hpp"
#include "ui/remote_control.hpp"
#include "ui/remote_menu.hpp"
#include "ui/station_view.hpp"

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
    std::vector<std::string> args = withoutQtOptions(std::vector<std::string>(argv + 1, argv + argc));
    std::string remoteError;
    const RemoteSettings remoteSettings = takeRemoteOptions(args, remoteError);
    const ProgramOptions options = parseProgramOptions(args);
    if (options.help || options.version) {
        std::cout << (options.help ? programHelp() + remoteHelp() : programVersion());
        return 0;
    }
    if (!options.error.empty() || !remoteError.empty()) {
        std::cerr << "corvane-station: " << (remoteError.empty() ? options.error : remoteError) << "\n\n"
                  << programHelp() << remoteHelp();
        return 2;
    }
    QApplication app(argc, argv);  // takes its own options (-platform, -style) out of argv
    QApplication::setApplicationName(QStringLiteral("corvane-station"));
    QApplication::setOrganizationName(QStringLiteral("corvane-station"));
    QApplication::setApplicationVersion(QStringLiteral(STATION_VERSION));
    QApplication::setStyle(QStringLiteral("Fusion"));


    const std::filesystem::path programFolder = QCoreApplication::applicationDirPath().toStdString();
    const auto samples = samplesFolder(programFolder);
    QSettings settings;
    RememberedSettings remembered(settings);
    remembered.takeOldDefinitionFolder(rememberedSettingFile(std::getenv("XDG_CONFIG_HOME"), std::getenv("HOME")));
    std::error_code ec;
    const std::filesystem::path definitions =
        definitionFolder(options, remembered.definitionFolder(), std::filesystem::current_path(ec), samples);
    const auto device = portDevice(options, std::getenv("CORVANE_PORT"));

    ModalPause modal;
    QtMessages messages(modal);
    QtFileDialogs qtDialogs(modal);
    PresetOpenDialogs dialogs(qtDialogs);
    remote::PresetDialogs remoteDialogs(dialogs);  // remote file commands name their file here
    DiskWriter writer;

    std::unique_ptr<QtSerialPort> serial;
    std::unique_ptr<BuiltinLine> line;
    std::filesystem::path studio;
    if (device) {
        serial = std::make_unique<QtSerialPort>(*device);
        std::cerr << "corvane-station: serial port 1 is " << *device << "\n";
    } else {
        if (!samples) return startFailed("the sample studio for the built-in camera line was not found");
        studio = *samples / "studio.csd";
        try {
            line = std::make_unique<BuiltinLine>(studio);
        } catch (const std::exception& e) {
            return startFailed(e.what());
        }
        std::cerr << "corvane-station: built-in simulated camera line with the cameras of " << studio.string()
                  << "\n";
    }

    SerialPort& port = serial ? static_cast<SerialPort&>(*serial) : line->port();
    Station station({port, messages, remoteDialogs, writer, definitions});
    std::function<void()> beforePoll;
    if (line) beforePoll = [&line] { line->advance(); };
    StationView view(station, modal, beforePoll);
    view.onEnded = [] { QCoreApplication::quit(); };

    try {
        station.Form_Load();
    } catch (const RuntimeError& e) {
        return startFailed("Run-time error " + std::to_string(e.number()) + ": " + e.what());
    } catch (const std::exception& e) {
        return startFailed("The serial port could not be opened: " + std::string(e.what()));
    }
    std::cerr << "corvane-station: " << station.types.TypeFile(0) << " camera types from " << definitions.string()
              << "\n";
    if (line) openStudio(station, dialogs, studio);
    // Only now, so that the sample studio does not join the recent files.
    const RememberedSession session(remembered, view, station, dialogs, writer);
    view.refresh();
    if (station.ended()) return 0;

    RemoteControl remote(station, remoteDialogs, remoteSettings, [&view] { view.refresh(); },
                         [&modal] { return modal.depth > 0; });
    if (remoteSettings.enabled && !remote.setEnabled(true))
        std::cerr << "corvane-station: remote control could not start: " << remote.error().toStdString() << "\n";
    installRemoteMenu(view.mainWindow(), remote);
    return app.exec();
}
