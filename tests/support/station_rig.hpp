#pragma once
// A station on a fake port with the sample camera types, answered-in-advance file dialogs,
// a temporary folder for setup files and a clock the test moves. Time advances in 20 ms
// steps and each enabled timer ticks at its own interval, as the desktop program's would.
// The test stands where the windows stand: it is handed the window models (`form1` ...)
// to click, and reads and acts through the station's read-only view and named actions.

#include <chrono>
#include <stdexcept>
#include <string>
#include <vector>

#include "app/actions.hpp"
#include "app/preset_dialogs.hpp"
#include "app/station.hpp"
#include "app/station_readout.hpp"
#include "common/hex.hpp"
#include "remote/held_messages.hpp"
#include "tests/support/fake_dialogs.hpp"
#include "tests/support/fake_messages.hpp"
#include "tests/support/fake_port.hpp"
#include "tests/support/queued_commands.hpp"
#include "tests/support/frames.hpp"
#include "tests/support/station_ticks.hpp"
#include "tests/support/temp_folder.hpp"

namespace station::testing {

struct StationRig {
    // Started at once, unless the test first sets up the port and calls Form_Load itself.
    // `device` stands in for the fake port (a real terminal); the fake then goes unused.
    explicit StationRig(bool started = true, SerialPort* device = nullptr)
        : station({device != nullptr ? *device : port, held, preset, writer, STATION_SAMPLES_DIR,
                   [this] { return clock; }}) {
        if (started) station.Form_Load();
    }

    // Runs the station's timers for `ms` milliseconds of simulated time.
    void run(int ms) {
        for (int t = 0; t < ms; t += 20) {
            now += 20;
            clock += std::chrono::milliseconds(20);
            tickAt(ticks, now);
        }
    }

    // Opens a setup file through the file menu, as the operator would.
    void open(const std::filesystem::path& file) {
        dialogs.openAnswer = file.string();
        station.OPEN_Click();
    }

    // The command texts queued to go out (see takeQueuedCommands); the queue is given up.
    std::vector<std::string> takeQueued() {
        std::vector<std::string> out;
        for (int i = 1; i <= readout.queued(); ++i) out.push_back(commandText(readout.queuedFrame(i).Data));
        (void)actions.dropQueued();
        return out;
    }
    std::vector<std::string> logged() const {
        std::vector<std::string> out;
        for (const LineLogEntry& e : forms.log.entries()) out.push_back(e.what);
        return out;
    }

    std::string field(int f, int camera, int scene = 0) const { return readout.mainSetting(f, camera, scene); }
    // Whether the camera's working copy holds the main settings of that scene.
    bool workingCopyIs(int camera, int scene) const {
        for (int f = mBar; f <= mFILTER; ++f)
            if (field(f, camera, 0) != field(f, camera, scene)) return false;
        return true;
    }

    TempFolder folder;
    FakePort port;
    FakeMessages messages;
    FakeDialogs dialogs;
    DiskWriter writer;
    std::chrono::system_clock::time_point clock{std::chrono::hours(24 * 365 * 50)};
    // Messages and dialogs pass through unchanged unless a remote command holds its messages
    // back or names the file itself.
    remote::HeldMessages held{messages};
    PresetDialogs preset{dialogs};
    Station station;
    const StationTicks ticks = stationTicks(station);
    const StationForms forms = station.forms();
    Form1& form1 = forms.main;
    Form2& form2 = forms.function;
    Form4& form4 = forms.cameraSet;
    Form6& form6 = forms.autoMessage;
    Actions actions{station};
    const StationReadout readout{station};
    long now = 0;

    // Clicks the entry of a list that reads `text`, or the item's line that starts with it.
    static void choose(ListBox& list, const std::string& text) {
        for (int i = 0; i < list.listCount(); ++i)
            if (list.list(i) == text || list.list(i).rfind(text + ":", 0) == 0) return list.setListIndex(i);
        throw std::out_of_range(text);
    }
};

using Commands = std::vector<std::string>;
inline constexpr const char* kStudio = STATION_SAMPLES_DIR "/studio.csd";

// The rig with the sample studio opened and nothing left queued to go out.
struct StudioRig : StationRig {
    StudioRig() {
        open(kStudio);
        takeQueued();
    }
};

}  // namespace station::testing
