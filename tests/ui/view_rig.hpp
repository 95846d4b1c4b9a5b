#pragma once
// A started station on a fake port with its windows, as the desktop program shows them.
// Messages are recorded, not shown; file dialogs answer what the test says.

#include <QAbstractButton>
#include <QWidget>

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "app/station.hpp"
#include "common/hex.hpp"
#include "tests/support/fake_messages.hpp"
#include "tests/support/fake_port.hpp"
#include "tests/support/queued_commands.hpp"
#include "ui/main/main_window.hpp"
#include "ui/main/station_view.hpp"

namespace station::testing {

class AnsweredDialogs : public FileDialogs {
public:
    std::optional<std::string> openFile(const std::string&) override { return openAnswer; }
    std::optional<std::string> saveFile(const std::string&) override { return saveAnswer; }
    bool confirmReplace(const std::string&) override { return false; }
    std::optional<std::string> openAnswer;
    std::optional<std::string> saveAnswer;
};

struct ViewRig {
    // portMissing: port 1 cannot be opened at start-up, as when its adapter is unplugged.
    explicit ViewRig(bool portMissing = false) {
        port.failOpen = portMissing;
        view = std::make_unique<ui::StationView>(station, modal);
        view->onEnded = [this] { ended = true; };
        station.Form_Load();
        view->refresh();
    }

    // Opens the sample studio through the file menu: cameras 1 and 2 are ST1, with tally.
    void openStudio() {
        dialogs.openAnswer = std::string(STATION_SAMPLES_DIR) + "/studio.csd";
        view->forward([this] { station.OPEN_Click(); });
    }

    template <typename W = QWidget>
    W& widget(QWidget& window, const char* name) {
        W* w = window.findChild<W*>(QString::fromLatin1(name));
        if (w == nullptr) throw std::runtime_error(std::string("no widget ") + name);
        return *w;
    }
    template <typename W = QWidget>
    W& main(const char* name) {
        return widget<W>(view->mainWindow(), name);
    }

    std::vector<std::string> takeQueued() { return takeQueuedCommands(station.link.queue()); }

    FakePort port;
    FakeMessages messages;
    AnsweredDialogs dialogs;
    DiskWriter writer;
    ui::ModalPause modal;
    Station station{{port, messages, dialogs, writer, STATION_SAMPLES_DIR}};
    std::unique_ptr<ui::StationView> view;
    bool ended = false;
};

}  // namespace station::testing
