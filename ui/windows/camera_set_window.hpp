#pragma once
// "Camera set": a type and an ID for each of the eight camera positions. Pick a camera,
// then a type in the list ("delete" clears it); IDs take effect as they are typed, types
// when "OK" is pressed.

#include <vector>

#include "app/station.hpp"
#include "ui/widgets/option_buttons.hpp"
#include "ui/windows/satellite_window.hpp"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace station::ui {

class CameraSetWindow : public SatelliteWindow {
public:
    CameraSetWindow(const StationForms& forms, const Forward& forward, QWidget* parent);
    void render();

private:
    Form4& form_;
    OptionButtons cameras_;
    std::vector<QLineEdit*> ids_;  // cameras 1..8
    QListWidget* types_;
    QLabel* note_;
    QPushButton* ok_;
};

}  // namespace station::ui
