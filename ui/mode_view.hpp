#pragma once
// The camera's mode groups: bars, detail, shutter, gain step (with the three gain-step
// values beside LOW, MID and HIGH), white balance, iris mode, and the "MONITOR" group of
// monitor outputs 0..31.

#include <QWidget>

#include <array>
#include <memory>

#include "panel/form1.hpp"
#include "ui/option_buttons.hpp"
#include "ui/render.hpp"

class QGroupBox;
class QLabel;

namespace station::ui {

class ModeView : public QWidget {
public:
    ModeView(Form1& form, const Forward& forward, QWidget* parent);
    void render();

private:
    Form1& form_;
    std::array<std::unique_ptr<OptionButtons>, 7> groups_;
    std::array<QLabel*, 3> gainSteps_{};
    QGroupBox* monitor_ = nullptr;
};

}  // namespace station::ui
