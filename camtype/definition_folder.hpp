#pragma once
// Which folder holds the camera-type definition files. The station lists its working
// folder unless told otherwise: a command-line option names a folder for one run, and a
// remembered setting names one for every run, so that an installed program finds the
// definition files it ships.

#include <filesystem>
#include <optional>

namespace station {

// The file in which earlier versions kept the remembered folder, written by hand:
// <config>/corvane-station/definition-folder, where <config> is XDG_CONFIG_HOME if set and
// not empty, else HOME/.config. Nothing when neither is known. The caller passes the two
// environment values (null when unset). The desktop program now remembers the folder in
// its settings and reads this file once, for users who made one.
std::optional<std::filesystem::path> rememberedSettingFile(const char* xdgConfigHome, const char* home);

// The folder named in that file's first line; nothing when the file is missing or the
// line is empty.
std::optional<std::filesystem::path> readRememberedFolder(const std::filesystem::path& settingFile);

// The command-line option if given; else the remembered folder if it still exists as a
// folder (a stale setting must not leave the station without types); else the working folder.
std::filesystem::path chooseDefinitionFolder(const std::optional<std::filesystem::path>& option,
                                             const std::optional<std::filesystem::path>& remembered,
                                             const std::filesystem::path& workingFolder);

}  // namespace station
