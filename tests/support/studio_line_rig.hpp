#pragma once
// A started station on the in-process camera line with the sample studio's cameras, its
// timers (the station's tick table) ticking in simulated time at the desktop program's intervals,
// so that what a remote client sends reaches cameras that acknowledge and answer. Traffic
// on the line is kept; the messages a camera failure would show are counted.

#include <chrono>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "app/actions.hpp"
#include "app/station.hpp"
#include "app/station_readout.hpp"
#include "common/hex.hpp"
#include "app/preset_dialogs.hpp"
#include "sim/line_setup.hpp"
#include "sim/sim_port.hpp"
#include "sim/tick_driver.hpp"
#include "tests/support/null_platform.hpp"
#include "tests/support/station_ticks.hpp"

namespace station::testing {

class CountedMessages : public MessageSink {
public:
    void show(const std::string& text, Icon) override { shown.push_back(text); }
    std::vector<std::string> shown;
};

struct StudioLineRig {
    // `beforePoll` runs just before each poll of the line (the desktop program's hook).
    explicit StudioLineRig(std::function<void()> beforePoll = {}) {
        std::ifstream studio(STATION_SAMPLES_DIR "/studio.csd", std::ios::binary);
        sim::LineSetup setup;
        sim::readSetupData(studio, setup);
        setup.build(line);
        line.onTraffic = [this](const sim::Traffic& t) { traffic.push_back(t); };
        station.Form_Load();
        driveTicks(ticks, table, std::move(beforePoll));
        dialogs.answerNextOpen(STATION_SAMPLES_DIR "/studio.csd");
        station.OPEN_Click();
        ticks.run(std::chrono::seconds(2));  // the studio's first replies are in, the line at rest
        traffic.clear();
    }

    // The frames the station wrote to the line since the last clear, as hex text.
    std::vector<std::string> stationFrames() const {
        std::vector<std::string> out;
        for (const sim::Traffic& t : traffic)
            if (t.from == sim::Traffic::From::Station && t.bytes.size() > 1) out.push_back(hexText(t.bytes));
        return out;
    }

    sim::Line line;
    sim::SimPort port{line};
    CountedMessages messages;
    NoDialogs none;
    PresetDialogs dialogs{none};
    DiskWriter writer;
    Station station{{port, messages, dialogs, writer, STATION_SAMPLES_DIR}};
    const StationTicks table = stationTicks(station);
    const StationForms forms = station.forms();
    Actions actions{station};
    const StationReadout readout{station};
    sim::TickDriver ticks{line};
    std::vector<sim::Traffic> traffic;
};

}  // namespace station::testing
