#include "ui/windows/auto_message_window.hpp"

#include <QLabel>
#include <QVBoxLayout>

namespace station::ui {

AutoMessageWindow::AutoMessageWindow(const StationForms& forms, const Forward& forward, QWidget* parent)
    : SatelliteWindow(forms.autoMessage.form, forward, parent, "Form6"), form_(forms.autoMessage),
      operation_(new QLabel(this)), status_(new QLabel(this)) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    operation_->setObjectName(QStringLiteral("Label1"));
    status_->setObjectName(QStringLiteral("Label2"));
    QFont big = operation_->font();
    big.setBold(true);
    operation_->setFont(big);
    for (QLabel* label : {operation_, status_}) label->setAlignment(Qt::AlignCenter);
    auto* column = new QVBoxLayout(this);
    column->addWidget(operation_);
    column->addWidget(status_);
    setMinimumSize(340, 96);
    render();
}

void AutoMessageWindow::render() {
    showLabel(*operation_, form_.Label1);
    showLabel(*status_, form_.Label2);
    renderWindow();
}

}  // namespace station::ui
