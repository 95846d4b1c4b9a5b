#pragma once
// A link engine on a fake port, camera 1 selected, with recording decoders and messages.

#include <functional>

#include "common/runtime_error.hpp"
#include "common/shared.hpp"
#include "link/link.hpp"
#include "tests/support/fake_messages.hpp"
#include "tests/support/fake_port.hpp"
#include "tests/support/frames.hpp"
#include "tests/support/recording_decoders.hpp"

namespace station::testing {

using Calls = std::vector<std::string>;

// A link on a fake port with camera 1 selected; Decoders receives the replies.
template <typename Decoders = RecordingDecoders>
struct BasicLinkRig {
    BasicLinkRig() { shared.CamNo = 1; }

    // The first acknowledge and answer ticks after start bring both watches to idle.
    void settle() {
        link.Timer2_Timer();
        link.Timer3_Timer();
    }
    // One poll: these bytes arrive first; what the station wrote in the tick comes back.
    Bytes tick(const Bytes& arriving = {}) {
        port.arrive(arriving);
        link.Timer1_Timer();
        return port.takeWritten();
    }

    Shared shared;
    FakePort port;
    FakeMessages messages;
    Decoders decoders;
    Link link{shared, port, messages, decoders};
};

using LinkRig = BasicLinkRig<>;

// The number of the runtime error that f raised, 0 if none.
inline int errorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

}  // namespace station::testing
