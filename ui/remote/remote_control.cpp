#include "ui/remote/remote_control.hpp"

#include <QFile>
#include <QNetworkInterface>

namespace station::ui {

namespace {
std::string pushedLine(const remote::StateItem& item) { return "EV " + item.key + " " + remote::quoteWord(item.value); }

// The first line of a passcode file, without its line end.
std::optional<std::string> readPasscodeFile(const std::filesystem::path& path, std::string& error) {
    QFile file(QString::fromStdString(path.string()));
    if (!file.open(QIODevice::ReadOnly)) {
        error = "--remote-passcode-file: cannot read " + path.string();
        return std::nullopt;
    }
    const std::string first = file.readLine(4096).trimmed().toStdString();
    if (const std::string problem = remote::AccessGate::passcodeProblem(first); !problem.empty()) {
        error = "--remote-passcode-file " + path.string() + ": " + problem;
        return std::nullopt;
    }
    return first;
}

// Why the station may not do `what` on `address`: beyond this computer, without a passcode.
QString networkRefusal(const QString& what, const QHostAddress& address, const remote::AccessGate& gate) {
    if (address.isLoopback() || gate.hasPasscode()) return {};
    return QStringLiteral("%1 on %2 opens the station to the network, which takes a passcode "
                          "(Setup > Remote control settings)")
        .arg(what, address.toString());
}

// Why `server` could not listen on `port` of `address`, the port named as `portName` says;
// nothing once it listens.
template <typename Server>
QString listenFailure(Server& server, const QHostAddress& address, quint16 port, const QString& portName) {
    if (server.listen(address, port)) return {};
    return QStringLiteral("%1 %2: %3").arg(portName).arg(port).arg(server.errorString());
}

}  // namespace

RemoteSettings remoteSettings(const RemoteOptions& options, std::string& error) {
    RemoteSettings out;
    out.enabled = options.enabled;
    if (options.address && !out.address.setAddress(QString::fromStdString(*options.address)))
        error = "--remote-address: not an address: " + *options.address;
    if (options.tcpPort) out.tcpPort = static_cast<quint16>(*options.tcpPort);
    if (options.oscPort) out.oscPort = static_cast<quint16>(*options.oscPort);
    out.fileFolder = options.folder;
    if (options.idleSeconds) out.tcp.idle = std::chrono::seconds(*options.idleSeconds);
    if (options.passcodeFile)
        if (const auto passcode = readPasscodeFile(*options.passcodeFile, error)) out.passcode = *passcode;
    return out;
}

QStringList openAddresses(const QHostAddress& address) {
    if (address.isLoopback()) return {};
    if (address != QHostAddress::Any && address != QHostAddress::AnyIPv4 && address != QHostAddress::AnyIPv6)
        return {address.toString()};
    QStringList out;
    for (const QHostAddress& a : QNetworkInterface::allAddresses()) {
        if (a.isLoopback()) continue;
        if (address == QHostAddress::AnyIPv4 && a.protocol() != QAbstractSocket::IPv4Protocol) continue;
        if (address == QHostAddress::AnyIPv6 && a.protocol() != QAbstractSocket::IPv6Protocol) continue;
        out << a.toString();
    }
    return out;
}

WebSettings webSettings(const RemoteOptions& options, std::string& error) {
    WebSettings out;
    if (!options.web) return out;
    out.enabled = true;
    if (options.web->address && !out.address.setAddress(QString::fromStdString(*options.web->address)))
        error = "--web: not an address: " + *options.web->address;
    out.port = static_cast<quint16>(options.web->port);
    return out;
}

RemoteControl::RemoteControl(Station& station, PresetDialogs& dialogs, RemoteSettings settings,
                             std::function<void()> refresh, RemoteScreen screen)
    : station_(station), settings_(std::move(settings)), refresh_(std::move(refresh)),
      commands_(station, dialogs, {settings_.fileFolder, 200}),
      tcp_([this](const QHostAddress& peer) { return open(peer); }, [this] { deliver(); }, settings_.tcp),
      osc_([this](const QHostAddress& peer) { return open(peer); }, [this] { deliver(); },
           [this] { return wholeState(); }),
      // A page is one more remote client: a session as a TCP line is, the same replies and pushes.
      web_([this](const QHostAddress& peer) { return open(peer); }, [this] { deliver(); },
           [this] { return pageGreeting(); }),
      layout_(commands_.readout()) {
    commands_.box = std::move(screen.box);
    commands_.closeBox = std::move(screen.closeBox);
    commands_.held = screen.held;
    commands_.afterGesture = [this] { dirty_ = true; };
    gate_.setPasscode(settings_.passcode);
    gate_.log = [this](const std::string& text) { station_.noteLine(text); };
    osc_.onDropped = [this](std::uint64_t more) {
        station_.noteLine("remote: the system dropped " + std::to_string(more) +
                           " OSC messages that came faster than they could be read");
    };
    // "get remote": who is connected, and OSC messages the system dropped before they were read.
    commands_.addGet("remote", [this](remote::Words& w) -> std::optional<std::string> {
        w.take("remote");
        w.end();
        return "remote tcp " + std::to_string(tcp_.clientCount()) + " osc " + std::to_string(osc_.clientCount()) +
               " dropped " + std::to_string(osc_.dropped());
    });
    subscription_ = feed_.subscribe([this](const remote::StateList& changed) { send(changed); });
    // The first change starts one push a little later; the changes until then go with it.
    pushTimer_.setSingleShot(true);
    pushTimer_.setInterval(kPushDelay);
    QObject::connect(&pushTimer_, &QTimer::timeout, [this] { push(); });
    feed_.wake = [this] {
        if ((enabled() || webEnabled()) && !pushTimer_.isActive()) pushTimer_.start();
    };
}

std::unique_ptr<remote::RemoteSession> RemoteControl::open(const QHostAddress& peer) {
    QHostAddress host = peer;
    // An IPv4 peer on a dual-stack socket comes as ::ffff:a.b.c.d.
    bool mapped = false;
    if (const quint32 v4 = host.toIPv4Address(&mapped); mapped) host = QHostAddress(v4);
    return std::make_unique<remote::RemoteSession>(commands_, gate_, host.toString().toStdString(), host.isLoopback());
}

bool RemoteControl::setEnabled(bool on) {
    error_.clear();
    tcp_.close();
    osc_.close();
    if (!on) return true;
    error_ = networkRefusal(QStringLiteral("listening"), settings_.address, gate_);
    if (error_.isEmpty()) error_ = listenFailure(tcp_, settings_.address, settings_.tcpPort, QStringLiteral("TCP port"));
    if (error_.isEmpty()) error_ = listenFailure(osc_, settings_.address, settings_.oscPort, QStringLiteral("OSC port"));
    if (!error_.isEmpty()) {
        tcp_.close();  // remote control is both transports or neither
        return false;
    }
    feed_.restart();  // clients ask with "get" for the state as it is; pushes tell what changes
    return true;
}

bool RemoteControl::setWebEnabled(bool on) {
    webError_.clear();
    web_.close();
    if (!on) return true;
    webError_ = networkRefusal(QStringLiteral("serving the panel"), webSettings_.address, gate_);
    if (webError_.isEmpty()) webError_ = listenFailure(web_, webSettings_.address, webSettings_.port, QStringLiteral("port"));
    if (!webError_.isEmpty()) return false;
    if (!enabled()) feed_.restart();
    layout_.changes();  // a page is greeted with the layout as it is
    clientsTold_ = -1;
    return true;
}

QString RemoteControl::webStatus() const {
    if (!webEnabled())
        return webError_.isEmpty() ? QString() : QStringLiteral("Browser panel could not start: ") + webError_;
    const QString text =
        QStringLiteral("Browser panel: http://%1:%2/").arg(webSettings_.address.toString()).arg(web_.port());
    if (webSettings_.address.isLoopback()) return text;
    const QStringList open = openAddresses(webSettings_.address);
    return text + QStringLiteral(" (open to the network with a passcode at %1)")
                      .arg(open.isEmpty() ? webSettings_.address.toString() : open.join(QStringLiteral(", ")));
}

bool RemoteControl::apply(const RemoteSettings& settings) {
    const TcpLimits limits = settings_.tcp;
    const auto folder = settings_.fileFolder;
    settings_ = settings;
    settings_.tcp = limits;  // the server keeps the limits it was made with
    settings_.fileFolder = folder;
    gate_.setPasscode(settings_.passcode);
    return setEnabled(settings_.enabled);
}

QString RemoteControl::status() const {
    if (!enabled()) return error_.isEmpty() ? QString() : QStringLiteral("Remote control could not start: ") + error_;
    const QString where = settings_.address.toString();
    const QString text = QStringLiteral("Remote control: TCP %1:%2, OSC %1:%3").arg(where).arg(tcp_.port()).arg(osc_.port());
    const QStringList open = openAddresses(settings_.address);
    if (settings_.address.isLoopback()) return text;
    return text + QStringLiteral(" (open to the network with a passcode at %1)")
                      .arg(open.isEmpty() ? where : open.join(QStringLiteral(", ")));
}

void RemoteControl::send(const remote::StateList& changed) {
    for (const remote::StateItem& item : changed) {
        const std::string line = pushedLine(item);
        tcp_.broadcast(line);
        osc_.broadcast(item);
        web_.broadcast(line);
    }
    for (const remote::StateItem& lamp : lamps_.lamps(changed)) osc_.broadcast(lamp);
}

void RemoteControl::deliver() {
    feed_.deliver();
    if (webEnabled()) pushToPages();
}

std::vector<std::string> RemoteControl::pageGreeting() const {
    std::vector<std::string> lines;
    for (const remote::StateItem& item : layout_.current()) lines.push_back(pushedLine(item));
    lines.push_back("EV clients " + std::to_string(tcp_.clientCount() + web_.pageCount()));  // the new page counted
    return lines;
}

void RemoteControl::pushToPages() {
    for (const remote::StateItem& item : layout_.changes()) web_.broadcast(pushedLine(item));
    const int clients = tcp_.clientCount() + web_.pageCount();
    if (clients == clientsTold_) return;
    clientsTold_ = clients;
    web_.broadcast("EV clients " + std::to_string(clients));
}

remote::StateList RemoteControl::wholeState() {
    remote::StateList all = commands_.state();
    for (remote::StateItem& lamp : lamps_.all()) all.push_back(std::move(lamp));
    return all;
}

void RemoteControl::push() {
    pushTimer_.stop();
    // The windows follow remote gestures with the push, not after each command of a flood.
    if (dirty_ && refresh_) {
        dirty_ = false;
        refresh_();
    }
    deliver();
}

}  // namespace station::ui
