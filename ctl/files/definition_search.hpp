#pragma once
// Where corvane-ctl finds the camera-type definitions: the folder named with
// --definitions; else the first of the setup file's folder, the station's remembered
// definitions folder and the installed samples that holds definition files; else the
// working folder. A setup file kept apart from its definitions (a backup in a folder of
// its own) thus still finds the types the station itself uses.

#include <filesystem>
#include <optional>
#include <vector>

namespace station::ctl {

bool holdsDefinitions(const std::filesystem::path& folder);

std::filesystem::path chooseDefinitions(const std::optional<std::filesystem::path>& option,
                                        const std::vector<std::filesystem::path>& candidates,
                                        const std::filesystem::path& workingFolder);

// The candidates of this machine: the setup file's folder (when there is one), the
// remembered folder (from the environment's configuration folder), the installed samples.
std::vector<std::filesystem::path> definitionCandidates(const std::optional<std::filesystem::path>& setupPath);

}  // namespace station::ctl
