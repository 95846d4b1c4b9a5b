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
    return settings;
}

void rememberRemote(QSettings& store, const RemoteSettings& settings, bool on) {
    store.setValue(kOn, on);
    store.setValue(kAddress, settings.address.toString());
    store.setValue(kTcpPort, settings.tcpPort);
    store.setValue(kOscPort, settings.oscPort);
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
