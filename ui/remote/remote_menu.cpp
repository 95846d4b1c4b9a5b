#include "ui/remote/remote_menu.hpp"

#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>

#include "ui/remote/remote_control.hpp"

namespace station::ui {

namespace {

QMenu* setupMenu(QMenuBar& bar) {
    for (QAction* action : bar.actions())
        if (action->menu() && action->text().remove(QLatin1Char('&')) == QStringLiteral("Setup")) return action->menu();
    return bar.addMenu(QStringLiteral("&Setup"));
}

}  // namespace

void installRemoteMenu(QMainWindow& window, RemoteControl& remote) {
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
        note->setVisible(remote.enabled());
    };
    QObject::connect(entry, &QAction::triggered, &window, [&window, &remote, show](bool on) {
        if (!remote.setEnabled(on))
            QMessageBox::warning(&window, QStringLiteral("Remote control"),
                                 QStringLiteral("Remote control could not start: ") + remote.error());
        show();
    });
    show();
}

}  // namespace station::ui
