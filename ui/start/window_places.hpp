#pragma once
// Puts the main window and its satellite windows where the operator left them last time,
// and remembers where they are: a window's place is kept when it is hidden and, for the
// windows still open, when the program ends. Windows are known by their object names, and
// places are kept per screen size, so that a laptop's small screen and the studio's large
// one each keep their own arrangement.

#include <QObject>
#include <QRect>
#include <QString>

#include <vector>

class QWidget;

namespace station::ui {

class RememberedSettings;

// Where a satellite window of `size` first opens: beside the main window `main` (right of
// it, else left, else below, else above) where the screen's `available` area has room for
// all of it; with room nowhere, in the corner of the screen farthest from the main
// window's middle, so that it covers as little of the panel as it can. Sizes include the
// window frames.
QPoint placeBeside(const QRect& main, const QSize& size, const QRect& available);

// The name a window's place is kept under on a screen of that size ("Form2@1280x720").
QString placeKey(const QString& window, const QSize& screen);

class WindowPlaces : public QObject {
public:
    // Restores the main window and every named top-level window that is its child.
    WindowPlaces(QWidget& mainWindow, RememberedSettings& settings);
    // Keeps the places of the windows that are open now.
    void rememberOpenWindows();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString key(const QWidget& window) const;

    RememberedSettings& settings_;
    QSize screen_;
    std::vector<QWidget*> windows_;
};

}  // namespace station::ui
