#pragma once
// The station rig with the sample studio opened and the remote command set on it; the
// command set holds the station's messages back while a command runs.

#include "remote/command_set.hpp"
#include "tests/support/station_rig.hpp"

namespace station::testing {

struct RemoteRig : StationRig {
    RemoteRig() {
        open(kStudio);
        run(1000);  // both watches idle
        commands.held = &held;
        commands.changes();
    }
    remote::CommandSet commands{station, preset, {folder.path()}};
};

}  // namespace station::testing
