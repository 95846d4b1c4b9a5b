#pragma once
// The traffic monitor: the bytes of the last transmission and of the last reception, and
// the last fault the line's poll ran into.

#include <QGroupBox>

#include "link/link.hpp"
#include "panel/form1.hpp"

class QLabel;

namespace station::ui {

class MonitorView : public QGroupBox {
public:
    MonitorView(Link& link, Form1& form, QWidget* parent);
    void render();

private:
    Link& link_;
    Form1& form_;
    QLabel* sent_;
    QLabel* received_;
    QLabel* fault_;
};

}  // namespace station::ui
