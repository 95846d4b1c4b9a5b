#pragma once
// The main window's keyboard: the file menu's standard shortcuts (Ctrl+O, Ctrl+S,
// Ctrl+Shift+S, Ctrl+Q) and F1 for the version box; G and 1..8 select GROUP and the
// cameras, listed in a "&Camera" menu; and Tab through the panel in reading order. A key
// runs the same model call as the mouse on the same control, except that a camera key
// which would drop changes not stored asks to be pressed again first.

#include <QElapsedTimer>
#include <QString>

#include <array>
#include <functional>
#include <vector>

#include "app/second_press.hpp"
#include "panel/form1.hpp"
#include "app/station_readout.hpp"
#include "ui/widgets/render.hpp"

class QAction;
class QMainWindow;
class QWidget;

namespace station::ui {

class MainMenus;

class MainKeys {
public:
    // `say` puts a short word in the status bar.
    MainKeys(Form1& form, StationReadout readout, const Forward& forward, QMainWindow& window, MainMenus& menus,
             std::function<void(const QString&)> say);
    void render();

    // The key that selects camera `index` (0 is GROUP), as it is shown to the operator.
    static QString cameraKey(int index);

private:
    void press(int index, const Forward& forward);

    Form1& form_;
    const StationReadout readout_;
    std::function<void(const QString&)> say_;
    std::array<QAction*, 9> cameras_{};
    SecondPress presses_;
    QElapsedTimer clock_;
};

// Sets the Tab order: the regions in the order given, and inside each region its own
// controls in their present order.
void setReadingOrder(const std::vector<QWidget*>& regions);

// The widgets placed in `container`'s grid layout, by row and then column.
std::vector<QWidget*> gridOrder(QWidget& container);

}  // namespace station::ui
