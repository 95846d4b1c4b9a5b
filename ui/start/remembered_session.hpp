#pragma once
// The desktop program's memory between runs, tied to a running station and its windows:
// the windows go back where they were, the file menu offers the recent setup data files,
// every file opened or saved whole joins that list, and a temporary file that an interrupted
// save of one of them left behind is removed. When it goes, it keeps the places of the
// windows still open.

#include "app/station.hpp"
#include "setupfile/file_writer.hpp"
#include "ui/start/builtin_line.hpp"
#include "ui/main/recent_files_menu.hpp"
#include "ui/start/remembered_settings.hpp"
#include "ui/main/station_view.hpp"
#include "ui/start/window_places.hpp"

namespace station::ui {

class RememberedSession {
public:
    RememberedSession(RememberedSettings& settings, StationView& view, Station& station, PresetDialogs& dialogs,
                      FileWriter& writer);
    ~RememberedSession();
    RememberedSession(const RememberedSession&) = delete;
    RememberedSession& operator=(const RememberedSession&) = delete;

    RecentFilesMenu& recentFiles() { return recent_; }

private:
    Station& station_;
    WindowPlaces places_;
    RecentFilesMenu recent_;
};

}  // namespace station::ui
