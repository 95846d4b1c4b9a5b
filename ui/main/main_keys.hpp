#pragma once
// The main window's keyboard: the file menu's standard shortcuts (Ctrl+O, Ctrl+S,
// Ctrl+Shift+S, Ctrl+Q) and F1 for the version box; G and 1..8 select GROUP and the
// cameras, listed in a "&Camera" menu; and Tab through the panel in reading order. A key
// runs the same model call as the mouse on the same control.

#include <QString>

#include <array>
#include <vector>

#include "panel/form1.hpp"
#include "ui/widgets/render.hpp"

class QAction;
class QMainWindow;
class QWidget;

namespace station::ui {

class MainMenus;

class MainKeys {
public:
    MainKeys(Form1& form, const Forward& forward, QMainWindow& window, MainMenus& menus);
    void render();

    // The key that selects camera `index` (0 is GROUP), as it is shown to the operator.
    static QString cameraKey(int index);

private:
    Form1& form_;
    std::array<QAction*, 9> cameras_{};
};

// Sets the Tab order: the regions in the order given, and inside each region its own
// controls in their present order.
void setReadingOrder(const std::vector<QWidget*>& regions);

// The widgets placed in `container`'s grid layout, by row and then column.
std::vector<QWidget*> gridOrder(QWidget& container);

}  // namespace station::ui
