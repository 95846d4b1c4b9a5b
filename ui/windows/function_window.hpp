#pragma once
// "Function": the function editor. FUNCTION LIST (the camera type's functions), ITEM LIST
// (the chosen function's items and their values) and MODE/VALUE for the chosen item: a
// searchable list of its named values, or a slider with a hex spin box for an analog value.
// Every gesture goes to the editor's model; the window only draws it.

#include "app/station.hpp"
#include "ui/windows/satellite_window.hpp"

class QLabel;
class QLineEdit;
class QListWidget;
class QSlider;
class QSpinBox;
class QWidget;

namespace station::ui {

class FunctionWindow : public SatelliteWindow {
public:
    FunctionWindow(const StationForms& forms, const Forward& forward, QWidget* parent);
    void render();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void renderValue();
    void applyFilter();

    Form2& form_;
    QListWidget* functions_;
    QLabel* scene_;
    QListWidget* items_;
    QLabel* item_;
    QWidget* choices_;  // the named values and their search box
    QLineEdit* search_;
    QListWidget* values_;
    QWidget* analog_;   // the slider and the hex spin box
    QSlider* slider_;
    QSpinBox* hex_;
    QLabel* value_;
    int shownChoice_ = -1;  // the model's choice last put into the value list
};

}  // namespace station::ui
