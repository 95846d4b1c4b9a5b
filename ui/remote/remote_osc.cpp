#include "ui/remote/remote_osc.hpp"

#include <QFile>
#include <QNetworkDatagram>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <optional>

#include "remote/command_words.hpp"

namespace station::ui {

namespace {

constexpr std::size_t kMaxSessions = 64;  // hosts that gave the passcode

// What the system has dropped for the UDP socket bound to `port` (the "drops" column of
// /proc/net/udp and udp6); nothing where the system does not tell.
std::optional<std::uint64_t> systemDrops(quint16 port) {
    std::optional<std::uint64_t> total;
    for (const char* table : {"/proc/net/udp", "/proc/net/udp6"}) {
        QFile file(QString::fromLatin1(table));
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) continue;
        file.readLine();  // the heading
        const QByteArray local = ":" + QByteArray::number(port, 16).toUpper().rightJustified(4, '0');
        while (!file.atEnd()) {
            const QList<QByteArray> fields = file.readLine().simplified().split(' ');
            if (fields.size() < 13 || !fields[1].endsWith(local)) continue;
            total = total.value_or(0) + fields.last().toULongLong();
        }
    }
    return total;
}

}  // namespace

RemoteOscServer::RemoteOscServer(Opener open, std::function<void()> afterCommand,
                                 std::function<remote::StateList()> state)
    : open_(std::move(open)), afterCommand_(std::move(afterCommand)), state_(std::move(state)) {
    QObject::connect(&socket_, &QUdpSocket::readyRead, &context_, [this] { take(); });
}

RemoteOscServer::~RemoteOscServer() { close(); }

bool RemoteOscServer::listen(const QHostAddress& address, quint16 port) {
    if (!socket_.bind(address, port)) return false;
    dropped_ = 0;
    baseDrops_ = systemDrops(socket_.localPort()).value_or(0);
    return true;
}

void RemoteOscServer::close() {
    socket_.close();
    clients_.clear();
    sessions_.clear();
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

remote::RemoteSession* RemoteOscServer::sessionOf(const QHostAddress& host) {
    const QString key = host.toString();
    if (const auto it = sessions_.find(key); it != sessions_.end()) return it->second.get();
    std::unique_ptr<remote::RemoteSession> session = open_(host);
    if (!session->authenticated()) {
        passing_ = std::move(session);
        return passing_.get();
    }
    if (sessions_.size() >= kMaxSessions) sessions_.erase(sessions_.begin());
    return sessions_.emplace(key, std::move(session)).first->second.get();
}

std::string RemoteOscServer::command(const remote::OscCommand& message, const Peer& from,
                                     remote::RemoteSession& session) {
    if (!message.error.empty()) return "ERR " + message.error;
    std::optional<remote::OscReceiver> receiver;
    try {
        receiver = remote::receiverOf(message);
    } catch (const remote::CommandError& e) {
        return std::string("ERR ") + e.what();
    }
    if (!receiver) return session.execute(message.text, std::chrono::steady_clock::now());
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
    // A surface that starts late shows at once what the station shows.
    if (state_)
        for (const remote::StateItem& item : state_()) send(peer, remote::encodeState(item));
    return "OK";
}

void RemoteOscServer::answer(const Peer& from, const std::string& reply) {
    const remote::Packet packet = remote::encodeReply(reply);
    send(from, packet);
    // A surface that sends from one port and listens on another registered the other.
    for (const Peer& peer : clients_)
        if (peer.address == from.address && peer.port != from.port) send(peer, packet);
}

void RemoteOscServer::countDrops() {
    const auto drops = systemDrops(socket_.localPort());
    if (!drops || *drops <= baseDrops_ + dropped_) return;
    const std::uint64_t more = *drops - baseDrops_ - dropped_;
    dropped_ += more;
    if (onDropped) onDropped(more);
}

void RemoteOscServer::take() {
    scheduled_ = false;
    int n = 0;
    // The first read is made whatever the socket says is waiting: Qt watches the socket
    // again only once something was read after it signalled, so a turn that read nothing
    // would leave it unwatched for good (deaf after a burst).
    for (; n < kPacketsPerTurn && (n == 0 || socket_.hasPendingDatagrams()); ++n) {
        const QNetworkDatagram datagram = socket_.receiveDatagram(64 * 1024);
        if (!datagram.isValid()) break;
        const QByteArray data = datagram.data();
        const Peer from{datagram.senderAddress(), static_cast<quint16>(datagram.senderPort())};
        const remote::OscCommand message =
            remote::decodeOsc(reinterpret_cast<const std::uint8_t*>(data.constData()), static_cast<std::size_t>(data.size()));
        if (message.ignored) continue;
        remote::RemoteSession* session = sessionOf(from.address);
        std::string passcode;
        const bool authLine = message.error.empty() && remote::isAuthLine(message.text, passcode);
        // Beyond this computer, nothing but the passcode is even answered until it was given.
        if (!session->authenticated() && !authLine) continue;
        const std::string reply = command(message, from, *session);
        if (authLine && session == passing_.get() && session->authenticated()) {
            if (sessions_.size() >= kMaxSessions) sessions_.erase(sessions_.begin());
            sessions_.emplace(from.address.toString(), std::move(passing_));
        }
        passing_.reset();
        if (!reply.empty()) answer(from, reply);
        if (afterCommand_) afterCommand_();
    }
    // A full turn means a burst: whatever is still waiting is read in the next turn, after
    // the window has had its own; what the system could not hold is counted.
    if (n == kPacketsPerTurn) countDrops();
    if (socket_.hasPendingDatagrams() && !scheduled_) {
        scheduled_ = true;
        QTimer::singleShot(0, &context_, [this] { take(); });
    }
}

}  // namespace station::ui
