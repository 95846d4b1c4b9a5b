#pragma once
// Control from outside for the desktop program: the remote command set on the station,
// served over TCP lines and OSC, both off until the operator turns them on (option or
// menu), both on the loopback address unless another address was named; and the browser
// panel, served on its own switch. Every state change a surface shows is pushed to the
// clients after each command and every 40 ms (the operator's own gestures and the camera's
// replies included).

#include <QHostAddress>
#include <QString>
#include <QTimer>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/station.hpp"
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
};

// The settings the remote-control options of the command line ask for; `error` is set when
// the address is not one.
RemoteSettings remoteSettings(const RemoteOptions& options, std::string& error);
// The browser panel as --web asks for it (off without it); `error` is set when the address is not one.
WebSettings webSettings(const RemoteOptions& options, std::string& error);


// The operator's screen as remote control sees it: the text of the box up there, closing it
// as its OK button does, and the station's messages held back while a command runs.
struct RemoteScreen {
    std::function<std::optional<std::string>()> box;
    std::function<bool()> closeBox;
    remote::HeldMessages* held = nullptr;
};

class RemoteControl {
public:
    // `refresh` redraws the windows after remote gestures.
    RemoteControl(Station& station, PresetDialogs& dialogs, RemoteSettings settings,
                  std::function<void()> refresh, RemoteScreen screen = {});

    // Opens or closes both transports; false, with error(), when one could not be opened.
    bool setEnabled(bool on);
    bool enabled() const { return tcp_.isListening(); }
    QString error() const { return error_; }
    // What the status bar says: where it listens while it is on, why it is not when it could
    // not start; nothing while it is off.
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
    RemoteTcpServer& tcp() { return tcp_; }
    RemoteOscServer& osc() { return osc_; }
    WebPanelServer& web() { return web_; }
    // Sends what changed to every client.
    void push();
    // To run just before each poll of the line: a fader's newest value goes out in time for it.
    void beforePoll() { commands_.beforePoll(); }

private:
    std::string answer(std::string_view line) { return commands_.execute(line); }
    // The browser pages' own lines: the panel's layout, and how many remote clients there are.
    std::vector<std::string> pageGreeting() const;
    void pushToPages();
    // Pushes run while anything is served.
    void followServing();

    RemoteSettings settings_;
    WebSettings webSettings_;
    std::function<void()> refresh_;
    remote::CommandSet commands_;
    RemoteTcpServer tcp_;
    RemoteOscServer osc_;
    WebPanelServer web_;
    remote::LayoutWatch layout_;
    int clientsTold_ = -1;
    QTimer pushTimer_;
    bool dirty_ = false;
    QString error_;
    QString webError_;
};

}  // namespace station::ui
