#include "ui/widgets/colour_button.hpp"

#include <QEvent>
#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>

#include "common/controls.hpp"
#include "ui/widgets/render.hpp"

namespace station::ui {

ColourButton::ColourButton(QWidget* parent) : QPushButton(parent), colour_(kColourGrey) {}

void ColourButton::setColour(std::uint32_t bgr) {
    if (bgr == colour_) return;
    colour_ = bgr;
    update();
}

QSize ColourButton::sizeHint() const {
    QSize size = QPushButton::sizeHint();
    size.setWidth(std::max(minimumWidth(), fontMetrics().horizontalAdvance(text()) + 2 * fontMetrics().height()));
    return size;
}

const QPalette& ColourButton::paletteFor(std::uint32_t bgr) {
    auto found = palettes_.find(bgr);
    if (found == palettes_.end()) {
        QPalette p = palette();
        p.setColor(QPalette::Button, colourOf(bgr));
        p.setColor(QPalette::Window, colourOf(bgr));
        found = palettes_.emplace(bgr, p).first;
    }
    return found->second;
}

void ColourButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.palette = paletteFor(colour_);
    painter.drawControl(QStyle::CE_PushButton, option);
}

void ColourButton::changeEvent(QEvent* event) {
    // A new style or palette of the desktop: the colours are built again from it.
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) palettes_.clear();
    QPushButton::changeEvent(event);
}

}  // namespace station::ui
