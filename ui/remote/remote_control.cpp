#include "ui/remote/remote_control.hpp"

namespace station::ui {

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

RemoteControl::RemoteControl(Station& station, PresetDialogs& dialogs, RemoteSettings settings,
                             std::function<void()> refresh, RemoteScreen screen)
    : settings_(std::move(settings)), refresh_(std::move(refresh)),
      commands_(station, dialogs, {settings_.fileFolder, 200}),
      tcp_([this](std::string_view line) { return commands_.execute(line); }, [this] { push(); }, settings_.tcp),
      osc_([this](std::string_view line) { return commands_.execute(line); }, [this] { push(); }) {
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
    pushTimer_.stop();
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
    commands_.changes();  // clients ask with "get" for the state as it is; pushes tell what changes
    pushTimer_.start();
    return true;
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
        tcp_.broadcast("EV " + item.key + " " + remote::quoteWord(item.value));
        osc_.broadcast(item);
    }
}

}  // namespace station::ui
