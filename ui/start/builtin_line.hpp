#pragma once
// The camera line the program runs on when it is given no serial device: the sample
// studio's cameras, simulated in process. The line moves on in simulated time, 40 ms
// before each poll of the station, so its cameras answer as real ones would.
//
// The station then starts with the studio's setup data opened, so that its camera types,
// IDs and ID mode match the cameras on the line. The file is read, not adopted: a later
// SAVE asks where to save rather than writing over the sample.

#include <filesystem>
#include <optional>
#include <string>

#include "app/station.hpp"
#include "app/preset_dialogs.hpp"
#include "sim/line.hpp"
#include "sim/sim_port.hpp"

namespace station::ui {

class BuiltinLine {
public:
    static constexpr sim::Micros kPollStep{40'000};

    // Places the cameras named in the setup data file; std::runtime_error if it cannot be read.
    explicit BuiltinLine(const std::filesystem::path& studioFile);

    SerialPort& port() { return port_; }
    sim::Line& line() { return line_; }

    // Runs the line up to the station's next poll.
    void advance() { line_.advance(kPollStep); }

private:
    sim::Line line_;
    sim::SimPort port_{line_};
};

// Opens a setup data file by name through the station's own OPEN command. A file that is
// gone is not opened (OPEN would take its name and read nothing): the operator is told in
// a notice, and the answer is false.
bool openNamedFile(Station& station, PresetDialogs& dialogs, const std::filesystem::path& file);

// Opens the studio's setup data in a started station through its own OPEN command, then
// forgets the file name so that the sample is never saved over.
void openStudio(Station& station, PresetDialogs& dialogs, const std::filesystem::path& studioFile);

}  // namespace station::ui
