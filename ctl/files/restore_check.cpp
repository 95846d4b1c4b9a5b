#include "ctl/files/restore_check.hpp"

#include <array>
#include <map>
#include <sstream>

#include "ctl/files/type_items.hpp"

namespace station::ctl {

namespace {

constexpr int kCameras = 8;
constexpr int kScenes = 4;

// The sections in the order a save writes them.
constexpr std::array<std::string_view, 7> kSections = {"[system]",          "[camera type/ID]",
                                                       "[scene no]",        "[main data]",
                                                       "[function scene data]", "[function data]",
                                                       "[end]"};
constexpr std::array<std::string_view, 18> kMainKeys = {"mBar",   "mDTL",   "mSHT",   "mGAIN", "mWHITE", "mIRIS",
                                                        "mMONSEL", "aMBLK", "aIRIS",  "aDTL",  "aRGAIN", "aBGAIN",
                                                        "aRBLK",  "aBBLK",  "mLOW",   "mMID",  "mHIGH",  "mFILTER"};

std::vector<std::string> values(const std::string& list) {
    std::vector<std::string> out;
    std::size_t start = 0;
    for (;;) {
        const std::size_t comma = list.find(',', start);
        out.push_back(list.substr(start, comma == std::string::npos ? std::string::npos : comma - start));
        if (comma == std::string::npos) return out;
        start = comma + 1;
    }
}

bool wholeNumber(const std::string& v) {
    const std::size_t digits = (!v.empty() && v[0] == '-') ? 1 : 0;
    return v.size() > digits && v.find_first_not_of("0123456789", digits) == std::string::npos;
}

struct Row {
    int line;
    std::vector<std::string> values;
};

class Reader {
public:
    std::optional<RestoreProblem> read(std::string_view text);

    std::array<std::string, kCameras + 1> types;
    std::array<int, kCameras + 1> typeLine{};
    std::map<std::string, Row> mainRows, sceneRows, plainRows;

private:
    std::optional<RestoreProblem> take(int number, const std::string& line);

