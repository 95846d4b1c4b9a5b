#pragma once
// One analog level: its title, a vertical scroll bar and the number label below it.
// The model's range may run either way (the panel's bars have their highest value, Min,
// at the top), so the Qt bar counts steps from the top and the value is worked out from
// the model's Min and Max. The keyboard moves a focused bar: the arrow keys one step,
// Page Up and Page Down ten.

#include <QWidget>

#include <functional>
#include <string>

#include "common/controls.hpp"
#include "ui/widgets/render.hpp"

class QLabel;
class QScrollBar;

namespace station::ui {

class LevelBar : public QWidget {
public:
    // `moved` receives the value the operator moved the bar to.
    LevelBar(ScrollBar& bar, Label& number, const QString& title, const std::string& name, QWidget* parent,
             std::function<void(int)> moved);

    void render();

    // The model's value at a position counted from the top, and back.
    static int valueAt(const ScrollBar& bar, int position);
    static int positionOf(const ScrollBar& bar, int value);

    QScrollBar& scrollBar() { return *scroll_; }

    // Steps moved by Page Up and Page Down.
    static constexpr int kPageKeySteps = 10;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ScrollBar& bar_;
    Label& number_;
    QScrollBar* scroll_;
    QLabel* numberLabel_;
};

}  // namespace station::ui
