#include "ui/remote_control.hpp"

namespace station::ui {

namespace {

std::optional<long> portNumber(const std::string& text) {
    const auto n = remote::wholeNumber(text);
    if (!n || *n < 1 || *n > 65535) return std::nullopt;
    return n;
}

}  // namespace

RemoteSettings takeRemoteOptions(std::vector<std::string>& args, std::string& error) {
    RemoteSettings out;
    std::vector<std::string> rest;
    for (std::size_t i = 0; i < args.size(); ++i) {
        std::string name = args[i];
        std::optional<std::string> value;
        if (const std::size_t eq = name.find('='); eq != std::string::npos) {
            value = name.substr(eq + 1);
            name = name.substr(0, eq);
        }
        auto need = [&]() -> std::string {
            if (!value && i + 1 < args.size()) value = args[++i];
            if (!value || value->empty()) error = name + " needs a value";
            return value.value_or("");
        };
        if (name == "--remote" && !value) {
            out.enabled = true;
        } else if (name == "--remote-address") {
            const std::string a = need();
            if (!out.address.setAddress(QString::fromStdString(a)) && error.empty()) error = "--remote-address: not an address: " + a;
            out.enabled = true;
        } else if (name == "--remote-port" || name == "--osc-port") {
            const std::string p = need();
            const auto n = portNumber(p);
            if (!n && error.empty()) error = name + ": not a port number: " + p;
            (name == "--remote-port" ? out.tcpPort : out.oscPort) = static_cast<quint16>(n.value_or(0));
            out.enabled = true;
        } else if (name == "--remote-folder") {
            out.fileFolder = need();
        } else {
            rest.push_back(args[i]);
        }
    }
    args = std::move(rest);
    return out;
}

std::string remoteHelp() {
    return "\nControl from outside (off unless one of these is given, or \"&Setup\" > \"Remote control\"):\n"
           "  --remote             serve remote commands on 127.0.0.1: TCP lines on port 5250,\n"
           "                       OSC on UDP port 5251 (docs/remote-control.md)\n"
           "  --remote-address ADDR  listen on this address instead (e.g. 0.0.0.0: the network)\n"
           "  --remote-port N      the TCP port     --osc-port N   the OSC port\n"
           "  --remote-folder DIR  let remote clients open and save setup files in DIR only\n";
}

RemoteControl::RemoteControl(Station& station, remote::PresetDialogs& dialogs, RemoteSettings settings,
                             std::function<void()> refresh, std::function<bool()> busy)
    : settings_(std::move(settings)), refresh_(std::move(refresh)),
      commands_(station, dialogs, {settings_.fileFolder, 200}),
      tcp_([this](std::string_view line) { return commands_.execute(line); }, [this] { push(); }),
      osc_([this](std::string_view line) { return commands_.execute(line); }, [this] { push(); }) {
    commands_.busy = std::move(busy);
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
    if (!enabled()) return QString();
    const QString where = settings_.address.toString();
    const QString text = QStringLiteral("Remote control: TCP %1:%2, OSC %1:%3").arg(where).arg(tcp_.port()).arg(osc_.port());
    if (settings_.address.isLoopback()) return text;
    return text + QStringLiteral(" (open to the network)");
}

void RemoteControl::push() {
    for (const remote::StateItem& item : commands_.changes()) {
        tcp_.broadcast("EV " + item.key + " " + item.value);
        osc_.broadcast(item);
    }
}

}  // namespace station::ui
