#pragma once
// The operator's switch for control from outside: a ticked entry "Remote control" in the
// "&Setup" menu, and a status-bar note that says where the station listens while it does.

class QMainWindow;

namespace station::ui {

class RemoteControl;

// Adds the entry and the note to the main window; the entry's tick follows the setting.
void installRemoteMenu(QMainWindow& window, RemoteControl& remote);

}  // namespace station::ui
