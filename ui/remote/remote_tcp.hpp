#pragma once
// The remote command set over TCP: one command per line (UTF-8, LF or CR LF), one reply
// line per command, and pushed state lines ("EV <name> <value>") to every client.
//
// What a client cannot do: send a line over 1 KiB (it gets an ERR and the rest of that
// line is dropped), keep more than 16 connections (the 17th is told and closed), leave
// 256 KiB of replies unread (it is closed), or hold the window up with a flood (lines are
// taken at most 256 at a time, then the window gets its turn).

#include <QHostAddress>
#include <QObject>
#include <QTcpServer>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QTcpSocket;

namespace station::ui {

class RemoteTcpServer {
public:
    static constexpr int kMaxClients = 16;
    static constexpr qint64 kMaxUnread = 256 * 1024;
    static constexpr int kLinesPerTurn = 256;
    static constexpr qint64 kInputWindow = 64 * 1024;

    // `handle` answers a line (an empty answer sends nothing); `afterLine` runs after each.
    RemoteTcpServer(std::function<std::string(std::string_view)> handle, std::function<void()> afterLine);
    ~RemoteTcpServer();

    bool listen(const QHostAddress& address, quint16 port);
    void close();
    bool isListening() const { return server_.isListening(); }
    quint16 port() const { return server_.serverPort(); }
    QString errorString() const { return server_.errorString(); }
    int clientCount() const { return static_cast<int>(clients_.size()); }

    // Sends a line to every client.
    void broadcast(const std::string& line);

private:
    struct Client;
    void accept();
    void take(Client& client);
    void send(Client& client, const std::string& line);
    void drop(QTcpSocket* socket);

    std::function<std::string(std::string_view)> handle_;
    std::function<void()> afterLine_;
    QTcpServer server_;
    QObject context_;  // owns the connections of the clients' sockets
    std::vector<std::unique_ptr<Client>> clients_;
};

}  // namespace station::ui
