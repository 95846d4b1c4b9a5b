#pragma once
// The camera-type tables that the definition files fill. They are indexed by load slot
// (FclNo 1..8: one slot per distinct camera type in use), so a camera finds its tables
// through its CamFclNo. Every value is text, numbers as decimal text; cell 0 of a dimension
// holds that dimension's entry count. The tables are never cleared: cells beyond a count may
// hold values of an earlier load and are read only through the counts.

#include <string>

#include "common/table.hpp"
#include "common/vb_conv.hpp"

namespace station {

inline constexpr int kMaxTypes = 64;           // definition files in the type list
inline constexpr int kMaxSlots = 8;            // distinct types loaded at once
inline constexpr int kMaxFunctions = 20;       // functions per slot
inline constexpr int kMaxItems = 12;           // items per function
inline constexpr int kMaxModes = 20;           // parameters per item
inline constexpr int kMaxShutterSteps = 350;   // variable-shutter steps per slot

// ItemList cells of item i (1..12): its kind at i, its name at i + 13, its code at i + 26.
inline constexpr int kItemNameCell = 13;
inline constexpr int kItemCodeCell = 26;

// ModeList parameter rows of an analog item (kind "A"), value in field 1.
inline constexpr int kAnalogSize = 1;
inline constexpr int kAnalogMin = 2;
inline constexpr int kAnalogMax = 3;
inline constexpr int kAnalogStep = 4;

struct TypeTables {
    // The type list, rows 1..64 in the order of the definition folder's file list;
    // TypeFile(0) holds the number of types.
    Array<std::string> TypeCode{0, kMaxTypes};  // at most 3 characters
    Array<std::string> TypeFile{0, kMaxTypes};  // file name inside the definition folder
    Array<std::string> TypeNote{0, kMaxTypes};

    // FclName(0): number of loaded slots; FclName(1..8): the definition file of each slot.
    Array<std::string> FclName{0, kMaxSlots};

    // The "[form control]" switches of each slot: 0 = the control is absent.
    Array<Integer> FormGain{0, kMaxSlots};
    Array<Integer> FormIris{0, kMaxSlots};
    Array<Integer> FormTally{0, kMaxSlots};
    Array<Integer> FormFilter{0, kMaxSlots};
    Array<Integer> FormMonitor{0, kMaxSlots};
    Array<Integer> FormLens{0, kMaxSlots};

    // FuncList(slot, function, field): field 0 the key ("FS" scene function, "F" plain
    // function, other keys possible), field 1 the title; (slot, 0, 0) = function count.
    Table<std::string, 3> FuncList{{Bounds{0, kMaxSlots}, Bounds{0, kMaxFunctions}, Bounds{0, 1}}};

    // ItemList(slot, function, cell): see kItemNameCell / kItemCodeCell; cell 0 = item count.
    Table<std::string, 3> ItemList{
        {Bounds{0, kMaxSlots}, Bounds{0, kMaxFunctions}, Bounds{0, kItemCodeCell + kMaxItems}}};

    // ModeList(slot, function, item, parameter, field): for kinds M, S and T the named values
    // (field 0 name, field 1 code, (.., 0, 0) = count); for kind A the SIZE, MIN, MAX and STEP
    // codes in field 1 of rows kAnalogSize..kAnalogStep, with no count written.
    Table<std::string, 5> ModeList{{Bounds{0, kMaxSlots}, Bounds{0, kMaxFunctions}, Bounds{0, kMaxItems},
                                    Bounds{0, kMaxModes}, Bounds{0, 1}}};

    // VsList(slot, step, field): field 0 the display text, field 1 the code;
    // (slot, 0, 0) = step count.
    Table<std::string, 3> VsList{{Bounds{0, kMaxSlots}, Bounds{0, kMaxShutterSteps}, Bounds{0, 1}}};
};

}  // namespace station
