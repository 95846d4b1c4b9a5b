#include "ctl/exit_status.hpp"

namespace station::ctl {

std::string oneLine(const std::string& text) {
    std::string out;
    bool brk = false;
    for (const char c : text) {
        if (c == '\r' || c == '\n') {
            brk = true;
            continue;
        }
        if (brk && !out.empty()) out += "; ";
        brk = false;
        out += c;
    }
    return out;
}

}  // namespace station::ctl
