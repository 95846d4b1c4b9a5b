#pragma once
// Writing a file so that neither the file it replaces nor the new content is lost, and so
// that nothing planted beside it can redirect the writing: the previous version is copied to
// a new file of ours and renamed over the backup, the new content goes to another new file
// of ours, is flushed to the disk and then takes the target's place in one rename, after which
// the folder is flushed too. Every file of ours is created new, never opened through a
// symbolic link, and lies in the target's folder. If anything fails on the way, the target
// and its backup are each left as they were or as they were meant to become, never empty.

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace station {

// A failed step of a save; what() is the reason in a few words ("No space left on device").
class SaveError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The file operations a save needs. The disk writer below is the real one; a test writer
// fails on cue (a full disk, a refused rename).
class FileWriter {
public:
    virtual ~FileWriter() = default;
    // Creates `path` as a new file (never through a link, never over an existing entry) and
    // writes all of `bytes` to it, closed.
    virtual void writeWhole(const std::filesystem::path& path, std::string_view bytes) = 0;
    // Makes sure the content of `path` is on the disk, not only in the system's cache.
    virtual void flushToDisk(const std::filesystem::path& path) = 0;
    // Creates `to` as a new file, as writeWhole does, holding a copy of the regular file
    // `from` (read without following a link), flushed to the disk.
    virtual void copyWhole(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
    // Puts `from` in the place of `to` in one step, replacing the entry `to` (a link there is
    // replaced itself, not followed).
    virtual void replace(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
    // Makes sure a folder's entries (a rename in it) are on the disk. Best effort: some file
    // systems refuse, and that must not undo a save that has happened.
    virtual void flushFolder(const std::filesystem::path& folder) noexcept = 0;
    // Removes `path` if it is a file or a link (never what a link points to); never fails.
    virtual void discard(const std::filesystem::path& path) noexcept = 0;
};

class DiskWriter final : public FileWriter {
public:
    void writeWhole(const std::filesystem::path& path, std::string_view bytes) override;
    void flushToDisk(const std::filesystem::path& path) override;
    void copyWhole(const std::filesystem::path& from, const std::filesystem::path& to) override;
    void replace(const std::filesystem::path& from, const std::filesystem::path& to) override;
    void flushFolder(const std::filesystem::path& folder) noexcept override;
    void discard(const std::filesystem::path& path) noexcept override;
};

// The file the new content is written to before it replaces `target` ("<name>.tmp").
std::filesystem::path savingPath(const std::filesystem::path& target);

// The previous version of `target`, kept by every save that replaces it ("<name>.bak").
std::filesystem::path backupPath(const std::filesystem::path& target);

// The copy that becomes the new backup once it is complete ("<name>.bak.tmp").
std::filesystem::path backupSavingPath(const std::filesystem::path& target);

struct SaveOutcome {
    std::optional<std::string> error;            // set: nothing was replaced, and why
    std::optional<std::filesystem::path> backup;  // set: the replaced version was kept here
};

// Replaces `target` with `bytes` as a whole, keeping the previous version of an existing
// target as its backup. A target that is a symbolic link is refused. On failure `target` is
// untouched and no half-written file of ours is left behind. Temporary files left by an
// interrupted earlier save go first.
SaveOutcome saveReplacing(FileWriter& writer, const std::filesystem::path& target, std::string_view bytes);

// Removes the temporary files an interrupted save of `target` left behind, if there are any.
void removeStaleSaving(FileWriter& writer, const std::filesystem::path& target) noexcept;

}  // namespace station
