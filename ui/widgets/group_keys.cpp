#include "ui/widgets/group_keys.hpp"

#include <QAbstractButton>
#include <QKeyEvent>

#include <algorithm>

namespace station::ui {

GroupKeys::GroupKeys(std::vector<QAbstractButton*> buttons, bool selectOnArrow, QObject* parent)
    : QObject(parent), buttons_(std::move(buttons)), selectOnArrow_(selectOnArrow) {
    for (QAbstractButton* b : buttons_) b->installEventFilter(this);
    makeTabStop(0);
}

void GroupKeys::makeTabStop(int index) {
    if (index == tabStop_) return;
    tabStop_ = index;
    for (std::size_t i = 0; i < buttons_.size(); ++i)
        buttons_[i]->setFocusPolicy(static_cast<int>(i) == index ? Qt::StrongFocus : Qt::ClickFocus);
}

void GroupKeys::follow(int selected) {
    for (QAbstractButton* b : buttons_)
        if (b->hasFocus()) return;
    makeTabStop(std::clamp(selected, 0, static_cast<int>(buttons_.size()) - 1));
}

int GroupKeys::step(int key) const {
    const int across = columns_ > 0 ? columns_ : static_cast<int>(buttons_.size());
    const int down = across >= static_cast<int>(buttons_.size()) ? 1 : across;
    switch (key) {
        case Qt::Key_Left: return -1;
        case Qt::Key_Right: return 1;
        case Qt::Key_Up: return -down;
        case Qt::Key_Down: return down;
        default: return 0;
    }
}

bool GroupKeys::eventFilter(QObject* watched, QEvent* event) {
    const auto at = std::find(buttons_.begin(), buttons_.end(), watched);
    if (at == buttons_.end()) return false;
    const int index = static_cast<int>(at - buttons_.begin());
    if (event->type() == QEvent::FocusIn) {
        makeTabStop(index);
        return false;
    }
    if (event->type() != QEvent::KeyPress) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->modifiers() & ~Qt::KeypadModifier) return false;
    const int delta = step(key->key());
    if (delta == 0) return false;
    const int next = index + delta;
    if (next < 0 || next >= static_cast<int>(buttons_.size())) return true;  // the group's edge
    QAbstractButton* target = buttons_[static_cast<std::size_t>(next)];
    target->setFocus(Qt::TabFocusReason);
    if (selectOnArrow_ && target->isEnabled()) target->click();
    return true;
}

}  // namespace station::ui
