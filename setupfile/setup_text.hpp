#pragma once
// The lines of a setup data file, built from the station's settings: what a save writes
// and what the diagnostic listing shows.

#include <string>
#include <string_view>
#include <vector>

#include "camtype/setting_stores.hpp"
#include "common/shared.hpp"

namespace station {

enum class SetupListing {
    File,     // every line, ending with "[end]"
    Monitor,  // without "Camera Select=", without the "[scene no]" section, without "[end]"
};

// Function rows whose values are all empty are left out: items never set are not kept.
// A row count beyond the store's rows raises the subscript error (a save then writes nothing).
std::vector<std::string> setupLines(const Shared& shared, const SettingStores& stores, SetupListing listing);

// The whole file content: the lines of SetupListing::File, each ending in CR LF.
std::string setupText(const Shared& shared, const SettingStores& stores);

// Whether setupText would give exactly `text`, found by walking the settings without
// building the text. The same errors as setupText.
bool setupTextIs(const Shared& shared, const SettingStores& stores, std::string_view text);

}  // namespace station
