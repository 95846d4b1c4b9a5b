#include "ui/main/main_keys.hpp"

#include <QAction>
#include <QActionGroup>
#include <QGridLayout>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <tuple>

#include "ui/main/main_menus.hpp"

namespace station::ui {

namespace {

void bind(QAction* action, const QKeySequence& keys) {
    if (action != nullptr) action->setShortcut(keys);
}

// Every focusable control inside `region`, in the window's present focus order.
std::vector<QWidget*> controlsOf(QWidget& region) {
    std::vector<QWidget*> out;
    QWidget* start = region.window();
    for (QWidget* w = start->nextInFocusChain(); w != start; w = w->nextInFocusChain())
        if (w != &region && region.isAncestorOf(w) && w->focusPolicy() != Qt::NoFocus) out.push_back(w);
    return out;
}

}  // namespace

MainKeys::MainKeys(Form1& form, StationReadout readout, const Forward& forward, QMainWindow& window,
                   MainMenus& menus, std::function<void(const QString&)> say)
    : form_(form), readout_(readout), say_(std::move(say)) {
    clock_.start();
    bind(menus.action(QStringLiteral("OPEN")), QKeySequence(QStringLiteral("Ctrl+O")));
    bind(menus.action(QStringLiteral("SAVE")), QKeySequence(QStringLiteral("Ctrl+S")));
    bind(menus.action(QStringLiteral("SAVE AS")), QKeySequence(QStringLiteral("Ctrl+Shift+S")));
    bind(menus.action(QStringLiteral("Quit")), QKeySequence(QStringLiteral("Ctrl+Q")));
    QString version = qs(form.helpVersion.Caption);
    version.remove(QLatin1Char('&'));
    bind(menus.action(version), QKeySequence(Qt::Key_F1));

    auto* menu = new QMenu(QStringLiteral("&Camera"), &window);
    auto* oneOf = new QActionGroup(menu);  // one camera at a time: radio marks
    oneOf->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    QAction* help = nullptr;
    for (QAction* a : window.menuBar()->actions())
        if (a->menu() != nullptr && a->text() == QStringLiteral("&Help")) help = a;
    window.menuBar()->insertMenu(help, menu);
    for (int i = 0; i <= 8; ++i) {
        auto* action = new QAction(i == 0 ? QStringLiteral("GROUP") : QStringLiteral("Camera %1").arg(i), &window);
        action->setShortcut(QKeySequence(cameraKey(i)));
        action->setCheckable(true);
        oneOf->addAction(action);
        QObject::connect(action, &QAction::triggered, [this, forward, i] { press(i, forward); });
        menu->addAction(action);
        window.addAction(action);  // the key works wherever the focus is in the main window
        if (i == 0) menu->addSeparator();
        cameras_.at(static_cast<std::size_t>(i)) = action;
    }
    render();
}

void MainKeys::press(int index, const Forward& forward) {
    if (presses_.chooses(index, readout_.scenePressDropsChanges(index), clock_.elapsed())) {
        forward([f = &form_, index] { f->Option9.click(index); });
        return;
    }
    say_(QStringLiteral("Not stored: press %1 again to choose %2")
             .arg(cameraKey(index), index == 0 ? QStringLiteral("GROUP") : QStringLiteral("camera %1").arg(index)));
    render();  // the menu's mark goes back to the camera still chosen
}

QString MainKeys::cameraKey(int index) { return index == 0 ? QStringLiteral("G") : QString::number(index); }

void MainKeys::render() {
    // Camera selection is always offered; the keys only follow which camera is chosen.
    for (int i = 0; i <= 8; ++i) {
        QAction& action = *cameras_.at(static_cast<std::size_t>(i));
        if (action.isChecked() != form_.Option9[i].Value) action.setChecked(form_.Option9[i].Value);
    }
}

void setReadingOrder(const std::vector<QWidget*>& regions) {
    std::vector<QWidget*> order;
    for (QWidget* region : regions) {
        const std::vector<QWidget*> controls = controlsOf(*region);
        order.insert(order.end(), controls.begin(), controls.end());
    }
    for (std::size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

std::vector<QWidget*> gridOrder(QWidget& container) {
    auto* grid = qobject_cast<QGridLayout*>(container.layout());
    if (grid == nullptr) return {&container};
    std::vector<std::tuple<int, int, QWidget*>> placed;
    for (int i = 0; i < grid->count(); ++i) {
        QWidget* w = grid->itemAt(i)->widget();
        if (w == nullptr) continue;
        int row = 0, column = 0, rows = 0, columns = 0;
        grid->getItemPosition(i, &row, &column, &rows, &columns);
        placed.emplace_back(row, column, w);
    }
    std::sort(placed.begin(), placed.end(),
              [](const auto& a, const auto& b) { return std::tie(std::get<0>(a), std::get<1>(a)) < std::tie(std::get<0>(b), std::get<1>(b)); });
    std::vector<QWidget*> out;
    for (const auto& p : placed) out.push_back(std::get<2>(p));
    return out;
}

}  // namespace station::ui
