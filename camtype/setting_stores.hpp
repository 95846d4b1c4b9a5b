#pragma once
// The settings the station keeps for its eight cameras, as the setup data file holds them.
// Every value is text. Cell 0 of a dimension holds that dimension's entry count.

#include <string>

#include "common/table.hpp"

namespace station {

inline constexpr int kMainKeys = 18;       // fields 1..18 of MainScnData
inline constexpr int kMainFields = 30;     // fields 0..30 exist; 19..30 carry no panel setting
inline constexpr int kScenes = 4;          // scenes 1..4 are stored; 0 is the working copy
inline constexpr int kMaxSettingRows = 300;

struct SettingStores {
    // The "[main data]" keys in field order ("mBar=" .. "mFILTER="); MainKey(0) = "18".
    // Empty until fillMainKey() runs at start-up.
    Array<std::string> MainKey{0, kMainKeys};

    // MainScnData(field, camera, scene): the main panel's settings.
    Table<std::string, 3> MainScnData{{Bounds{0, kMainFields}, Bounds{0, 8}, Bounds{0, kScenes}}};

    // FuncScnData(row, camera, scene): items of scene functions ("FS");
    // (row, 0, 0) = the item code of the row, (0, 0, 0) = row count.
    Table<std::string, 3> FuncScnData{{Bounds{0, kMaxSettingRows}, Bounds{0, 8}, Bounds{0, kScenes}}};

    // FuncData(row, camera): items of plain functions ("F");
    // (row, 0) = the item code of the row, (0, 0) = row count.
    Table<std::string, 2> FuncData{{Bounds{0, kMaxSettingRows}, Bounds{0, 8}}};

    // Fills MainKey with its count and the eighteen keys.
    void fillMainKey();
};

}  // namespace station
