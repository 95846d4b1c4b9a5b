#pragma once
// Where a camera's registers stand when it is switched on. A camera never reports a level
// its own menu cannot take: a function level starts at the lowest value its camera type
// allows (MIN of the type's definition file, "*.fcl"), every other register at 0, which is
// the panel's first button and middle level. Read here from the definition files alone, as
// the camera's maker would, independent of the station's reader.

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace station::sim {

struct StartValue {
    std::uint8_t cls = 0;      // the set class of the register's bank (30 or 38 for levels)
    std::uint8_t address = 0;
    int value = 0;
    bool wide = false;         // a two-byte level (SIZE 4)
};

// The start values one definition file gives its type: type code -> values.
std::map<std::string, std::vector<StartValue>> startValuesOf(std::string_view definitionText);
// Those of every "*.fcl" in `folder` (none when it holds none).
std::map<std::string, std::vector<StartValue>> startValuesIn(const std::filesystem::path& folder);

}  // namespace station::sim
