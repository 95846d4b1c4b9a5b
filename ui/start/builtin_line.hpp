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
#include "setupfile/file_dialogs.hpp"
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

// File dialogs that answer the next open dialog with a given path without showing it,
// and otherwise ask the real dialogs.
class PresetOpenDialogs : public FileDialogs {
public:
    explicit PresetOpenDialogs(FileDialogs& dialogs) : dialogs_(dialogs) {}

    void answerNextOpen(std::string path) { nextOpen_ = std::move(path); }

    std::optional<std::string> openFile(const std::string& filter) override;
    std::optional<std::string> saveFile(const std::string& filter) override { return dialogs_.saveFile(filter); }
    bool confirmReplace(const std::string& path) override { return dialogs_.confirmReplace(path); }

private:
    FileDialogs& dialogs_;
    std::optional<std::string> nextOpen_;
};

// Opens a setup data file by name through the station's own OPEN command. A file that is
// gone is not opened (OPEN would take its name and read nothing): the operator is told in
// a notice, and the answer is false.
bool openNamedFile(Station& station, PresetOpenDialogs& dialogs, const std::filesystem::path& file);

// Opens the studio's setup data in a started station through its own OPEN command, then
// forgets the file name so that the sample is never saved over.
void openStudio(Station& station, PresetOpenDialogs& dialogs, const std::filesystem::path& studioFile);

}  // namespace station::ui
