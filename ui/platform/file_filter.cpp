#include "ui/platform/file_filter.hpp"

#include <algorithm>
#include <vector>

namespace station::ui {

std::string qtFileFilter(std::string_view barFilter) {
    std::vector<std::string> parts;
    std::string part;
    for (char c : barFilter) {
        if (c == '|') {
            parts.push_back(part);
            part.clear();
        } else {
            part += c;
        }
    }
    if (!part.empty()) parts.push_back(part);

    std::string out;
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
        const std::string& description = parts[i];
        std::string patterns = parts[i + 1];
        std::replace(patterns.begin(), patterns.end(), ';', ' ');
        // Qt reads the patterns from the parentheses at the end of the description.
        const std::string shown = "(" + patterns + ")";
        const bool named = description.size() >= shown.size() &&
                           description.compare(description.size() - shown.size(), shown.size(), shown) == 0;
        if (!out.empty()) out += ";;";
        out += named ? description : description + " " + shown;
    }
    return out;
}

}  // namespace station::ui
