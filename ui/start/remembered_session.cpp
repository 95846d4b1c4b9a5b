#include "ui/start/remembered_session.hpp"

#include <QAction>
#include <QMainWindow>
#include <QMenu>

#include "ui/main/main_menus.hpp"
#include "ui/main/main_window.hpp"
#include "ui/widgets/render.hpp"

namespace station::ui {

namespace {

QMenu& fileMenu(StationView& view) { return *view.mainWindow().menus().action(QStringLiteral("File"))->menu(); }

}  // namespace

RememberedSession::RememberedSession(RememberedSettings& settings, StationView& view, Station& station,
                                     PresetDialogs& dialogs, FileWriter& writer)
    : station_(station),
      places_(view.mainWindow(), settings),
      recent_(fileMenu(view), settings, [&settings, &view, &station, &dialogs](const std::string& path) {
          view.forward([&settings, &station, &dialogs, path] {
              if (!openNamedFile(station, dialogs, path)) settings.forgetFile(path);
          });
      }) {
    for (const std::string& file : settings.recentFiles()) removeStaleSaving(writer, file);
    station.onFileUsed([&settings](const std::string& path) { settings.fileUsed(path); });
}

RememberedSession::~RememberedSession() {
    station_.onFileUsed(nullptr);
    places_.rememberOpenWindows();
}

}  // namespace station::ui
