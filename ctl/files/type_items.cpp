#include "ctl/files/type_items.hpp"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <sstream>

#include "camtype/camera_types.hpp"
#include "common/vb_conv.hpp"

namespace station::ctl {

namespace {

std::string upper(std::string text) {
    for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

// A count cell of the station's tables (decimal text, empty is 0).
int count(const std::string& cell) { return static_cast<int>(toInteger(val(cell))); }

// The station's messages while a definition is read for a check: the check says what is wrong.
class QuietMessages final : public MessageSink {
public:
    void show(const std::string&, Icon) override {}
};

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
    // The station's own reader fills one load slot; the items are then taken from its
    // tables, so that corvane-ctl sees a definition exactly as the station loads it.
    Shared shared;
    TypeTables tables;
    SettingStores stores;
    QuietMessages messages;
    CameraTypes reader(shared, tables, stores, messages);
    constexpr int slot = 1;
    reader.readTypeEntry(slot, text);
    reader.loadDefinition(slot, text);

    TypeDefinition out;
    out.code = tables.TypeCode(slot);
    out.gainType = tables.FormGain(slot);
    out.filterType = tables.FormFilter(slot);
    out.monitorType = tables.FormMonitor(slot);
    const int functions = count(tables.FuncList(slot, 0, 0));
    for (int f = 1; f <= functions; ++f) {
        const std::string& key = tables.FuncList(slot, f, 0);
        if (key != "F" && key != "FS") continue;  // the station keeps no settings for them
        const int items = count(tables.ItemList(slot, f, 0));
        for (int i = 1; i <= items; ++i) {
            TypeItem item;
            item.function = tables.FuncList(slot, f, 1);
            item.sceneFunction = key == "FS";
            item.kind = tables.ItemList(slot, f, i).empty() ? ' ' : tables.ItemList(slot, f, i)[0];
            item.name = tables.ItemList(slot, f, i + kItemNameCell);
            item.code = upper(tables.ItemList(slot, f, i + kItemCodeCell));
            if (item.kind == 'A') {
                item.size = tables.ModeList(slot, f, i, kAnalogSize, 1);
                item.min = tables.ModeList(slot, f, i, kAnalogMin, 1);
                item.max = tables.ModeList(slot, f, i, kAnalogMax, 1);
            } else {
                const int values = count(tables.ModeList(slot, f, i, 0, 0));
                for (int p = 1; p <= values; ++p)
                    item.values.emplace_back(tables.ModeList(slot, f, i, p, 0), tables.ModeList(slot, f, i, p, 1));
            }
            out.items.push_back(std::move(item));
        }
    }
    const int steps = count(tables.VsList(slot, 0, 0));
    for (int v = 1; v <= steps; ++v) out.shutterSteps.emplace_back(tables.VsList(slot, v, 0), tables.VsList(slot, v, 1));
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
