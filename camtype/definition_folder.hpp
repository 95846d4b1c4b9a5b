#pragma once
// Which folder holds the camera-type definition files. The station lists its working
// folder unless told otherwise: a command-line option names a folder for one run, and a
// remembered setting names one for every run, so that an installed program finds the
// definition files it ships.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace station {

// The command-line option "--definitions=<folder>" or "--definitions <folder>" (the last
// one given wins); nothing when absent or without a folder.
std::optional<std::filesystem::path> definitionFolderOption(const std::vector<std::string>& args);

// The file of the remembered setting: <config>/corvane-station/definition-folder, where
// <config> is XDG_CONFIG_HOME if set and not empty, else HOME/.config. Nothing when neither
// is known. The caller passes the two environment values (null when unset).
std::optional<std::filesystem::path> rememberedSettingFile(const char* xdgConfigHome, const char* home);

// The folder named in the setting file's first line; nothing when the file is missing or
// the line is empty.
std::optional<std::filesystem::path> readRememberedFolder(const std::filesystem::path& settingFile);

// Writes the setting file (creating its folder); false when it cannot be written.
bool rememberFolder(const std::filesystem::path& settingFile, const std::filesystem::path& folder);

// The command-line option if given; else the remembered folder if it still exists as a
// folder (a stale setting must not leave the station without types); else the working folder.
std::filesystem::path chooseDefinitionFolder(const std::optional<std::filesystem::path>& option,
                                             const std::optional<std::filesystem::path>& remembered,
                                             const std::filesystem::path& workingFolder);

}  // namespace station
