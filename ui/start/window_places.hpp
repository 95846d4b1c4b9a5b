#pragma once
// Puts the main window and its satellite windows where the operator left them last time,
// and remembers where they are: a window's place is kept when it is hidden and, for the
// windows still open, when the program ends. Windows are known by their object names.

#include <QObject>

#include <vector>

class QWidget;

namespace station::ui {

class RememberedSettings;

class WindowPlaces : public QObject {
public:
    // Restores the main window and every named top-level window that is its child.
    WindowPlaces(QWidget& mainWindow, RememberedSettings& settings);
    // Keeps the places of the windows that are open now.
    void rememberOpenWindows();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    RememberedSettings& settings_;
    std::vector<QWidget*> windows_;
};

}  // namespace station::ui
