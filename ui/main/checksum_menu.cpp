#include "ui/main/checksum_menu.hpp"

#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QStatusBar>

#include "app/station.hpp"
#include "app/station_readout.hpp"

namespace station::ui {

namespace {

const QString kKey = QStringLiteral("line/exactChecksum");

QMenu* setupMenu(QMenuBar& bar) {
    for (QAction* action : bar.actions())
        if (action->menu() && action->text().remove(QLatin1Char('&')) == QStringLiteral("Setup")) return action->menu();
    return bar.addMenu(QStringLiteral("&Setup"));
}

}  // namespace

void installChecksumMenu(QMainWindow& window, Station& station, QSettings& store, bool forRun) {
    station.readChecksumsExactly(forRun || store.value(kKey, false).toBool());
    QMenu* menu = setupMenu(*window.menuBar());
    auto* entry = menu->addAction(QStringLiteral("Read every checksum exactly"));
    entry->setObjectName(QStringLiteral("exactChecksum"));
    entry->setCheckable(true);
    entry->setChecked(StationReadout(station).checksumsReadExactly());
    entry->setStatusTip(QStringLiteral("Accept every camera reply whose checksum matches, also those the "
                                       "station's own reading turns down"));
    auto* note = new QLabel(QStringLiteral("Exact checksums"), &window);
    note->setObjectName(QStringLiteral("exactChecksumStatus"));
    window.statusBar()->addPermanentWidget(note);
    note->setVisible(StationReadout(station).checksumsReadExactly());
    QObject::connect(entry, &QAction::toggled, &window, [&station, &store, note](bool on) {
        station.readChecksumsExactly(on);
        store.setValue(kKey, on);
        note->setVisible(on);
    });
}

}  // namespace station::ui
