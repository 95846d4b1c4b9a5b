#pragma once
// The main window's menu bar: "&File", "&Setup" with its ticks, the page transfers
// "&PC to Camera" and "Camera to PC" (no Alt key of its own), and "&Help" with the version
// box and the command console.

#include <QString>

#include <memory>

#include "app/station.hpp"
#include "ui/main/gesture_actions.hpp"
#include "ui/widgets/render.hpp"

class QAction;
class QMenuBar;

namespace station::ui {

class PortMenu;

class MainMenus {
public:
    MainMenus(Station& station, const GestureActions& actions, const Forward& forward, QMenuBar& bar);
    ~MainMenus();
    void render();

    // Every entry, by its text without the "&" marks (tests pick entries this way).
    QAction* action(const QString& text) const;

private:
    Station& station_;
    QMenuBar& bar_;
    QAction* idOn_;
    QAction* ack_[2];
    QAction* speed_[2];
    QAction* version_;
    std::unique_ptr<PortMenu> port_;
};

}  // namespace station::ui
