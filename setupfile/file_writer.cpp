#include "setupfile/file_writer.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace station {

namespace {

struct FileCloser {
    void operator()(std::FILE* f) const noexcept { std::fclose(f); }
};

class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return fd_; }

private:
    int fd_;
};

// The reason the C library left in errno, or a plain fallback when it left none.
std::string lastReason(const char* fallback) {
    const int code = errno;
    return code != 0 ? std::generic_category().message(code) : std::string(fallback);
}

}  // namespace

void DiskWriter::writeWhole(const std::filesystem::path& path, std::string_view bytes) {
    errno = 0;
    std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.string().c_str(), "wb"));
    if (!file) throw SaveError(lastReason("the file could not be created"));
    errno = 0;
    if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size())
        throw SaveError(lastReason("the file could not be written"));
    if (std::fflush(file.get()) != 0) throw SaveError(lastReason("the file could not be written"));
    // Closing is the last chance for a full disk to show; its result counts.
    if (std::fclose(file.release()) != 0) throw SaveError(lastReason("the file could not be closed"));
    std::error_code ec;
    const auto size = std::filesystem::file_size(path, ec);
    if (ec || size != bytes.size()) throw SaveError("the written file is incomplete");
}

void DiskWriter::flushToDisk(const std::filesystem::path& path) {
    errno = 0;
    const Descriptor fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (fd.get() < 0 || ::fsync(fd.get()) != 0) throw SaveError(lastReason("the file could not be flushed to disk"));
}

void DiskWriter::copyWhole(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::error_code ec;
    std::filesystem::copy_file(from, to, std::filesystem::copy_options::overwrite_existing, ec);
    if (ec) throw SaveError(ec.message());
    flushToDisk(to);
}

void DiskWriter::replace(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::error_code ec;
    std::filesystem::rename(from, to, ec);
    if (ec) throw SaveError(ec.message());
}

void DiskWriter::flushFolder(const std::filesystem::path& folder) noexcept {
    const Descriptor fd(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (fd.get() >= 0) ::fsync(fd.get());
}

void DiskWriter::discard(const std::filesystem::path& path) noexcept {
    // Only a file is ours to remove; a folder of that name was there before the save.
    std::error_code ec;
    if (std::filesystem::is_regular_file(std::filesystem::symlink_status(path, ec))) std::filesystem::remove(path, ec);
}

std::filesystem::path savingPath(const std::filesystem::path& target) {
    std::filesystem::path saving = target;
    saving += ".tmp";
    return saving;
}

std::filesystem::path backupPath(const std::filesystem::path& target) {
    std::filesystem::path backup = target;
    backup += ".bak";
    return backup;
}

void removeStaleSaving(FileWriter& writer, const std::filesystem::path& target) noexcept {
    if (!target.empty() && target.has_filename()) writer.discard(savingPath(target));
}

SaveOutcome saveReplacing(FileWriter& writer, const std::filesystem::path& target, std::string_view bytes) {
    if (target.empty() || !target.has_filename()) return {std::string("no file name was given"), std::nullopt};
    const std::filesystem::path saving = savingPath(target);
    std::error_code ec;
    const bool replacing = std::filesystem::is_regular_file(target, ec);
    std::optional<std::filesystem::path> backup;
    removeStaleSaving(writer, target);
    try {
        // The backup comes first, so that whatever fails later leaves it beside the target.
        if (replacing) {
            try {
                writer.copyWhole(target, backupPath(target));
            } catch (const SaveError& e) {
                throw SaveError("the previous version could not be kept as " + backupPath(target).string() + ": " +
                                e.what());
            }
            backup = backupPath(target);
        }
        writer.writeWhole(saving, bytes);
        writer.flushToDisk(saving);
        writer.replace(saving, target);
    } catch (const SaveError& e) {
        writer.discard(saving);
        return {std::string(e.what()), backup};
    }
    writer.flushFolder(target.parent_path());
    return {std::nullopt, backup};
}

}  // namespace station
