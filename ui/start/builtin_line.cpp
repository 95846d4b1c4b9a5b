#include "ui/start/builtin_line.hpp"

#include <fstream>
#include <stdexcept>

#include "sim/line_setup.hpp"

namespace station::ui {

namespace {

sim::LineSetup readStudio(const std::filesystem::path& studioFile) {
    std::ifstream in(studioFile, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + studioFile.string());
    sim::LineSetup setup;
    sim::readSetupData(in, setup);
    return setup;
}

}  // namespace

BuiltinLine::BuiltinLine(const std::filesystem::path& studioFile) { readStudio(studioFile).build(line_); }

bool openNamedFile(Station& station, PresetDialogs& dialogs, const std::filesystem::path& file) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec)) {
        const std::string text = file.string() + " was not found; it is taken off the recent files";
        station.tell(text);
        return false;
    }
    dialogs.answerNextOpen(file.string());
    station.OPEN_Click();
    return true;
}

void openStudio(Station& station, PresetDialogs& dialogs, const std::filesystem::path& studioFile) {
    dialogs.answerNextOpen(studioFile.string());
    station.OPEN_Click();
    station.forgetFileName();
}

}  // namespace station::ui
