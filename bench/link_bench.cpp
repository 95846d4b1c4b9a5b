// The 40 ms poll's two hot paths: consuming one tick's worth of received bytes, and
// framing one command.
#include <benchmark/benchmark.h>

#include "common/shared.hpp"
#include "link/link.hpp"
#include "tests/support/null_platform.hpp"

namespace {

using station::testing::CountingDecoders;
using station::testing::QuietMessages;
using station::testing::ReplayPort;

using namespace station;

Bytes reply(std::initializer_list<int> data) {
    Bytes f{0x02, static_cast<std::uint8_t>(data.size())};
    int sum = static_cast<int>(data.size());
    for (int d : data) {
        f.push_back(static_cast<std::uint8_t>(d));
        sum += d;
    }
    const int chk = ~sum & 0xFFFF;
    f.push_back(static_cast<std::uint8_t>(chk & 0xFF));
    f.push_back(static_cast<std::uint8_t>(chk >> 8));
    return f;
}

// 38 bytes, what 9600 bit/s delivers in one 40 ms tick: four mode replies and one longer
// analog reply, all complete and correctly summed.
Bytes tickChunk() {
    Bytes chunk;
    for (const Bytes& f : {reply({0x22, 0x08, 0x01}), reply({0x22, 0x04, 0x0C}), reply({0x22, 0x02, 0x10}),
                           reply({0x22, 0x0F, 0x10}), reply({0x32, 0x2B, 0x40, 0x00, 0x01, 0x02})})
        chunk.insert(chunk.end(), f.begin(), f.end());
    return chunk;
}

// A link on camera 1 over a line fed by hand.
struct LinkOnReplay {
    LinkOnReplay() { shared.CamNo = 1; }
    Shared shared;
    ReplayPort port;
    QuietMessages messages;
    CountingDecoders decoders;
    Link link{shared, port, messages, decoders};
};

void BM_Timer1TickConsumes38Bytes(benchmark::State& state) {
    LinkOnReplay rig;
    ReplayPort& port = rig.port;
    Link& link = rig.link;
    link.Timer2_Timer();
    link.Timer3_Timer();
    const Bytes chunk = tickChunk();
    if (chunk.size() != 38) state.SkipWithError("chunk is not 38 bytes");
    for (auto _ : state) {
        port.waiting = chunk;
        link.Timer1_Timer();
    }
    if (!link.RecBuff().empty()) state.SkipWithError("bytes left over");
    state.counters["decoder_calls_per_tick"] =
        benchmark::Counter(static_cast<double>(rig.decoders.calls) / static_cast<double>(state.iterations()));
}
BENCHMARK(BM_Timer1TickConsumes38Bytes);

void BM_SendCmd(benchmark::State& state) {
    LinkOnReplay rig;
    Link& link = rig.link;
    for (auto _ : state) {
        link.SendCmd("200801FE");
        link.queue().SendBuffShift();
    }
}
BENCHMARK(BM_SendCmd);

}  // namespace
