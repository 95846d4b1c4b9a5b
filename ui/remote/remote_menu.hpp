#pragma once
// The operator's switch for control from outside: a ticked entry "Remote control" in the
// "&Setup" menu, and a status-bar note that says where the station listens while it does
// (or why it could not start).

#include <functional>

class QMainWindow;

namespace station::ui {

class RemoteControl;

// Adds the entry and the note to the main window; the entry's tick follows the setting.
// `switched` is told the operator's choice (to remember it).
void installRemoteMenu(QMainWindow& window, RemoteControl& remote, std::function<void(bool on)> switched = {});

}  // namespace station::ui
