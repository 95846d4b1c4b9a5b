#pragma once
// Writing a file so that neither the file it replaces nor the new content is lost: the
// previous version is kept as a backup, the new content goes to a file beside the target and
// is flushed to the disk, and the new file then takes the target's place in one rename,
// after which the folder is flushed too. If anything fails on the way, the target is left exactly
// as it was.

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
    // Creates or truncates `path` and writes all of `bytes` to it, closed.
    virtual void writeWhole(const std::filesystem::path& path, std::string_view bytes) = 0;
    // Makes sure the content of `path` is on the disk, not only in the system's cache.
    virtual void flushToDisk(const std::filesystem::path& path) = 0;
    // Makes `to` a copy of `from`, flushed to the disk; replaces `to` if it exists.
    virtual void copyWhole(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
    // Puts `from` in the place of `to` in one step, replacing `to` if it exists.
    virtual void replace(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
    // Makes sure a folder's entries (a rename in it) are on the disk. Best effort: some file
    // systems refuse, and that must not undo a save that has happened.
    virtual void flushFolder(const std::filesystem::path& folder) noexcept = 0;
    // Removes `path` if it is a file; never fails.
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

struct SaveOutcome {
    std::optional<std::string> error;            // set: nothing was replaced, and why
    std::optional<std::filesystem::path> backup;  // set: the replaced version was kept here
};

// Replaces `target` with `bytes` as a whole, keeping the previous version of an existing
// target as its backup. On failure `target` is untouched and no half-written file of ours
// is left behind. A temporary file left by an interrupted earlier save goes first.
SaveOutcome saveReplacing(FileWriter& writer, const std::filesystem::path& target, std::string_view bytes);

// Removes the temporary file an interrupted save of `target` left behind, if there is one.
void removeStaleSaving(FileWriter& writer, const std::filesystem::path& target) noexcept;

}  // namespace station
