#pragma once
// Registration of item codes as rows of the two function setting stores. The definition
// load registers every item of a scene function ("FS") in FuncScnData and every item of a
// plain function ("F") in FuncData; the setup data file then keeps one line per row.

#include <string>

#include "camtype/setting_stores.hpp"
#include "common/messages.hpp"

namespace station {

// Adds Code as a new row of FuncScnData unless a row already has it. Rows are never
// removed; a 301st distinct code is refused with a stop message, every time.
void FScnItemSet(SettingStores& stores, MessageSink& messages, const std::string& Code);

// The same for FuncData.
void FuncItemSet(SettingStores& stores, MessageSink& messages, const std::string& Code);

}  // namespace station
