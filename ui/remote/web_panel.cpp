#include "ui/remote/web_panel.hpp"

#include <QFile>
#include <QHttpServer>
#include <QHttpServerResponse>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>
#include <QWebSocket>

#include <algorithm>
#include <chrono>

// The page's files are compiled into this library; a program linking it statically loads them here.
static void loadPageFiles() { Q_INIT_RESOURCE(web); }

namespace station::ui {

namespace {

// Accepts connections whose small messages go out at once: a page sends a fader's next value
// when the reply to the last has come, and a reply held back for the network's
// acknowledgement would hold the fader by as much.
class LowDelayServer : public QTcpServer {
protected:
    void incomingConnection(qintptr descriptor) override {
        auto socket = std::make_unique<QTcpSocket>(this);
        if (!socket->setSocketDescriptor(descriptor)) return;
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        addPendingConnection(socket.release());  // this server owns it, as its parent
    }
};

// The page's files, as the program holds them.
QString resourceOf(const QString& name) { return QStringLiteral(":/web/") + name; }

QHttpServerResponse file(const QString& name) {
    if (name.contains(QLatin1Char('/')) || !QFile::exists(resourceOf(name)))
        return QHttpServerResponse(QHttpServerResponder::StatusCode::NotFound);
    QHttpServerResponse response = QHttpServerResponse::fromFile(resourceOf(name));
    // The panel is this program's: after an update the tablet takes the new files.
    response.setHeader("Cache-Control", "no-cache");
    return response;
}

}  // namespace

bool fromOwnPage(const QString& origin, const QString& host, quint16 port) {
    if (origin.isEmpty()) return true;
    const QUrl url(origin);
    return url.scheme() == QStringLiteral("http") && url.port(80) == port && url.host().compare(host, Qt::CaseInsensitive) == 0;
}

struct WebPanelServer::Page {
    std::unique_ptr<QWebSocket> socket;
    std::unique_ptr<remote::RemoteSession> session;
};

WebPanelServer::WebPanelServer(Opener open, std::function<void()> afterLine,
                               std::function<std::vector<std::string>()> greeting)
    : open_(std::move(open)), afterLine_(std::move(afterLine)), greeting_(std::move(greeting)) {
    loadPageFiles();
}

WebPanelServer::~WebPanelServer() { close(); }

bool WebPanelServer::listen(const QHostAddress& address, quint16 port) {
    close();
    auto tcp = std::make_unique<LowDelayServer>();
    if (!tcp->listen(address, port)) {
        error_ = tcp->errorString();
        return false;
    }
    port_ = tcp->serverPort();
    http_ = std::make_unique<QHttpServer>();
    // The page's WebSocket: the server upgrades it by itself once this route has answered
    // nothing (its answer would go out before the upgrade and spoil the handshake).
    http_->route(QStringLiteral("/ws"), [](QHttpServerResponder&&) {});
    http_->route(QStringLiteral("/"), [] { return file(QStringLiteral("index.html")); });
    http_->route(QStringLiteral("/<arg>"), [](const QString& name) { return file(name); });
    QObject::connect(http_.get(), &QAbstractHttpServer::newWebSocketConnection, &context_, [this] { accept(); });
    http_->bind(tcp.release());  // the HTTP server owns it from here
    listening_ = true;
    error_.clear();
    return true;
}

void WebPanelServer::close() {
    while (!pages_.empty()) drop(pages_.back()->socket.get());
    http_.reset();
    listening_ = false;
    port_ = 0;
}

void WebPanelServer::accept() {
    while (http_ && http_->hasPendingWebSocketConnections()) {
        std::unique_ptr<QWebSocket> socket = http_->nextPendingWebSocketConnection();
        if (!socket) break;
        const QUrl asked = socket->requestUrl();
        if (!fromOwnPage(socket->origin(), asked.host(), port_)) {
            socket->close(QWebSocketProtocol::CloseCodePolicyViolated, QStringLiteral("not the station's own page"));
            socket.release()->deleteLater();
            continue;
        }
        if (pageCount() >= kMaxPages) {
            socket->close(QWebSocketProtocol::CloseCodeGoingAway,
                          QStringLiteral("busy: %1 pages connected").arg(kMaxPages));
            socket.release()->deleteLater();
            continue;
        }
        socket->setMaxAllowedIncomingMessageSize(kMaxMessage);
        std::unique_ptr<remote::RemoteSession> session = open_(socket->peerAddress());
        pages_.push_back(std::make_unique<Page>(Page{std::move(socket), std::move(session)}));
        Page* page = pages_.back().get();
        QWebSocket* s = page->socket.get();
        QObject::connect(s, &QWebSocket::textMessageReceived, &context_, [this, page](const QString& m) { take(*page, m); });
        QObject::connect(s, &QWebSocket::disconnected, &context_, [this, s] { drop(s); });
        if (page->session->authenticated()) greet(*s);
    }
}

void WebPanelServer::greet(QWebSocket& socket) {
    if (!greeting_) return;
    for (const std::string& line : greeting_()) socket.sendTextMessage(QString::fromStdString(line));
}

void WebPanelServer::drop(const QWebSocket* socket) {
    const auto it = std::find_if(pages_.begin(), pages_.end(), [socket](const auto& p) { return p->socket.get() == socket; });
    if (it == pages_.end()) return;
    QWebSocket* s = (*it)->socket.release();
    pages_.erase(it);
    QObject::disconnect(s, nullptr, &context_, nullptr);
    s->abort();
    s->deleteLater();  // it may be telling of its own end right now
}

void WebPanelServer::take(Page& page, const QString& message) {
    QWebSocket* socket = page.socket.get();
    const QByteArray line = message.toUtf8();
    const bool wasIn = page.session->authenticated();
    const std::string reply = page.session->execute(
        std::string_view(line.constData(), static_cast<std::size_t>(line.size())), std::chrono::steady_clock::now());
    // The handler may have run a message box, in which the page may have gone.
    const bool there = std::any_of(pages_.begin(), pages_.end(), [socket](const auto& p) { return p->socket.get() == socket; });
    if (!there) return;
    if (!reply.empty()) socket->sendTextMessage(QString::fromStdString(reply));
    // A page from beyond this computer is told the panel's layout once it gave the passcode.
    if (!wasIn && page.session->authenticated()) greet(*socket);
    if (afterLine_) afterLine_();
}

void WebPanelServer::broadcast(const std::string& line) {
    const QString text = QString::fromStdString(line);
    for (const auto& page : pages_)
        if (page->session->authenticated()) page->socket->sendTextMessage(text);
}

}  // namespace station::ui
