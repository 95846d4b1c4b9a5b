#pragma once
// Writing a file so that the file it replaces is never lost: the new content goes to a
// file beside the target, is checked, and then takes the target's place in one rename.
// If anything fails on the way, the target is left exactly as it was.

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
    // Creates or truncates `path` and writes all of `bytes` to it, flushed and closed.
    virtual void writeWhole(const std::filesystem::path& path, std::string_view bytes) = 0;
    // Puts `from` in the place of `to` in one step, replacing `to` if it exists.
    virtual void replace(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
    // Removes `path` if it exists; never fails.
    virtual void discard(const std::filesystem::path& path) noexcept = 0;
};

class DiskWriter final : public FileWriter {
public:
    void writeWhole(const std::filesystem::path& path, std::string_view bytes) override;
    void replace(const std::filesystem::path& from, const std::filesystem::path& to) override;
    void discard(const std::filesystem::path& path) noexcept override;
};

// The file the new content is written to before it replaces `target`.
std::filesystem::path savingPath(const std::filesystem::path& target);

// Replaces `target` with `bytes` as a whole. Nothing on success; otherwise the reason, and
// `target` is untouched and no half-written file is left behind.
std::optional<std::string> saveReplacing(FileWriter& writer, const std::filesystem::path& target,
                                         std::string_view bytes);

}  // namespace station
