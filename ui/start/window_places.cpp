#include "ui/start/window_places.hpp"

#include <QEvent>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <array>

#include "ui/start/remembered_settings.hpp"

namespace station::ui {

QPoint placeBeside(const QRect& main, const QSize& size, const QRect& available) {
    constexpr int kGap = 4;
    const auto within = [](int v, int lo, int extent, int span) {
        return std::max(lo, std::min(v, lo + span - extent));
    };
    const int y = within(main.top(), available.top(), size.height(), available.height());
    const int x = within(main.left(), available.left(), size.width(), available.width());
    const std::array<QPoint, 4> beside{
        QPoint(main.right() + 1 + kGap, y), QPoint(main.left() - kGap - size.width(), y),
        QPoint(x, main.bottom() + 1 + kGap), QPoint(x, main.top() - kGap - size.height())};
    for (const QPoint& at : beside)
        if (available.contains(QRect(at, size))) return at;
    // No room beside it: the screen corner farthest from the main window's middle.
    const QPoint middle = main.center();
    const bool right = middle.x() < available.center().x();
    const bool down = middle.y() < available.center().y();
    return {right ? available.right() + 1 - size.width() : available.left(),
            down ? available.bottom() + 1 - size.height() : available.top()};
}

QString placeKey(const QString& window, const QSize& screen) {
    return QStringLiteral("%1@%2x%3").arg(window).arg(screen.width()).arg(screen.height());
}

WindowPlaces::WindowPlaces(QWidget& mainWindow, RememberedSettings& settings) : settings_(settings) {
    const QScreen* screen = mainWindow.screen();
    screen_ = screen != nullptr ? screen->availableGeometry().size() : QSize();
    windows_.push_back(&mainWindow);
    for (QWidget* child : mainWindow.findChildren<QWidget*>()) {
        // Menus and message boxes are windows too, but nameless or passing.
        const Qt::WindowType type = child->windowType();
        if (child->isWindow() && !child->objectName().isEmpty() && (type == Qt::Window || type == Qt::Dialog || type == Qt::Tool))
            windows_.push_back(child);
    }
    for (QWidget* w : windows_) {
        const QByteArray place = settings_.windowPlace(key(*w));
        if (!place.isEmpty()) w->restoreGeometry(place);
        w->installEventFilter(this);
    }
}

QString WindowPlaces::key(const QWidget& window) const { return placeKey(window.objectName(), screen_); }

void WindowPlaces::rememberOpenWindows() {
    for (QWidget* w : windows_)
        if (w->isVisible()) settings_.setWindowPlace(key(*w), w->saveGeometry());
}

bool WindowPlaces::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide) {
        auto* w = static_cast<QWidget*>(watched);
        settings_.setWindowPlace(key(*w), w->saveGeometry());
    }
    return false;
}

}  // namespace station::ui
