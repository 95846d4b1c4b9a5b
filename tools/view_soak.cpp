// view-soak: works the main window on the built-in camera line as an operator would, by
// clicking its own widgets (cameras, scenes, a level bar, auto white, page read), and
// prints the program's resident memory every 500 actions. Run by scripts/soak-view.sh.
#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

#include "app/preset_dialogs.hpp"
#include "app/station.hpp"
#include "app/station_readout.hpp"
#include "setupfile/file_writer.hpp"
#include "ui/start/builtin_line.hpp"
#include "ui/main/main_window.hpp"
#include "ui/platform/modal_pause.hpp"
#include "ui/main/station_view.hpp"

namespace {

using namespace station;

// Messages are counted, not shown: a modal box would stop the soak.
struct CountedMessages : MessageSink {
    void show(const std::string& text, Icon) override {
        if (++count <= 3) std::cerr << "view-soak: message: " << text << "\n";
    }
    int count = 0;
};

long residentKb() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmRSS:", 0) == 0) return std::strtol(line.c_str() + 6, nullptr, 10);
    return -1;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    const int actions = argc > 1 ? std::atoi(argv[1]) : 5000;

    ui::BuiltinLine line(std::string(STATION_SAMPLES_DIR) + "/studio.csd");
    CountedMessages messages;
    NoDialogs noDialogs;
    PresetDialogs dialogs(noDialogs);
    DiskWriter writer;
    ui::ModalPause modal;
    Station station({line.port(), messages, dialogs, writer, STATION_SAMPLES_DIR});
    ui::StationView view(station, modal, [&line] { line.advance(); });
    station.Form_Load();
    ui::openStudio(station, dialogs, std::string(STATION_SAMPLES_DIR) + "/studio.csd");
    view.refresh();
    const StationReadout readout(station);

    QWidget& window = view.mainWindow();
    auto button = [&window](const QString& name) {
        auto* b = window.findChild<QAbstractButton*>(name);
        if (b == nullptr) throw std::runtime_error("no button " + name.toStdString());
        return b;
    };
    auto* level = window.findChild<QScrollBar*>(QStringLiteral("VrIris.bar"));
    // An action is over when nothing waits on the line and no automatic set-up runs.
    auto settle = [&] {
        QElapsedTimer clock;
        clock.start();
        do {
            QApplication::processEvents(QEventLoop::AllEvents, 5);
        } while ((readout.queued() > 0 || readout.awaitingAcknowledge() || readout.awaitingAnswer() ||
                  readout.autoShown()) &&
                 clock.elapsed() < 8000);
    };

    for (int n = 1; n <= actions && !readout.ended(); ++n) {
        const int step = n % 20;
        if (n % 250 == 0) {
            button(QStringLiteral("Command12"))->click();  // page read
        } else if (n % 250 == 125) {
            button(QStringLiteral("Command8"))->click();  // auto white
        } else if (step < 8) {
            button(QStringLiteral("Option9(%1)").arg(1 + n % 6))->click();
        } else if (step < 14) {
            button(QStringLiteral("Option7(%1)").arg(1 + n % 4))->click();
        } else {
            level->triggerAction(n % 2 ? QAbstractSlider::SliderSingleStepAdd : QAbstractSlider::SliderSingleStepSub);
        }
        settle();
        if (n % 500 == 0) std::cout << n << " actions: " << residentKb() << " kB resident" << std::endl;
    }
    std::cout << "messages shown: " << messages.count << "\n";
    return 0;
}
