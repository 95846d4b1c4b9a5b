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
            if (now % 40 == 0 && station.link.Timer1.Enabled) station.Timer1_Timer();
            if (now % 100 == 0 && station.link.Timer2.Enabled) station.Timer2_Timer();
            if (now % 500 == 0 && station.link.Timer3.Enabled) station.Timer3_Timer();
            if (now % 500 == 0 && station.form1.Timer4.Enabled) station.Timer4_Timer();
            if (now % 500 == 0 && station.form6.Timer1.Enabled) station.Form6Timer_Timer();
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
    long now = 0;
};

}  // namespace station::testing
