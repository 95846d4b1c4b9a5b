#pragma once
// When --save may write the backup. A backup that silently holds another file's columns for
// a camera that did not answer is worse than none: it replaces the good one, and the next
// failing run replaces that one's copy too. So the file is written only when the run
// succeeded; --partial writes what was read and names the cameras whose columns were not.

#include <string>
#include <vector>

namespace station::ctl {

struct SaveDecision {
    bool write = false;
    std::string note;  // one line for standard error: why nothing was written, or what a partial file holds
};

// `runFailed`: a command was refused or a camera failed; `unread`: the cameras asked for in
// a read that did not answer every request; `columnsFrom`: where the station's columns
// for a camera not read come from (the --setup file, or the start-up values).
SaveDecision decideSave(const std::string& target, bool runFailed, const std::vector<int>& unread, bool partial,
                        const std::string& columnsFrom);

// "3", "3 and 5", "1, 3 and 5".
std::string cameraWords(const std::vector<int>& cameras);

}  // namespace station::ctl
