#include "ui/widgets/level_bar.hpp"

#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <cstdlib>

namespace station::ui {

LevelBar::LevelBar(ScrollBar& bar, Label& number, const QString& title, const std::string& name, QWidget* parent,
                   std::function<void(int)> moved)
    : QWidget(parent), bar_(bar), number_(number), scroll_(new QScrollBar(Qt::Vertical, this)),
      numberLabel_(new QLabel(this)) {
    setObjectName(QString::fromStdString(name));
    scroll_->setObjectName(QString::fromStdString(name + ".bar"));
    numberLabel_->setObjectName(QString::fromStdString(name + ".number"));

    auto* titleLabel = new QLabel(title, this);
    titleLabel->setAlignment(Qt::AlignHCenter);
    numberLabel_->setAlignment(Qt::AlignHCenter);
    numberLabel_->setFrameShape(QFrame::Panel);
    numberLabel_->setFrameShadow(QFrame::Sunken);
    numberLabel_->setMinimumWidth(40);
    scroll_->setMinimumHeight(160);
    // As the original's scroll bars: a drag changes the level once, where the thumb is let
    // go; the arrows and the trough change it at each click.
    scroll_->setTracking(false);
    // Tab reaches the bar and its arrow keys step it; the wheel moves only a focused bar, so
    // that scrolling over the panel never changes a level by accident.
    scroll_->setFocusPolicy(Qt::StrongFocus);
    scroll_->installEventFilter(this);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addWidget(titleLabel);
    layout->addWidget(scroll_, 1, Qt::AlignHCenter);
    layout->addWidget(numberLabel_);

    QObject::connect(scroll_, &QScrollBar::valueChanged,
                     [this, moved](int position) { moved(valueAt(bar_, position)); });
    // While the thumb is dragged its number follows it; the level is sent at release.
    QObject::connect(scroll_, &QScrollBar::sliderMoved,
                     [this](int position) { numberLabel_->setText(QString::number(valueAt(bar_, position))); });
    render();
}

bool LevelBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched != scroll_) return false;
    if (event->type() == QEvent::Wheel) return !scroll_->hasFocus();
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_PageUp && key != Qt::Key_PageDown) return false;
    // Page Up and Page Down move ten steps; the top of the bar is its position 0.
    scroll_->setValue(scroll_->value() + (key == Qt::Key_PageUp ? -kPageKeySteps : kPageKeySteps));
    return true;
}

int LevelBar::valueAt(const ScrollBar& bar, int position) {
    return bar.Min <= bar.Max ? bar.Min + position : bar.Min - position;
}

int LevelBar::positionOf(const ScrollBar& bar, int value) { return std::abs(value - bar.Min); }

void LevelBar::render() {
    const QSignalBlocker quiet(scroll_);
    scroll_->setRange(0, std::abs(bar_.Max - bar_.Min));
    scroll_->setSingleStep(bar_.SmallChange);
    scroll_->setPageStep(bar_.LargeChange);
    // A thumb the operator is dragging stays under the pointer until it is let go.
    if (!scroll_->isSliderDown()) scroll_->setValue(positionOf(bar_, bar_.value()));
    showEnabled(*scroll_, bar_.Enabled);
    if (scroll_->isSliderDown()) showEnabled(*numberLabel_, number_.Enabled);
    else showLabel(*numberLabel_, number_);
}

}  // namespace station::ui
