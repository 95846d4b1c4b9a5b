#pragma once
// A platform that does nothing: a port that is always open and never has bytes, messages that
// go nowhere, and file dialogs that are always cancelled. For benchmarks and fuzz targets,
// which measure or shake the logic and look at none of these.

#include <optional>
#include <string>

#include "common/messages.hpp"
#include "setupfile/file_dialogs.hpp"
#include "tests/support/replay_line.hpp"

namespace station::testing {

// A port that is always open and, never fed, never has bytes.
using NullPort = ReplayPort;

class QuietMessages : public MessageSink {
public:
    void show(const std::string&, Icon) override {}
};

class NoDialogs : public FileDialogs {
public:
    std::optional<std::string> openFile(const std::string&) override { return std::nullopt; }
    std::optional<std::string> saveFile(const std::string&) override { return std::nullopt; }
    bool confirmReplace(const std::string&) override { return false; }
};

}  // namespace station::testing
