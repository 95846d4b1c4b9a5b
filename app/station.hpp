#pragma once
// The station: one object that owns every table, window model and procedure of the camera
// control station, wired together as the desktop program and the tests use it. There is no
// other state anywhere.
//
// Every entry point a window, a timer or a test calls goes through one boundary: a runtime
// error ends that one action, the operator is told, and the station keeps running with its
// stored settings intact. An operator's action that fails is told in a message; a fault the
// line's poll runs into (a frame the station cannot take) is shown in the main window's
// fault line instead, since a busy line could raise one every few ticks.

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "app/tick_table.hpp"
#include "autosetup/auto_setup.hpp"
#include "camtype/camera_types.hpp"
#include "camtype/setting_stores.hpp"
#include "camtype/type_tables.hpp"
#include "common/messages.hpp"
#include "common/notice.hpp"
#include "common/serial_port.hpp"
#include "common/shared.hpp"
#include "funcedit/function_editor.hpp"
#include "line/line_state.hpp"
#include "link/console.hpp"
#include "link/link.hpp"
#include "panel/form1.hpp"
#include "panel/main_panel.hpp"
#include "scenes/camera_scenes.hpp"
#include "scenes/page_transfer.hpp"
#include "setupfile/camera_set_dialog.hpp"
#include "setupfile/file_dialogs.hpp"
#include "setupfile/file_writer.hpp"
#include "setupfile/setup_file.hpp"

namespace station {

// What the station needs from the machine it runs on.
struct StationPlatform {
    SerialPort& port;
    MessageSink& messages;
    FileDialogs& dialogs;
    FileWriter& writer;
    std::filesystem::path definitionFolder = ".";
    // The time of day for the line log and the cameras' last answers.
    std::function<std::chrono::system_clock::time_point()> clock = [] { return std::chrono::system_clock::now(); };
};

// The window models the desktop program's views draw, handed to them when they are
// assembled (a test's rig stands where a window would and is handed the same). A view renders
// these and forwards a gesture to the control it was made on; the controls raise the
// station's events.
struct StationForms {
    Form1& main;            // "Camera Control"
    Form2& function;        // the Function window
    Form4& cameraSet;       // the camera type and ID window
    Form6& autoMessage;     // the auto white / black message
    Console& console;       // the command console
    FormWindow& lineLog;    // the line log window
    LineLog& log;           // and its entries
    const Label& sendData;  // the last frame sent and received, as the monitor shows them
    const Label& receiveData;
    Notice& notice;         // passing words to the operator (the status bar)
};

class Station : private ReplyDecoders {
public:
    explicit Station(const StationPlatform& platform);
    Station(const Station&) = delete;
    Station& operator=(const Station&) = delete;

    // Start-up, the refresh after a setup file was opened, and shutdown.
    void Form_Load();
    void InitSet();
    void QUIT_Click();
    void Form_Unload() { QUIT_Click(); }
    bool ended() const { return ended_; }

    // "&Help": the version box.
    void HELP_Click();
    std::string versionText() const;

    // "&Setup" menu.
    void Camera_ID_Click();
    void IDcont_Click();
    void ACK_Click(int entry);
    void Speed_Click(int entry);

    // "Port" in "&Setup": the device of port 1, applied at once; a device that cannot be
    // opened is told in a notice (never a box), and tried again about once a second.
    void choosePort(PortChoice choice);
    // The status bar: device, speed, "Ack On"/"Ack Off", camera ID, the line's state.
    std::string lineStatus() const;

    // "&File" menu and the toolbar.
    void OPEN_Click() { act([this] { setupFile.CamFileOpen(); }); }
    void SAVE_Click() { act([this] { setupFile.SAVE_Click(); }); }
    void SAVE_AS_Click() { act([this] { setupFile.SAVE_AS_Click(); }); }
    void Command10_Click() { OPEN_Click(); }
    void Command11_Click() { SAVE_Click(); }

    // Timer ticks, as the window's timers deliver them while enabled. While the line is
    // not connected the link's ticks are held and the poll tries the device again.
    void Timer1_Timer();
    void Timer2_Timer() {
        if (line.connected()) poll([this] { link.Timer2_Timer(); });
    }
    void Timer3_Timer() {
        if (line.connected()) poll([this] { link.Timer3_Timer(); });
    }
    void Timer4_Timer() { act([this] { panel.Timer4_Timer(); }); }
    void Form6Timer_Timer() { act([this] { autoSetup.Timer1_Timer(); }); }

    // Adds a watcher of the line beside the line's own state (a client counting replies).
    // It must outlive the station.
    void watchLine(LinkEvents& watcher) { link.watch(&watcher); }

    // Runs one operator action at the error boundary; the runtime's text when it failed.
    std::optional<std::string> act(const std::function<void()>& action);

    StationForms forms();

    // Assembly by the desktop program. None of it changes what the station sends: the port
    // the line starts on, how a port the operator chooses is switched to and remembered,
    // where else the line log is written, and who hears of each setup file opened or saved.
    void assembleLine(PortChoice start, std::function<void(const PortChoice&)> switchPort,
                      std::function<void(const PortChoice&)> remember);
    void copyLineLogTo(std::function<void(const std::string&)> sink);
    void onFileUsed(std::function<void(const std::string&)> used);
    // Whether the poll reads each reply's checksum byte exactly (Setup, or an option).
    void readChecksumsExactly(bool on) { link.readChecksumsExactly(on); }

    // Words for the operator that need no answer: the status bar and the line log alike.
    void tell(const std::string& text);
    // A line for the line log alone.
    void noteLine(const std::string& text);
    // A file opened at start-up that SAVE must not write back to: the title and SAVE forget
    // its name, so that SAVE asks for one.
    void forgetFileName() { setupFile.setFileName(""); }
    // "Command console" in "&Help": the console, listing the setup data as a save would.
    void showConsole();

private:
    friend class Actions;
    friend class StationReadout;
    friend StationTicks stationTicks(Station& station);  // the timers the clocks drive

    std::string BaudStr;
    Notice notice;

    // State, window models and procedures, in dependency order.
    Shared shared;
    TypeTables types;
    SettingStores stores;
    Form1 form1;
    Form2 form2;
    Form4 form4;
    Form6 form6;
    Link link;
    LineState line;
    Console console;
    CameraTypes cameraTypes;
    SetupFile setupFile;
    MainPanel panel;
    AutoSetup autoSetup;
    FunctionEditor editor;
    CameraScenes scenes;
    PageTransfer pages;
    CameraSetDialog cameraSet;

    void wireControls();
    void poll(const std::function<void()>& tick);
    void report(const RuntimeError& error);
    void tellNotConnected();
    void speedRefused(const std::string& reason);

    // Reply dispatch: the panel's decoders first, then the function editor's.
    void RecModeMain(const std::string& c, const std::string& a, const std::string& d) override;
    void RecModeFunc(const std::string& c, const std::string& a, const std::string& d) override;
    void RecAnalogMain(const std::string& c, const std::string& a, const std::string& d) override;
    void RecAnalogFunc(const std::string& c, const std::string& a, const std::string& d,
                       const std::string& d2) override;
    void RecAuto(const std::string& op, const std::string& result) override;

    SerialPort& port_;
    MessageSink& messages_;
    bool ended_ = false;
    bool loaded_ = false;
};

}  // namespace station
