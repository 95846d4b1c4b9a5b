#pragma once
// The lock file a serial program leaves in the system's lock folder ("LCK..ttyUSB0") while
// it holds a device. One whose process is gone (a station ended by a signal, or one that
// has died but not yet been reaped, or an earlier station whose process id this one has
// been given) locks nothing any more, yet the serial library may refuse the device for it;
// such a file is removed. A file whose process still runs, or
// that cannot be read as a lock, is left alone.

#include <filesystem>
#include <string>
#include <vector>

namespace station::ui {

// The lock files that may stand for the device, in the folders serial programs use.
std::vector<std::filesystem::path> lockFilesOf(const std::string& device);

// Removes the device's lock files whose process has gone; true when one was removed.
bool removeStaleLock(const std::string& device);

// Whether the process that wrote a lock file, given by its first line (the process id,
// leading blanks allowed), no longer runs, or is this very process (which asks for the
// device, so it cannot be holding it: the id was an earlier station's).
bool lockIsStale(const std::string& firstLine);

}  // namespace station::ui
