#include "ui/windows/line_log_window.hpp"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace station::ui {

LineLogWindow::LineLogWindow(const StationForms& forms, const Forward& forward, QWidget* parent)
    : SatelliteWindow(forms.lineLog, forward, parent, "lineLog"), log_(forms.log),
      text_(new QPlainTextEdit(this)) {
    text_->setObjectName(QStringLiteral("lineLogText"));
    text_->setReadOnly(true);
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));

    auto* copy = new QPushButton(QStringLiteral("Copy all"), this);
    copy->setObjectName(QStringLiteral("lineLogCopy"));
    // Copying is the clipboard's business only; the station's state does not change.
    QObject::connect(copy, &QPushButton::clicked, [this] { QApplication::clipboard()->setText(text_->toPlainText()); });

    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(QStringLiteral("Newest first; the last 1000 entries are kept."), this), 1);
    row->addWidget(copy);
    auto* column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(text_, 1);
    resize(760, 360);
    render();
}

void LineLogWindow::render() {
    renderWindow();
    if (log_.revision() == shown_) return;
    text_->setPlainText(fileText(log_.text()));
    shown_ = log_.revision();
}

}  // namespace station::ui
