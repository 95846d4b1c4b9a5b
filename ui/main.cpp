// corvane-station: the camera control station's desktop program. See programHelp().
#include <QApplication>

#include <iostream>
#include <string>
#include <vector>

#include "common/version.hpp"
#include "ui/remote/remote_control.hpp"
#include "ui/start/program_options.hpp"
#include "ui/start/station_program.hpp"

namespace {

using namespace station::ui;

// What is wrong with the command line, or nothing; `web` is the browser panel it asks for.
std::string optionError(const ProgramOptions& options, WebSettings& web) {
    std::string remoteError;
    remoteSettings(options.remote, remoteError);  // checked here; the start reads them again
    web = webSettings(options.remote, remoteError);
    return options.error.empty() ? remoteError : options.error;
}

// The program's name (its settings are kept under it), version and style.
void nameApplication() {
    QApplication::setApplicationName(QStringLiteral("corvane-station"));
    QApplication::setOrganizationName(QStringLiteral("corvane-station"));
    QApplication::setApplicationVersion(
        QString::fromUtf8(station::kStationVersion.data(), static_cast<qsizetype>(station::kStationVersion.size())));
    QApplication::setStyle(QStringLiteral("Fusion"));
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
    WebSettings web;
    if (const std::string error = optionError(options, web); !error.empty()) {
        std::cerr << "corvane-station: " << error << "\n\n" << programHelp();
        return 2;
    }
    QApplication app(argc, argv);  // takes its own options (-platform, -style) out of argv
    nameApplication();
    StationProgram program(options, web);
    return program.run();
}
