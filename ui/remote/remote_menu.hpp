#pragma once
// The operator's switches for control from outside: ticked entries "Remote control" and
// "Browser panel" in the "&Setup" menu, and status-bar notes that say where the station
// listens while it does (or why it could not start).

#include <functional>

class QMainWindow;

namespace station::ui {

class RemoteControl;

// Adds the entries and the notes to the main window; each entry's tick follows its setting.
// `switched` and `webSwitched` are told the operator's choice (to remember it).
void installRemoteMenu(QMainWindow& window, RemoteControl& remote, std::function<void(bool on)> switched = {},
                       std::function<void(bool on)> webSwitched = {});

}  // namespace station::ui
