#include "ui/start/remembered_settings.hpp"

#include <QFile>
#include <QSettings>
#include <QStringList>

#include "camtype/definition_folder.hpp"

namespace station::ui {

namespace {

const QString kRecent = QStringLiteral("files/recent");
const QString kDefinitions = QStringLiteral("definitions/folder");
const QString kOldFileTaken = QStringLiteral("definitions/oldFileTaken");

QString fromPath(const std::string& path) { return QFile::decodeName(QByteArray::fromStdString(path)); }
std::string toPath(const QString& path) { return QFile::encodeName(path).toStdString(); }

}  // namespace

std::vector<std::string> RememberedSettings::recentFiles() const {
    std::vector<std::string> files;
    for (const QString& f : settings_.value(kRecent).toStringList())
        if (!f.isEmpty()) files.push_back(toPath(f));
    return files;
}

void RememberedSettings::fileUsed(const std::string& path) {
    QStringList files = settings_.value(kRecent).toStringList();
    files.removeAll(fromPath(path));
    files.prepend(fromPath(path));
    while (files.size() > kRecentFiles) files.removeLast();
    settings_.setValue(kRecent, files);
}

void RememberedSettings::forgetFile(const std::string& path) {
    QStringList files = settings_.value(kRecent).toStringList();
    files.removeAll(fromPath(path));
    settings_.setValue(kRecent, files);
}

std::optional<std::string> RememberedSettings::lastFile() const {
    const std::vector<std::string> files = recentFiles();
    if (files.empty()) return std::nullopt;
    return files.front();
}

std::optional<std::filesystem::path> RememberedSettings::definitionFolder() const {
    const QString folder = settings_.value(kDefinitions).toString();
    if (folder.isEmpty()) return std::nullopt;
    return std::filesystem::path(toPath(folder));
}

void RememberedSettings::takeOldDefinitionFolder(const std::optional<std::filesystem::path>& oldSettingFile) {
    if (settings_.value(kOldFileTaken).toBool() || !oldSettingFile) return;
    settings_.setValue(kOldFileTaken, true);
    if (settings_.contains(kDefinitions)) return;
    if (const auto folder = readRememberedFolder(*oldSettingFile))
        settings_.setValue(kDefinitions, fromPath(folder->string()));
}

QByteArray RememberedSettings::windowPlace(const QString& window) const {
    return settings_.value(QStringLiteral("windows/") + window).toByteArray();
}

void RememberedSettings::setWindowPlace(const QString& window, const QByteArray& place) {
    settings_.setValue(QStringLiteral("windows/") + window, place);
}

}  // namespace station::ui
