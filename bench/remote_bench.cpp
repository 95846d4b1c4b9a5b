// Control from outside through the TCP transport on the loopback address, into a station.
//
// On a station whose queue nobody empties but the benchmark (parse rate):
//   BM_TcpCommandsPerSecond      commands per second read, parsed, carried out, replied and
//                                pushed, the queue emptied between batches of 200
//   BM_LevelCommandToQueuedFrame a level command from the client's write to its frame queued
// On the station running on the simulated studio line, its timers ticking in simulated time
// (what reaches a camera):
//   BM_CommandsReachingCamera    a client sending 1000 level commands per simulated second
//                                over all seven levels for 4 s: camera_frames_per_s is the
//                                frames cameras took per simulated second, accepted_per_s the
//                                commands answered OK
// Values stay from -77 up: camera 1's reports of lower ones carry a checksum whose low byte is
// below 0x10, which the station refuses (NAK), and the line then waits for an answer.
//   BM_FaderOnTheLine            one fader (M.BLK) moved for 4 s at 100 updates/s: lag_ms
//                                from the last update until the camera holds that value,
//                                max_queue the most frames waiting, backwards the pushed
//                                values that went back against the fader's direction
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QTcpSocket>

#include <algorithm>
#include <chrono>

#include "app/actions.hpp"
#include "app/station_readout.hpp"
#include "tests/support/null_station.hpp"
#include "tests/support/studio_line_rig.hpp"
#include "ui/remote/remote_control.hpp"

namespace {

using station::testing::NoDialogs;

using namespace station;

QCoreApplication& app() {
    static int argc = 1;
    static char name[] = "bench_remote";
    static char* argv[] = {name, nullptr};
    static QCoreApplication instance(argc, argv);
    return instance;
}

// A started station with the sample studio, remote control on, and one connected client.
struct Rig : testing::NullStation {
    Rig() {
        app();
        station.Form_Load();
        dialogs.answerNextOpen(STATION_SAMPLES_DIR "/studio.csd");
        station.OPEN_Click();
        remote.setEnabled(true);
        client.connectToHost(QHostAddress::LocalHost, remote.tcp().port());
        client.waitForConnected(3000);
        while (remote.tcp().clientCount() == 0) QCoreApplication::processEvents();
    }
    void drainQueue() {
        (void)Actions(station).dropQueued();
    }

