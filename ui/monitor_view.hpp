#pragma once
// The traffic monitor: the bytes of the last transmission and of the last reception.

#include <QGroupBox>

#include "link/link.hpp"

class QLabel;

namespace station::ui {

class MonitorView : public QGroupBox {
public:
    MonitorView(Link& link, QWidget* parent);
    void render();

private:
    Link& link_;
    QLabel* sent_;
    QLabel* received_;
};

}  // namespace station::ui
