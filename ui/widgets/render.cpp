#include "ui/widgets/render.hpp"

#include <QCheckBox>
#include <QFile>
#include <QGroupBox>
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

QString fileText(const std::string& text) { return QFile::decodeName(QByteArray::fromStdString(text)); }

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

bool sameText(const QString& shown, const std::string& text) {
    return shown == QLatin1StringView(text.data(), static_cast<qsizetype>(text.size()));
}

void showEnabled(QWidget& widget, bool enabled) {
    // The widget's own setting, whatever its parent's is.
    if (widget.testAttribute(Qt::WA_ForceDisabled) == enabled) widget.setEnabled(enabled);
}

void showLabel(QLabel& widget, const Label& label) {
    if (!sameText(widget.text(), label.Caption)) widget.setText(qs(label.Caption));
    showEnabled(widget, label.Enabled);
}

void showFrame(QGroupBox& widget, const Frame& frame) {
    if (!sameText(widget.title(), frame.Caption)) widget.setTitle(qs(frame.Caption));
    showEnabled(widget, frame.Enabled);
}

void showButton(QAbstractButton& widget, const CommandButton& button) {
    if (!sameText(widget.text(), button.Caption)) widget.setText(qs(button.Caption));
    showEnabled(widget, button.Enabled);
}

void showCaption(QAbstractButton& widget, const CommandButton& button) {
    if (!sameText(widget.text(), button.Caption)) widget.setText(qs(button.Caption));
}

void showCheck(QAbstractButton& widget, const CheckBox& box) {
    const QSignalBlocker quiet(widget);
    if (!sameText(widget.text(), box.Caption)) widget.setText(qs(box.Caption));
    showEnabled(widget, box.Enabled);
    // Setting a check box's state repaints it even when the state is the same.
    if (auto* check = qobject_cast<QCheckBox*>(&widget)) {
        const Qt::CheckState state = box.value() == 1   ? Qt::Checked
                                     : box.value() == 2 ? Qt::PartiallyChecked
                                                        : Qt::Unchecked;
        if (check->isTristate() != (box.value() == 2)) check->setTristate(box.value() == 2);
        if (check->checkState() != state) check->setCheckState(state);
    } else if (widget.isChecked() != (box.value() == 1)) {
        widget.setChecked(box.value() == 1);
    }
}

void showText(QLineEdit& widget, const std::string& text) {
    if (sameText(widget.text(), text)) return;  // keeps the cursor where the operator is typing
    const QSignalBlocker quiet(widget);
    widget.setText(qs(text));
}

void showList(QListWidget& widget, const ListBox& list) {
    const QSignalBlocker quiet(widget);
    bool same = widget.count() == list.listCount();
    for (int i = 0; same && i < list.listCount(); ++i) same = sameText(widget.item(i)->text(), list.list(i));
    if (!same) {
        widget.clear();
        for (const std::string& item : list.items()) widget.addItem(qs(item));
    }
    if (widget.currentRow() != list.listIndex()) widget.setCurrentRow(list.listIndex());
    widget.setEnabled(list.Enabled);
}

void showWindow(QWidget& widget, const FormWindow& form, const QString& mark) {
    // The main window's title names the open setup data file.
    if (const QString title = mark + fileText(form.Caption); widget.windowTitle() != title) widget.setWindowTitle(title);
    if (form.Visible && !widget.isVisible()) widget.show();
    if (!form.Visible && widget.isVisible()) widget.hide();
}

}  // namespace station::ui
