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

std::optional<unsigned long> hexValue(const std::string& text) {
    if (text.empty() || text.size() > 8 || text.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
        return std::nullopt;
    return std::stoul(text, nullptr, 16);
}

bool named(const std::vector<std::pair<std::string, std::string>>& values, const std::string& code) {
    return std::any_of(values.begin(), values.end(), [&](const auto& v) { return upper(v.second) == upper(code); });
}

}  // namespace

TypeDefinition readTypeDefinition(std::string_view text) {
    TypeDefinition out;
    std::istringstream in{std::string(text)};
    std::string line, section, function;
    bool scene = false;
    while (std::getline(in, line)) {
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
        else if (section == "[variable shutter]") {
            const std::size_t tab = key.find('\t');
            out.shutterSteps.emplace_back(tab == std::string::npos ? key : key.substr(tab + 1), withoutBlanks(value));
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
            } else if (const std::size_t tab = key.find('\t'); tab != std::string::npos) {
                out.items.push_back({function, scene, key[0], key.substr(tab + 1), upper(withoutBlanks(value)), {}, {}, {}, {}});
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
    case 'A': {
        // A value is restored as the camera reported it, also outside the type's MIN..MAX
        // (cameras answer their own defaults), but it must fit the frame: SIZE hex digits.
        const auto size = std::atoi(item.size.c_str());
        return hexValue(value).has_value() && (size <= 0 || value.size() == static_cast<std::size_t>(size));
    }
    default: return true;
    }
}

std::string TypeDefinition::valueName(const TypeItem& item, const std::string& value) const {
    for (const auto* list : {&item.values, &shutterSteps})
        for (const auto& [name, valueCode] : *list)
            if (upper(valueCode) == upper(value) && !value.empty()) return name;
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
