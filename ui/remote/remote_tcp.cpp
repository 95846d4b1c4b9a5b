#include "ui/remote/remote_tcp.hpp"

#include <QTcpSocket>

#include <algorithm>

#include "remote/command_words.hpp"

namespace station::ui {

namespace {
constexpr auto kLastLineTime = std::chrono::seconds(5);  // for a closed client to take its last line
}

struct RemoteTcpServer::Client {
    QTcpSocket* socket;
    std::unique_ptr<remote::RemoteSession> session;
    Clock::time_point heard;  // the last time it sent something, or read replies it was held for
    QByteArray input;
    bool discarding = false;  // the rest of an overlong line is being dropped
    bool scheduled = false;   // more lines wait for the next turn
    bool held = false;        // too many replies unread: its socket is left unread
};

RemoteTcpServer::RemoteTcpServer(Opener open, std::function<void()> afterLine, TcpLimits limits)
    : open_(std::move(open)), afterLine_(std::move(afterLine)), limits_(limits) {
    server_.setMaxPendingConnections(limits_.maxClients);
    QObject::connect(&server_, &QTcpServer::newConnection, &context_, [this] { accept(); });
    // A quarter of the limit, so that an idle client goes at most a quarter late.
    const auto every = std::clamp<std::chrono::milliseconds>(limits_.idle / 4, std::chrono::milliseconds(10),
                                                             std::chrono::seconds(1));
    sweeper_.setInterval(every);
    QObject::connect(&sweeper_, &QTimer::timeout, &context_, [this] { sweep(); });
}

RemoteTcpServer::~RemoteTcpServer() { close(); }

bool RemoteTcpServer::listen(const QHostAddress& address, quint16 port) {
    if (!server_.listen(address, port)) return false;
    sweeper_.start();
    return true;
}

void RemoteTcpServer::close() {
    sweeper_.stop();
    server_.close();
    while (!clients_.empty()) drop(clients_.back()->socket);
}

RemoteTcpServer::Client* RemoteTcpServer::find(const QTcpSocket* socket) {
    const auto it = std::find_if(clients_.begin(), clients_.end(), [socket](const auto& c) { return c->socket == socket; });
    return it == clients_.end() ? nullptr : it->get();
}

void RemoteTcpServer::accept() {
    while (QTcpSocket* socket = server_.nextPendingConnection()) {
        if (clientCount() >= limits_.maxClients && !clients_.empty()) {
            // Only a client idle for a while gives its place up; one that works keeps it.
            const auto oldest = std::min_element(clients_.begin(), clients_.end(),
                                                 [](const auto& a, const auto& b) { return a->heard < b->heard; });
            if (Clock::now() - (*oldest)->heard < limits_.evictable) {
                ++turnedAway_;
                refuse(socket, "ERR busy: " + QByteArray::number(limits_.maxClients) + " clients connected\n");
                continue;
            }
            closeIdle(**oldest);
        }
        socket->setReadBufferSize(kInputWindow);
        clients_.push_back(std::make_unique<Client>(Client{socket, open_(socket->peerAddress()), Clock::now(), {}}));
        Client* client = clients_.back().get();
        QObject::connect(socket, &QTcpSocket::readyRead, &context_, [this, client] { take(*client); });
        QObject::connect(socket, &QTcpSocket::bytesWritten, &context_, [this, client] { written(*client); });
        QObject::connect(socket, &QTcpSocket::disconnected, &context_, [this, socket] { drop(socket); });
    }
}

void RemoteTcpServer::refuse(QTcpSocket* socket, const QByteArray& line) {
    socket->write(line);
    QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    QTimer::singleShot(kLastLineTime, socket, [socket] { socket->abort(); socket->deleteLater(); });
    socket->disconnectFromHost();
}

void RemoteTcpServer::drop(QTcpSocket* socket) {
    const auto it = std::find_if(clients_.begin(), clients_.end(), [socket](const auto& c) { return c->socket == socket; });
    if (it == clients_.end()) return;
    clients_.erase(it);
    QObject::disconnect(socket, nullptr, &context_, nullptr);
    socket->abort();
    socket->deleteLater();
}

void RemoteTcpServer::closeIdle(Client& client) {
    QTcpSocket* socket = client.socket;
    const bool held = client.held;
    clients_.erase(std::find_if(clients_.begin(), clients_.end(), [&](const auto& c) { return c.get() == &client; }));
    QObject::disconnect(socket, nullptr, &context_, nullptr);
    if (held) {  // it reads nothing: a last line would never reach it
        socket->abort();
        socket->deleteLater();
        return;
    }
    socket->write("EV closed idle\n");
    // The last line goes out after what is still waiting; a client that reads nothing at
    // all is cut off after a few seconds rather than holding the socket open.
    QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    QTimer::singleShot(kLastLineTime, socket, [socket] { socket->abort(); socket->deleteLater(); });
    socket->disconnectFromHost();
}

void RemoteTcpServer::sweep() {
    const Clock::time_point now = Clock::now();
    std::vector<Client*> idle;
    for (const auto& c : clients_)
        if (now - c->heard >= limits_.idle) idle.push_back(c.get());
    for (Client* c : idle) closeIdle(*c);
}

void RemoteTcpServer::send(Client& client, const std::string& line) {
    client.socket->write(line.data(), static_cast<qint64>(line.size()));
    client.socket->write("\n", 1);
}

void RemoteTcpServer::broadcast(const std::string& line) {
    for (auto& client : clients_)
        if (client->session->authenticated()) send(*client, line);
}

void RemoteTcpServer::written(Client& client) {
    if (!client.held) return;  // pushes read by a client that sends nothing do not keep it
    client.heard = Clock::now();  // it reads the replies it was held for
    if (client.socket->bytesToWrite() > limits_.maxUnread) return;
    client.held = false;
    schedule(client);
}

void RemoteTcpServer::schedule(Client& client) {
    if (client.scheduled) return;
    client.scheduled = true;
    QTimer::singleShot(0, &context_, [this, socket = client.socket] {
        if (Client* c = find(socket)) take(*c);
    });
}

void RemoteTcpServer::take(Client& client) {
    QTcpSocket* socket = client.socket;
    client.scheduled = false;
    if (client.held) return;  // its replies first; written() takes up again
    // What is not taken yet stays with the socket, whose bounded buffer slows the sender.
    if (client.input.size() < kInputWindow) {
        const QByteArray more = socket->read(kInputWindow - client.input.size());
        if (!more.isEmpty()) client.heard = Clock::now();
        client.input += more;
    }
    int lines = 0;
    while (lines < kLinesPerTurn) {
        if (socket->bytesToWrite() > limits_.maxUnread) {
            client.held = true;
            ++holds_;
            return;
        }
        const qsizetype end = client.input.indexOf('\n');
        if (end < 0) {
            if (!client.discarding && client.input.size() > static_cast<qsizetype>(remote::kMaxLineBytes)) {
                send(client, "ERR line too long (over 1024 bytes)");
                client.discarding = true;
            }
            if (client.discarding) client.input.clear();
            break;
        }
        const QByteArray line = client.input.left(end);
        client.input.remove(0, end + 1);
        if (client.discarding) {
            client.discarding = false;
            continue;
        }
        ++lines;
        const std::string reply = client.session->execute(
            std::string_view(line.constData(), static_cast<std::size_t>(line.size())), Clock::now());
        // The handler may have run a message box, in which the client may have gone.
        if (find(socket) != &client) return;
        if (!reply.empty()) send(client, reply);
        if (afterLine_) afterLine_();
    }
    // A flood is taken in turns, so that the window and the other clients keep going.
    if (client.input.contains('\n') || socket->bytesAvailable() > 0) schedule(client);
}

}  // namespace station::ui
