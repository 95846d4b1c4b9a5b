#include "ui/widgets/focus_mark.hpp"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QEvent>
#include <QPainter>

namespace station::ui {

namespace {
constexpr int kWidth = 2;  // the frame's line, drawn just outside the control
}

FocusMark::FocusMark(QWidget& area) : QWidget(&area), area_(area) {
    setObjectName(QStringLiteral("focusMark"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    area_.installEventFilter(this);
    QObject::connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { follow(now); });
}

bool FocusMark::wanted(const QWidget& w) {
    return qobject_cast<const QAbstractSlider*>(&w) != nullptr || qobject_cast<const QAbstractButton*>(&w) != nullptr;
}

void FocusMark::follow(QWidget* now) {
    QWidget* next = now != nullptr && area_.isAncestorOf(now) && wanted(*now) ? now : nullptr;
    // Focus that leaves for another window (a menu, a message box) keeps the mark where it is.
    if (next == nullptr && now != nullptr && now->window() != area_.window()) return;
    if (target_ != nullptr) target_->removeEventFilter(this);
    target_ = next;
    if (target_ != nullptr) target_->installEventFilter(this);
    place();
}

void FocusMark::place() {
    if (target_ == nullptr || !target_->isVisible()) {
        hide();
        return;
    }
    const QPoint topLeft = target_->mapTo(&area_, QPoint(0, 0));
    setGeometry(QRect(topLeft, target_->size()).adjusted(-kWidth, -kWidth, kWidth, kWidth));
    raise();
    show();
    update();
}

bool FocusMark::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::LayoutRequest:
        if (watched == target_ || watched == &area_) place();
        break;
    default:
        break;
    }
    return false;
}

void FocusMark::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QPen pen(palette().color(QPalette::Highlight), kWidth);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.drawRect(rect().adjusted(kWidth / 2, kWidth / 2, -kWidth / 2, -kWidth / 2));
}

}  // namespace station::ui
