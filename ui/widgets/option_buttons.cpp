#include "ui/widgets/option_buttons.hpp"

#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

#include "ui/widgets/colour_button.hpp"
#include "ui/widgets/group_keys.hpp"

namespace station::ui {

OptionButtons::OptionButtons(OptionGroup& group, const std::string& name, Look look, QWidget* parent,
                             std::function<void(int)> clicked)
    : group_(group), look_(look) {
    for (int i = group.lo(); i <= group.hi(); ++i) {
        QAbstractButton* b = nullptr;
        if (look == Look::Radio) {
            auto* radio = new QRadioButton(parent);
            radio->setAutoExclusive(false);  // the model, not Qt, keeps one button selected
            // No wider than its text: a click beside the text would select nothing.
            radio->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
            b = radio;
        } else if (look == Look::Tile) {
            auto* tile = new ColourButton(parent);
            tile->setMinimumWidth(34);
            b = tile;
        } else {
            b = new ColourButton(parent);
        }
        b->setCheckable(true);
        b->setObjectName(QString::fromStdString(name + "(" + std::to_string(i) + ")"));
        QObject::connect(b, &QAbstractButton::clicked, [clicked, i] { clicked(i); });
        buttons_.push_back(b);
    }
    keys_ = new GroupKeys(buttons_, look != Look::Push, parent);
    render();
}

QAbstractButton& OptionButtons::button(int index) {
    return *buttons_.at(static_cast<std::size_t>(index - group_.lo()));
}

void OptionButtons::render() {
    for (int i = group_.lo(); i <= group_.hi(); ++i) {
        QAbstractButton& b = button(i);
        const OptionGroup::Button& model = group_[i];
        if (!sameText(b.text(), model.Caption)) b.setText(qs(model.Caption));
        if (b.isChecked() != model.Value) {
            const QSignalBlocker quiet(b);
            b.setChecked(model.Value);
        }
        showEnabled(b, group_.Enabled);
        // A tile shows its choice in the selected colour, as the camera and scene buttons do.
        if (look_ == Look::Push) static_cast<ColourButton&>(b).setColour(model.BackColor);
        if (look_ == Look::Tile) static_cast<ColourButton&>(b).setColour(model.Value ? kColourSelected : model.BackColor);
    }
    keys_->follow(group_.selected() - group_.lo());
}

void OptionButtons::setColumns(int columns) { keys_->setColumns(columns); }

}  // namespace station::ui
