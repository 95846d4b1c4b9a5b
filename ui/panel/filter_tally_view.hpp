#pragma once
// The panel's small groups: "FILTER" (the filter position with its step buttons),
// "TALLY" (the lamp and the "CALL" button, held down to call the camera operator) and
// "AUTO" ("WHITE" and "BLACK" start the camera's automatic set-ups).

#include <QWidget>

#include "panel/form1.hpp"
#include "ui/widgets/render.hpp"

class QGroupBox;
class QLabel;
class QPushButton;
class QToolButton;

namespace station::ui {

class FilterTallyView : public QWidget {
public:
    FilterTallyView(Form1& form, const Forward& forward, QWidget* parent);
    void render();

private:
    Form1& form_;
    QGroupBox* filter_;
    QLabel* filterLabel_;
    QToolButton* up_;
    QToolButton* down_;
    QGroupBox* tally_;
    QLabel* lamp_;
    QPushButton* call_;
    QGroupBox* auto_;
    QPushButton* white_;
    QPushButton* black_;
};

}  // namespace station::ui
