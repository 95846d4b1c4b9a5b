#pragma once
// The operator's switches for control from outside in the "&Setup" menu: a ticked entry
// "Remote control", "Remote control settings..." for the address, ports and passcode (the
// RemoteWindow), a ticked entry "Browser panel"; and status-bar notes that say where the
// station listens while it does, every address open beyond this computer named (or why it
// could not start).

#include <functional>

class QMainWindow;

namespace station::ui {

class RemoteControl;

// Adds the entries and the notes to the main window; each entry's tick follows its setting.
// `switched` and `webSwitched` are told the operator's choice (to remember it); `kept` the
// settings the Remote control settings window left with OK.
struct RemoteSettings;
void installRemoteMenu(QMainWindow& window, RemoteControl& remote, std::function<void(bool on)> switched = {},
                       std::function<void(const RemoteSettings&)> kept = {},
                       std::function<void(bool on)> webSwitched = {});

}  // namespace station::ui
