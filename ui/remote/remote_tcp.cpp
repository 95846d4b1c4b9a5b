#include "ui/remote/remote_tcp.hpp"

#include <QTcpSocket>
#include <QTimer>

#include <algorithm>

#include "remote/command_words.hpp"

namespace station::ui {

struct RemoteTcpServer::Client {
    QTcpSocket* socket;
    QByteArray input;
    bool discarding = false;  // the rest of an overlong line is being dropped
    bool scheduled = false;   // more lines wait for the next turn
};

RemoteTcpServer::RemoteTcpServer(std::function<std::string(std::string_view)> handle, std::function<void()> afterLine)
    : handle_(std::move(handle)), afterLine_(std::move(afterLine)) {
    server_.setMaxPendingConnections(kMaxClients);
    QObject::connect(&server_, &QTcpServer::newConnection, &context_, [this] { accept(); });
}

RemoteTcpServer::~RemoteTcpServer() { close(); }

bool RemoteTcpServer::listen(const QHostAddress& address, quint16 port) { return server_.listen(address, port); }

void RemoteTcpServer::close() {
    server_.close();
    while (!clients_.empty()) drop(clients_.back()->socket);
}

void RemoteTcpServer::accept() {
    while (QTcpSocket* socket = server_.nextPendingConnection()) {
        if (clientCount() >= kMaxClients) {
            socket->write("ERR too many clients\n");
            socket->disconnectFromHost();
            QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            continue;
        }
        socket->setReadBufferSize(kInputWindow);
        clients_.push_back(std::make_unique<Client>(Client{socket, {}}));
        Client* client = clients_.back().get();
        QObject::connect(socket, &QTcpSocket::readyRead, &context_, [this, client] { take(*client); });
        QObject::connect(socket, &QTcpSocket::disconnected, &context_, [this, socket] { drop(socket); });
    }
}

void RemoteTcpServer::drop(QTcpSocket* socket) {
    const auto it = std::find_if(clients_.begin(), clients_.end(), [socket](const auto& c) { return c->socket == socket; });
    if (it == clients_.end()) return;
    clients_.erase(it);
    QObject::disconnect(socket, nullptr, &context_, nullptr);
    socket->abort();
    socket->deleteLater();
}

void RemoteTcpServer::send(Client& client, const std::string& line) {
    if (client.socket->bytesToWrite() > kMaxUnread) {
        // A client that does not read its replies is not kept waiting for.
        QTimer::singleShot(0, &context_, [this, socket = client.socket] { drop(socket); });
        return;
    }
    client.socket->write(line.data(), static_cast<qint64>(line.size()));
    client.socket->write("\n", 1);
}

void RemoteTcpServer::broadcast(const std::string& line) {
    for (auto& client : clients_) send(*client, line);
}

void RemoteTcpServer::take(Client& client) {
    QTcpSocket* socket = client.socket;
    client.scheduled = false;
    // What is not taken yet stays with the socket, whose bounded buffer slows the sender.
    if (client.input.size() < kInputWindow) client.input += socket->read(kInputWindow - client.input.size());
    int lines = 0;
    while (lines < kLinesPerTurn) {
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
        const std::string reply = handle_(std::string_view(line.constData(), static_cast<std::size_t>(line.size())));
        // The handler may have run a message box, in which the client may have gone.
        if (std::none_of(clients_.begin(), clients_.end(), [&](const auto& c) { return c.get() == &client; })) return;
        if (!reply.empty()) send(client, reply);
        if (afterLine_) afterLine_();
    }
    // A flood is taken in turns, so that the window and the other clients keep going.
    if ((client.input.contains('\n') || socket->bytesAvailable() > 0) && !client.scheduled) {
        client.scheduled = true;
        QTimer::singleShot(0, &context_, [this, socket] {
            const auto it = std::find_if(clients_.begin(), clients_.end(), [socket](const auto& c) { return c->socket == socket; });
            if (it != clients_.end()) take(**it);
        });
    }
}

}  // namespace station::ui
