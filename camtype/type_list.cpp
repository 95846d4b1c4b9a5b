// FclListSet: the list of known camera types, built from the definition folder.
#include <algorithm>
#include <string>
#include <vector>

#include "camtype/camera_types.hpp"
#include "camtype/text_lines.hpp"

namespace station {

namespace {

char lowerAscii(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }

// Matches the pattern "*.fcl"; as on the systems the files come from, case does not matter.
bool isDefinitionFileName(const std::string& name) {
    static constexpr std::string_view ext = ".fcl";
    if (name.size() < ext.size()) return false;
    for (std::size_t i = 0; i < ext.size(); ++i)
        if (lowerAscii(name[name.size() - ext.size() + i]) != ext[i]) return false;
    return true;
}

// Name order regardless of case, then by bytes so that the order is always the same.
bool nameOrder(const std::string& a, const std::string& b) {
    const auto folded = std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                                     [](char x, char y) { return lowerAscii(x) < lowerAscii(y); });
    const auto foldedBack = std::lexicographical_compare(
        b.begin(), b.end(), a.begin(), a.end(), [](char x, char y) { return lowerAscii(x) < lowerAscii(y); });
    if (folded != foldedBack) return folded;
    return a < b;
}

std::vector<std::string> definitionFileNames(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    std::error_code ec;
    std::filesystem::directory_iterator it(folder, ec);
    const std::filesystem::directory_iterator end;
    while (!ec && it != end) {
        std::error_code typeEc;
        const std::string name = it->path().filename().string();
        if (it->is_regular_file(typeEc) && isDefinitionFileName(name)) names.push_back(name);
        it.increment(ec);
    }
    std::sort(names.begin(), names.end(), nameOrder);
    return names;
}

// Where the next line that opens a "[camera type]" section starts, at or after `from` (which
// starts a line); the text's end when there is none.
std::size_t nextTypeSection(std::string_view text, std::size_t from) {
    static constexpr std::string_view kHeader = "[camera type]";
    for (std::size_t at = text.find(kHeader, from); at != std::string_view::npos; at = text.find(kHeader, at + 1))
        if (at == from || text[at - 1] == '\r' || text[at - 1] == '\n') return at;
    return text.size();
}

}  // namespace

void CameraTypes::readTypeEntry(int row, std::string_view text) {
    std::string& code = types_.TypeCode(row);
    std::string& note = types_.TypeNote(row);
    code.clear();
    note.clear();
    text = withoutByteOrderMark(text);
    bool inType = false;
    std::size_t start = 0;
    // Lines are cut as forEachLine cuts them. Unlike the full load, the list does not turn
    // tabs into blanks.
    while (start < text.size()) {
        const std::size_t end = text.find_first_of("\r\n", start);
        const std::string_view line = text.substr(start, end == std::string_view::npos ? end : end - start);
        std::size_t next = end == std::string_view::npos ? text.size() : end + 1;
        if (next < text.size() && text[end] == '\r' && text[next] == '\n') ++next;
        if (!line.empty() && line.front() == '[') {
            inType = sectionName(line) == "[camera type]";
            // The functions and shutter steps after the head are skipped unread, up to a
            // later "[camera type]" section, whose CODE and NOTE would count.
            if (!inType) next = nextTypeSection(text, next);
        } else if (inType) {
            const Entry e = splitEntry(line);
            if (e.key == "CODE=") code = e.value.substr(0, 3);
            else if (e.key == "NOTE=") note = e.value;
        }
        start = next;
    }
}

void CameraTypes::FclListSet(ListBox& List1) {
    std::vector<std::string> names = definitionFileNames(DefinitionFolder);
    if (names.size() > static_cast<std::size_t>(kMaxTypes)) {
        // The rest is ignored, as the list has room for no more; the operator hears which.
        if (Notify)
            Notify(DefinitionFolder.string() + ": " + std::to_string(names.size()) + " definition files; only the first " +
                   std::to_string(kMaxTypes) + " are listed, " + names[kMaxTypes] + " and the " +
                   std::to_string(names.size() - kMaxTypes - 1) + " after it are left out");
        names.resize(kMaxTypes);
    }
    const int n = static_cast<int>(names.size());
    types_.TypeFile(0) = std::to_string(n);
    for (int i = 1; i <= n; ++i) types_.TypeFile(i) = names[static_cast<std::size_t>(i - 1)];
    for (int i = 1; i <= n; ++i) {
        // A file that vanished or cannot be read since it was listed keeps its place with
        // no code, so the rows still follow the file list.
        const auto text = readTextFile(DefinitionFolder / types_.TypeFile(i));
        readTypeEntry(i, text ? std::string_view(*text) : std::string_view{});
    }
    List1.clear();
    List1.addItem("delete");
    for (int i = 1; i <= n; ++i) List1.addItem(types_.TypeCode(i));
}

}  // namespace station
