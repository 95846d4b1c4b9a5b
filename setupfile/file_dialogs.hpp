#pragma once
// The platform's file-open and file-save dialogs, as the setup data commands use them.

#include <optional>
#include <string>

namespace station {

// The filter of both setup data dialogs: description, pattern, and a closing bar; the
// first (only) filter is the one chosen when the dialog opens.
inline constexpr const char* kSetupFileFilter = "Camera setup data files (*.csd)|*.csd|";

class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    // Each returns the chosen path, or nothing when the operator cancelled (or the dialog
    // failed). Neither offers a read-only choice; the save dialog does not ask before
    // replacing an existing file: the caller asks with confirmReplace.
    virtual std::optional<std::string> openFile(const std::string& filter) = 0;
    virtual std::optional<std::string> saveFile(const std::string& filter) = 0;
    // Whether the operator agrees to replace the existing file at `path`.
    virtual bool confirmReplace(const std::string& path) = 0;
};

}  // namespace station
