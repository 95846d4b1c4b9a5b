#include "ui/remote/remembered_remote.hpp"

namespace station::ui {

namespace {

const QString kOn = QStringLiteral("remote/on");
const QString kAddress = QStringLiteral("remote/address");
const QString kTcpPort = QStringLiteral("remote/tcpPort");
const QString kOscPort = QStringLiteral("remote/oscPort");
const QString kWebOn = QStringLiteral("web/on");
const QString kWebAddress = QStringLiteral("web/address");
const QString kWebPort = QStringLiteral("web/port");
const QString kPasscode = QStringLiteral("remote/passcode");

void readPort(const QSettings& store, const QString& key, quint16& port) {
    bool ok = false;
    const int n = store.value(key).toInt(&ok);
    if (ok && n >= 1 && n <= 65535) port = static_cast<quint16>(n);
}

}  // namespace

RemoteSettings rememberedRemote(const QSettings& store, RemoteSettings settings) {
    if (store.contains(kOn)) settings.enabled = store.value(kOn).toBool();
    if (QHostAddress address; store.contains(kAddress) && address.setAddress(store.value(kAddress).toString()))
        settings.address = address;
    readPort(store, kTcpPort, settings.tcpPort);
    readPort(store, kOscPort, settings.oscPort);
    // A passcode given for this run (a file) wins; one that is kept damaged is none.
    if (const std::string kept = store.value(kPasscode).toString().toStdString();
        settings.passcode.empty() && remote::AccessGate::passcodeProblem(kept).empty())
        settings.passcode = kept;
    return settings;
}

void rememberRemote(QSettings& store, const RemoteSettings& settings, bool on) {
    store.setValue(kOn, on);
    store.setValue(kAddress, settings.address.toString());
    store.setValue(kTcpPort, settings.tcpPort);
    store.setValue(kOscPort, settings.oscPort);
    store.setValue(kPasscode, QString::fromStdString(settings.passcode));
}

void rememberRemoteOn(QSettings& store, bool on) { store.setValue(kOn, on); }

RemoteSettings startRemote(const ProgramOptions& options, const QSettings& store, std::string& error) {
    RemoteSettings settings = remoteSettings(options.remote, error);
    if (!options.remote.enabled && !options.noRestore) settings = rememberedRemote(store, settings);
    return settings;
}

WebSettings rememberedWeb(const QSettings& store, WebSettings settings) {
    if (store.contains(kWebOn)) settings.enabled = store.value(kWebOn).toBool();
    if (QHostAddress address; store.contains(kWebAddress) && address.setAddress(store.value(kWebAddress).toString()))
        settings.address = address;
    readPort(store, kWebPort, settings.port);
    return settings;
}

void rememberWeb(QSettings& store, const WebSettings& settings, bool on) {
    store.setValue(kWebOn, on);
    store.setValue(kWebAddress, settings.address.toString());
    store.setValue(kWebPort, settings.port);
}

}  // namespace station::ui