    ui::RemoteControl remote{station, dialogs, {true, QHostAddress(QHostAddress::LocalHost), 0, 0, {}, {}}, [] {}};
    QTcpSocket client;
};

// Batches of 200 level commands (each queues a frame), the queue emptied between batches
// so that none is refused.
void BM_TcpCommandsPerSecond(benchmark::State& state) {
    Rig rig;
    QByteArray batch;
    for (int i = 0; i < 200; ++i) batch += i % 2 ? "level iris 5\n" : "level iris 6\n";
    for (auto _ : state) {
        rig.client.write(batch);
        qsizetype replies = 0;
        while (replies < 200) {
            QCoreApplication::processEvents(QEventLoop::AllEvents);
            rig.client.waitForReadyRead(0);
            replies += rig.client.readAll().count("OK\n");
        }
        state.PauseTiming();
        rig.drainQueue();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * 200);
}
BENCHMARK(BM_TcpCommandsPerSecond)->Unit(benchmark::kMillisecond)->UseRealTime();

// One level command from the client's write until its frame is in the queue.
void BM_LevelCommandToQueuedFrame(benchmark::State& state) {
    Rig rig;
    bool high = false;
    for (auto _ : state) {
        const int before = StationReadout(rig.station).queued();
        rig.client.write((high = !high) ? "level iris 5\n" : "level iris 6\n");
        rig.client.flush();
        while (StationReadout(rig.station).queued() == before) QCoreApplication::processEvents(QEventLoop::AllEvents);
        state.PauseTiming();
        rig.drainQueue();
        rig.client.readAll();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_LevelCommandToQueuedFrame)->Unit(benchmark::kMicrosecond)->UseRealTime();

// The station on the simulated studio line, remote control on, one connected client that
// waits for each reply before the line moves on.
struct LineRig {
    LineRig() {
        app();
        hook = &remote;
        remote.setEnabled(true);
        client.connectToHost(QHostAddress::LocalHost, remote.tcp().port());
        client.waitForConnected(3000);
        while (remote.tcp().clientCount() == 0) QCoreApplication::processEvents();
    }
    // Sends a line and waits for its OK or ERR; true for OK.
    bool command(const QByteArray& text) {
        client.write(text + "\n");
        for (;;) {
            QCoreApplication::processEvents(QEventLoop::AllEvents);
            client.waitForReadyRead(0);
            input += client.readAll();
            for (qsizetype end; (end = input.indexOf('\n')) >= 0;) {
                const QByteArray got = input.left(end);
                input.remove(0, end + 1);
                if (got.startsWith("EV ")) events.push_back(got.mid(3));
                else return got.startsWith("OK");
            }
        }
    }
    int cameraLevel(int position, std::uint8_t address) {
        const int raw = line.line.camera(position)->level(address);
        return raw > 127 ? raw - 256 : raw;
    }

    ui::RemoteControl* hook = nullptr;
    testing::StudioLineRig line{[this] {
        if (hook) hook->beforePoll();
    }};
    ui::RemoteControl remote{line.station, line.dialogs, {true, QHostAddress(QHostAddress::LocalHost), 0, 0, {}, {}},
                             [] {}};
    QTcpSocket client;
    QByteArray input;
    std::vector<QByteArray> events;  // pushed lines without "EV "
};

using namespace std::chrono_literals;

void BM_CommandsReachingCamera(benchmark::State& state) {
    static const char* levels[] = {"mblk", "iris", "detail", "rgain", "bgain", "rblk", "bblk"};
    double frames = 0, accepted = 0, simSeconds = 0;
    for (auto _ : state) {
        LineRig rig;
        const auto start = rig.line.ticks.now();
        for (int i = 0; i < 4000; ++i) {
            accepted += rig.command(QByteArray("level ") + levels[i % 7] + " " + QByteArray::number(i % 180 - 60)) ? 1 : 0;
            rig.line.ticks.run(1ms);
        }
        rig.line.ticks.runUntil([&] { return StationReadout(rig.line.station).queued() == 0; }, 60s);
        simSeconds += std::chrono::duration<double>(rig.line.ticks.now() - start).count();
        frames += static_cast<double>(rig.line.stationFrames().size());
    }
    state.counters["camera_frames_per_s"] = frames / simSeconds;
    state.counters["accepted_per_s"] = accepted / (4.0 * static_cast<double>(state.iterations()));
    state.counters["sim_s_to_drain"] = simSeconds / static_cast<double>(state.iterations());
}
BENCHMARK(BM_CommandsReachingCamera)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void BM_FaderOnTheLine(benchmark::State& state) {
    double lagMs = 0, maxQueue = 0, backwards = 0, refused = 0;
    for (auto _ : state) {
        LineRig rig;
        int last = 0;
        for (int i = 0; i < 400; ++i) {  // -50 .. 120
            last = -50 + i * 170 / 399;
            refused += rig.command("level mblk " + QByteArray::number(last)) ? 0 : 1;
            rig.line.ticks.run(10ms);
            rig.remote.push();  // as the desktop program does every 40 ms
            maxQueue = std::max<double>(maxQueue, StationReadout(rig.line.station).queued());
        }
        const auto stopped = rig.line.ticks.now();
        rig.line.ticks.runUntil([&] {
            rig.remote.push();
            return rig.cameraLevel(1, 0x2B) == last;
        }, 10s);
        lagMs = std::chrono::duration<double, std::milli>(rig.line.ticks.now() - stopped).count();
        for (int i = 0; i < 50; ++i) {
            rig.line.ticks.run(40ms);
            rig.remote.push();
        }
        rig.command("get camera");
        int previous = -129;
        for (const QByteArray& e : rig.events) {
            if (!e.startsWith("level mblk ")) continue;
            const int v = e.mid(11).toInt();
            if (v < previous) ++backwards;
            previous = v;
        }
    }
    state.counters["lag_ms"] = lagMs;
    state.counters["max_queue"] = maxQueue;
    state.counters["backwards"] = backwards;
    state.counters["refused"] = refused;
}
BENCHMARK(BM_FaderOnTheLine)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

}  // namespace
