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

void installWebEntry(QMainWindow& window, QMenu& menu, RemoteControl& remote, std::function<void(bool on)> switched) {
    auto* entry = menu.addAction(QStringLiteral("Browser panel"));
    entry->setObjectName(QStringLiteral("browserPanel"));
    entry->setCheckable(true);
    auto* note = new QLabel(&window);
    note->setObjectName(QStringLiteral("webStatus"));
    note->setTextInteractionFlags(Qt::TextSelectableByMouse);  // the address, to copy to a tablet
    window.statusBar()->addPermanentWidget(note);
    auto show = [entry, note, &remote] {
        entry->setChecked(remote.webEnabled());
        note->setText(remote.webStatus());
        note->setVisible(!remote.webStatus().isEmpty());
    };
    QObject::connect(entry, &QAction::triggered, &window, [&window, &remote, show, switched](bool on) {
        if (switched) switched(on);
        if (!remote.setWebEnabled(on))
            QMessageBox::warning(&window, QStringLiteral("Browser panel"),
                                 QStringLiteral("Browser panel could not start: ") + remote.webError());
        show();
    });
    show();
}

}  // namespace

void installRemoteMenu(QMainWindow& window, RemoteControl& remote, std::function<void(bool on)> switched,
                       std::function<void(const RemoteSettings&)> kept, std::function<void(bool on)> webSwitched) {
    QMenu* menu = setupMenu(*window.menuBar());
    menu->addSeparator();
    auto* entry = menu->addAction(QStringLiteral("Remote control"));
    entry->setObjectName(QStringLiteral("remoteControl"));
    entry->setCheckable(true);
    auto* note = new QLabel(&window);
    note->setObjectName(QStringLiteral("remoteStatus"));
    window.statusBar()->addPermanentWidget(note);

    auto show = [entry, note, &remote] {
        entry->setChecked(remote.enabled());
        note->setText(remote.status());
        note->setVisible(!remote.status().isEmpty());
    };
    QObject::connect(entry, &QAction::triggered, &window, [&window, &remote, show, switched](bool on) {
        if (switched) switched(on);
        if (!remote.setEnabled(on))
            QMessageBox::warning(&window, QStringLiteral("Remote control"),
                                 QStringLiteral("Remote control could not start: ") + remote.error());
        show();
    });
    auto* settings = menu->addAction(QStringLiteral("Remote control settings..."));
    settings->setObjectName(QStringLiteral("remoteSettings"));
    QObject::connect(settings, &QAction::triggered, &window, [&window, &remote, show, kept] {
        RemoteWindow dialog(remote.settings(), &window);
        if (dialog.exec() != QDialog::Accepted) return;
        const RemoteSettings chosen = dialog.settings();
        if (kept) kept(chosen);
        if (!remote.apply(chosen))
            QMessageBox::warning(&window, QStringLiteral("Remote control"),
                                 QStringLiteral("Remote control could not start: ") + remote.error());
        show();
    });
    show();
    installWebEntry(window, *menu, remote, std::move(webSwitched));
}

}  // namespace station::ui
