#include "camtype/definition_folder.hpp"

#include <string_view>

#include "camtype/text_lines.hpp"

namespace station {

std::optional<std::filesystem::path> rememberedSettingFile(const char* xdgConfigHome, const char* home) {
    std::filesystem::path config;
    if (xdgConfigHome != nullptr && *xdgConfigHome != '\0') config = xdgConfigHome;
    else if (home != nullptr && *home != '\0') config = std::filesystem::path(home) / ".config";
    else return std::nullopt;
    return config / "corvane-station" / "definition-folder";
}

std::optional<std::filesystem::path> readRememberedFolder(const std::filesystem::path& settingFile) {
    const auto text = readTextFile(settingFile);
    if (!text) return std::nullopt;
    std::optional<std::filesystem::path> folder;
    bool first = true;
    forEachLine(*text, [&](std::string_view line) {
        if (first && !line.empty()) folder = std::filesystem::path(line);
        first = false;
    });
    return folder;
}

std::filesystem::path chooseDefinitionFolder(const std::optional<std::filesystem::path>& option,
                                             const std::optional<std::filesystem::path>& remembered,
                                             const std::filesystem::path& workingFolder) {
    if (option) return *option;
    std::error_code ec;
    if (remembered && std::filesystem::is_directory(*remembered, ec)) return *remembered;
    return workingFolder;
}

}  // namespace station
