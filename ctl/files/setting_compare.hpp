#pragma once
// The pre-show check: is every camera still as the show file says? One camera's settings as
// the file holds them and as the camera reported them, compared setting by setting and
// told in the operator's words: main settings by their panel names ("level iris"), function
// items by function and item ("Gamma / Gamma Mode") with the values the type names.

#include <array>
#include <map>
#include <string>
#include <vector>

#include "ctl/files/type_items.hpp"

namespace station::ctl {

struct CameraSettings {
    std::array<std::string, 18> main;               // the main settings, in file order (mBar .. mFILTER)
    std::map<std::string, std::string> items;       // function items by their code ("2040FC")
};

// The panel's name of main setting `index` (0..17), as the remote commands name it.
const char* mainSettingName(std::size_t index);

// "camera N: <setting>: file <value> camera <value>", one line per setting that differs.
// Only the items `type` defines are compared: other rows belong to other camera types.
// Settings are compared as the values they denote ("2a" is 2A, "05" is 5), never as text.
std::vector<std::string> settingDifferences(int camera, const CameraSettings& file, const CameraSettings& read,
                                            const TypeDefinition& type);

// The main settings a camera of `type` does not report, so verify cannot compare them
// (gain step values its gain register does not carry, a filter or monitor it lacks).
std::vector<std::string> uncomparedSettings(const TypeDefinition& type, const CameraSettings& file);

}  // namespace station::ctl
