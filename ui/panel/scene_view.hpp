#pragma once
// "SCENE": the scene buttons 1..4, the one-shot "STORE" box, "CLEAR", the function editor's
// "FUNC" button and the "PRESET" and "LENS" buttons, which have never had an action.
// While the working copy holds changes not stored into the selected scene, a mark is drawn
// in that scene button's corner (its caption stays "1".."4").

#include <QGroupBox>

#include "app/station_readout.hpp"
#include "panel/form1.hpp"
#include "ui/widgets/option_buttons.hpp"
#include "ui/widgets/render.hpp"

class QCheckBox;
class QPushButton;

namespace station::ui {

class SceneView : public QGroupBox {
public:
    SceneView(Form1& form, StationReadout readout, const Forward& forward, QWidget* parent);
    void render();

private:
    void renderMark();

    Form1& form_;
    const StationReadout readout_;
    OptionButtons scenes_;
    QCheckBox* store_;
    QPushButton* clear_;
    QPushButton* preset_;
    QPushButton* func_;
    QPushButton* lens_;
    QWidget* mark_;  // the not-stored mark, a child of the selected scene button
};

}  // namespace station::ui
