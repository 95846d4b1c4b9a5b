#pragma once
// "LEVEL": the seven analog levels of the camera, each a vertical bar with its number.

#include <QGroupBox>

#include <vector>

#include "panel/form1.hpp"
#include "ui/widgets/level_bar.hpp"
#include "ui/widgets/render.hpp"

namespace station::ui {

class LevelsView : public QGroupBox {
public:
    LevelsView(Form1& form, const Forward& forward, QWidget* parent);
    void render();

private:
    std::vector<LevelBar*> bars_;  // owned by this widget
};

}  // namespace station::ui
