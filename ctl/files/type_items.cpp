#include "ctl/files/type_items.hpp"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <sstream>

namespace station::ctl {

namespace {

std::string upper(std::string text) {
    for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

std::string withoutBlanks(const std::string& text) {
    std::string out;
    for (const char c : text)
        if (c != ' ' && c != '\t') out += c;
    return out;
}


bool named(const std::vector<std::pair<std::string, std::string>>& values, const std::string& code) {
    return std::any_of(values.begin(), values.end(), [&](const auto& v) { return sameCode(v.second, code); });
}

}  // namespace

std::optional<unsigned long> hexValue(const std::string& text) {
    if (text.empty() || text.size() > 8 || text.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
        return std::nullopt;
    return std::stoul(text, nullptr, 16);
}

bool sameCode(const std::string& a, const std::string& b) {
    const auto x = hexValue(a);
    const auto y = hexValue(b);
    if (x && y) return *x == *y;
    return upper(a) == upper(b);
}

TypeDefinition readTypeDefinition(std::string_view text) {
    TypeDefinition out;
    std::istringstream in{std::string(text)};
    std::string line, section, function;
    bool scene = false;
    while (std::getline(in, line)) {
        // The station reads a tab as a blank: items may be written with either.
        std::replace(line.begin(), line.end(), '\t', ' ');
        while (!line.empty() && (line.back() == '\r' || line.back() == ' ')) line.pop_back();
        if (line.rfind("\xEF\xBB\xBF", 0) == 0) line.erase(0, 3);
        if (line.empty()) continue;
        if (line[0] == '[') {
            section = line.substr(0, line.find(']') + 1);
            continue;
        }
        const std::size_t eq = line.find('=');
        if (eq == std::string::npos) continue;
        const std::string key = line.substr(0, eq);
        const std::string value = line.substr(eq + 1);
        if (section == "[camera type]" && key == "CODE") out.code = value;
        else if (section == "[form control]" && (key == "GAIN" || key == "FILTER" || key == "MONITOR")) {
            // Only the first character counts, a non-digit as 0.
            const int flag = !value.empty() && std::isdigit(static_cast<unsigned char>(value[0])) ? value[0] - '0' : 0;
            (key == "GAIN" ? out.gainType : key == "FILTER" ? out.filterType : out.monitorType) = flag;
        } else if (section == "[variable shutter]") {
            const std::size_t blank = key.find(' ');
            out.shutterSteps.emplace_back(blank == std::string::npos ? key : key.substr(blank + 1), withoutBlanks(value));
        } else if (section == "[function menu]") {
            if (key == "FS" || key == "F") {
                function = value;
                scene = key == "FS";
            } else if (key[0] == '+' && !out.items.empty()) {
                TypeItem& item = out.items.back();
                const std::string name = key.substr(1);
                if (item.kind == 'A') {
                    if (name == "SIZE") item.size = value;
                    else if (name == "MIN") item.min = value;
                    else if (name == "MAX") item.max = value;
                } else {
                    item.values.emplace_back(name, withoutBlanks(value));
                }
            } else if (std::string("MAST").find(key[0]) != std::string::npos && key.size() > 1 && key[1] == ' ') {
                const std::size_t name = key.find_first_not_of(' ', 1);
                out.items.push_back({function, scene, key[0], name == std::string::npos ? "" : key.substr(name),
                                     upper(withoutBlanks(value)), {}, {}, {}, {}});
            }
        }
    }
    return out;
}

const TypeItem* TypeDefinition::item(std::string_view rowKey) const {
    const std::string key = upper(std::string(rowKey));
    for (const TypeItem& i : items)
        if (i.code == key && (i.kind == 'M' || i.kind == 'A' || i.kind == 'S')) return &i;
    return nullptr;
}

bool TypeDefinition::takes(const TypeItem& item, const std::string& value) const {
    if (value.empty()) return true;
    switch (item.kind) {
    case 'M': return named(item.values, value);
    case 'S': return named(item.values, value) || named(shutterSteps, value);
    case 'A': return !levelProblem(item, value);
    default: return true;
    }
}

std::optional<std::string> TypeDefinition::levelProblem(const TypeItem& item, const std::string& value) const {
    // The window reads a level in any case and width that fits the item's SIZE hex digits.
    const auto v = hexValue(value);
    const auto size = std::atoi(item.size.c_str());
    if (!v || (size > 0 && value.size() > static_cast<std::size_t>(size)))
        return "is not a level of " + std::to_string(size) + " hex digits";
    const auto lo = hexValue(item.min);
    const auto hi = hexValue(item.max);
    if (lo && *v < *lo) return "below MIN " + item.min;
    if (hi && *v > *hi) return "above MAX " + item.max;
    return std::nullopt;
}

std::string TypeDefinition::valueName(const TypeItem& item, const std::string& value) const {
    for (const auto* list : {&item.values, &shutterSteps})
        for (const auto& [name, valueCode] : *list)
            if (!value.empty() && sameCode(valueCode, value)) return name;
    return value.empty() ? "(none)" : value;
}

std::optional<TypeDefinition> findTypeDefinition(const std::filesystem::path& folder, const std::string& code) {
    if (code.empty()) return std::nullopt;
    std::error_code ec;
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ec))
        if (upper(entry.path().extension().string()) == ".FCL") files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    for (const auto& file : files) {
        std::ifstream in(file, std::ios::binary);
        std::ostringstream text;
        text << in.rdbuf();
        TypeDefinition def = readTypeDefinition(text.str());
        if (upper(def.code) == upper(code)) return def;
    }
    return std::nullopt;
}

}  // namespace station::ctl
