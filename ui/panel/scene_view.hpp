#pragma once
// "SCENE": the scene buttons 1..4, the one-shot "STORE" box, "CLEAR", the function editor's
// "FUNC" button and the "PRESET" and "LENS" buttons, which have never had an action.

#include <QGroupBox>

#include "app/station.hpp"
#include "ui/widgets/option_buttons.hpp"
#include "ui/widgets/render.hpp"

class QCheckBox;
class QPushButton;

namespace station::ui {

class SceneView : public QGroupBox {
public:
    SceneView(Station& station, const Forward& forward, QWidget* parent);
    void render();

private:
    Form1& form_;
    OptionButtons scenes_;
    QCheckBox* store_;
    QPushButton* clear_;
    QPushButton* preset_;
    QPushButton* func_;
    QPushButton* lens_;
};

}  // namespace station::ui
