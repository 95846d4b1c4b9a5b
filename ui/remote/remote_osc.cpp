#include "ui/remote/remote_osc.hpp"

#include <QNetworkDatagram>
#include <QTimer>

#include <algorithm>

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
    if (message.address == "/register") {
        if (std::find(clients_.begin(), clients_.end(), from) != clients_.end()) return "OK";
        if (clientCount() >= kMaxClients) return "ERR too many clients";
        clients_.push_back(from);
        return "OK";
    }
    if (message.address == "/unregister") {
        clients_.erase(std::remove(clients_.begin(), clients_.end(), from), clients_.end());
        return "OK";
    }
    return handle_(message.text);
}

void RemoteOscServer::take() {
    scheduled_ = false;
    for (int n = 0; n < kPacketsPerTurn && socket_.hasPendingDatagrams(); ++n) {
        const QNetworkDatagram datagram = socket_.receiveDatagram(64 * 1024);
        const QByteArray data = datagram.data();
        const Peer from{datagram.senderAddress(), static_cast<quint16>(datagram.senderPort())};
        const remote::OscCommand message =
            remote::decodeOsc(reinterpret_cast<const std::uint8_t*>(data.constData()), static_cast<std::size_t>(data.size()));
        const std::string reply = command(message, from);
        if (!reply.empty()) send(from, remote::encodeReply(reply));
        if (afterCommand_) afterCommand_();
    }
    if (socket_.hasPendingDatagrams() && !scheduled_) {
        scheduled_ = true;
        QTimer::singleShot(0, &context_, [this] { take(); });
    }
}

}  // namespace station::ui
