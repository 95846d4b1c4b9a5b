#include "ctl/files/setting_compare.hpp"

namespace station::ctl {

namespace {

constexpr std::array<const char*, 18> kMainNames = {
    "mode bar",    "mode detail", "mode shutter", "mode gain",   "mode white",  "mode iris",
    "mode monitor", "level mblk", "level iris",   "level detail", "level rgain", "level bgain",
    "level rblk",  "level bblk",  "gain low",     "gain mid",    "gain high",   "filter"};

std::string shown(const std::string& value) { return value.empty() ? "(none)" : value; }

}  // namespace

const char* mainSettingName(std::size_t index) { return index < kMainNames.size() ? kMainNames[index] : "?"; }

std::vector<std::string> settingDifferences(int camera, const CameraSettings& file, const CameraSettings& read,
                                            const TypeDefinition& type) {
    std::vector<std::string> out;
    const std::string who = "camera " + std::to_string(camera) + ": ";
    for (std::size_t i = 0; i < file.main.size(); ++i)
        if (file.main[i] != read.main[i])
            out.push_back(who + kMainNames[i] + ": file " + shown(file.main[i]) + " camera " + shown(read.main[i]));
    for (const TypeItem& item : type.items) {
        if (type.item(item.code) != &item) continue;  // actions, and a code listed twice
        const auto f = file.items.find(item.code);
        const auto r = read.items.find(item.code);
        const std::string fileValue = f == file.items.end() ? std::string() : f->second;
        const std::string readValue = r == read.items.end() ? std::string() : r->second;
        if (fileValue == readValue) continue;
        out.push_back(who + item.function + " / " + item.name + ": file " + type.valueName(item, fileValue) + " camera " +
                      type.valueName(item, readValue));
    }
    return out;
}

}  // namespace station::ctl
