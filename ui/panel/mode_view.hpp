#pragma once
// The camera's mode groups: bars, detail, shutter, gain step (with the three gain-step
// values beside LOW, MID and HIGH, each with a spin pair that trims it), white balance, iris mode, and the "MONITOR" group of
// monitor outputs 0..31.

#include <QWidget>

#include <array>
#include <memory>

#include "panel/form1.hpp"
#include "app/station_readout.hpp"
#include "ui/widgets/option_buttons.hpp"
#include "ui/widgets/render.hpp"

class QGroupBox;
class QLabel;
class QToolButton;

namespace station::ui {

class ModeView : public QWidget {
public:
    ModeView(Form1& form, StationReadout readout, const Forward& forward, QWidget* parent);
    void render();

private:
    Form1& form_;
    const StationReadout readout_;
    std::array<std::unique_ptr<OptionButtons>, 7> groups_;
    std::array<QLabel*, 3> gainSteps_{};
    std::array<QWidget*, 3> gainSpins_{};  // SpinButton1(0..2): up and down
    QGroupBox* monitor_ = nullptr;
};

}  // namespace station::ui
