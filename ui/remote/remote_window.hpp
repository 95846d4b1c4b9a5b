#pragma once
// The "Remote control" settings window ("&Setup" > "Remote control settings..."): on or off,
// the address to listen on (this computer only, or the network), both ports and the
// passcode that peers beyond this computer give; "Generate" makes a new passcode, which the
// window shows so that it can be read out. OK is offered only for settings that can be
// used: the network takes a passcode. What OK leaves is kept for the next start.

#include <QDialog>

#include "ui/remote/remote_control.hpp"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace station::ui {

// Why `settings` cannot be used ("" when they can).
QString remoteSettingsProblem(const RemoteSettings& settings);

class RemoteWindow : public QDialog {
public:
    RemoteWindow(const RemoteSettings& settings, QWidget* parent);
    // The settings as the window shows them.
    RemoteSettings settings() const;

private:
    void check();

    RemoteSettings base_;
    QCheckBox* on_;
    QComboBox* address_;
    QSpinBox* tcpPort_;
    QSpinBox* oscPort_;
    QLineEdit* passcode_;
    QLabel* problem_;
    QPushButton* ok_;
};

}  // namespace station::ui
