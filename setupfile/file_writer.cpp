#include "setupfile/file_writer.hpp"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace station {

namespace {

struct FileCloser {
    void operator()(std::FILE* f) const noexcept { std::fclose(f); }
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

void DiskWriter::replace(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::error_code ec;
    std::filesystem::rename(from, to, ec);
    if (ec) throw SaveError(ec.message());
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

std::optional<std::string> saveReplacing(FileWriter& writer, const std::filesystem::path& target,
                                         std::string_view bytes) {
    if (target.empty() || !target.has_filename()) return std::string("no file name was given");
    const std::filesystem::path saving = savingPath(target);
    try {
        writer.writeWhole(saving, bytes);
        writer.replace(saving, target);
    } catch (const SaveError& e) {
        writer.discard(saving);
        return std::string(e.what());
    }
    return std::nullopt;
}

}  // namespace station
