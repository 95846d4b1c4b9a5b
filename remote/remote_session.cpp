#include "remote/remote_session.hpp"

namespace station::remote {

bool isAuthLine(std::string_view line, std::string& passcode) {
    const auto start = line.find_first_not_of(" \t");
    if (start == std::string_view::npos) return false;
    line.remove_prefix(start);
    const auto end = line.find_first_of(" \t");
    if (lower(line.substr(0, end)) != "auth") return false;
    passcode.clear();
    if (end == std::string_view::npos) return true;
    line.remove_prefix(end);
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n' || line.back() == ' ' || line.back() == '\t'))
        line.remove_suffix(1);
    const auto from = line.find_first_not_of(" \t");
    if (from != std::string_view::npos) passcode = std::string(line.substr(from));
    return true;
}

std::string RemoteSession::execute(std::string_view line, AccessGate::Clock::time_point now) {
    std::string passcode;
    if (isAuthLine(line, passcode)) {
        if (authenticated_) return "OK";
        if (passcode.empty()) return "ERR missing passcode (auth PASSCODE)";
        const std::string refused = gate_.attempt(host_, passcode, now);
        if (!refused.empty()) return "ERR " + refused;
        authenticated_ = true;
        return "OK";
    }
    if (!authenticated_) {
        if (line.find_first_not_of(" \t\r\n") == std::string_view::npos) return {};
        return "ERR auth required";
    }
    return commands_.execute(line);
}

}  // namespace station::remote
