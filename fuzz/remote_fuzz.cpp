// Feeds arbitrary datagrams to the OSC decoder and whatever command text comes out of it
// (or the raw bytes as a TCP line) to the remote command set of a started station: every
// input must end in an OK or ERR reply (or none for a blank line), never a crash.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "app/actions.hpp"
#include "app/station.hpp"
#include "remote/command_set.hpp"
#include "remote/osc_codec.hpp"
#include "tests/support/null_station.hpp"

using namespace station;

namespace {

struct Rig : station::testing::NullStation {
    Rig() { station.Form_Load(); }
    remote::CommandSet commands{station, dialogs, {}};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Rig rig;
    const remote::OscCommand osc = remote::decodeOsc(data, size);
    const std::string line = osc.error.empty() ? osc.text
                                               : std::string(reinterpret_cast<const char*>(data), size);
    const std::string reply = rig.commands.execute(line);
    if (!reply.empty() && reply.rfind("OK", 0) != 0 && reply.rfind("ERR ", 0) != 0) std::abort();
    (void)Actions(rig.station).dropQueued();
    rig.commands.changes();
    return 0;
}
