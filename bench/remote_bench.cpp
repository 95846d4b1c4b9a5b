// Control from outside through the TCP transport on the loopback address, into a station:
// commands per second (read, parse, carry out, reply, push), and the time from a level
// command written by a client to its frame in the station's send queue.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QTcpSocket>

#include "ui/remote/remote_control.hpp"
#include "tests/support/null_platform.hpp"

namespace {

using station::testing::NullPort;
using station::testing::QuietMessages;
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
struct Rig {
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
        while (station.link.queue().SendCnt() > 0) station.link.queue().SendBuffShift();
    }

    NullPort port;
    QuietMessages messages;
    NoDialogs none;
    PresetDialogs dialogs{none};
    DiskWriter writer;
    Station station{{port, messages, dialogs, writer, STATION_SAMPLES_DIR}};
    ui::RemoteControl remote{station, dialogs, {true, QHostAddress(QHostAddress::LocalHost), 0, 0, {}}, [] {},
                             [] { return false; }};
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
        const int before = rig.station.link.queue().SendCnt();
        rig.client.write((high = !high) ? "level iris 5\n" : "level iris 6\n");
        rig.client.flush();
        while (rig.station.link.queue().SendCnt() == before) QCoreApplication::processEvents(QEventLoop::AllEvents);
        state.PauseTiming();
        rig.drainQueue();
        rig.client.readAll();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_LevelCommandToQueuedFrame)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace
