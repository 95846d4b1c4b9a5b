#include "ctl/files/backup_policy.hpp"

namespace station::ctl {

std::string cameraWords(const std::vector<int>& cameras) {
    std::string out;
    for (std::size_t i = 0; i < cameras.size(); ++i) {
        if (i > 0) out += i + 1 == cameras.size() ? " and " : ", ";
        out += std::to_string(cameras[i]);
    }
    return out;
}

SaveDecision decideSave(const std::string& target, bool runFailed, const std::vector<int>& unread, bool partial,
                        const std::string& columnsFrom) {
    const std::string cameras = (unread.size() == 1 ? "camera " : "cameras ") + cameraWords(unread);
    if (!runFailed) return {true, {}};
    if (!partial) {
        const std::string why = unread.empty() ? "a command failed" : cameras + " did not answer every read";
        return {false, target + " was not written, it is as it was before: " + why + " (--partial writes what was read)"};
    }
    if (unread.empty()) return {true, target + " holds what was read although a command failed"};
    return {true, target + " is partial: the columns of " + cameras + " are from " + columnsFrom + ", not read"};
}

}  // namespace station::ctl
