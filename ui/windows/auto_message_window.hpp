#pragma once
// "Auto Message": which automatic set-up runs, and "Now doing" or its result. It appears
// without taking the focus from the panel, and hides itself when the model says so.

#include "app/station.hpp"
#include "ui/windows/satellite_window.hpp"

class QLabel;

namespace station::ui {

class AutoMessageWindow : public SatelliteWindow {
public:
    AutoMessageWindow(const StationForms& forms, const Forward& forward, QWidget* parent);
    void render();

private:
    Form6& form_;
    QLabel* operation_;
    QLabel* status_;
};

}  // namespace station::ui
