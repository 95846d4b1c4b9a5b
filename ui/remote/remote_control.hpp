#pragma once
// Control from outside for the desktop program: the remote command set on the station,
// served over TCP lines and OSC, both off until the operator turns them on (option or
// menu), both on the loopback address unless another address was named; and the browser
// panel, served on its own switch. Listening beyond this computer takes a passcode, which
// every peer from beyond (a TCP line, an OSC host, a browser page) gives before anything else.
// Every state change a surface shows is pushed to the clients when something changed: after
// each remote command at once, and 40 ms after the operator's gesture or the camera's reply
// (gathering what comes meanwhile); never on a clock, so at rest remote control costs nothing.

#include <QHostAddress>
#include <QString>
#include <QTimer>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/station.hpp"
#include "remote/access_gate.hpp"
#include "remote/button_feedback.hpp"
#include "remote/change_feed.hpp"
#include "remote/command_set.hpp"
#include "remote/panel_layout.hpp"
#include "ui/start/program_options.hpp"
#include "ui/remote/remote_osc.hpp"
#include "ui/remote/remote_tcp.hpp"
#include "ui/remote/web_panel.hpp"

namespace station::ui {

// The browser panel: off unless turned on; port 8080 on the loopback address.
struct WebSettings {
    bool enabled = false;
    QHostAddress address{QHostAddress::LocalHost};
    quint16 port = 8080;
};

struct RemoteSettings {
    bool enabled = false;
    QHostAddress address{QHostAddress::LocalHost};
    quint16 tcpPort = 5250;
    quint16 oscPort = 5251;
    std::optional<std::filesystem::path> fileFolder;  // none: no file commands
    TcpLimits tcp;
    std::string passcode{};  // empty: none, so remote control stays on this computer
};

// The settings the remote-control options of the command line ask for; `error` is set when
// the address is not one, or the passcode file cannot be read or holds no usable passcode.
RemoteSettings remoteSettings(const RemoteOptions& options, std::string& error);
// The browser panel as --web asks for it (off without it); `error` is set when the address is not one.
WebSettings webSettings(const RemoteOptions& options, std::string& error);

// The station's addresses beyond this computer that `address` opens (every interface's for
// the any-address), as the status bar names them.
QStringList openAddresses(const QHostAddress& address);

// The operator's screen as remote control sees it: the text of the box up there, closing it
// as its OK button does, and the station's messages held back while a command runs.
struct RemoteScreen {
    std::function<std::optional<std::string>()> box;
    std::function<bool()> closeBox;
    remote::HeldMessages* held = nullptr;
};

class RemoteControl {
public:
    // How long after a change its push waits for more, so that a flood of commands is told
    // in a few pushes and the windows are redrawn at most this often for remote gestures.
    static constexpr auto kPushDelay = std::chrono::milliseconds(40);

    // `refresh` redraws the windows after remote gestures.
    RemoteControl(Station& station, PresetDialogs& dialogs, RemoteSettings settings,
                  std::function<void()> refresh, RemoteScreen screen = {});

    // Opens or closes both transports; false, with error(), when one could not be opened
    // (or the address is beyond this computer and there is no passcode).
    bool setEnabled(bool on);
    bool enabled() const { return tcp_.isListening(); }
    // New settings (the Remote control window); opens again when it was on or `settings` says on.
    bool apply(const RemoteSettings& settings);
    QString error() const { return error_; }
    // What the status bar says: where it listens while it is on (every address beyond this
    // computer named), why it is not when it could not start; nothing while it is off.
    QString status() const;
    const RemoteSettings& settings() const { return settings_; }

    // Serves or stops the browser panel; false, with webError(), when it could not start.
    bool setWebEnabled(bool on);
    bool webEnabled() const { return web_.isListening(); }
    QString webError() const { return webError_; }
    // What the status bar says of the browser panel: its address while it is served, why
    // it is not when it could not start; nothing while it is off.
    QString webStatus() const;
    // Where the panel is served: its address and port, from now on.
    void setWebSettings(const WebSettings& web) { webSettings_ = web; }
    const WebSettings& webSettings() const { return webSettings_; }

    remote::CommandSet& commands() { return commands_; }
    remote::ChangeFeed& feed() { return feed_; }
    remote::AccessGate& gate() { return gate_; }
    RemoteTcpServer& tcp() { return tcp_; }
    RemoteOscServer& osc() { return osc_; }
    WebPanelServer& web() { return web_; }
    // Sends what changed to every client now.
    void push();
    // Something the windows show changed (they were redrawn): pushed soon if a surface shows it.
    void changed() { feed_.changed(); }
    // To run just before each poll of the line: a fader's newest value goes out in time for it.
    void beforePoll() { commands_.beforePoll(); }

private:
    std::unique_ptr<remote::RemoteSession> open(const QHostAddress& peer);
    void send(const remote::StateList& changed);
    // Delivers what changed, and the pages' own lines.
    void deliver();
    // Everything a surface shows, its button lamps included (for a receiver new to OSC).
    remote::StateList wholeState();
    // The browser pages' own lines: the panel's layout, and how many remote clients there are.
    std::vector<std::string> pageGreeting() const;
    void pushToPages();

    Station& station_;
    RemoteSettings settings_;
    WebSettings webSettings_;
    std::function<void()> refresh_;
    remote::CommandSet commands_;
    remote::AccessGate gate_;
    remote::ChangeFeed feed_{commands_};
    remote::ChangeFeed::Subscription subscription_;
    remote::ButtonFeedback lamps_{commands_.readout()};  // OSC surfaces' button lamps
    RemoteTcpServer tcp_;
    RemoteOscServer osc_;
    WebPanelServer web_;
    remote::LayoutWatch layout_;
    int clientsTold_ = -1;
    QTimer pushTimer_;  // one shot, started by the first change
    bool dirty_ = false;
    QString error_;
    QString webError_;
};

}  // namespace station::ui
