#include "ctl/files/definition_search.hpp"

#include <cctype>
#include <cstdlib>
#include <string>

#include "camtype/definition_folder.hpp"

namespace station::ctl {

namespace fs = std::filesystem;

bool holdsDefinitions(const fs::path& folder) {
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(folder, ec)) {
        std::string ext = entry.path().extension().string();
        for (char& c : ext) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (ext == ".fcl") return true;
    }
    return false;
}

fs::path chooseDefinitions(const std::optional<fs::path>& option, const std::vector<fs::path>& candidates,
                           const fs::path& workingFolder) {
    if (option) return *option;
    for (const fs::path& folder : candidates)
        if (holdsDefinitions(folder)) return folder;
    return workingFolder;
}

std::vector<fs::path> definitionCandidates(const std::optional<fs::path>& setupPath) {
    std::vector<fs::path> out;
    if (setupPath) out.push_back(fs::absolute(*setupPath).parent_path());
    if (const auto file = rememberedSettingFile(std::getenv("XDG_CONFIG_HOME"), std::getenv("HOME")))
        if (const auto folder = readRememberedFolder(*file)) out.push_back(*folder);
    out.push_back(STATION_SAMPLES_INSTALLED);
    return out;
}

}  // namespace station::ctl
