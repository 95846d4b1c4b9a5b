#include "ui/render.hpp"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QWidget>

namespace station::ui {

QPushButton* commandButton(QWidget* parent, const char* name, const Forward& forward, Gesture gesture) {
    auto* button = new QPushButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    QObject::connect(button, &QPushButton::clicked, [forward, gesture = std::move(gesture)] { forward(gesture); });
    return button;
}

QString qs(const std::string& text) { return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())); }

std::string fromQt(const QString& text) { return text.toLatin1().toStdString(); }

QColor colourOf(std::uint32_t bgr) {
    return QColor(static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF),
                  static_cast<int>((bgr >> 16) & 0xFF));
}

void setBackColour(QWidget& widget, std::uint32_t bgr) {
    const QColor colour = colourOf(bgr);
    if (widget.autoFillBackground() && widget.palette().color(QPalette::Window) == colour) return;
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, colour);
    palette.setColor(QPalette::Button, colour);
    widget.setPalette(palette);
    widget.setAutoFillBackground(true);
}

void showLabel(QLabel& widget, const Label& label) {
    widget.setText(qs(label.Caption));
    widget.setEnabled(label.Enabled);
}

void showButton(QAbstractButton& widget, const CommandButton& button) {
    widget.setText(qs(button.Caption));
    widget.setEnabled(button.Enabled);
}

void showCheck(QAbstractButton& widget, const CheckBox& box) {
    const QSignalBlocker quiet(widget);
    widget.setText(qs(box.Caption));
    widget.setEnabled(box.Enabled);
    if (auto* check = qobject_cast<QCheckBox*>(&widget)) {
        check->setTristate(box.value() == 2);
        check->setCheckState(box.value() == 1   ? Qt::Checked
                             : box.value() == 2 ? Qt::PartiallyChecked
                                                : Qt::Unchecked);
    } else {
        widget.setChecked(box.value() == 1);
    }
}

void showText(QLineEdit& widget, const std::string& text) {
    const QString shown = qs(text);
    if (widget.text() == shown) return;  // keeps the cursor where the operator is typing
    const QSignalBlocker quiet(widget);
    widget.setText(shown);
}

void showList(QListWidget& widget, const ListBox& list) {
    const QSignalBlocker quiet(widget);
    bool same = widget.count() == list.listCount();
    for (int i = 0; same && i < list.listCount(); ++i) same = widget.item(i)->text() == qs(list.list(i));
    if (!same) {
        widget.clear();
        for (const std::string& item : list.items()) widget.addItem(qs(item));
    }
    if (widget.currentRow() != list.listIndex()) widget.setCurrentRow(list.listIndex());
    widget.setEnabled(list.Enabled);
}

void showWindow(QWidget& widget, const FormWindow& form) {
    if (widget.windowTitle() != qs(form.Caption)) widget.setWindowTitle(qs(form.Caption));
    if (form.Visible && !widget.isVisible()) widget.show();
    if (!form.Visible && widget.isVisible()) widget.hide();
}

}  // namespace station::ui
