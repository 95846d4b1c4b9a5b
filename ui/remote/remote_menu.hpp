#pragma once
// The operator's switch for control from outside: a ticked entry "Remote control" in the
// "&Setup" menu, "Remote control settings..." for the address, ports and passcode (the
// RemoteWindow), and a status-bar note that says where the station listens while it does,
// every address open beyond this computer named (or why it could not start).

#include <functional>

class QMainWindow;

namespace station::ui {

class RemoteControl;

// Adds the entry and the note to the main window; the entry's tick follows the setting.
// `switched` is told the operator's choice (to remember it); `kept` the settings the window
// left with OK.
struct RemoteSettings;
void installRemoteMenu(QMainWindow& window, RemoteControl& remote, std::function<void(bool on)> switched = {},
                       std::function<void(const RemoteSettings&)> kept = {});

}  // namespace station::ui
