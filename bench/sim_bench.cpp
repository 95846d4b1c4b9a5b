// A page write through the station's link engine and the in-process camera line, in
// simulated time: ~40 set commands shaped like the station's (the main panel's fifteen,
// then function items), each acknowledged and answered by the camera.
//
// Counters:
//   sim_frames_per_s   frames per simulated second, first write to last reply taken
//   poll_limit_per_s   what the 40 ms poll allows: one frame a tick
//   line_limit_per_s   what the line allows: the busier direction's bytes per frame at
//                      10 bits a byte (the wire is full duplex)
//   round_trip_limit_per_s  the same if frame, ACK, reply and ACK never overlapped
//   items_per_second   (wall clock) frames pushed through per real second
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "common/shared.hpp"
#include "link/link.hpp"
#include "sim/line.hpp"
#include "sim/sim_port.hpp"
#include "sim/tick_driver.hpp"

namespace {

using namespace station;
using namespace std::chrono_literals;

class QuietMessages : public MessageSink {
public:
    void show(const std::string&, Icon) override { ++shown; }
    long shown = 0;
};

class CountingDecoders : public ReplyDecoders {
public:
    void RecModeMain(const std::string&, const std::string&, const std::string&) override { ++replies; }
    void RecModeFunc(const std::string&, const std::string&, const std::string&) override {}
    void RecAnalogMain(const std::string&, const std::string&, const std::string&) override { ++replies; }
    void RecAnalogFunc(const std::string&, const std::string&, const std::string&, const std::string&) override {}
    void RecAuto(const std::string&, const std::string&) override {}
    long replies = 0;
};

// The main panel's whole state in its sending order, then a camera type's function items.
std::vector<std::string> pageWrite() {
    std::vector<std::string> cmds = {"200801FE", "200210EF", "200501FE", "200430F3", "200401FC",
                                     "200F0300", "302B1000", "302E8000", "30398000", "302C2000",
                                     "30184000", "301A4000", "30218000", "30238000", "200002F8"};
    const char* hex = "0123456789ABCDEF";
    for (int i = 0; i < 7; ++i) cmds.push_back(std::string("204") + hex[i] + "01FE");   // scene modes
    for (int i = 0; i < 3; ++i) cmds.push_back(std::string("282") + hex[i] + "02FC");   // second bank
    for (int i = 0; i < 15; ++i) cmds.push_back(std::string("305") + hex[i] + "8000");  // levels
    return cmds;
}

void BM_PageWrite(benchmark::State& state) {
    const int speed = static_cast<int>(state.range(0));
    const bool idMode = state.range(1) != 0;
    const std::vector<std::string> cmds = pageWrite();
    double simSeconds = 0;
    std::size_t toCameras = 0, toStation = 0;

    for (auto _ : state) {
        Shared shared;
        shared.CamNo = 1;
        shared.IDMode = idMode ? 1 : 0;
        shared.cams.CamID(1) = "01";
        sim::Line line(speed);
        line.setIdMode(idMode);
        line.addCamera(1, "HD3", "01");
        sim::SimPort port(line);
        port.setSettings(std::to_string(speed) + ",N,8,1");
        port.open();
        QuietMessages messages;
        CountingDecoders decoders;
        Link link(shared, port, messages, decoders);
        sim::TickDriver ticks(line);
        ticks.every(40ms, [&] { link.Timer1_Timer(); });
        ticks.every(100ms, [&] { link.Timer2_Timer(); });
        ticks.every(500ms, [&] { link.Timer3_Timer(); });
        ticks.run(500ms);  // both watches idle, as after start-up

        sim::Micros first{-1};
        toCameras = toStation = 0;
        line.onTraffic = [&](const sim::Traffic& t) {
            if (t.from == sim::Traffic::From::Station) {
                if (first.count() < 0) first = t.at;
                toCameras += t.bytes.size();
            } else {
                toStation += t.bytes.size();
            }
        };
        for (const std::string& c : cmds) link.SendCmd(c);
        const auto want = static_cast<long>(cmds.size());
        if (!ticks.runUntil([&] { return decoders.replies == want; }, 60s) || messages.shown != 0) {
            state.SkipWithError("the page write did not complete cleanly");
            return;
        }
        simSeconds = std::chrono::duration<double>(line.now() - first).count();
    }

    const double frames = static_cast<double>(cmds.size());
    const double bytesPerSecond = speed / 10.0;
    const double busier = static_cast<double>(std::max(toCameras, toStation)) / frames;
    state.counters["frames"] = frames;
    state.counters["sim_frames_per_s"] = frames / simSeconds;
    state.counters["poll_limit_per_s"] = 1.0 / 0.040;
    state.counters["line_limit_per_s"] = bytesPerSecond / busier;
    state.counters["round_trip_limit_per_s"] =
        bytesPerSecond / (static_cast<double>(toCameras + toStation) / frames);
    state.SetItemsProcessed(state.iterations() * static_cast<long>(cmds.size()));
}
BENCHMARK(BM_PageWrite)->ArgNames({"bps", "id"})->Args({9600, 0})->Args({9600, 1})->Args({19200, 0})->Args({19200, 1});

}  // namespace
