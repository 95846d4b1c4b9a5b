#pragma once
// The main window's tooltips: what each control does, what it sends to the camera and
// what it does not, and the key that works it.

class QWidget;

namespace station::ui {

// Sets the tooltips on the main window's controls, found by their names.
void explainMainWindow(QWidget& window);

}  // namespace station::ui
