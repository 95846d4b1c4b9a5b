#pragma once
// The main window's status bar: the device of port 1 (or the simulated line), the speed,
// "Ack On"/"Ack Off", the camera-ID mode and the line's state.

#include <QLabel>

#include "app/station.hpp"

namespace station::ui {

class LineStatusView : public QLabel {
public:
    LineStatusView(const Station& station, QWidget* parent);
    void render();

private:
    const Station& station_;
    LineCondition shown_ = LineCondition::Connected;
};

}  // namespace station::ui
