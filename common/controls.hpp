#pragma once
// Toolkit-free models of the window controls that the station's logic reads and writes.
// They keep the event semantics the logic was built on:
//   - selecting an option button by code raises its Click, exactly as a user click does;
//     a click on the button that is already selected raises nothing;
//   - setting a scroll bar's Value clamps it to Min..Max and raises Change when it moved;
//   - setting a check box's Value or a text box's Text raises Click / Change when it changed;
//   - setting a list's ListIndex by code raises Click.
// A window of the desktop program only renders these models and forwards gestures to them.

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "common/table.hpp"

namespace station {

// Colour values in the platform's blue-green-red order.
inline constexpr std::uint32_t kColourGrey = 0xC0C0C0;
inline constexpr std::uint32_t kColourSelected = 0xC0C000;
inline constexpr std::uint32_t kColourRed = 0x0000FF;

struct Label {
    std::string Caption;
    std::uint32_t BackColor = kColourGrey;
    bool Enabled = true;
};

struct Frame {
    std::string Caption;
    bool Enabled = true;
};

struct Timer {
    bool Enabled = false;
    int Interval = 0;
};

struct MenuItem {
    std::string Caption;
    bool Checked = false;
    bool Enabled = true;
};

// A button raises Click; a button that acts while held (CALL) raises MouseDown and MouseUp.
struct CommandButton {
    CommandButton(std::string caption = {}) : Caption(std::move(caption)) {}

    std::string Caption;
    bool Enabled = true;
    std::function<void()> onClick;
    std::function<void()> onMouseDown;
    std::function<void()> onMouseUp;

    void click() const { raise(onClick); }
    void mouseDown() const { raise(onMouseDown); }
    void mouseUp() const { raise(onMouseUp); }

private:
    static void raise(const std::function<void()>& event) {
        if (event) event();
    }
};

// A pair of arrows: raises SpinUp or SpinDown.
struct SpinButton {
    std::function<void()> onSpinUp;
    std::function<void()> onSpinDown;

    void spinUp() const {
        if (onSpinUp) onSpinUp();
    }
    void spinDown() const {
        if (onSpinDown) onSpinDown();
    }
};

struct FormWindow {
    std::string Caption;
    bool Loaded = false;
    bool Visible = false;
    void Show() { Loaded = true; Visible = true; }
    void Hide() { Loaded = true; Visible = false; }
};

// A control array of option buttons, indexed lo..hi; at most one is selected.
class OptionGroup {
public:
    struct Button {
        std::string Caption;
        bool Value = false;
        std::uint32_t BackColor = kColourGrey;
    };

    OptionGroup(int lo, int hi) : buttons_(lo, hi) {}

    int lo() const { return static_cast<int>(buttons_.lo()); }
    int hi() const { return static_cast<int>(buttons_.hi()); }
    Button& operator[](int index) { return buttons_(index); }
    const Button& operator[](int index) const { return buttons_(index); }

    // Index of the selected button, or -1 when none is.
    int selected() const;

    // Value = True by code: selects the button and raises Click unless it already was.
    // Value = False by code: deselects it and raises nothing.
    void setValue(int index, bool value);

    // The operator's click: the same as Value = True.
    void click(int index) { setValue(index, true); }

    // The window's initial state, as designed: selects a button without raising anything.
    void preset(int index);

    bool Enabled = true;
    std::function<void(int)> onClick;

private:
    Array<Button> buttons_;
};

class ScrollBar {
public:
    int Min = 0;
    int Max = 32767;
    int SmallChange = 1;
    int LargeChange = 1;
    bool Enabled = true;
    std::function<void()> onChange;

    int value() const { return value_; }
    // Clamped to the range between Min and Max (either may be the larger); raises Change
    // when the stored value moved.
    void setValue(int v);

private:
    int value_ = 0;
};

class CheckBox {
public:
    std::string Caption;
    bool Enabled = true;
    std::function<void()> onClick;

    int value() const { return value_; }
    // 0 unticked, 1 ticked, 2 greyed; raises Click when it changed.
    void setValue(int v);

private:
    int value_ = 0;
};

class TextBox {
public:
    bool Enabled = true;
    std::function<void()> onChange;

    const std::string& text() const { return text_; }
    // Raises Change when the text changed.
    void setText(std::string t);

private:
    std::string text_;
};

class ListBox {
public:
    bool Enabled = true;
    std::function<void()> onClick;

    const std::vector<std::string>& items() const { return items_; }
    int listCount() const { return static_cast<int>(items_.size()); }
    const std::string& list(int index) const;
    void addItem(std::string item) { items_.push_back(std::move(item)); }
    void clear();

    int listIndex() const { return listIndex_; }
    // -1 clears the choice; an index past the list raises the runtime's invalid-argument
    // error. Raises Click for any valid index.
    void setListIndex(int index);

private:
    std::vector<std::string> items_;
    int listIndex_ = -1;
};

}  // namespace station
