#pragma once
// The station rig with the desktop program's windows on it, started as the program starts.
// Qt's timers drive the station in real time; messages are recorded, not shown.

#include <QAbstractButton>
#include <QWidget>

#include <memory>
#include <stdexcept>
#include <string>

#include "tests/support/station_rig.hpp"
#include "ui/main/main_window.hpp"
#include "ui/main/station_view.hpp"

namespace station::testing {

struct ViewRig : StationRig {
    // portMissing: port 1 cannot be opened at start-up, as when its adapter is unplugged.
    explicit ViewRig(bool portMissing = false) : StationRig(false) {
        port.failOpen = portMissing;
        view = std::make_unique<ui::StationView>(station, modal);
        view->onEnded = [this] { ended = true; };
        station.Form_Load();
        view->refresh();
    }

    // The sample studio through the file menu: cameras 1 and 2 are ST1, with tally.
    void openStudio() {
        open(kStudio);
        view->refresh();
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

    ui::ModalPause modal;
    std::unique_ptr<ui::StationView> view;
    bool ended = false;
};

}  // namespace station::testing
