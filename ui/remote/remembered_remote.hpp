#pragma once
// Remote control as the operator last left it ("&Setup" > "Remote control"): on or off, the
// address and both ports, kept in the program's settings under "remote/". A start without
// remote-control options takes them; options given on the command line win for that run.

#include <QSettings>

#include "ui/remote/remote_control.hpp"

namespace station::ui {

// `settings` with what was remembered laid over it; a value that is missing or damaged (not
// an address, not a port) keeps the one given.
RemoteSettings rememberedRemote(const QSettings& store, RemoteSettings settings);
void rememberRemote(QSettings& store, const RemoteSettings& settings, bool on);
// The browser panel as "&Setup" > "Browser panel" was left, under "web/"; --web holds for
// its run only and is not remembered.
WebSettings rememberedWeb(const QSettings& store, WebSettings settings);
void rememberWeb(QSettings& store, const WebSettings& settings, bool on);

}  // namespace station::ui
