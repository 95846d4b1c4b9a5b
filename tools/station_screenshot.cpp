// station-screenshot: the main window as an operator first sees it, saved as a PNG for the
// README. It starts the station on its built-in camera line with the sample studio opened,
// reads camera 1's page, lets the line run for a moment, and saves the window. Not installed; see
// scripts/screenshot.sh.
#include <QApplication>
#include <QTimer>

#include <iostream>

#include "app/preset_dialogs.hpp"
#include "app/station.hpp"
#include "setupfile/file_writer.hpp"
#include "ui/start/builtin_line.hpp"
#include "ui/windows/function_window.hpp"
#include "ui/windows/line_log_window.hpp"
#include "ui/main/main_window.hpp"
#include "ui/platform/modal_pause.hpp"
#include "ui/start/program_options.hpp"
#include "ui/main/station_view.hpp"

namespace {

using namespace station;

// Any message during the run is printed, not shown, so that nothing waits for a click.
class PrintedMessages : public MessageSink {
public:
    void show(const std::string& text, Icon) override { std::cerr << "station-screenshot: message: " << text << "\n"; }
};

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    // The main window, or with a second argument the "Function" window or the line log; a
    // third gives the window's outer size in screen pixels (a small screen, say "1280x690").
    const std::string which = argc >= 3 ? argv[2] : "main";
    const QStringList size = argc == 4 ? QString::fromLatin1(argv[3]).split(QLatin1Char('x')) : QStringList();
    if (argc < 2 || argc > 4 || (which != "main" && which != "function" && which != "line-log") ||
        (argc == 4 && size.size() != 2)) {
        std::cerr << "usage: station-screenshot OUTPUT.png [main|function|line-log] [WIDTHxHEIGHT]\n";
        return 2;
    }
    const auto samples = ui::samplesFolder(QCoreApplication::applicationDirPath().toStdString());
    if (!samples) {
        std::cerr << "station-screenshot: the sample studio was not found\n";
        return 1;
    }
    ui::BuiltinLine line(*samples / "studio.csd");
    PrintedMessages messages;
    NoDialogs plain;
    PresetDialogs dialogs(plain);
    DiskWriter writer;
    ui::ModalPause modal;
    Station station({line.port(), messages, dialogs, writer, *samples});
    station.assembleLine(PortChoice{{}, true}, {}, {});  // the built-in line, as the status bar names it
    ui::StationView view(station, modal, [&line] { line.advance(); });
    station.Form_Load();
    ui::openStudio(station, dialogs, *samples / "studio.csd");
    view.refresh();
    // A page read, so that the line shows the camera talking.
    const StationForms forms = station.forms();
    view.forward([&forms] { forms.main.Command12.click(); });
    if (which == "function") view.forward([&forms] { forms.main.Command5.click(); });
    if (which == "line-log") view.forward([&forms] { forms.lineLog.Show(); });

    if (size.size() == 2) {
        const qreal scale = view.mainWindow().devicePixelRatioF();
        view.mainWindow().resize(qRound(size[0].toInt() / scale), qRound(size[1].toInt() / scale));
    }
    int result = 0;
    QTimer::singleShot(1500, [&] {
        QWidget& window = which == "function" ? static_cast<QWidget&>(view.functionWindow())
                          : which == "line-log" ? static_cast<QWidget&>(view.lineLogWindow())
                                                : static_cast<QWidget&>(view.mainWindow());
        if (!window.grab().save(QString::fromLocal8Bit(argv[1]))) {
            std::cerr << "station-screenshot: cannot write " << argv[1] << "\n";
            result = 1;
        }
        QCoreApplication::quit();
    });
    app.exec();
    return result;
}
