#include "ui/remote/remote_osc.hpp"

#include <QNetworkDatagram>
#include <QTimer>

#include <algorithm>
#include <optional>

#include "remote/command_words.hpp"

namespace station::ui {

RemoteOscServer::RemoteOscServer(std::function<std::string(std::string_view)> handle,
                                 std::function<void()> afterCommand)
    : handle_(std::move(handle)), afterCommand_(std::move(afterCommand)) {
    QObject::connect(&socket_, &QUdpSocket::readyRead, &context_, [this] { take(); });
}

bool RemoteOscServer::listen(const QHostAddress& address, quint16 port) { return socket_.bind(address, port); }

void RemoteOscServer::close() {
    socket_.close();
    clients_.clear();
}

void RemoteOscServer::send(const Peer& to, const remote::Packet& packet) {
    socket_.writeDatagram(reinterpret_cast<const char*>(packet.data()), static_cast<qint64>(packet.size()), to.address,
                          to.port);
}

void RemoteOscServer::broadcast(const remote::StateItem& item) {
    if (clients_.empty()) return;
    const remote::Packet packet = remote::encodeState(item);
    for (const Peer& peer : clients_) send(peer, packet);
}

std::string RemoteOscServer::command(const remote::OscCommand& message, const Peer& from) {
    if (!message.error.empty()) return "ERR " + message.error;
    std::optional<remote::OscReceiver> receiver;
    try {
        receiver = remote::receiverOf(message);
    } catch (const remote::CommandError& e) {
        return std::string("ERR ") + e.what();
    }
    if (!receiver) return handle_(message.text);
    Peer peer = from;
    if (!receiver->host.empty()) {
        const QString host = QString::fromStdString(receiver->host);
        peer.address = host.compare(QStringLiteral("localhost"), Qt::CaseInsensitive) == 0
                           ? QHostAddress(QHostAddress::LocalHost)
                           : QHostAddress(host);
        if (peer.address.isNull()) return "ERR not an address: " + receiver->host;
    }
    if (receiver->port != 0) peer.port = static_cast<quint16>(receiver->port);
    const auto found = std::find(clients_.begin(), clients_.end(), peer);
    if (!receiver->add) {
        if (found != clients_.end()) clients_.erase(found);
        return "OK";
    }
    if (found != clients_.end()) return "OK";
    if (clientCount() >= kMaxClients) return "ERR too many clients";
    clients_.push_back(peer);
    return "OK";
}

void RemoteOscServer::answer(const Peer& from, const std::string& reply) {
    const remote::Packet packet = remote::encodeReply(reply);
    send(from, packet);
    // A surface that sends from one port and listens on another registered the other.
    for (const Peer& peer : clients_)
        if (peer.address == from.address && peer.port != from.port) send(peer, packet);
}

void RemoteOscServer::take() {
    scheduled_ = false;
    for (int n = 0; n < kPacketsPerTurn && socket_.hasPendingDatagrams(); ++n) {
        const QNetworkDatagram datagram = socket_.receiveDatagram(64 * 1024);
        const QByteArray data = datagram.data();
        const Peer from{datagram.senderAddress(), static_cast<quint16>(datagram.senderPort())};
        const remote::OscCommand message =
            remote::decodeOsc(reinterpret_cast<const std::uint8_t*>(data.constData()), static_cast<std::size_t>(data.size()));
        if (message.ignored) continue;
        const std::string reply = command(message, from);
        if (!reply.empty()) answer(from, reply);
        if (afterCommand_) afterCommand_();
    }
    if (socket_.hasPendingDatagrams() && !scheduled_) {
        scheduled_ = true;
        QTimer::singleShot(0, &context_, [this] { take(); });
    }
}

}  // namespace station::ui
