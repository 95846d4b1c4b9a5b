// The program's start-up choices, and the built-in camera line that a first start runs on.
#include <QTemporaryDir>
#include <QtTest>

#include <fstream>

#include "app/station.hpp"
#include "app/station_readout.hpp"
#include "tests/support/fake_messages.hpp"
#include "tests/support/null_platform.hpp"
#include "tests/support/station_ticks.hpp"
#include "ui/start/builtin_line.hpp"
#include "ui/start/program_options.hpp"

using namespace station;
using namespace station::ui;

using station::testing::NoDialogs;

class StartTest : public QObject {
    Q_OBJECT

private slots:
    void commandLine() {
        ProgramOptions o = parseProgramOptions({"--port", "/dev/pts/4", "--definitions=/opt/types"});
        QVERIFY(o.error.empty());
        QCOMPARE(o.port, std::optional<std::string>("/dev/pts/4"));
        QCOMPARE(o.definitions, std::optional<std::filesystem::path>("/opt/types"));

        QCOMPARE(parseProgramOptions({"--port"}).error, std::string("Missing value after '--port'."));
        QCOMPARE(parseProgramOptions({"--speed", "x"}).error, std::string("Unknown option 'speed'."));
        QCOMPARE(parseProgramOptions({"/dev/ttyS0"}).error, std::string("unknown argument: /dev/ttyS0"));
        QVERIFY(parseProgramOptions({"--no-restore"}).noRestore && !parseProgramOptions({}).noRestore);
        QCOMPARE(parseProgramOptions({"--remote-idle=0"}).error, std::string("--remote-idle: not a number of seconds: 0"));

        // Qt's own options are left to Qt; the rest is ours, read before a display is opened.
        QCOMPARE(withoutQtOptions({"-platform", "offscreen", "--port", "/dev/x", "-reverse", "--style=Fusion", "-x"}),
                 (std::vector<std::string>{"--port", "/dev/x", "-x"}));
    }

    void builtInLine() {
        const std::filesystem::path studio = std::filesystem::path(STATION_SAMPLES_DIR) / "studio.csd";
        BuiltinLine line(studio);
        testing::FakeMessages messages;
        NoDialogs plain;
        PresetDialogs dialogs(plain);
        DiskWriter writer;
        Station station({line.port(), messages, dialogs, writer, STATION_SAMPLES_DIR});
        station.Form_Load();
        openStudio(station, dialogs, studio);
        const StationReadout readout(station);
        const StationForms forms = station.forms();

        // The station knows the studio's cameras, and the sample file is never saved over.
        QCOMPARE(readout.cameraType(1), std::string("ST1"));
        QVERIFY(readout.cameraIdOn());
        QVERIFY(readout.fileName().empty());
        QVERIFY(messages.shown.empty());

        station.act([&] { forms.main.OptBar.click(1); });
        // Two seconds of the program's timers, the line catching up before each poll.
        const StationTicks ticks = stationTicks(station);
        for (long ms = 20; ms <= 2000; ms += 20) testing::tickAt(ticks, ms, [&line] { line.advance(); });
        QCOMPARE(readout.queued(), 0);  // acknowledged by camera 1
        QCOMPARE(forms.receiveData.Caption.substr(0, 3), std::string(" 06"));
        QCOMPARE(int(line.line().at(1).mode(0x08) & 0x01), 1);
        QCOMPARE(int(line.line().at(2).mode(0x08) & 0x01), 0);  // addressed to camera 1 alone
        QVERIFY(messages.shown.empty());
    }
};

QTEST_GUILESS_MAIN(StartTest)
#include "start_test.moc"
