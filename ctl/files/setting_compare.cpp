#include "ctl/files/setting_compare.hpp"

#include <optional>

namespace station::ctl {

namespace {

constexpr std::array<const char*, 18> kMainNames = {
    "mode bar",    "mode detail", "mode shutter", "mode gain",   "mode white",  "mode iris",
    "mode monitor", "level mblk", "level iris",   "level detail", "level rgain", "level bgain",
    "level rblk",  "level bblk",  "gain low",     "gain mid",    "gain high",   "filter"};
constexpr std::size_t kGain = 3, kLow = 14, kFilter = 17, kMonitor = 6;

std::string shown(const std::string& value) { return value.empty() ? "(none)" : value; }

// A main setting as the station reads it: a whole number, empty text being 0.
std::optional<long> mainValue(const std::string& text) {
    if (text.empty()) return 0;
    std::size_t used = 0;
    try {
        const long v = std::stol(text, &used);
        if (used == text.size()) return v;
    } catch (const std::exception&) {
    }
    return std::nullopt;
}

bool sameMain(const std::string& a, const std::string& b) {
    const auto x = mainValue(a);
    const auto y = mainValue(b);
    return x && y ? *x == *y : a == b;
}

// The main settings this type's camera does not report: a page read leaves the file's value
// in the station, so comparing them would prove nothing.
std::vector<std::size_t> unreported(const TypeDefinition& type, const CameraSettings& file) {
    std::vector<std::size_t> out;
    if (type.gainType == 0) {
        // One register holds the chosen step and that step's value only.
        const long step = mainValue(file.main[kGain]).value_or(0);
        for (std::size_t s = 0; s < 3; ++s)
            if (static_cast<long>(s) != step) out.push_back(kLow + s);
    } else if (type.gainType == 1 || type.gainType == 2) {
        out.push_back(kLow);  // fixed at 0dB
    } else if (type.gainType != 3) {
        for (std::size_t s = 0; s < 3; ++s) out.push_back(kLow + s);
    }
    if (type.filterType < 1) out.push_back(kFilter);
    if (type.monitorType < 1) out.push_back(kMonitor);
    return out;
}

bool contains(const std::vector<std::size_t>& list, std::size_t i) {
    for (const std::size_t j : list)
        if (j == i) return true;
    return false;
}

}  // namespace

const char* mainSettingName(std::size_t index) { return index < kMainNames.size() ? kMainNames[index] : "?"; }

std::vector<std::string> settingDifferences(int camera, const CameraSettings& file, const CameraSettings& read,
                                            const TypeDefinition& type) {
    std::vector<std::string> out;
    const std::string who = "camera " + std::to_string(camera) + ": ";
    const std::vector<std::size_t> skipped = unreported(type, file);
    for (std::size_t i = 0; i < file.main.size(); ++i)
        if (!contains(skipped, i) && !sameMain(file.main[i], read.main[i]))
            out.push_back(who + kMainNames[i] + ": file " + shown(file.main[i]) + " camera " + shown(read.main[i]));
    for (const TypeItem& item : type.items) {
        if (type.item(item.code) != &item) continue;  // actions, and a code listed twice
        const auto f = file.items.find(item.code);
        const auto r = read.items.find(item.code);
        const std::string fileValue = f == file.items.end() ? std::string() : f->second;
        const std::string readValue = r == read.items.end() ? std::string() : r->second;
        // A level the item cannot take is a difference whatever the camera holds: the
        // restore would have refused it.
        const auto outOfRange = item.kind == 'A' && !fileValue.empty() ? type.levelProblem(item, fileValue) : std::nullopt;
        if (!outOfRange && sameCode(fileValue, readValue)) continue;
        out.push_back(who + item.function + " / " + item.name + ": file " + type.valueName(item, fileValue) +
                      (outOfRange ? " (" + *outOfRange + ")" : std::string()) + " camera " + type.valueName(item, readValue));
    }
    return out;
}

std::vector<std::string> uncomparedSettings(const TypeDefinition& type, const CameraSettings& file) {
    std::vector<std::string> out;
    for (const std::size_t i : unreported(type, file)) out.push_back(kMainNames[i]);
    return out;
}

}  // namespace station::ctl
