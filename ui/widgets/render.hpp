#pragma once
// Small helpers that copy a control model's state into a Qt widget. Every one of them
// compares first and changes the widget only where the state differs, so that redrawing
// every window after each gesture and 40 ms tick costs little and repaints nothing that
// did not change; none of them lets the widget raise a signal.

#include <QColor>
#include <QString>

#include <cstdint>
#include <functional>
#include <string>

#include "common/controls.hpp"

class QAbstractButton;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QWidget;

namespace station::ui {

// An operator gesture, forwarded to the station's models by the view that owns the window.
using Gesture = std::function<void()>;
using Forward = std::function<void(const Gesture&)>;

// A push button named `name` whose click forwards `gesture`.
QPushButton* commandButton(QWidget* parent, const char* name, const Forward& forward, Gesture gesture);

// The station's texts hold one byte per character.
QString qs(const std::string& text);
std::string fromQt(const QString& text);
// A text that names files (a window title, a notice, a message, the line log): file names
// are shown as the file system spells them, in UTF-8, not byte by byte.
QString fileText(const std::string& text);

// Whether a widget's text already reads the model's text (without converting it).
bool sameText(const QString& shown, const std::string& text);
// Enables or disables the widget itself, and only when that changes.
void showEnabled(QWidget& widget, bool enabled);

// A colour value in blue-green-red order (0x0000FF is red) as a Qt colour.
QColor colourOf(std::uint32_t bgr);

// Paints a widget's background (buttons and labels alike) in a colour value.
void setBackColour(QWidget& widget, std::uint32_t bgr);

void showLabel(QLabel& widget, const Label& label);
void showFrame(QGroupBox& widget, const Frame& frame);
void showButton(QAbstractButton& widget, const CommandButton& button);
// The caption only: the button follows an action's enabled state.
void showCaption(QAbstractButton& widget, const CommandButton& button);
void showCheck(QAbstractButton& widget, const CheckBox& box);
void showText(QLineEdit& widget, const std::string& text);
// The list's items and its selected entry (ListIndex, -1 for none).
void showList(QListWidget& widget, const ListBox& list);
// The window's caption, after `mark` when one is given, and shown or hidden as the model is.
void showWindow(QWidget& widget, const FormWindow& form, const QString& mark = {});

}  // namespace station::ui
