#include "ui/start/window_places.hpp"

#include <QEvent>
#include <QWidget>

#include "ui/start/remembered_settings.hpp"

namespace station::ui {

WindowPlaces::WindowPlaces(QWidget& mainWindow, RememberedSettings& settings) : settings_(settings) {
    windows_.push_back(&mainWindow);
    for (QWidget* child : mainWindow.findChildren<QWidget*>()) {
        // Menus and message boxes are windows too, but nameless or passing.
        const Qt::WindowType type = child->windowType();
        if (child->isWindow() && !child->objectName().isEmpty() && (type == Qt::Window || type == Qt::Dialog || type == Qt::Tool))
            windows_.push_back(child);
    }
    for (QWidget* w : windows_) {
        const QByteArray place = settings_.windowPlace(w->objectName());
        if (!place.isEmpty()) w->restoreGeometry(place);
        w->installEventFilter(this);
    }
}

void WindowPlaces::rememberOpenWindows() {
    for (QWidget* w : windows_)
        if (w->isVisible()) settings_.setWindowPlace(w->objectName(), w->saveGeometry());
}

bool WindowPlaces::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide) {
        auto* w = static_cast<QWidget*>(watched);
        settings_.setWindowPlace(w->objectName(), w->saveGeometry());
    }
    return false;
}

}  // namespace station::ui
