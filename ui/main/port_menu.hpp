#pragma once
// "Port" in the "&Setup" menu: the machine's serial ports (with their description where
// the system gives one), "Built-in simulated line", and "Other device..." for a typed path
// (pseudo-terminals are not listed by the system). The list is read each time the menu
// opens; the entry in use has the radio mark. A choice goes to the station, which applies it.

#include <QString>

#include "app/station.hpp"
#include "ui/widgets/render.hpp"

class QActionGroup;
class QMenu;
class QWidget;

namespace station::ui {

class PortMenu {
public:
    PortMenu(Station& station, Forward forward, QMenu& setup);
    // Re-lists the ports (also done whenever the menu opens).
    void refresh();
    QMenu& menu() { return *menu_; }

private:
    void addChoice(const QString& text, const PortChoice& choice);
    void askForDevice();

    Station& station_;
    Forward forward_;
    QMenu* menu_;
    QActionGroup* choices_;  // one device at a time
};

}  // namespace station::ui
