#pragma once
// Reading the station's text files (camera-type definitions and setup data) line by line,
// and the small text operations both formats use.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace station {

// The whole content of a file, byte for byte; nothing when it cannot be opened or read.
std::optional<std::string> readTextFile(const std::filesystem::path& path);

// Calls fn(std::string_view line) for every line of text. A line ends at CR LF, the
// station's own line end, and also at a lone CR or LF so that a file edited on another
// system still reads as lines. Text after the last line end is a line of its own; the
// empty rest after a final line end is not.
template <typename Fn>
void forEachLine(std::string_view text, Fn&& fn) {
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = text.find_first_of("\r\n", start);
        if (end == std::string_view::npos) {
            fn(text.substr(start));
            return;
        }
        fn(text.substr(start, end - start));
        start = end + 1;
        if (text[end] == '\r' && start < text.size() && text[start] == '\n') ++start;
    }
}

// The text without a UTF-8 byte-order mark at its very start (some editors put one in
// front of the first line, which would then no longer start with "[").
inline std::string_view withoutByteOrderMark(std::string_view text) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    return text.substr(0, mark.size()) == mark ? text.substr(mark.size()) : text;
}

// A line split at its first "=": the key is the text up to and including the "=", the
// value everything after it. A line without "=" has the empty key and is all value.
struct Entry {
    std::string_view key;
    std::string_view value;
};
Entry splitEntry(std::string_view line);

// The section a definition file's header line opens: the text up to and including the
// first "]"; a header without "]" opens a nameless section whose lines nobody reads.
inline std::string_view sectionName(std::string_view line) {
    const std::size_t close = line.find(']');
    return close == std::string_view::npos ? std::string_view{} : line.substr(0, close + 1);
}

// The key without its closing "=" (the caller makes sure the key is not empty).
inline std::string_view keyName(std::string_view key) { return key.substr(0, key.size() - 1); }

// The text with every blank (space) removed: how codes are written into the tables.
std::string withoutBlanks(std::string_view text);

// The text without blanks (spaces) at either end.
std::string_view trimBlanks(std::string_view text);

}  // namespace station
