#pragma once
// The browser panel: the station serves a touch panel over HTTP (its files are compiled into
// the program, so a tablet on a studio network without internet gets all of it from here),
// and each page that opens talks to the station over one WebSocket, as a TCP client does
// over its line: each message one command line of the remote command set, answered with its
// reply; every pushed "EV ..." line reaches every page. Beside those, a page is told how the
// panel is laid out now ("EV panel ...", remote/panel_layout.hpp) and how many remote clients
// are connected ("EV clients N").
//
// Each page is a remote session (remote/remote_session.hpp): a page from beyond this computer
// gives the remote control's passcode before anything else, and hears nothing until it has
// (whether the network may be served at all is the remote control's to decide). A WebSocket
// opened by a page that came from elsewhere (another web site in the operator's browser) is
// closed before it can send anything.

#include <QHostAddress>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "remote/remote_session.hpp"

class QHttpServer;
class QTcpServer;
class QWebSocket;

namespace station::ui {

class WebPanelServer {
public:
    static constexpr int kMaxPages = 16;
    // A command line no longer than this (the command set refuses longer lines with its reason).
    static constexpr qint64 kMaxMessage = 64 * 1024;

    // A session for a new page from `peer`.
    using Opener = std::function<std::unique_ptr<remote::RemoteSession>(const QHostAddress& peer)>;
    // A page's session answers each command line (an empty answer sends nothing); `afterLine`
    // runs after each; `greeting` gives the lines a page is sent once it may hear them.
    WebPanelServer(Opener open, std::function<void()> afterLine, std::function<std::vector<std::string>()> greeting);
    ~WebPanelServer();
    WebPanelServer(const WebPanelServer&) = delete;
    WebPanelServer& operator=(const WebPanelServer&) = delete;

    // False, with errorString(), when the port cannot be had.
    bool listen(const QHostAddress& address, quint16 port);
    void close();
    bool isListening() const { return listening_; }
    quint16 port() const { return port_; }
    QString errorString() const { return error_; }
    int pageCount() const { return static_cast<int>(pages_.size()); }

    // Sends a line to every page that may hear it (on loopback, or it gave the passcode).
    void broadcast(const std::string& line);

private:
    struct Page;
    void accept();
    void take(Page& page, const QString& message);
    void greet(QWebSocket& socket);
    void drop(const QWebSocket* socket);

    Opener open_;
    std::function<void()> afterLine_;
    std::function<std::vector<std::string>()> greeting_;
    std::unique_ptr<QHttpServer> http_;  // made anew for each listen: a server cannot stop listening
    QObject context_;                    // owns the connections of the pages' sockets
    std::vector<std::unique_ptr<Page>> pages_;
    bool listening_ = false;
    quint16 port_ = 0;
    QString error_;
};

// Whether a WebSocket's handshake came from the station's own page: no Origin (not a
// browser), or an Origin naming the host and port the page was asked for.
bool fromOwnPage(const QString& origin, const QString& host, quint16 port);

}  // namespace station::ui
