#pragma once
// A push button painted in one of the model's colour values (the selected camera or scene
// is &HC0C000, the others grey) without changing the widget's palette. Setting a new
// palette at each selection made the style cache a new set of button pixmaps every time,
// and the program's memory grew with every camera and scene the operator chose. Here each
// colour gets one palette, built once, and the style draws the button with it.

#include <QPalette>
#include <QPushButton>

#include <cstdint>
#include <map>

namespace station::ui {

class ColourButton : public QPushButton {
public:
    explicit ColourButton(QWidget* parent);

    // A colour value in blue-green-red order; repaints only when it changed.
    void setColour(std::uint32_t bgr);
    std::uint32_t colour() const { return colour_; }

    // As wide as its text needs (the style's push buttons ask for at least 80 pixels), so
    // that a row of camera buttons or a block of tiles stays compact.
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    const QPalette& paletteFor(std::uint32_t bgr);

    std::uint32_t colour_;
    std::map<std::uint32_t, QPalette> palettes_;
};

}  // namespace station::ui
