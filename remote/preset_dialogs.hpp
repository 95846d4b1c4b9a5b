#pragma once
// File dialogs that answer the next open or save with a path named in advance, without
// showing anything, and otherwise ask the dialogs they wrap. Remote file commands name
// their file this way, so the station opens and saves it through its own File commands.

#include <optional>
#include <utility>
#include <string>

#include "setupfile/file_dialogs.hpp"

namespace station::remote {

class PresetDialogs : public FileDialogs {
public:
    explicit PresetDialogs(FileDialogs& dialogs) : dialogs_(dialogs) {}

    void answerNextOpen(std::string path) { nextOpen_ = std::move(path); }
    void answerNextSave(std::string path) { nextSave_ = std::move(path); }

    std::optional<std::string> openFile(const std::string& filter) override { return answer(nextOpen_, true, filter); }
    std::optional<std::string> saveFile(const std::string& filter) override {
        presetSave_ = nextSave_.has_value();
        return answer(nextSave_, false, filter);
    }
    // A file named by the command itself is replaced without asking (its previous version is
    // kept as the backup); a file the operator chose is asked about as usual.
    bool confirmReplace(const std::string& path) override {
        return std::exchange(presetSave_, false) || dialogs_.confirmReplace(path);
    }

private:
    std::optional<std::string> answer(std::optional<std::string>& preset, bool open, const std::string& filter) {
        if (preset) {
            std::optional<std::string> path = std::move(preset);
            preset.reset();
            return path;
        }
        return open ? dialogs_.openFile(filter) : dialogs_.saveFile(filter);
    }

    FileDialogs& dialogs_;
    std::optional<std::string> nextOpen_;
    std::optional<std::string> nextSave_;
    bool presetSave_ = false;
};

// Dialogs for a program without windows: every dialog is cancelled.
class NoDialogs : public FileDialogs {
public:
    std::optional<std::string> openFile(const std::string&) override { return std::nullopt; }
    std::optional<std::string> saveFile(const std::string&) override { return std::nullopt; }
    bool confirmReplace(const std::string&) override { return false; }
};

}  // namespace station::remote
