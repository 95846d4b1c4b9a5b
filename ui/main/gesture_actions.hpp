#pragma once
// The main window's gestures that have more than one trigger, one action object each: the
// File menu's OPEN and SAVE with the OPEN and SAVE buttons, "&PC to Camera" and "Camera to PC"
// with the PC to CAM and CAM to PC buttons. Menu entry and button share the action's one
// enabled state, which comes from the same rule the named action asks, so the window greys
// what a remote client is refused.

#include <QAction>
#include <QObject>

#include "app/station.hpp"
#include "ui/widgets/render.hpp"

class QAbstractButton;

namespace station::ui {

class GestureActions {
public:
    GestureActions(Station& station, const Forward& forward, QObject& owner);
    GestureActions(const GestureActions&) = delete;
    GestureActions& operator=(const GestureActions&) = delete;

    QAction& open() const { return *open_; }
    QAction& save() const { return *save_; }
    QAction& sendPage() const { return *send_; }
    QAction& readPage() const { return *read_; }

    // Follows the rules after a change of the station.
    void render();

private:
    const Form1& form_;
    QAction* open_;
    QAction* save_;
    QAction* send_;
    QAction* read_;
};

// `button` runs `action` when clicked and is greyed exactly while the action is.
void bindButton(QAbstractButton& button, QAction& action);

}  // namespace station::ui
