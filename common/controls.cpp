#include "common/controls.hpp"

#include <algorithm>

namespace station {

int OptionGroup::selected() const {
    for (int i = lo(); i <= hi(); ++i)
        if (buttons_(i).Value) return i;
    return -1;
}

void OptionGroup::setValue(int index, bool value) {
    Button& b = buttons_(index);  // checked: a missing button is a subscript fault
    if (!value) {
        b.Value = false;
        return;
    }
    if (b.Value) return;
    for (int i = lo(); i <= hi(); ++i) buttons_(i).Value = false;
    b.Value = true;
    if (onClick) onClick(index);
}

void OptionGroup::preset(int index) {
    Button& b = buttons_(index);
    for (int i = lo(); i <= hi(); ++i) buttons_(i).Value = false;
    b.Value = true;
}

void ScrollBar::setValue(int v) {
    const int lowest = std::min(Min, Max);
    const int highest = std::max(Min, Max);
    const int clamped = std::clamp(v, lowest, highest);
    if (clamped == value_) return;
    value_ = clamped;
    if (onChange) onChange();
}

void CheckBox::setValue(int v) {
    if (v == value_) return;
    value_ = v;
    if (onClick) onClick();
}

void TextBox::setText(std::string t) {
    if (t == text_) return;
    text_ = std::move(t);
    if (onChange) onChange();
}

const std::string& ListBox::list(int index) const {
    if (index < 0 || index >= listCount()) throw RuntimeError::subscriptOutOfRange();
    return items_[static_cast<std::size_t>(index)];
}

void ListBox::clear() {
    items_.clear();
    listIndex_ = -1;
}

void ListBox::setListIndex(int index) {
    if (index < -1 || index >= listCount()) throw RuntimeError::invalidCall();
    listIndex_ = index;
    if (index >= 0 && onClick) onClick();
}

}  // namespace station
