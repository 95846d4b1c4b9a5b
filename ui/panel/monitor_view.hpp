#pragma once
// The traffic monitor: the bytes of the last transmission and of the last reception, and
// the last fault the line's poll ran into.

#include <QGroupBox>

#include "app/station.hpp"

class QLabel;

namespace station::ui {

class MonitorView : public QGroupBox {
public:
    MonitorView(const StationForms& forms, QWidget* parent);
    void render();

private:
    const Label& sendData_;
    const Label& receiveData_;
    Form1& form_;
    QLabel* sent_;
    QLabel* received_;
    QLabel* fault_;
};

}  // namespace station::ui
