#include "ui/main/gesture_actions.hpp"

#include <QAbstractButton>

#include "app/availability.hpp"

namespace station::ui {

namespace {

QAction* gestureAction(QObject& owner, const QString& text, const char* name, const Forward& forward, Gesture gesture) {
    auto* action = new QAction(text, &owner);
    action->setObjectName(QString::fromLatin1(name));
    QObject::connect(action, &QAction::triggered, [forward, gesture = std::move(gesture)] { forward(gesture); });
    return action;
}

}  // namespace

GestureActions::GestureActions(Station& station, const Forward& forward, QObject& owner)
    : form_(station.forms().main),
      open_(gestureAction(owner, QStringLiteral("OPEN"), "open", forward, [s = &station] { s->OPEN_Click(); })),
      save_(gestureAction(owner, QStringLiteral("SAVE"), "save", forward, [s = &station] { s->SAVE_Click(); })),
      send_(gestureAction(owner, QStringLiteral("&PC to Camera"), "sendPage", forward,
                          [f = &form_] { f->Command13.click(); })),
      // No mnemonic: it replaces the working copy with the camera's values, so no slip of
      // Alt+letter may run it (Alt+C opens the "&Camera" menu). F10 and the arrows reach it.
      read_(gestureAction(owner, QStringLiteral("Camera to PC"), "readPage", forward,
                          [f = &form_] { f->Command12.click(); })) {
    render();
}

void GestureActions::render() {
    const bool read = availability::pageRead(form_);
    if (read_->isEnabled() != read) read_->setEnabled(read);
}

void bindButton(QAbstractButton& button, QAction& action) {
    QObject::connect(&button, &QAbstractButton::clicked, &action, &QAction::trigger);
    QObject::connect(&action, &QAction::enabledChanged, &button, &QWidget::setEnabled);
    button.setEnabled(action.isEnabled());
}

}  // namespace station::ui
