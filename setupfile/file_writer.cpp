#include "setupfile/file_writer.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace station {

namespace {

class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return fd_; }
    // Closes now; closing is the last chance for a full disk to show, so its result counts.
    bool close() {
        const int fd = fd_;
        fd_ = -1;
        return ::close(fd) == 0;
    }

private:
    int fd_;
};

// The reason the C library left in errno, or a plain fallback when it left none.
std::string lastReason(const char* fallback) {
    const int code = errno;
    return code != 0 ? std::generic_category().message(code) : std::string(fallback);
}

// A new file of ours: it must not exist yet, so that neither a link nor a file someone else
// placed under that name is written through.
int createNew(const std::filesystem::path& path) {
    errno = 0;
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
    if (fd < 0) throw SaveError(lastReason("the file could not be created"));
    return fd;
}

void writeAll(const Descriptor& fd, std::string_view bytes) {
    while (!bytes.empty()) {
        errno = 0;
        const ssize_t n = ::write(fd.get(), bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) throw SaveError(lastReason("the file could not be written"));
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
}

void syncAndClose(Descriptor& fd) {
    errno = 0;
    if (::fsync(fd.get()) != 0) throw SaveError(lastReason("the file could not be flushed to disk"));
    errno = 0;
    if (!fd.close()) throw SaveError(lastReason("the file could not be closed"));
}

}  // namespace

void DiskWriter::writeWhole(const std::filesystem::path& path, std::string_view bytes) {
    Descriptor fd(createNew(path));
    writeAll(fd, bytes);
    struct stat written {};
    if (::fstat(fd.get(), &written) != 0 || static_cast<std::size_t>(written.st_size) != bytes.size())
        throw SaveError("the written file is incomplete");
    errno = 0;
    if (!fd.close()) throw SaveError(lastReason("the file could not be closed"));
}

void DiskWriter::flushToDisk(const std::filesystem::path& path) {
    errno = 0;
    const Descriptor fd(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    if (fd.get() < 0 || ::fsync(fd.get()) != 0) throw SaveError(lastReason("the file could not be flushed to disk"));
}

void DiskWriter::copyWhole(const std::filesystem::path& from, const std::filesystem::path& to) {
    errno = 0;
    const Descriptor in(::open(from.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    if (in.get() < 0) throw SaveError(lastReason("the file could not be read"));
    struct stat source {};
    if (::fstat(in.get(), &source) != 0 || !S_ISREG(source.st_mode)) throw SaveError("it is not a plain file");
    Descriptor out(createNew(to));
    char buffer[1 << 16];
    for (;;) {
        errno = 0;
        const ssize_t n = ::read(in.get(), buffer, sizeof buffer);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) throw SaveError(lastReason("the file could not be read"));
        if (n == 0) break;
        writeAll(out, std::string_view(buffer, static_cast<std::size_t>(n)));
    }
    syncAndClose(out);
}

void DiskWriter::replace(const std::filesystem::path& from, const std::filesystem::path& to) {
    // rename() replaces the entry `to` itself, a link included, and never writes through it.
    std::error_code ec;
    std::filesystem::rename(from, to, ec);
    if (ec) throw SaveError(ec.message());
}

void DiskWriter::flushFolder(const std::filesystem::path& folder) noexcept {
    const Descriptor fd(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (fd.get() >= 0) ::fsync(fd.get());
}

void DiskWriter::discard(const std::filesystem::path& path) noexcept {
    // A file or a link under our name is ours to remove (removing a link leaves what it
    // points to alone); a folder of that name was there before the save.
    std::error_code ec;
    const auto status = std::filesystem::symlink_status(path, ec);
    if (std::filesystem::is_regular_file(status) || std::filesystem::is_symlink(status))
        std::filesystem::remove(path, ec);
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

std::filesystem::path backupSavingPath(const std::filesystem::path& target) {
    std::filesystem::path saving = backupPath(target);
    saving += ".tmp";
    return saving;
}

void removeStaleSaving(FileWriter& writer, const std::filesystem::path& target) noexcept {
    if (target.empty() || !target.has_filename()) return;
    writer.discard(savingPath(target));
    writer.discard(backupSavingPath(target));
}

SaveOutcome saveReplacing(FileWriter& writer, const std::filesystem::path& target, std::string_view bytes) {
    if (target.empty() || !target.has_filename()) return {std::string("no file name was given"), std::nullopt};
    std::error_code ec;
    const auto status = std::filesystem::symlink_status(target, ec);
    // The chosen file, never what a link in its place points to (possibly outside the folder).
    if (std::filesystem::is_symlink(status))
        return {target.string() + " is a symbolic link; it is not written through", std::nullopt};
    const bool replacing = std::filesystem::is_regular_file(status);
    const std::filesystem::path saving = savingPath(target);
    const std::filesystem::path backupSaving = backupSavingPath(target);
    std::optional<std::filesystem::path> backup;
    removeStaleSaving(writer, target);
    try {
        // The backup comes first, so that whatever fails later leaves it beside the target;
        // it is renamed over the old one only once complete, so a backup is never empty.
        if (replacing) {
            try {
                writer.copyWhole(target, backupSaving);
                writer.replace(backupSaving, backupPath(target));
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
        writer.discard(backupSaving);
        return {std::string(e.what()), backup};
    }
    writer.flushFolder(target.parent_path());
    return {std::nullopt, backup};
}

}  // namespace station
