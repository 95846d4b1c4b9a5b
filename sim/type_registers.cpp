#include "sim/type_registers.hpp"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <fstream>
#include <optional>
#include <sstream>

namespace station::sim {

namespace {

std::optional<int> hex(std::string_view text) {
    int v = 0;
    const auto [ptr, ec] = std::from_chars(text.data(), text.data() + text.size(), v, 16);
    if (text.empty() || ec != std::errc() || ptr != text.data() + text.size()) return std::nullopt;
    return v;
}

std::string trimmed(std::string text) {
    std::replace(text.begin(), text.end(), '\t', ' ');
    const std::size_t a = text.find_first_not_of(' ');
    const std::size_t b = text.find_last_not_of(" \r");
    return a == std::string::npos ? std::string() : text.substr(a, b - a + 1);
}

}  // namespace

std::map<std::string, std::vector<StartValue>> startValuesOf(std::string_view definitionText) {
    std::istringstream in{std::string(definitionText)};
    std::string raw, section, code;
    std::vector<StartValue> values;
    bool level = false;  // the latest item is a level
    while (std::getline(in, raw)) {
        const std::string line = trimmed(raw);
        if (line.empty()) continue;
        if (line[0] == '[') {
            section = line.substr(0, line.find(']') + 1);
            continue;
        }
        const std::size_t eq = line.find('=');
        if (eq == std::string::npos) continue;
        const std::string key = line.substr(0, eq);
        const std::string value = trimmed(line.substr(eq + 1));
        if (section == "[camera type]" && key == "CODE") code = value.substr(0, 3);
        if (section != "[function menu]") continue;
        if (key[0] == 'A' && key.size() > 1 && key[1] == ' ') {
            // "30 51": the class and address of the level register.
            const std::size_t blank = value.find(' ');
            const auto cls = hex(value.substr(0, blank));
            const auto address = blank == std::string::npos ? std::nullopt : hex(trimmed(value.substr(blank + 1)).substr(0, 2));
            level = cls && address;
            if (level)
                values.push_back({static_cast<std::uint8_t>(*cls & 0xF8), static_cast<std::uint8_t>(*address), 0, false});
        } else if (key[0] == '+' && level) {
            if (key == "+SIZE") values.back().wide = hex(value).value_or(2) > 2;
            else if (key == "+MIN") values.back().value = hex(value).value_or(0);
        } else if (key[0] != '+') {
            level = false;
        }
    }
    std::map<std::string, std::vector<StartValue>> out;
    if (!code.empty()) out[code] = values;
    return out;
}

std::map<std::string, std::vector<StartValue>> startValuesIn(const std::filesystem::path& folder) {
    std::map<std::string, std::vector<StartValue>> out;
    std::error_code ec;
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ec)) {
        std::string ext = entry.path().extension().string();
        for (char& c : ext) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        if (ext == ".fcl") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    for (const auto& file : files) {
        std::ifstream in(file, std::ios::binary);
        std::ostringstream text;
        text << in.rdbuf();
        for (auto& [code, values] : startValuesOf(text.str())) out.emplace(code, std::move(values));
    }
    return out;
}

}  // namespace station::sim
