#pragma once
// "Recent files" under "&File": the setup data files last opened or saved, the latest
// first, each opened again by choosing it. The list is read when the menu opens.

#include <functional>
#include <string>

class QMenu;

namespace station::ui {

class RememberedSettings;

class RecentFilesMenu {
public:
    // Adds the submenu to `file` before its "&Quit" entry; `open` opens a chosen file.
    RecentFilesMenu(QMenu& file, RememberedSettings& settings, std::function<void(const std::string&)> open);
    QMenu& menu() { return *menu_; }

private:
    void fill();

    RememberedSettings& settings_;
    std::function<void(const std::string&)> open_;
    QMenu* menu_;
};

}  // namespace station::ui
