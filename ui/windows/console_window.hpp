#pragma once
// The command console ("Form5"): a frame typed as hex digits is fed into the receive path
// as though a camera had sent it; the list shows the setup data as a save would write it.

#include "app/station.hpp"
#include "ui/windows/satellite_window.hpp"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace station::ui {

class ConsoleWindow : public SatelliteWindow {
public:
    ConsoleWindow(const StationForms& forms, const Forward& forward, QWidget* parent);
    void render();

private:
    Console& console_;
    QLineEdit* text1_;
    QLineEdit* text2_;
    QLineEdit* text3_;
    QPushButton* command1_;
    QPushButton* command2_;
    QListWidget* list_;
    QLabel* label_;
};

}  // namespace station::ui
