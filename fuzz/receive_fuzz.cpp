// Feeds arbitrary bytes, in arbitrary chunks across ticks, into the receive path under both
// acknowledge settings. Every input must end either processed or with one of the runtime
// errors the receive path is known to raise; anything else (a crash, a sanitizer report,
// another exception) is a finding.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "common/runtime_error.hpp"
#include "common/shared.hpp"
#include "link/link.hpp"
#include "tests/support/null_platform.hpp"

namespace {

using station::testing::CountingDecoders;
using station::testing::QuietMessages;
using station::testing::ReplayPort;

using namespace station;

void expectKnown(const RuntimeError& e) {
    if (e.number() != 5 && e.number() != 6 && e.number() != 9) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    Shared shared;
    shared.CamNo = static_cast<Integer>(data[0] % 9);
    shared.AckMode = static_cast<Integer>((data[0] >> 4) & 1);
    ReplayPort port;
    QuietMessages messages;
    CountingDecoders decoders;
    Link link(shared, port, messages, decoders);

    std::size_t pos = 1;
    while (pos < size) {
        // Each chunk: a length byte, then that many bytes; the top bit of the length also
        // queues a command and runs the two watches, so sending and receiving interleave.
        const std::uint8_t head = data[pos++];
        const std::size_t n = std::min<std::size_t>(head & 0x3F, size - pos);
        port.waiting.insert(port.waiting.end(), data + pos, data + pos + n);
        pos += n;
        try {
            if (head & 0x80) link.SendCmd("4010");
            if (head & 0x40) {
                link.Timer2_Timer();
                link.Timer3_Timer();
            }
            link.Timer1_Timer();
        } catch (const RuntimeError& e) {
            expectKnown(e);
        }
    }
    return 0;
}
