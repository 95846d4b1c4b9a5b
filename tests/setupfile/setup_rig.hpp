#pragma once
// The setup data file on the camera-type rig, with answered-in-advance dialogs and a disk
// writer that can be told to fail.

#include <optional>
#include <string>
#include <vector>

#include "camtype/item_rows.hpp"
#include "setupfile/setup_file.hpp"
#include "tests/camtype/type_rig.hpp"
#include "tests/support/fake_dialogs.hpp"

namespace station::testing {

// Writes to disk, except that on cue the disk fills up after some bytes (the part written
// so far stays in the file, as on a real full disk) or one step of the save fails.
class FlakyWriter : public FileWriter {
public:
    enum class Step { None, Backup, BackupRename, Write, Flush, Rename };

    void writeWhole(const std::filesystem::path& path, std::string_view bytes) override {
        failing(Step::Write, "Input/output error");
        if (diskFullAfter && *diskFullAfter < bytes.size()) {
            disk.writeWhole(path, bytes.substr(0, *diskFullAfter));
            throw SaveError("No space left on device");
        }
        disk.writeWhole(path, bytes);
    }
    void flushToDisk(const std::filesystem::path& path) override {
        failing(Step::Flush, "Input/output error");
        disk.flushToDisk(path);
    }
    void copyWhole(const std::filesystem::path& from, const std::filesystem::path& to) override {
        if (failAt == Step::Backup) disk.writeWhole(to, "");  // the copy began
        failing(Step::Backup, "No space left on device");
        disk.copyWhole(from, to);
    }
    void replace(const std::filesystem::path& from, const std::filesystem::path& to) override {
        failing(to.extension() == ".bak" ? Step::BackupRename : Step::Rename, "Permission denied");
        disk.replace(from, to);
    }
    void flushFolder(const std::filesystem::path& folder) noexcept override { disk.flushFolder(folder); }
    void discard(const std::filesystem::path& path) noexcept override { disk.discard(path); }

    std::optional<std::size_t> diskFullAfter;
    Step failAt = Step::None;
    DiskWriter disk;

private:
    void failing(Step step, const char* why) const {
        if (failAt == step) throw SaveError(why);
    }
};

struct SetupRig : TypeRig {
    SetupRig() {
        file.Notify = [this](const std::string& text) { told.push_back(text); };
    }
    FakeDialogs dialogs;
    FlakyWriter writer;
    SetupFile file{shared, stores, types, messages, dialogs, writer};
    std::vector<std::string> told;  // the notices, in order

    // Loads the text as the current setup data file.
    void load(const std::string& text) {
        file.FileName = folder.write("load.csd", text).string();
        file.CsdLoad();
    }
};

}  // namespace station::testing
