#include "ui/remote/remote_menu.hpp"

#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>

#include "ui/remote/remote_control.hpp"
#include "ui/remote/remote_window.hpp"

namespace station::ui {

namespace {

QMenu* setupMenu(QMenuBar& bar) {
    for (QAction* action : bar.actions())
        if (action->menu() && action->text().remove(QLatin1Char('&')) == QStringLiteral("Setup")) return action->menu();
    return bar.addMenu(QStringLiteral("&Setup"));
}

// A service of remote control that the Setup menu switches on and off, as its entry and its
// status-bar note show it.
struct Service {
    const char* title;  // the entry's text, and the title of the box when it could not start
    const char* entryName;
    const char* noteName;
    bool (RemoteControl::*isOn)() const;
    QString (RemoteControl::*status)() const;
    bool (RemoteControl::*turn)(bool on);  // false when it could not start
    QString (RemoteControl::*error)() const;
    bool copyableNote;  // the note's text can be selected (an address, to copy to a tablet)
};

constexpr Service kRemoteControl{"Remote control", "remoteControl", "remoteStatus", &RemoteControl::enabled,
                                 &RemoteControl::status, &RemoteControl::setEnabled, &RemoteControl::error, false};
constexpr Service kBrowserPanel{"Browser panel", "browserPanel", "webStatus", &RemoteControl::webEnabled,
                                &RemoteControl::webStatus, &RemoteControl::setWebEnabled, &RemoteControl::webError, true};

void warnNotStarted(QMainWindow& window, const Service& service, const QString& why) {
    const QString title = QString::fromLatin1(service.title);
    QMessageBox::warning(&window, title, title + QStringLiteral(" could not start: ") + why);
}

// Adds the service's checkable entry to `menu` and its note to the status bar. Returns what
// shows the service as it is now: the entry checked while it is on, the note saying its
// status (hidden while that says nothing).
std::function<void()> addSwitch(QMainWindow& window, QMenu& menu, RemoteControl& remote, const Service& service,
                                 std::function<void(bool on)> switched) {
    auto* entry = menu.addAction(QString::fromLatin1(service.title));
    entry->setObjectName(QString::fromLatin1(service.entryName));
    entry->setCheckable(true);
    auto* note = new QLabel(&window);
    note->setObjectName(QString::fromLatin1(service.noteName));
    if (service.copyableNote) note->setTextInteractionFlags(Qt::TextSelectableByMouse);
    window.statusBar()->addPermanentWidget(note);
    auto show = [entry, note, &remote, &service] {
        entry->setChecked((remote.*service.isOn)());
        const QString status = (remote.*service.status)();
        note->setText(status);
        note->setVisible(!status.isEmpty());
    };
    QObject::connect(entry, &QAction::triggered, &window, [&window, &remote, &service, show, switched](bool on) {
        if (switched) switched(on);
        if (!(remote.*service.turn)(on)) warnNotStarted(window, service, (remote.*service.error)());
        show();
    });
    show();
    return show;
}

}  // namespace

void installRemoteMenu(QMainWindow& window, RemoteControl& remote, std::function<void(bool on)> switched,
                       std::function<void(const RemoteSettings&)> kept, std::function<void(bool on)> webSwitched) {
    QMenu* menu = setupMenu(*window.menuBar());
    menu->addSeparator();
    const auto show = addSwitch(window, *menu, remote, kRemoteControl, std::move(switched));
    auto* settings = menu->addAction(QStringLiteral("Remote control settings..."));
    settings->setObjectName(QStringLiteral("remoteSettings"));
    QObject::connect(settings, &QAction::triggered, &window, [&window, &remote, show, kept] {
        RemoteWindow dialog(remote.settings(), &window);
        if (dialog.exec() != QDialog::Accepted) return;
        const RemoteSettings chosen = dialog.settings();
        if (kept) kept(chosen);
        if (!remote.apply(chosen)) warnNotStarted(window, kRemoteControl, remote.error());
        show();
    });
    addSwitch(window, *menu, remote, kBrowserPanel, std::move(webSwitched));
}

}  // namespace station::ui
