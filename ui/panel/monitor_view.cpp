#include "ui/panel/monitor_view.hpp"

#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>

#include "ui/widgets/render.hpp"

namespace station::ui {

namespace {

QLabel* trafficLabel(QWidget* parent, const char* name) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    label->setFrameShape(QFrame::Panel);
    label->setFrameShadow(QFrame::Sunken);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setMinimumWidth(360);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // long traffic never widens the window
    return label;
}

}  // namespace

MonitorView::MonitorView(const StationForms& forms, QWidget* parent)
    : QGroupBox(QStringLiteral("LINE"), parent), sendData_(forms.sendData), receiveData_(forms.receiveData),
      form_(forms.main), sent_(trafficLabel(this, "Label10")),
      received_(trafficLabel(this, "Label11")), fault_(new QLabel(this)) {
    fault_->setObjectName(QStringLiteral("faultLine"));
    fault_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    QPalette red = fault_->palette();
    red.setColor(QPalette::WindowText, Qt::darkRed);
    fault_->setPalette(red);
    setObjectName(QStringLiteral("monitor"));
    auto* grid = new QGridLayout(this);
    grid->addWidget(new QLabel(QStringLiteral("TX"), this), 0, 0);
    grid->addWidget(sent_, 0, 1);
    grid->addWidget(new QLabel(QStringLiteral("RX"), this), 1, 0);
    grid->addWidget(received_, 1, 1);
    grid->addWidget(fault_, 2, 1);
    grid->setColumnStretch(1, 1);
    render();
}

void MonitorView::render() {
    showLabel(*sent_, sendData_);
    showLabel(*received_, receiveData_);
    showLabel(*fault_, form_.faultLine);
    const bool fault = !form_.faultLine.Caption.empty();
    if (fault_->isHidden() == fault) fault_->setVisible(fault);
}

}  // namespace station::ui
