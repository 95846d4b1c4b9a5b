#pragma once
// A platform that does nothing: a port that is always open and never has bytes, messages that
// go nowhere, and file dialogs that are always cancelled. For benchmarks and fuzz targets,
// which measure or shake the logic and look at none of these.

#include "app/preset_dialogs.hpp"
#include "tests/support/replay_line.hpp"

namespace station::testing {

// A port that is always open and, never fed, never has bytes.
using NullPort = ReplayPort;

using station::NoDialogs;
using station::QuietMessages;

}  // namespace station::testing
