#pragma once
// An option-button control array shown as Qt buttons: round radio buttons for the mode
// groups, or push buttons that carry the model's back colour (camera and scene buttons).
// The model decides which button is selected: a click is forwarded, and the next redraw
// shows the model's choice, even when that means no button at all. The group is one Tab
// stop with the arrow keys inside it (see GroupKeys).

#include <QAbstractButton>

#include <functional>
#include <string>
#include <vector>

#include "common/controls.hpp"
#include "ui/widgets/render.hpp"

class QWidget;

namespace station::ui {

class GroupKeys;

class OptionButtons {
public:
    // Tile: small square push buttons, for a large group such as the 32 monitor outputs;
    // like radio buttons, an arrow key selects the button it moves to.
    enum class Look { Radio, Push, Tile };

    // Buttons are children of `parent` and named "<name>(<index>)"; the caller lays them out.
    OptionButtons(OptionGroup& group, const std::string& name, Look look, QWidget* parent,
                  std::function<void(int)> clicked);

    QAbstractButton& button(int index);
    void render();
    // Buttons per row as laid out, for the Up and Down keys (0: all in one row).
    void setColumns(int columns);

private:
    OptionGroup& group_;
    Look look_;
    std::vector<QAbstractButton*> buttons_;  // owned by their parent widget
    GroupKeys* keys_;                        // owned by the parent widget too
};

}  // namespace station::ui
