#pragma once
// A station with the sample camera types on the null platform (not started), for the
// benchmarks and fuzz targets that drive a whole station and look at none of its platform.

#include "app/station.hpp"
#include "setupfile/file_writer.hpp"
#include "tests/support/null_platform.hpp"

namespace station::testing {

struct NullStation {
    NullPort port;
    QuietMessages messages;
    NoDialogs none;
    PresetDialogs dialogs{none};
    DiskWriter writer;
    Station station{{port, messages, dialogs, writer, STATION_SAMPLES_DIR}};
};

}  // namespace station::testing
