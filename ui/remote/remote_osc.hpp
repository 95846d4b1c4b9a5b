#pragma once
// The remote command set over OSC on UDP. Each message is a command (see osc_codec.hpp)
// answered to its sender with /reply; a button's release is neither carried out nor
// answered. "/register" makes the sender a receiver of every state change from then on;
// "/register P" the sender's host at port P, "/register HOST P" another host (at most 16
// receivers, each counted once; "/unregister [HOST] [P]" ends it). A receiver on the
// sender's host gets the sender's replies too.
//
// A sender beyond this computer is ignored until its host has sent "/auth PASSCODE"
// (answered, right or wrong); from then on that host is in. Registering a receiver on
// another host than the sender's takes a sender that is in. A new receiver is sent the
// whole state at once, so that a surface started late shows what the station shows.
//
// Every datagram waiting is read each time the socket signals, in turns of
// kPacketsPerTurn so that the window keeps going; the socket is never left unwatched.
// Datagrams the system dropped before they could be read (its queue was full) are counted.

#include <QHostAddress>
#include <QObject>
#include <QUdpSocket>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "remote/osc_codec.hpp"
#include "remote/remote_session.hpp"

namespace station::ui {

class RemoteOscServer {
public:
    static constexpr int kMaxClients = 16;
    static constexpr int kPacketsPerTurn = 256;

    // A session for messages from `host` (one per sender host).
    using Opener = std::function<std::unique_ptr<remote::RemoteSession>(const QHostAddress& host)>;
    // `state` is the whole state a new receiver is sent.
    RemoteOscServer(Opener open, std::function<void()> afterCommand, std::function<remote::StateList()> state);
    ~RemoteOscServer();
    RemoteOscServer(const RemoteOscServer&) = delete;
    RemoteOscServer& operator=(const RemoteOscServer&) = delete;

    bool listen(const QHostAddress& address, quint16 port);
    void close();
    bool isListening() const { return socket_.state() == QAbstractSocket::BoundState; }
    quint16 port() const { return socket_.localPort(); }
    QString errorString() const { return socket_.errorString(); }
    int clientCount() const { return static_cast<int>(clients_.size()); }

    // Sends a state change to every registered client.
    void broadcast(const remote::StateItem& item);
    // Datagrams the system dropped because they were not read in time (since listening).
    std::uint64_t dropped() const { return dropped_; }
    // Told how many more datagrams the system dropped, when it did.
    std::function<void(std::uint64_t more)> onDropped;

private:
    struct Peer {
        QHostAddress address;
        quint16 port;
        bool operator==(const Peer&) const = default;
    };
    void take();
    void countDrops();
    std::string command(const remote::OscCommand& message, const Peer& from, remote::RemoteSession& session);
    // The session of the sender's host; nothing when it is beyond this computer and has not
    // given the passcode (a passcode attempt gets a session that lives for it alone).
    remote::RemoteSession* sessionOf(const QHostAddress& host);
    void send(const Peer& to, const remote::Packet& packet);
    void answer(const Peer& from, const std::string& reply);

    Opener open_;
    std::function<void()> afterCommand_;
    std::function<remote::StateList()> state_;
    QUdpSocket socket_;
    QObject context_;
    std::vector<Peer> clients_;
    std::map<QString, std::unique_ptr<remote::RemoteSession>> sessions_;  // hosts that are in
    std::unique_ptr<remote::RemoteSession> passing_;  // a host beyond, for one message
    bool scheduled_ = false;
    std::uint64_t dropped_ = 0;
    std::uint64_t baseDrops_ = 0;  // dropped before this station listened
};

}  // namespace station::ui
