#pragma once
// The page and file buttons: open and save the setup data file, read every setting from
// the selected camera ("Camera to PC"), send every stored setting to it ("PC to Camera"),
// and send the function page shown in the editor ("1Page to CAM"). The first four share
// their action, and with it their greying, with the menu entries of the same gesture.

#include <QGroupBox>

#include "panel/form1.hpp"
#include "ui/main/gesture_actions.hpp"
#include "ui/widgets/render.hpp"

class QPushButton;

namespace station::ui {

class TransferView : public QGroupBox {
public:
    TransferView(Form1& form, const GestureActions& actions, const Forward& forward, QWidget* parent);
    void render();

private:
    Form1& form_;
    QPushButton* open_;
    QPushButton* save_;
    QPushButton* read_;
    QPushButton* send_;
    QPushButton* page_;
};

}  // namespace station::ui
