#pragma once
// The check of a setup data file before any of it is restored to a camera. The station's
// own reader takes what it can and goes on (a short list repeats its last value, a cut file
// simply ends), which is right for an operator who looks at the panel afterwards, but a
// restore from a script must not send half a set-up to a live camera. So the file is read
// completely first; the first thing wrong refuses the whole restore, naming the file, the
// line and the reason, and nothing is sent.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace station::ctl {

struct RestoreProblem {
    int lineNumber = 0;  // from 1; 0 when the problem is the file as a whole
    std::string reason;
};

// Checks `text` (the content of a setup data file) for restoring `cameras`: every section
// and line parses, each camera has a type whose definition is in `definitions`, and every
// value of those cameras is one its control or item can take (a level within its bar or
// MIN..MAX, a mode among its buttons or codes, a gain step the type has). Nothing when it may
// be restored. `ranges` false checks the file's form and types only (verify reports a value
// out of range as a difference instead).
std::optional<RestoreProblem> checkRestore(std::string_view text, const std::vector<int>& cameras,
                                           const std::filesystem::path& definitions, bool ranges = true);

}  // namespace station::ctl
