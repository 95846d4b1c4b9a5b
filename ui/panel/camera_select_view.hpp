#pragma once
// "CAMERA SELECT": the GROUP and camera buttons 1..8 with each camera's type and ID
// beneath, and the one-shot "COPY" box.

#include <QGroupBox>

#include <vector>

#include "panel/form1.hpp"
#include "ui/widgets/option_buttons.hpp"
#include "ui/widgets/render.hpp"

class QCheckBox;
class QLabel;

namespace station::ui {

class CameraSelectView : public QGroupBox {
public:
    CameraSelectView(Form1& form, const Forward& forward, QWidget* parent);
    void render();

private:
    Form1& form_;
    OptionButtons cameras_;
    QCheckBox* copy_;
    std::vector<QLabel*> types_;  // cameras 1..8
    std::vector<QLabel*> ids_;
};

}  // namespace station::ui
