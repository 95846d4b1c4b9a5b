#include "camtype/definition_folder.hpp"

#include <fstream>
#include <string_view>

#include "camtype/text_lines.hpp"

namespace station {

std::optional<std::filesystem::path> definitionFolderOption(const std::vector<std::string>& args) {
    static constexpr std::string_view name = "--definitions";
    std::optional<std::filesystem::path> folder;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string_view arg = args[i];
        if (arg == name) {
            if (i + 1 < args.size() && !args[i + 1].empty()) folder = args[i + 1];
            ++i;
        } else if (arg.size() > name.size() && arg.substr(0, name.size()) == name && arg[name.size()] == '=') {
            if (arg.size() > name.size() + 1) folder = std::filesystem::path(arg.substr(name.size() + 1));
        }
    }
    return folder;
}

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

bool rememberFolder(const std::filesystem::path& settingFile, const std::filesystem::path& folder) {
    std::error_code ec;
    std::filesystem::create_directories(settingFile.parent_path(), ec);
    std::ofstream out(settingFile, std::ios::binary | std::ios::trunc);
    out << folder.string() << '\n';
    out.close();
    return !out.fail();
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
