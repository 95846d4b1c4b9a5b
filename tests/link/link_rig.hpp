#pragma once
// A link engine on a fake port, camera 1 selected, with recording decoders and messages.

#include "common/shared.hpp"
#include "link/link.hpp"
#include "tests/support/fake_messages.hpp"
#include "tests/support/fake_port.hpp"
#include "tests/support/recording_decoders.hpp"

namespace station::testing {

struct LinkRig {
    LinkRig() { shared.CamNo = 1; }

    // The first acknowledge and answer ticks after start bring both watches to idle.
    void settle() {
        link.Timer2_Timer();
        link.Timer3_Timer();
    }

    Shared shared;
    FakePort port;
    FakeMessages messages;
    RecordingDecoders decoders;
    Link link{shared, port, messages, decoders};
};

}  // namespace station::testing
