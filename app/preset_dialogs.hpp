#pragma once
// The platform pieces of a station that nobody watches, in one place for every program and
// test: file dialogs answered with a path named in advance (remote file commands, the
// start-up's sample studio and remembered file), dialogs that are always cancelled, and
// messages that go nowhere.

#include <optional>
#include <utility>
#include <string>

#include "common/messages.hpp"
#include "setupfile/file_dialogs.hpp"

namespace station {

// Answers the next open or save with the named path without showing anything, and
// otherwise asks the dialogs it wraps; the station then opens or saves through its own
// File commands.
class PresetDialogs : public FileDialogs {
public:
    explicit PresetDialogs(FileDialogs& dialogs) : dialogs_(dialogs) {}
    // Not copied: "PresetDialogs b(a)" would copy a instead of wrapping it.
    PresetDialogs(const PresetDialogs&) = delete;
    PresetDialogs& operator=(const PresetDialogs&) = delete;

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

// Dialogs for a program or test without windows: every dialog is cancelled.
class NoDialogs : public FileDialogs {
public:
    std::optional<std::string> openFile(const std::string&) override { return std::nullopt; }
    std::optional<std::string> saveFile(const std::string&) override { return std::nullopt; }
    bool confirmReplace(const std::string&) override { return false; }
};

// Messages for a program or test that looks at none: they go nowhere.
class QuietMessages : public MessageSink {
public:
    void show(const std::string&, Icon) override {}
};

}  // namespace station
