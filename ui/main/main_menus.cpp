#include "ui/main/main_menus.hpp"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>

#include "ui/main/port_menu.hpp"

namespace station::ui {

namespace {

QAction* entry(QWidget* menu, const QString& text, const Forward& forward, Gesture gesture, bool checkable = false) {
    auto* action = new QAction(text, menu);
    action->setCheckable(checkable);
    QObject::connect(action, &QAction::triggered, [forward, gesture = std::move(gesture)] { forward(gesture); });
    menu->addAction(action);
    return action;
}

void showEntry(QAction& action, const MenuItem& item) {
    action.setText(qs(item.Caption));
    action.setChecked(item.Checked);
    action.setEnabled(item.Enabled);
}

}  // namespace

MainMenus::MainMenus(Station& station, const GestureActions& actions, const Forward& forward, QMenuBar& bar)
    : station_(station), bar_(bar) {
    Station* s = &station;

    QMenu* file = bar.addMenu(QStringLiteral("&File"));
    file->addAction(&actions.open());
    file->addAction(&actions.save());
    entry(file, QStringLiteral("SAVE AS"), forward, [s] { s->SAVE_AS_Click(); });
    file->addSeparator();
    entry(file, QStringLiteral("&Quit"), forward, [s] { s->QUIT_Click(); });

    QMenu* setup = bar.addMenu(QStringLiteral("&Setup"));
    entry(setup, QStringLiteral("ID/Camera set"), forward, [s] { s->Camera_ID_Click(); });
    idOn_ = entry(setup, QString(), forward, [s] { s->IDcont_Click(); }, true);
    setup->addSeparator();
    // One of two: drawn with radio marks. The click goes to the model all the same.
    auto* acks = new QActionGroup(setup);
    for (int i = 0; i < 2; ++i) acks->addAction(ack_[i] = entry(setup, QString(), forward, [s, i] { s->ACK_Click(i); }, true));
    setup->addSeparator();
    auto* speeds = new QActionGroup(setup);
    for (int i = 0; i < 2; ++i)
        speeds->addAction(speed_[i] = entry(setup, QString(), forward, [s, i] { s->Speed_Click(i); }, true));
    setup->addSeparator();
    port_ = std::make_unique<PortMenu>(station, forward, *setup);
    entry(setup, QStringLiteral("Line log"), forward, [w = &station.forms().lineLog] { w->Show(); });

    bar.addAction(&actions.sendPage());
    bar.addAction(&actions.readPage());

    QMenu* help = bar.addMenu(QStringLiteral("&Help"));
    version_ = entry(help, QString(), forward, [s] { s->HELP_Click(); });
    help->addSeparator();
    // The console lists the setup data as a save would write it, beside its frame input.
    entry(help, QStringLiteral("Command console"), forward, [s] { s->showConsole(); });
    render();
}

MainMenus::~MainMenus() = default;

void MainMenus::render() {
    const Form1& form = station_.forms().main;
    showEntry(*idOn_, form.IDcont);
    for (int i = 0; i < 2; ++i) {
        showEntry(*ack_[i], form.ACK(i));
        showEntry(*speed_[i], form.Speed(i));
    }
    showEntry(*version_, form.helpVersion);
}

QAction* MainMenus::action(const QString& text) const {
    // The shared gesture actions belong to the window, so the entries are taken from the menus.
    QList<QAction*> all = bar_.actions();
    for (const QMenu* menu : bar_.findChildren<QMenu*>()) all += menu->actions();
    for (QAction* a : all) {
        QString plain = a->text();
        plain.remove(QLatin1Char('&'));
        if (plain == text) return a;
    }
    return nullptr;
}

}  // namespace station::ui
