#pragma once
// The remote command set over TCP: one command per line (UTF-8, LF or CR LF), one reply
// line per command, and pushed state lines ("EV <name> <value>") to every client.
//
// What a client cannot do: send a line over 1 KiB (it gets an ERR and the rest of that
// line is dropped), hold a place while it sends nothing (after the idle limit it is closed
// with a last line "EV closed idle"; receiving pushes does not count as activity), lock
// others out (when all 16 places are taken, a newcomer takes the place of the client idle
// the longest if that one has been idle for a minute, and is otherwise told
// "ERR busy: 16 clients connected" and closed: a client that works is never closed to make
// room), or hold the window up with a flood (lines are taken at
// most 256 at a time, then the window gets its turn). A client that pipelines is never
// closed for it: while more of its replies wait unread than the limit, its socket is not
// read (the network's own flow control slows it) until it has caught up; only a client that
// reads nothing for the idle limit is closed.
//
// Each connection is a session (remote_session.hpp): one from beyond this computer gives
// the passcode before anything else, and hears no pushes until it has.

#include <QHostAddress>
#include <QObject>
#include <QTcpServer>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "remote/remote_session.hpp"

class QTcpSocket;

namespace station::ui {

struct TcpLimits {
    int maxClients = 16;
    qint64 maxUnread = 256 * 1024;  // reply bytes waiting for the client before its socket is left unread
    std::chrono::milliseconds idle = std::chrono::minutes(10);
    // When all places are taken: how long a client must have been idle to give up its place.
    std::chrono::milliseconds evictable = std::chrono::minutes(1);
};

class RemoteTcpServer {
public:
    static constexpr int kLinesPerTurn = 256;
    static constexpr qint64 kInputWindow = 64 * 1024;

    // A session for a new connection from `peer`.
    using Opener = std::function<std::unique_ptr<remote::RemoteSession>(const QHostAddress& peer)>;
    // A session answers each line (an empty answer sends nothing); `afterLine` runs after each.
    RemoteTcpServer(Opener open, std::function<void()> afterLine, TcpLimits limits = {});
    ~RemoteTcpServer();
    RemoteTcpServer(const RemoteTcpServer&) = delete;
    RemoteTcpServer& operator=(const RemoteTcpServer&) = delete;

    bool listen(const QHostAddress& address, quint16 port);
    void close();
    bool isListening() const { return server_.isListening(); }
    quint16 port() const { return server_.serverPort(); }
    QString errorString() const { return server_.errorString(); }
    int clientCount() const { return static_cast<int>(clients_.size()); }
    const TcpLimits& limits() const { return limits_; }
    // How often a client's socket was left unread until it caught up with its replies.
    std::uint64_t holds() const { return holds_; }

    // Sends a line to every client that may hear it (on loopback, or it gave the passcode).
    void broadcast(const std::string& line);
    // How many newcomers were turned away because every place was taken by a working client.
    std::uint64_t turnedAway() const { return turnedAway_; }

private:
    using Clock = std::chrono::steady_clock;
    struct Client;
    void accept();
    void take(Client& client);
    void schedule(Client& client);
    void written(Client& client);
    void send(Client& client, const std::string& line);
    void closeIdle(Client& client);
    void sweep();
    Client* find(const QTcpSocket* socket);
    void drop(QTcpSocket* socket);

    void refuse(QTcpSocket* socket, const QByteArray& line);

    Opener open_;
    std::function<void()> afterLine_;
    TcpLimits limits_;
    QTcpServer server_;
    QObject context_;  // owns the connections of the clients' sockets
    QTimer sweeper_;   // looks for clients past the idle limit
    std::vector<std::unique_ptr<Client>> clients_;
    std::uint64_t holds_ = 0;
    std::uint64_t turnedAway_ = 0;
};

}  // namespace station::ui