    int section_ = -1;
};

std::optional<RestoreProblem> Reader::read(std::string_view text) {
    std::istringstream in{std::string(text)};
    std::string line;
    int number = 0;
    while (std::getline(in, line)) {
        ++number;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (number == 1 && line.rfind("\xEF\xBB\xBF", 0) == 0) line.erase(0, 3);
        if (const auto problem = take(number, line)) return problem;
    }
    if (section_ < 0) return RestoreProblem{0, "not a setup data file: no [system] section"};
    if (kSections[static_cast<std::size_t>(section_)] != "[end]")
        return RestoreProblem{number, "the file ends before its [end] line: it was cut short"};
    return std::nullopt;
}

std::optional<RestoreProblem> Reader::take(int number, const std::string& line) {
    if (!line.empty() && line[0] == '[') {
        const int expected = section_ + 1;
        if (expected >= static_cast<int>(kSections.size()) || line != kSections[static_cast<std::size_t>(expected)]) {
            std::string want = expected < static_cast<int>(kSections.size())
                                   ? std::string(kSections[static_cast<std::size_t>(expected)])
                                   : "nothing after [end]";
            return RestoreProblem{number, "section \"" + line + "\" where " + want + " belongs"};
        }
        section_ = expected;
        return std::nullopt;
    }
    if (section_ < 0) return RestoreProblem{number, "not a setup data file: the first line is not [system]"};
    const std::string_view section = kSections[static_cast<std::size_t>(section_)];
    if (section == "[end]") {
        if (line.empty()) return std::nullopt;
        return RestoreProblem{number, "text after the [end] line"};
    }
    const std::size_t eq = line.find('=');
    if (eq == std::string::npos) return RestoreProblem{number, "a line without \"=\": it was cut or joined"};
    const std::string key = line.substr(0, eq);
    const std::string value = line.substr(eq + 1);
    if (section == "[system]") {
        if ((key == "ACK Check" || key == "Camera Select") && value != "0" && value != "1")
            return RestoreProblem{number, key + " must be 0 or 1, not \"" + value + "\""};
    } else if (section == "[camera type/ID]") {
        const int camera = key.size() == 8 && key.rfind("Camera ", 0) == 0 ? key[7] - '0' : 0;
        if (camera < 1 || camera > kCameras) return RestoreProblem{number, "\"" + key + "\" is not a camera 1 to 8"};
        const std::size_t bar = value.find('|');
        if (bar == std::string::npos) return RestoreProblem{number, "camera line without \"|\" between type and ID"};
        types[static_cast<std::size_t>(camera)] = value.substr(0, bar);
        typeLine[static_cast<std::size_t>(camera)] = number;
    } else if (section == "[scene no]") {
        const auto list = values(value);
        if (list.size() != kCameras) return RestoreProblem{number, "8 scene numbers expected"};
        for (const std::string& v : list)
            if (v.size() != 1 || v[0] < '1' || v[0] > '4')
                return RestoreProblem{number, "scene \"" + v + "\" is not 1 to 4"};
    } else {
        const bool main = section == "[main data]";
        const std::size_t count = section == "[function data]" ? kCameras : kCameras * kScenes;
        auto list = values(value);
        if (list.size() != count)
            return RestoreProblem{number, std::to_string(count) + " values expected, " + std::to_string(list.size()) +
                                              " found: the line was cut"};
        if (main) {
            bool known = false;
            for (const std::string_view k : kMainKeys) known = known || key == k;
            if (!known) return RestoreProblem{number, "unknown main setting \"" + key + "\""};
            for (const std::string& v : list)
                if (!v.empty() && !wholeNumber(v))
                    return RestoreProblem{number, key + " value \"" + v + "\" is not a whole number"};
            mainRows[key] = {number, std::move(list)};
        } else {
            (section == "[function data]" ? plainRows : sceneRows)[key] = {number, std::move(list)};
        }
    }
    return std::nullopt;
}

// What a main setting can be for a camera of `type`: the panel's buttons for a mode, its
// bar for a level, what the spin buttons of a gain step reach under the type's gain type.
// A setting whose value the type fixes (LOW under gain types 1 and 2) takes any number.
struct Limits {
    long lo;
    long hi;
    const char* what;
};

std::optional<Limits> limitsOf(const std::string& key, const TypeDefinition& type) {
    const int g = type.gainType;
    if (key[0] == 'a') return Limits{-128, 127, "its bar runs"};
    if (key == "mBar" || key == "mDTL" || key == "mSHT") return Limits{0, 1, "its buttons are"};
    if (key == "mWHITE" || key == "mIRIS") return Limits{0, 3, "its buttons are"};
    if (key == "mMONSEL") return Limits{0, 31, "its buttons are"};
    if (key == "mFILTER") return Limits{0, 7, "the filter's positions are"};
    if (key == "mGAIN") return g == 0 ? Limits{0, 2, "the gain steps of this type are"} : Limits{0, 3, "the gain steps of this type are"};
    const char* steps = "the gain step's values are";
    if (key == "mLOW") {
        if (g == 1 || g == 2) return std::nullopt;
        return Limits{0, 1, steps};
    }
    if (g == 1 || g == 2) return Limits{0, 31, steps};
    if (g == 3) return Limits{0, 3, steps};
    return Limits{0, 2, steps};
}

std::optional<RestoreProblem> checkMain(const Reader& file, int camera, const TypeDefinition& type) {
    for (const auto& [key, row] : file.mainRows) {
        const auto limits = limitsOf(key, type);
        if (!limits) continue;
        for (int k = 0; k < kScenes; ++k) {
            const std::string& v = row.values[static_cast<std::size_t>((camera - 1) * kScenes + k)];
            const long n = v.empty() ? 0 : v.size() > 9 ? (v[0] == '-' ? -1'000'000'000L : 1'000'000'000L) : std::stol(v);
            if (n < limits->lo || n > limits->hi)
                return RestoreProblem{row.line, "camera " + std::to_string(camera) + ": " + key + " cannot be " + v + ": " +
                                                    limits->what + " " + std::to_string(limits->lo) + " to " +
                                                    std::to_string(limits->hi)};
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<RestoreProblem> checkRestore(std::string_view text, const std::vector<int>& cameras,
                                           const std::filesystem::path& definitions, bool ranges) {
    Reader file;
    if (const auto problem = file.read(text)) return problem;
    for (const int camera : cameras) {
        const std::string& type = file.types[static_cast<std::size_t>(camera)];
        const int line = file.typeLine[static_cast<std::size_t>(camera)];
        if (type.empty()) return RestoreProblem{line, "camera " + std::to_string(camera) + " has no camera type"};
        const auto definition = findTypeDefinition(definitions, type);
        if (!definition)
            return RestoreProblem{line, "no definition of camera type " + type + " (camera " + std::to_string(camera) +
                                            ") in " + definitions.string()};
        if (!ranges) continue;
        if (const auto problem = checkMain(file, camera, *definition)) return problem;
        for (const TypeItem& item : definition->items) {
            if (item.kind != 'M' && item.kind != 'A' && item.kind != 'S') continue;
            const auto& rows = item.sceneFunction ? file.sceneRows : file.plainRows;
            const auto row = rows.find(item.code);
            if (row == rows.end()) continue;
            const int per = item.sceneFunction ? kScenes : 1;
            for (int k = 0; k < per; ++k) {
                const std::string& v = row->second.values[static_cast<std::size_t>((camera - 1) * per + k)];
                if (!definition->takes(item, v)) {
                    const auto why = item.kind == 'A' ? definition->levelProblem(item, v) : std::nullopt;
                    return RestoreProblem{row->second.line, "camera " + std::to_string(camera) + ": " + item.function +
                                                                " / " + item.name + " cannot be \"" + v + "\"" +
                                                                (why ? " (" + *why + ")" : std::string())};
                }
            }
        }
    }
    return std::nullopt;
}

}  // namespace station::ctl
