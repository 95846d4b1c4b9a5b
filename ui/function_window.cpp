#include "ui/function_window.hpp"

#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

namespace station::ui {

FunctionWindow::FunctionWindow(Station& station, const Forward& forward, QWidget* parent)
    : SatelliteWindow(station.form2.form, forward, parent, "Form2"), form_(station.form2),
      functions_(new QListWidget(this)) {
    functions_->setObjectName(QStringLiteral("List1"));
    Form2* f = &station.form2;
    QObject::connect(functions_, &QListWidget::currentRowChanged,
                     [f, forward](int row) { forward([f, row] { f->List1.setListIndex(row); }); });
    auto* column = new QVBoxLayout(this);
    column->addWidget(new QLabel(QStringLiteral("FUNCTION LIST"), this));
    column->addWidget(functions_);
    render();
}

void FunctionWindow::render() {
    renderWindow();
    if (isVisible()) showList(*functions_, form_.List1);
}

}  // namespace station::ui
