#include "ui/main/port_menu.hpp"

#include <QAction>
#include <QActionGroup>
#include <QInputDialog>
#include <QMenu>
#include <QSerialPortInfo>

#include "app/station_readout.hpp"

namespace station::ui {

PortMenu::PortMenu(Station& station, Forward forward, QMenu& setup)
    : station_(station), forward_(std::move(forward)), menu_(setup.addMenu(QStringLiteral("Port"))),
      choices_(new QActionGroup(menu_)) {
    menu_->setObjectName(QStringLiteral("portMenu"));
    QObject::connect(menu_, &QMenu::aboutToShow, [this] { refresh(); });
    refresh();
}

void PortMenu::addChoice(const QString& text, const PortChoice& choice) {
    auto* action = menu_->addAction(text);
    action->setCheckable(true);
    choices_->addAction(action);
    action->setChecked(choice == StationReadout(station_).portChoice());
    QObject::connect(action, &QAction::triggered, [s = &station_, f = forward_, choice] {
        f([s, choice] { s->choosePort(choice); });
    });
}

void PortMenu::refresh() {
    menu_->clear();
    bool listed = StationReadout(station_).portChoice().simulated;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        const PortChoice choice{info.systemLocation().toStdString(), false};
        const QString description = info.description().isEmpty() ? QString() : QStringLiteral("  ") + info.description();
        addChoice(info.systemLocation() + description, choice);
        listed = listed || choice == StationReadout(station_).portChoice();
    }
    // A typed device (a pseudo-terminal, say) stays in the list while it is in use.
    if (!listed && !StationReadout(station_).portChoice().device.empty())
        addChoice(qs(StationReadout(station_).portChoice().device), StationReadout(station_).portChoice());
    menu_->addSeparator();
    addChoice(QStringLiteral("Built-in simulated line"), PortChoice{{}, true});
    auto* other = menu_->addAction(QStringLiteral("Other device..."));
    QObject::connect(other, &QAction::triggered, [this] { askForDevice(); });
}

void PortMenu::askForDevice() {
    bool ok = false;
    const QString path = QInputDialog::getText(menu_->parentWidget(), QStringLiteral("Port"),
                                               QStringLiteral("Serial device (e.g. /dev/ttyUSB0 or /dev/pts/3):"),
                                               QLineEdit::Normal, qs(StationReadout(station_).portChoice().device), &ok)
                             .trimmed();
    if (!ok || path.isEmpty()) return;
    const PortChoice choice{fromQt(path), false};
    forward_([s = &station_, choice] { s->choosePort(choice); });
}

}  // namespace station::ui
