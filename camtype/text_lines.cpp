#include "camtype/text_lines.hpp"

#include <cstdio>
#include <memory>

namespace station {

namespace {

struct FileCloser {
    void operator()(std::FILE* f) const noexcept { std::fclose(f); }
};

}  // namespace

std::optional<std::string> readTextFile(const std::filesystem::path& path) {
    const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.string().c_str(), "rb"));
    if (!file) return std::nullopt;
    std::string content;
    // One allocation for the whole file rather than one per block; the loop still reads to
    // the end if the file grew meanwhile.
    std::error_code ec;
    if (const auto size = std::filesystem::file_size(path, ec); !ec && size < (std::uintmax_t{1} << 30))
        content.reserve(static_cast<std::size_t>(size));
    char buffer[16384];
    for (;;) {
        const std::size_t n = std::fread(buffer, 1, sizeof buffer, file.get());
        content.append(buffer, n);
        if (n < sizeof buffer) break;
    }
    // A read error (a folder opened as a file, a failing disk) is not a short file.
    if (std::ferror(file.get())) return std::nullopt;
    return content;
}

Entry splitEntry(std::string_view line) {
    const std::size_t eq = line.find('=');
    if (eq == std::string_view::npos) return {{}, line};
    return {line.substr(0, eq + 1), line.substr(eq + 1)};
}

std::string withoutBlanks(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (const char c : text)
        if (c != ' ') out += c;
    return out;
}

std::string_view trimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    const std::size_t last = text.find_last_not_of(' ');
    return text.substr(first, last - first + 1);
}

}  // namespace station
