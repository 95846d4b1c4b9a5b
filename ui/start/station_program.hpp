#pragma once
// The desktop program wired together: what is remembered between runs, the Qt platform the
// station runs on, port 1 (a serial device or the built-in camera line), the station, its
// windows, what ends it from outside, the remembered session and remote control. Each part
// is a member, declared in the order it comes to life, so it goes in the reverse order.

#include <QSettings>

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>

#include "app/station.hpp"
#include "line/chosen_port.hpp"
#include "remote/held_messages.hpp"
#include "setupfile/file_writer.hpp"
#include "ui/main/station_view.hpp"
#include "ui/platform/end_signals.hpp"
#include "ui/platform/modal_pause.hpp"
#include "ui/platform/qt_file_dialogs.hpp"
#include "ui/platform/qt_messages.hpp"
#include "ui/remote/remote_control.hpp"
#include "ui/start/builtin_line.hpp"
#include "ui/start/program_options.hpp"
#include "ui/start/remembered_session.hpp"
#include "ui/start/remembered_settings.hpp"
#include "ui/start/scoped_hook.hpp"

namespace station::ui {

class StationProgram {
public:
    // Reads what was remembered, finds the camera types and puts port 1 to the device or line
    // chosen (saying which on stderr); no window yet. `web`: the browser panel as the command
    // line asks for it.
    StationProgram(ProgramOptions options, WebSettings web);
    StationProgram(const StationProgram&) = delete;
    StationProgram& operator=(const StationProgram&) = delete;

    // Starts the station and runs it until it ends; the port is released afterwards, its lock
    // file with it. The exit status: 1 when it could not start (told on stderr and in a box).
    int run();

private:
    // Brings the station up as the operator left it; an exit status when it did not come up.
    std::optional<int> start();
    // The station's windows, their timers on the line, and the end from outside.
    void showStation();
    // The sample studio on the built-in line, then the setup file last opened or saved.
    void restoreSession();
    // Remote control and the browser panel as the options or the operator's last run say.
    void serveRemote();
    void installMenus();

    // The station's line as this program runs it: named as chosen, switched and remembered
    // here, its log kept in the --log-file.
    void hookLine();
    // Port 1 to a serial device, or to the built-in line (made when first chosen).
    void switchPort(const PortChoice& choice);
    bool onBuiltinLine() const;
    // Just before each poll: the built-in line's cameras catch up, a fader's newest value goes out.
    void beforePoll();
    // Bytes waiting at the port, or, on the built-in line, anything its cameras still do.
    bool lineBusy();

    const ProgramOptions options_;
    const WebSettings web_;
    // What is kept between runs, and what it chooses: the camera types' folder and port 1.
    const std::optional<std::filesystem::path> samples_;
    QSettings settings_;
    RememberedSettings remembered_;
    const std::filesystem::path definitions_;
    const PortChoice choice_;

    // The machine the station runs on: boxes, file dialogs, the disk.
    ModalPause modal_;
    QtMessages screen_;
    remote::HeldMessages messages_;  // a remote command's failure is its client's, not a box
    QtFileDialogs qtDialogs_;
    // Start-up (the sample studio, the last file) and remote file commands name their file here.
    PresetDialogs dialogs_;
    DiskWriter writer_;

    // Port 1 is whatever the operator chooses: a serial device, or the built-in line of the
    // sample studio's cameras (made when first chosen).
    const std::filesystem::path studio_;
    ChosenPort port_;
    std::unique_ptr<BuiltinLine> line_;
    std::function<void()> wakePoll_;  // a byte came in: the sleeping poll wakes on its grid
    std::ofstream logFile_;  // the line's log when --log-file names one

    // Made by start(), in this order. What outlives a part may not call it once it is gone:
    // the port tells of its closing too, and the windows may redraw until they go, so the
    // port's waking of the poll is taken out just before the windows go, and their telling
    // of redraws just before remote control goes.
    std::optional<Station> station_;
    std::optional<StationView> view_;
    std::optional<ScopedHook<void()>> pollWaking_;
    std::optional<EndSignals> endSignals_;
    std::optional<RememberedSession> session_;
    std::optional<RemoteControl> remote_;
    std::optional<ScopedHook<void()>> redrawTelling_;
};

}  // namespace station::ui
