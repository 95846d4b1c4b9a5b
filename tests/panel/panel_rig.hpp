#pragma once
// A main panel on a real link and a fake port, camera 1 selected, using load slot 1.

#include <string>
#include <vector>

#include "camtype/setting_stores.hpp"
#include "camtype/type_tables.hpp"
#include "common/hex.hpp"
#include "link/link.hpp"
#include "panel/main_panel.hpp"
#include "tests/support/fake_messages.hpp"
#include "tests/support/fake_port.hpp"
#include "tests/support/queued_commands.hpp"
#include "tests/support/recording_decoders.hpp"

namespace station::testing {

struct PanelRig {
    PanelRig() {
        shared.CamNo = 1;
        shared.CtrlReady = 1;
        shared.cams.CamFclNo(1) = "1";
    }

    std::vector<std::string> takeQueued() { return takeQueuedCommands(link.queue()); }

    std::string& field(int f) { return stores.MainScnData(f, shared.CamNo, 0); }

    // A reply as the link hands it over, written as on the line: "22 04 0E" or "32 2B FF".
    void reply(const std::string& spaced) {
        const std::string c = spaced.substr(0, 2), a = spaced.substr(3, 2), d = spaced.substr(6, 2);
        if (c[0] == '3') {
            panel.RecAnalogMain(c, a, d);
        } else {
            panel.RecModeMain(c, a, d);
        }
    }

    void gainType(int t) { types.FormGain(1) = static_cast<Integer>(t); }
    void filterType(int t) { types.FormFilter(1) = static_cast<Integer>(t); }
    void monitorType(int t) { types.FormMonitor(1) = static_cast<Integer>(t); }

    Shared shared;
    TypeTables types;
    SettingStores stores;
    FakePort port;
    FakeMessages messages;
    RecordingDecoders decoders;
    Link link{shared, port, messages, decoders};
    Form1 form;
    MainPanel panel{shared, types, stores, link, form};
};

using Commands = std::vector<std::string>;

}  // namespace station::testing
