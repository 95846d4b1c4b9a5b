#pragma once
// What the desktop program remembers from one run to the next, kept in Qt's settings (on
// Linux ~/.config/corvane-station/corvane-station.conf): the setup data files last opened
// or saved, the folder of the camera-type definitions and where each window was.

#include <QByteArray>
#include <QString>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

class QSettings;

namespace station::ui {

class RememberedSettings {
public:
    static constexpr int kRecentFiles = 8;

    explicit RememberedSettings(QSettings& settings) : settings_(settings) {}

    // The setup data files last opened or saved, the latest first.
    std::vector<std::string> recentFiles() const;
    // Puts a file at the head of the list (once), dropping the oldest beyond kRecentFiles.
    void fileUsed(const std::string& path);
    void forgetFile(const std::string& path);

    // The last setup data file opened or saved: the session to come back to.
    std::optional<std::string> lastFile() const;

    // The definition folder for every run ("definitions/folder"); nothing when not set.
    std::optional<std::filesystem::path> definitionFolder() const;
    // Takes the folder that earlier versions read from a file of their own, the first time
    // only and unless a folder is set already; the old file is left as it is.
    void takeOldDefinitionFolder(const std::optional<std::filesystem::path>& oldSettingFile);

    // A window's place and size as QWidget::saveGeometry gives it; empty when not known.
    QByteArray windowPlace(const QString& window) const;
    void setWindowPlace(const QString& window, const QByteArray& place);

private:
    QSettings& settings_;
};

}  // namespace station::ui
