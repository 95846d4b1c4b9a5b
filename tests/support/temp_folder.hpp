#pragma once
// A fresh folder under the system's temporary folder, removed with everything in it when
// the test ends; and byte-exact file helpers for it.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace station::testing {

class TempFolder {
public:
    TempFolder() {
        std::random_device rd;
        const auto tag = std::to_string(rd()) + "-" + std::to_string(rd());
        path_ = std::filesystem::temp_directory_path() / ("station-test-" + tag);
        std::filesystem::create_directories(path_);
    }
    ~TempFolder() {
        std::error_code ec;
        // Permissions a test took away are given back so that the folder can go.
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, std::filesystem::perm_options::add, ec);
        std::filesystem::remove_all(path_, ec);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

    std::filesystem::path write(const std::string& name, std::string_view bytes) const {
        const auto file = path_ / name;
        std::ofstream(file, std::ios::binary | std::ios::trunc).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return file;
    }

private:
    std::filesystem::path path_;
};

inline std::string readBytes(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Lines joined with CR LF, each line ending in one.
inline std::string crlf(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (std::string_view line : lines) {
        text += line;
        text += "\r\n";
    }
    return text;
}

}  // namespace station::testing
