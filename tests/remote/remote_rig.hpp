#pragma once
// A started station on a fake port with the sample studio opened, and the remote command
// set on it. Time advances as in the station tests: 20 ms steps, each timer at its interval.

#include "app/station.hpp"
#include "remote/command_set.hpp"
#include "tests/support/fake_dialogs.hpp"
#include "tests/support/fake_messages.hpp"
#include "tests/support/fake_port.hpp"
#include "tests/support/frames.hpp"
#include "tests/support/queued_commands.hpp"
#include "tests/support/station_ticks.hpp"
#include "tests/support/temp_folder.hpp"

namespace station::testing {

struct RemoteRig {
    RemoteRig() {
        station.Form_Load();
        dialogs.answerNextOpen(STATION_SAMPLES_DIR "/studio.csd");
        station.OPEN_Click();
        run(1000);  // both watches idle
        commands.held = &held;
        commands.changes();
    }

    void run(int ms) {
        for (int t = 0; t < ms; t += 20) {
            now += 20;
            tickAt(ticks, now);
        }
    }
    std::vector<std::string> takeQueued() { return takeQueuedCommands(station.link.queue()); }

    TempFolder folder;
    FakePort port;
    FakeMessages messages;  // the operator's screen
    remote::HeldMessages held{messages};
    FakeDialogs fake;
    PresetDialogs dialogs{fake};
    DiskWriter writer;
    Station station{{port, held, dialogs, writer, STATION_SAMPLES_DIR}};
    remote::CommandSet commands{station, dialogs, {folder.path()}};
    const StationTicks ticks = stationTicks(station);
    long now = 0;
};

}  // namespace station::testing
