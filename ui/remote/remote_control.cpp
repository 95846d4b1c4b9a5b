#include "ui/remote/remote_control.hpp"

namespace station::ui {

namespace {
std::string pushedLine(const remote::StateItem& item) { return "EV " + item.key + " " + remote::quoteWord(item.value); }
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
    : settings_(std::move(settings)), refresh_(std::move(refresh)),
      commands_(station, dialogs, {settings_.fileFolder, 200}),
      tcp_([this](std::string_view line) { return answer(line); }, [this] { push(); }, settings_.tcp),
      osc_([this](std::string_view line) { return answer(line); }, [this] { push(); }),
      // A page is one more remote client: the same command set, replies and pushes as a TCP line.
      web_([this](std::string_view line) { return answer(line); }, [this] { push(); }, [this] { return pageGreeting(); }),
      layout_(commands_.readout()) {
    commands_.box = std::move(screen.box);
    commands_.closeBox = std::move(screen.closeBox);
    commands_.held = screen.held;
    commands_.afterGesture = [this] { dirty_ = true; };
    pushTimer_.setInterval(40);
    QObject::connect(&pushTimer_, &QTimer::timeout, [this] {
        // The windows follow remote gestures every 40 ms, not after each command of a flood.
        if (dirty_ && refresh_) {
            dirty_ = false;
            refresh_();
        }
        push();
    });
}

bool RemoteControl::setEnabled(bool on) {
    error_.clear();
    tcp_.close();
    osc_.close();
    followServing();
    if (!on) return true;
    if (!tcp_.listen(settings_.address, settings_.tcpPort)) {
        error_ = QStringLiteral("TCP port %1: %2").arg(settings_.tcpPort).arg(tcp_.errorString());
        return false;
    }
    if (!osc_.listen(settings_.address, settings_.oscPort)) {
        error_ = QStringLiteral("OSC port %1: %2").arg(settings_.oscPort).arg(osc_.errorString());
        tcp_.close();
        return false;
    }
    followServing();
    return true;
}

bool RemoteControl::setWebEnabled(bool on) {
    webError_.clear();
    web_.close();
    followServing();
    if (!on) return true;
    if (!web_.listen(webSettings_.address, webSettings_.port)) {
        webError_ = QStringLiteral("port %1: %2").arg(webSettings_.port).arg(web_.errorString());
        return false;
    }
    followServing();
    return true;
}

void RemoteControl::followServing() {
    const bool serving = enabled() || webEnabled();
    if (serving == pushTimer_.isActive()) return;
    if (!serving) {
        pushTimer_.stop();
        return;
    }
    commands_.changes();  // clients ask with "get" for the state as it is; pushes tell what changes
    layout_.changes();    // a page is greeted with the layout as it is
    clientsTold_ = -1;
    pushTimer_.start();
}

QString RemoteControl::webStatus() const {
    if (!webEnabled())
        return webError_.isEmpty() ? QString() : QStringLiteral("Browser panel could not start: ") + webError_;
    return QStringLiteral("Browser panel: http://%1:%2/").arg(webSettings_.address.toString()).arg(web_.port());
}

QString RemoteControl::status() const {
    if (!enabled()) return error_.isEmpty() ? QString() : QStringLiteral("Remote control could not start: ") + error_;
    const QString where = settings_.address.toString();
    const QString text = QStringLiteral("Remote control: TCP %1:%2, OSC %1:%3").arg(where).arg(tcp_.port()).arg(osc_.port());
    if (settings_.address.isLoopback()) return text;
    return text + QStringLiteral(" (open to the network)");
}

void RemoteControl::push() {
    for (const remote::StateItem& item : commands_.changes()) {
        const std::string line = pushedLine(item);
        tcp_.broadcast(line);
        osc_.broadcast(item);
        web_.broadcast(line);
    }
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

}  // namespace station::ui
