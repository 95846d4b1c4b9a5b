#pragma once
// The items of a camera type as its definition file ("*.fcl") names them: each function's
// items with their kind, the code their settings are kept under in a setup data file, and
// the values the item can take. Read by the station's own definition reader into tables of
// their own, so that corvane-ctl can check a file before the station loads or sends
// anything, and sees every definition exactly as the station does.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace station::ctl {

struct TypeItem {
    std::string function;   // the function's title, e.g. "Gamma"
    bool sceneFunction = false;  // "FS": kept per scene; "F": one value per camera
    char kind = ' ';        // 'M' mode, 'A' analog, 'S' shutter, 'T' action
    std::string name;       // e.g. "Gamma Mode"
    std::string code;       // the row key in a setup data file: the command without blanks, "2040FC"
    std::vector<std::pair<std::string, std::string>> values;  // M, S, T: name and code
    std::string size, min, max;                                 // A: hex digits, lowest, highest
};

struct TypeDefinition {
    std::string code;  // "CODE=" of "[camera type]"
    int gainType = 0;     // "[form control]" GAIN=, FILTER=, MONITOR=
    int filterType = 0;
    int monitorType = 0;
    std::vector<TypeItem> items;
    std::vector<std::pair<std::string, std::string>> shutterSteps;  // "[variable shutter]": name, code

    const TypeItem* item(std::string_view rowKey) const;
    // Whether `value` is one this item can take; an empty value (never set) always is.
    bool takes(const TypeItem& item, const std::string& value) const;
    // Why a level cannot be item's ("below MIN 40"); nothing when it can.
    std::optional<std::string> levelProblem(const TypeItem& item, const std::string& value) const;
    // The value as the type names it ("FILM", "1/100"), or the value itself.
    std::string valueName(const TypeItem& item, const std::string& value) const;
};

TypeDefinition readTypeDefinition(std::string_view text);

// A code or level as the window reads it: hex digits in either case, with or without
// leading zeros ("2a", "02A" and "2A" are one value); nothing when it is not hex.
std::optional<unsigned long> hexValue(const std::string& text);
// Whether two stored codes denote the same value.
bool sameCode(const std::string& a, const std::string& b);

// The definition of type `code` among the "*.fcl" files of `folder`; nothing when none.
std::optional<TypeDefinition> findTypeDefinition(const std::filesystem::path& folder, const std::string& code);

}  // namespace station::ctl
