#pragma once
// The remote command set over OSC on UDP. Each message is a command (see osc_codec.hpp)
// answered to its sender with /reply. A client that sends /register gets every state
// change as a message from then on (at most 16 clients; /unregister ends it).

#include <QHostAddress>
#include <QObject>
#include <QUdpSocket>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "remote/osc_codec.hpp"

namespace station::ui {

class RemoteOscServer {
public:
    static constexpr int kMaxClients = 16;
    static constexpr int kPacketsPerTurn = 256;

    RemoteOscServer(std::function<std::string(std::string_view)> handle, std::function<void()> afterCommand);

    bool listen(const QHostAddress& address, quint16 port);
    void close();
    bool isListening() const { return socket_.state() == QAbstractSocket::BoundState; }
    quint16 port() const { return socket_.localPort(); }
    QString errorString() const { return socket_.errorString(); }
    int clientCount() const { return static_cast<int>(clients_.size()); }

    // Sends a state change to every registered client.
    void broadcast(const remote::StateItem& item);

private:
    struct Peer {
        QHostAddress address;
        quint16 port;
        bool operator==(const Peer&) const = default;
    };
    void take();
    std::string command(const remote::OscCommand& message, const Peer& from);
    void send(const Peer& to, const remote::Packet& packet);

    std::function<std::string(std::string_view)> handle_;
    std::function<void()> afterCommand_;
    QUdpSocket socket_;
    QObject context_;
    std::vector<Peer> clients_;
    bool scheduled_ = false;
};

}  // namespace station::ui
