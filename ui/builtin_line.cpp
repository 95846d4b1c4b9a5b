#include "ui/builtin_line.hpp"

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

std::optional<std::string> PresetOpenDialogs::openFile(const std::string& filter) {
    if (nextOpen_) {
        std::optional<std::string> answer = std::move(nextOpen_);
        nextOpen_.reset();
        return answer;
    }
    return dialogs_.openFile(filter);
}

void openStudio(Station& station, PresetOpenDialogs& dialogs, const std::filesystem::path& studioFile) {
    dialogs.answerNextOpen(studioFile.string());
    station.OPEN_Click();
    station.setupFile.FileName.clear();
}

}  // namespace station::ui
