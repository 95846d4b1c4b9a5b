#pragma once
// "Function": the function editor's list of the selected camera type's functions.

#include "app/station.hpp"
#include "ui/satellite_window.hpp"

class QListWidget;

namespace station::ui {

class FunctionWindow : public SatelliteWindow {
public:
    FunctionWindow(Station& station, const Forward& forward, QWidget* parent);
    void render();

private:
    Form2& form_;
    QListWidget* functions_;
};

}  // namespace station::ui
