#pragma once
// Remote control as the operator last left it ("&Setup" > "Remote control" and its settings
// window): on or off, the address, both ports and the passcode, kept in the program's
// settings under "remote/". A start without remote-control options takes them; options
// given on the command line hold for that run only and are never kept.

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
// Only whether it is on (the menu's tick), the rest as kept.
void rememberRemoteOn(QSettings& store, bool on);

// What a start comes up with: the command line's remote options when any was given (for
// this run only), else what was kept (unless --no-restore). Nothing is written.
RemoteSettings startRemote(const ProgramOptions& options, const QSettings& store, std::string& error);

}  // namespace station::ui
