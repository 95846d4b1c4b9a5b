// Control from outside over real sockets on the loopback address: TCP lines and OSC
// datagrams into a station on a fake port, the replies, the pushed state (only when
// something changed), and what a client cannot do.
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QNetworkInterface>
#include <QPushButton>
#include <QMainWindow>
#include <QSettings>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QUdpSocket>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <QtTest>

#include <atomic>
#include <thread>

#include "remote/osc_codec.hpp"
#include "tests/support/station_rig.hpp"
#include "ui/main/checksum_menu.hpp"
#include "ui/remote/remembered_remote.hpp"
#include "ui/remote/remote_control.hpp"
#include "ui/remote/remote_menu.hpp"
#include "ui/platform/modal_pause.hpp"
#include "ui/remote/remote_window.hpp"

using namespace station;
using namespace station::ui;
using namespace std::chrono_literals;

namespace {

// The station rig with the sample studio, its watches idle, and remote control (off) on it.
struct Rig : testing::StationRig {
    explicit Rig(QHostAddress address = QHostAddress(QHostAddress::LocalHost), quint16 tcpPort = 0, TcpLimits limits = {},
                 RemoteScreen screen = {})
        : remote{station, preset, {true, address, tcpPort, 0, {}, limits}, [] {}, std::move(screen)} {
        open(testing::kStudio);
        run(1000);
    }
    RemoteControl remote;
};

// A TCP client that collects the lines it receives.
struct Client {
    explicit Client(quint16 port) {
        socket.connectToHost(QHostAddress::LocalHost, port);
        socket.waitForConnected(3000);
    }
    void send(const QByteArray& bytes) { socket.write(bytes); }
    // Waits until `count` lines have come (or three seconds have gone); all lines so far.
    QStringList lines(int count) {
        (void)QTest::qWaitFor([&] {
            buffer += socket.readAll();
            return buffer.count('\n') >= count;
        }, 3000);
        return QString::fromUtf8(buffer).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    // Whether this line has come (within three seconds).
    bool got(const QByteArray& line) {
        return QTest::qWaitFor([&] {
            buffer += socket.readAll();
            return buffer.startsWith(line + "\n") || buffer.contains("\n" + line + "\n");
        }, 3000);
    }
    // The same for reply lines, leaving out the pushed "EV" lines: read as they come (no
    // polling pause), for at most `limitMs` (a minute unless told).
    QStringList replies(int count, int limitMs = 60000) {
        const auto take = [&] {
            buffer += socket.readAll();
            for (qsizetype end; (end = buffer.indexOf('\n', scanned)) >= 0; scanned = end + 1) {
                const QByteArray line = buffer.mid(scanned, end - scanned);
                if (line.startsWith("OK") || line.startsWith("ERR")) replyLines << QString::fromUtf8(line);
            }
            return replyLines.size() >= count;
        };
        if (take()) return replyLines;
        QEventLoop loop;
        QTimer limit;
        limit.setSingleShot(true);
        QObject::connect(&limit, &QTimer::timeout, &loop, &QEventLoop::quit);
        QObject::connect(&socket, &QTcpSocket::readyRead, &loop, [&] {
            if (take()) loop.quit();
        });
        limit.start(limitMs);
        loop.exec();
        return replyLines;
    }
    QTcpSocket socket;
    QByteArray buffer;
    qsizetype scanned = 0;
    QStringList replyLines;
};

// An OSC client on its own UDP port that collects what it receives as text.
struct Surface {
    explicit Surface(quint16 stationPort) : station(stationPort) { socket.bind(QHostAddress::LocalHost, 0); }
    void send(const remote::Packet& p) {
        socket.writeDatagram(reinterpret_cast<const char*>(p.data()), static_cast<qint64>(p.size()), QHostAddress::LocalHost,
                             station);
    }
    QStringList receive(int count) {
        (void)QTest::qWaitFor([&] {
            while (socket.hasPendingDatagrams()) {
                QByteArray d(static_cast<int>(socket.pendingDatagramSize()), '\0');
                socket.readDatagram(d.data(), d.size());
                got << QString::fromStdString(remote::describeOsc(remote::Packet(d.begin(), d.end())).value_or("(not OSC)"));
            }
            return got.size() >= count;
        }, 3000);
        return got;
    }
    quint16 station;
    QUdpSocket socket;
    QStringList got;
};

}  // namespace

class RemoteTest : public QObject {
    Q_OBJECT

private slots:
    // Nothing listens until turned on; the network takes a passcode (a script's comes from a
    // file's first line, never the command line); the status bar says where it listens.
    void nothingListensUntilTurnedOnAndTheNetworkTakesAPasscode() {
        std::string error;
        const ProgramOptions o = parseProgramOptions({"--remote-address", "0.0.0.0", "--osc-port=9000", "--remote-idle", "5"});
        const RemoteSettings s = remoteSettings(o.remote, error);
        QVERIFY(o.error.empty() && error.empty() && s.enabled && s.oscPort == 9000 && s.tcpPort == 5250);
        QCOMPARE(s.tcp.idle, std::chrono::milliseconds(5000));
        QCOMPARE(parseProgramOptions({"--remote-port", "70000"}).error, std::string("--remote-port: not a port number: 70000"));
        remoteSettings(parseProgramOptions({"--remote-address=studio"}).remote, error);
        QCOMPARE(error, std::string("--remote-address: not an address: studio"));

        Rig local;
        QVERIFY(!local.remote.enabled() && local.remote.status().isEmpty());
        QVERIFY(local.remote.setEnabled(true));
        QVERIFY(local.remote.status().startsWith(QStringLiteral("Remote control: TCP 127.0.0.1:")));
        Rig open(QHostAddress(QStringLiteral("0.0.0.0")));
        QVERIFY(!open.remote.setEnabled(true) && !open.remote.enabled());
        QVERIFY(open.remote.status().contains(QStringLiteral("takes a passcode")));

        error.clear();
        QTemporaryDir dir;
        QFile file(dir.filePath(QStringLiteral("passcode")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("kestrel-42-amber\r\nsecond line\n");
        file.close();
        const std::string path = file.fileName().toStdString();
        RemoteSettings withPasscode = open.remote.settings();
        withPasscode.passcode = remoteSettings(parseProgramOptions({"--remote-passcode-file", path}).remote, error).passcode;
        QCOMPARE(withPasscode.passcode, std::string("kestrel-42-amber"));
        QVERIFY(error.empty());
        remoteSettings(parseProgramOptions({"--remote-passcode-file", path + "x"}).remote, error);
        QCOMPARE(error, "--remote-passcode-file: cannot read " + path + "x");
        withPasscode.enabled = true;
        QVERIFY(open.remote.apply(withPasscode));
        QVERIFY2(open.remote.status().contains(QStringLiteral("open to the network with a passcode at ")),
                 qPrintable(open.remote.status()));
        QVERIFY(openAddresses(QHostAddress(QHostAddress::LocalHost)).isEmpty());
    }

    // Options hold for one run: what is kept is the operator's, from the settings window.
    void optionsHoldForOneRunTheWindowKeeps() {
        QTemporaryDir dir;
        QSettings store(dir.filePath(QStringLiteral("s.conf")), QSettings::IniFormat);
        std::string error;
        const ProgramOptions once = parseProgramOptions({"--remote-address", "0.0.0.0"});
        const RemoteSettings run = startRemote(once, store, error);
        QVERIFY(run.enabled && run.address == QHostAddress(QStringLiteral("0.0.0.0")));
        QVERIFY(store.allKeys().isEmpty());
        QVERIFY(!startRemote(parseProgramOptions({}), store, error).enabled);

        Rig rig;
        QMainWindow window;
        std::vector<RemoteSettings> kept;
        installRemoteMenu(window, rig.remote, {}, [&kept](const RemoteSettings& s) { kept.push_back(s); });
        auto* entry = window.findChild<QAction*>(QStringLiteral("remoteSettings"));
        QVERIFY(entry);
        QTimer::singleShot(0, [&] {
            auto* dialog = dynamic_cast<RemoteWindow*>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            auto* ok = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
            dialog->findChild<QCheckBox*>()->setChecked(true);
            dialog->findChild<QComboBox*>()->setCurrentText(QStringLiteral("0.0.0.0"));
            QVERIFY(!ok->isEnabled());  // the network without a passcode
            QVERIFY(dialog->findChild<QLabel*>(QStringLiteral("remoteProblem"))->text().contains(QStringLiteral("passcode")));
            dialog->findChild<QPushButton*>(QStringLiteral("generatePasscode"))->click();
            const QString made = dialog->findChild<QLineEdit*>(QStringLiteral("passcode"))->text();
            QVERIFY(made.size() >= 8 && ok->isEnabled());
            ok->click();
        });
        entry->trigger();
        QCOMPARE(kept.size(), std::size_t(1));
        QVERIFY(kept[0].enabled && kept[0].address == QHostAddress(QStringLiteral("0.0.0.0")) && !kept[0].passcode.empty());
        QVERIFY(rig.remote.enabled() && rig.remote.gate().hasPasscode());
        rememberRemote(store, kept[0], kept[0].enabled);
        const RemoteSettings back = startRemote(parseProgramOptions({}), store, error);
        QVERIFY(back.enabled && back.address == QHostAddress(QStringLiteral("0.0.0.0")) && back.passcode == kept[0].passcode);
        // Options given once more win over what is kept, for that run.
        const RemoteSettings port = startRemote(parseProgramOptions({"--remote-port", "7000"}), store, error);
        QVERIFY(port.enabled && port.address.isLoopback() && port.tcpPort == 7000);
    }

    void theOperatorsSwitchIsRememberedAndShown() {
        QTemporaryDir dir;
        QSettings store(dir.filePath(QStringLiteral("s.conf")), QSettings::IniFormat);
        QVERIFY(!rememberedRemote(store, RemoteSettings{}).enabled);  // nothing remembered: off
        rememberRemote(store, {true, QHostAddress(QStringLiteral("0.0.0.0")), 6000, 6001, {}, {}}, true);
        RemoteSettings back = rememberedRemote(store, RemoteSettings{});
        QVERIFY(back.enabled && back.address == QHostAddress(QStringLiteral("0.0.0.0")));
        QCOMPARE(back.tcpPort, quint16(6000));
        QCOMPARE(back.oscPort, quint16(6001));
        store.setValue(QStringLiteral("remote/address"), QStringLiteral("studio"));  // damaged by hand
        store.setValue(QStringLiteral("remote/tcpPort"), 70000);
        store.setValue(QStringLiteral("remote/oscPort"), QStringLiteral("x"));
        back = rememberedRemote(store, RemoteSettings{});
        QVERIFY(back.enabled && back.address == QHostAddress(QHostAddress::LocalHost));
        QCOMPARE(back.tcpPort, quint16(5250));
        QCOMPARE(back.oscPort, quint16(5251));

        Rig rig;
        QMainWindow window;
        std::vector<bool> told;
        installRemoteMenu(window, rig.remote, [&told](bool on) { told.push_back(on); });
        auto* entry = window.findChild<QAction*>(QStringLiteral("remoteControl"));
        auto* note = window.findChild<QLabel*>(QStringLiteral("remoteStatus"));
        QVERIFY(entry && note && !entry->isChecked() && note->isHidden());
        entry->trigger();
        QVERIFY(entry->isChecked() && !note->isHidden());
        QVERIFY(note->text().startsWith(QStringLiteral("Remote control: TCP 127.0.0.1:")));
        entry->trigger();
        QCOMPARE(told, (std::vector<bool>{true, false}));
        QVERIFY(note->isHidden());

    }

    void theBrowserPanelIsForOneRunOrAsTheMenuWasLeft() {
        std::string error;
        const auto web = [&error](std::vector<std::string> args) {
            error.clear();
            const ProgramOptions o = parseProgramOptions(args);
            if (!o.error.empty()) error = o.error;
            return webSettings(o.remote, error);
        };
        QVERIFY(!web({}).enabled);
        const WebSettings s = web({"--web=0.0.0.0:81"});
        QVERIFY(error.empty() && s.port == 81 && s.address == QHostAddress(QStringLiteral("0.0.0.0")));
        web({"--web", "studio:8080"});
        QCOMPARE(error, std::string("--web: not an address: studio"));

        QTemporaryDir dir;
        QSettings store(dir.filePath(QStringLiteral("s.conf")), QSettings::IniFormat);
        QVERIFY(!rememberedWeb(store, WebSettings{}).enabled);
        Rig rig;
        rig.remote.setWebSettings({false, QHostAddress(QHostAddress::LocalHost), 0});
        QMainWindow window;
        installRemoteMenu(window, rig.remote, {}, {}, [&store, &rig](bool on) { rememberWeb(store, rig.remote.webSettings(), on); });
        auto* entry = window.findChild<QAction*>(QStringLiteral("browserPanel"));
        auto* note = window.findChild<QLabel*>(QStringLiteral("webStatus"));
        QVERIFY(entry && note && !entry->isChecked() && note->isHidden());
        entry->trigger();
        QVERIFY(entry->isChecked() && rig.remote.webEnabled());
        QCOMPARE(note->text(), QStringLiteral("Browser panel: http://127.0.0.1:%1/").arg(rig.remote.web().port()));
        QVERIFY(rememberedWeb(store, WebSettings{}).enabled);
        QVERIFY(!rig.remote.enabled());  // TCP and OSC stay as they were

        // The network without a passcode: not served, and the status bar says why.
        Rig second;
        second.remote.setWebSettings({false, QHostAddress(QHostAddress::AnyIPv4), 0});
        QVERIFY(!second.remote.setWebEnabled(true));
        QVERIFY(second.remote.webStatus().contains(QStringLiteral("takes a passcode")));
        entry->trigger();
        QVERIFY(!rig.remote.webEnabled() && note->isHidden() && !rememberedWeb(store, WebSettings{}).enabled);
    }

    void commandsAreAnsweredAndEveryClientSeesTheChanges() {
        Rig rig;
        QVERIFY(rig.remote.setEnabled(true));
        Client a(rig.remote.tcp().port());
        Client b(rig.remote.tcp().port());
        QTRY_COMPARE(rig.remote.tcp().clientCount(), 2);
        a.send("level iris 12\r\nmode bar 1\n");
        QStringList got = a.lines(4);
        got.sort();
        QCOMPARE(got, (QStringList{"EV level iris 12", "EV mode bar 1", "OK", "OK"}));
        QStringList pushed = b.lines(2);
        pushed.sort();
        QCOMPARE(pushed, (QStringList{"EV level iris 12", "EV mode bar 1"}));
        QCOMPARE(rig.takeQueued(), (std::vector<std::string>{"30390C00", "200801FE"}));

        // Pushes follow changes: an idle second delivers nothing.
        QTest::qWait(200);
        const long before = rig.remote.feed().deliveries();
        QTest::qWait(1000);
        QCOMPARE(rig.remote.feed().deliveries(), before);
        const auto pushes = rig.remote.feed().pushes();
        rig.form1.VrDtl.setValue(5);  // the operator's own gesture reaches the clients too
        rig.remote.changed();          // as the window's redraw tells it
        QCOMPARE(b.lines(3).last(), QStringLiteral("EV level detail 5"));
        QCOMPARE(rig.remote.feed().pushes(), pushes + 1);
        Client c(rig.remote.tcp().port());  // bad input gets an ERR and the line after it its answer
        c.send(QByteArray(3000, 'x') + "\n" + QByteArray("\x00\xff\x01 junk\n", 9) + "get camera\n");
        QCOMPARE(c.lines(3), (QStringList{"ERR line too long (over 1024 bytes)", "ERR not a text line (control byte)",
                                          "OK camera 1"}));
        a.send("auto white\n");  // a value with blanks comes as one quoted word
        QVERIFY(a.lines(8).contains(QStringLiteral("EV auto \"AUTO WHITE: Now doing\"")));
    }

    // All sixteen places taken: a newcomer is turned away with one line while every client has
    // spoken within the last minute; 40 that hold on and 200 that come and go around a client
    // asking all along cost that client no answer. A client idle past the minute gives its
    // place up, the one that speaks never.
    void aWorkingClientIsNeverEvictedOnlyTheIdle() {
        Rig rig(QHostAddress(QHostAddress::LocalHost), 0,
                TcpLimits{16, 256 * 1024, std::chrono::minutes(10), std::chrono::milliseconds(5000)});
        QVERIFY(rig.remote.setEnabled(true));
        const quint16 port = rig.remote.tcp().port();
        Client active(port);
        int asked = 0;
        const auto ask = [&] {
            active.send("get camera\n");
            ++asked;
        };
        std::vector<std::unique_ptr<Client>> held;
        for (int i = 0; i < 15; ++i) {
            held.push_back(std::make_unique<Client>(port));
            ask();
            QCoreApplication::processEvents();
        }
        QTRY_COMPARE(rig.remote.tcp().clientCount(), 16);
        std::vector<std::unique_ptr<Client>> late;
        for (int i = 0; i < 240; ++i) {
            auto c = std::make_unique<Client>(port);
            if (i % 6 == 0) late.push_back(std::move(c));  // 40 hold on
            else c->socket.abort();                          // 200 come and go
            if (i % 4 == 0) ask();
            QCoreApplication::processEvents();  // the station takes them as they come
        }
        QCOMPARE(active.replies(asked).count(QStringLiteral("OK camera 1")), asked);
        QVERIFY(late.front()->got("ERR busy: 16 clients connected"));
        QTRY_COMPARE(late.back()->socket.state(), QAbstractSocket::UnconnectedState);
        QVERIFY(rig.remote.tcp().turnedAway() >= 40);
        QCOMPARE(active.socket.state(), QAbstractSocket::ConnectedState);
        QCOMPARE(rig.remote.tcp().clientCount(), 16);

        // Past the (here shortened) minute the silent ones give their places up, one a newcomer.
        QElapsedTimer quiet;
        quiet.start();
        (void)QTest::qWaitFor([&] {
            if (quiet.elapsed() > 300) {
                ask();
                quiet.restart();
            }
            return false;
        }, 5200);
        Client newcomer(port);
        newcomer.send("get camera\n");
        QCOMPARE(newcomer.replies(1), QStringList{"OK camera 1"});
        QVERIFY(held[0]->got("EV closed idle"));
        QCOMPARE(active.replies(asked).size(), asked);
        QCOMPARE(active.socket.state(), QAbstractSocket::ConnectedState);
        QVERIFY(!active.buffer.contains("EV closed idle"));
    }

    void clientsSilentPastTheIdleLimitAreClosed() {
        Rig rig(QHostAddress(QHostAddress::LocalHost), 0, TcpLimits{16, 256 * 1024, std::chrono::milliseconds(400)});
        QVERIFY(rig.remote.setEnabled(true));
        const quint16 port = rig.remote.tcp().port();
        Client silent(port);
        Client talking(port);
        Client deaf(port);  // asks and asks, but never reads a reply
        deaf.socket.setReadBufferSize(1);
        deaf.socket.setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, 4096);
        deaf.send(QByteArray("help\n").repeated(100000));
        QTRY_COMPARE(rig.remote.tcp().clientCount(), 3);
        QElapsedTimer since;
        since.start();
        int asked = 0;
        // The talking client speaks every 100 ms; the pushes the silent one gets do not count.
        QVERIFY2(QTest::qWaitFor([&] {
            if (since.elapsed() / 100 >= asked) {
                talking.send("get camera\n");
                ++asked;
                rig.form1.VrDtl.setValue(asked % 10);  // something to push
            }
            silent.socket.readAll();
            // The deaf one reads nothing, so it is the station's side that tells it is gone.
            return silent.socket.state() == QAbstractSocket::UnconnectedState && rig.remote.tcp().clientCount() == 1;
        }, 10000), qPrintable(QStringLiteral("silent %1 deaf %2 holds %3 clients %4").arg(silent.socket.state()).arg(deaf.socket.state()).arg(rig.remote.tcp().holds()).arg(rig.remote.tcp().clientCount())));
        QVERIFY(since.elapsed() >= 400);
        QVERIFY(rig.remote.tcp().holds() >= 1);  // the deaf one was held first, then closed for its silence
        QCOMPARE(rig.remote.tcp().clientCount(), 1);
        QCOMPARE(talking.socket.state(), QAbstractSocket::ConnectedState);
        QVERIFY(talking.replies(asked).size() >= asked - 1);
    }

    void aPipeliningClientIsHeldNeverReset() {
        // 100,000 pipelined commands, every one answered (REMOTE_PIPELINE=N: N pairs instead).
        const char* pairs = std::getenv("REMOTE_PIPELINE");
        const int count = 2 * (pairs != nullptr ? std::max(1, std::atoi(pairs)) : 50000);
        Rig rig(QHostAddress(QHostAddress::LocalHost), 0, TcpLimits{16, 4096, std::chrono::minutes(10)});
        QVERIFY(rig.remote.setEnabled(true));
        Client c(rig.remote.tcp().port());
        c.socket.setReadBufferSize(4096);  // it reads nothing at first
        c.socket.setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, 65536);
        c.send(QByteArray("level iris 6\nlevel iris 5\n").repeated(count / 2));
        // It reads nothing at first: the station stops taking its lines instead of closing it.
        QTRY_VERIFY_WITH_TIMEOUT(rig.remote.tcp().holds() >= 1, 20000);
        QCOMPARE(c.socket.state(), QAbstractSocket::ConnectedState);
        c.socket.setReadBufferSize(0);  // now it reads as fast as it can
        QCOMPARE(c.replies(count, 240000).size(), count);  // a loaded ASan run takes a minute
        QCOMPARE(c.socket.state(), QAbstractSocket::ConnectedState);
        QCOMPARE(rig.remote.tcp().clientCount(), 1);
    }

    void aHeldClientIsTakenUpAgainOnceItHasRead() {
        // All its lines are taken from the socket at once, so nothing more arrives to wake the
        // station: once the client has read its replies, it goes on with them by itself.
        Rig rig(QHostAddress(QHostAddress::LocalHost), 0, TcpLimits{16, 32, std::chrono::minutes(10)});
        QVERIFY(rig.remote.setEnabled(true));
        Client c(rig.remote.tcp().port());
        c.send(QByteArray("get camera\n").repeated(50));
        QCOMPARE(c.replies(50).size(), 50);
        QVERIFY(rig.remote.tcp().holds() >= 1);
    }

    void aBoxFromTheTickLetsClientsReadAndIsClosedByBoxOk() {
        // The station's box waits, as a message box does, until it is closed.
        ModalPause modal;
        Rig rig(QHostAddress(QHostAddress::LocalHost), 0, {},
                {[&modal] { return modal.text(); }, [&modal] { return modal.closeTop(); }, nullptr});
        rig.messages.whileShown = [&modal](const std::string& text) {
            QEventLoop loop;
            const ModalPause::Scope box(modal, text, [&loop] { loop.quit(); });
            loop.exec();
        };
        QVERIFY(rig.remote.setEnabled(true));
        Client c(rig.remote.tcp().port());
        QTRY_COMPARE(rig.remote.tcp().clientCount(), 1);
        rig.form1.OptBar.click(1 - rig.form1.OptBar.selected());
        rig.station.Timer1_Timer();  // sent, and no camera acknowledges it
        QCOMPARE(rig.readout.ackWaitTicks(), 10);

        // The client hears of the box, reads, tries to act, and closes it; meanwhile the
        // frame's counters wait, as they do for the operator's click.
        int ackWhileUp = 99, queuedWhileUp = 0;
        bool asked = false;
        QObject::connect(&c.socket, &QTcpSocket::readyRead, [&] {
            c.buffer += c.socket.readAll();
            if (asked || !c.buffer.contains("EV box \"No Acknowledge\"\n")) return;
            asked = true;
            ackWhileUp = rig.readout.ackWaitTicks();
            queuedWhileUp = rig.readout.queued();
            c.send("get line\nlevel iris 5\nbox ok\n");
        });
        bool ticked = false;
        QTimer::singleShot(8000, &c.socket, [&modal] { modal.closeTop(); });  // a failing run still ends
        QTimer::singleShot(0, [&] {
            for (int i = 0; i < 10; ++i) rig.station.Timer2_Timer();  // the tenth shows "No Acknowledge"
            ticked = true;
        });
        QTRY_VERIFY_WITH_TIMEOUT(ticked, 10000);
        QCOMPARE(ackWhileUp, 0);
        QCOMPARE(queuedWhileUp, 1);
        QCOMPARE(rig.readout.ackWaitTicks(), -1);  // updated once the box was closed
        QCOMPARE(rig.readout.queued(), 0);
        QTRY_VERIFY(c.buffer.contains("EV box closed\n"));
        const QStringList lines = QString::fromUtf8(c.buffer).split(QLatin1Char('\n'), Qt::SkipEmptyParts)
                                      .filter(QRegularExpression(QStringLiteral("^(OK|ERR|EV box)")));
        QCOMPARE(lines, (QStringList{"EV box \"No Acknowledge\"", "OK line connected", "ERR box: No Acknowledge", "OK",
                                     "EV box closed"}));
        QCOMPARE(modal.depth, 0);
    }

    void oscCommandsAreAnsweredAndRegisteredClientsGetTheChanges() {
        Rig rig;
        QVERIFY(rig.remote.setEnabled(true));
        Surface client(rig.remote.osc().port());
        client.send(remote::encodeMessage("/level/iris", {}, {12}));
        QCOMPARE(client.receive(1), QStringList{"/reply OK"});  // not registered: no feedback
        client.send(remote::encodeMessage("/register", {}));
        client.send(remote::encodeMessage("/level/iris/step", {}, {}, {-2.4f}));
        client.send(remote::encodeMessage("/auto", {"white"}));
        // On the fake line 12's frame never leaves: the step waits, and goes in before the auto.
        // The new receiver is first sent the whole state, lamps of its buttons included.
        QTRY_VERIFY(client.receive(0).count(QStringLiteral("/reply OK")) == 4 &&
                    client.got.contains(QStringLiteral("/auto/window 1")));
        const QStringList got = client.got;
        for (const char* item : {"/camera 1", "/camera/1 1", "/camera/2 0", "/camera/group 0", "/level/iris 12",
                                 "/tally/1 0", "/level/iris 10", "/auto AUTO WHITE: Now doing"})
            QVERIFY2(got.contains(QString::fromLatin1(item)), item);
        QVERIFY(got.indexOf(QStringLiteral("/level/iris 12")) < got.indexOf(QStringLiteral("/level/iris 10")));
        client.got.clear();
        const QByteArray junk("\x01\x02garbage", 9);
        client.socket.writeDatagram(junk, QHostAddress::LocalHost, rig.remote.osc().port());
        client.send(remote::encodeMessage("/scene/recall", {}, {9}));
        QCOMPARE(client.receive(2), (QStringList{"/reply ERR not an OSC message",
                                                 "/reply ERR scene must be a number from 1 to 4, not \"9\""}));
    }

    // A surface that sends from one port and listens on another; buttons pressed and let go.
    void oscSurfaceListensOnARegisteredPortAndItsButtonsActOnPress() {
        Rig rig;
        QVERIFY(rig.remote.setEnabled(true));
        Surface sender(rig.remote.osc().port());
        Surface listener(rig.remote.osc().port());
        const auto at = static_cast<std::int32_t>(listener.socket.localPort());
        sender.send(remote::encodeArgs("/register", {static_cast<float>(at)}));
        sender.send(remote::encodeArgs("/register", {std::string("127.0.0.1"), at}));  // the same receiver: once
        QTRY_COMPARE(listener.receive(0).filter(QStringLiteral("/reply")), (QStringList{"/reply OK", "/reply OK"}));
        QCOMPARE(rig.remote.osc().clientCount(), 1);
        QCOMPARE(sender.receive(2), (QStringList{"/reply OK", "/reply OK"}));
        listener.got.clear();
        sender.got.clear();

        sender.send(remote::encodeArgs("/camera/2", {1.0f}));
        sender.send(remote::encodeArgs("/camera/3", {0.0f}));  // a release: nothing done, nothing answered
        sender.send(remote::encodeArgs("/call", {true}));
        sender.send(remote::encodeArgs("/call", {false}));
        QTRY_VERIFY(listener.receive(0).contains(QStringLiteral("/call 0")));
        const QStringList heard = listener.got;
        QCOMPARE(heard.filter(QStringLiteral("/reply")), (QStringList{"/reply OK", "/reply OK", "/reply OK"}));
        QVERIFY(heard.contains(QStringLiteral("/camera 2")) && heard.contains(QStringLiteral("/call 1")));
        QCOMPARE(rig.readout.selectedCamera(), 2);
        QTest::qWait(50);
        QCOMPARE(sender.receive(0), (QStringList{"/reply OK", "/reply OK", "/reply OK"}));  // none for the release

        sender.send(remote::encodeArgs("/unregister", {at}));
        QTRY_COMPARE(rig.remote.osc().clientCount(), 0);
        sender.send(remote::encodeArgs("/register", {std::string("studio"), 9000}));
        QCOMPARE(sender.receive(5).last(), QStringLiteral("/reply ERR not an address: studio"));
    }
    // Bursts from another thread, far past what the system holds for the socket, while the
    // station reads: it reads on, and a press after each burst acts within 3 s.
    void oscNeverGoesDeafAfterABurst() {
        Rig rig;
        QVERIFY(rig.remote.setEnabled(true));
        Surface surface(rig.remote.osc().port());
        const remote::Packet fader = remote::encodeArgs("/level/iris", {12.0f});
        for (int burst = 0; burst < 3; ++burst) {
            std::atomic<bool> sending = true;
            std::thread flood([&] { for (Surface from(rig.remote.osc().port()); sending;) from.send(fader); });
            QTest::qWait(300);
            sending = false;
            flood.join();
            QTest::qWait(1000);  // a surface's next message comes a moment later, once the station has read
            const int camera = 2 + burst;
            surface.send(remote::encodeArgs("/camera/" + std::to_string(camera), {1.0f}));
            QTRY_COMPARE_WITH_TIMEOUT(rig.readout.selectedCamera(), camera, 3000);
        }
        QVERIFY(rig.remote.osc().dropped() > 0);  // what the system could not hold is counted
        surface.send(remote::encodeArgs("/camera", {std::int32_t{0}}));  // GROUP, as the station pushes it
        QTRY_COMPARE(rig.readout.selectedCamera(), 0);
    }

    // Remote control open to the network: a peer at a non-loopback address of this machine
    // gives the passcode first (TCP and OSC); one on loopback needs none.
    void theNetworkNeedsThePasscode() {
        QHostAddress outside;
        for (const QHostAddress& a : QNetworkInterface::allAddresses())
            if (!a.isLoopback() && a.protocol() == QAbstractSocket::IPv4Protocol) outside = a;
        if (outside.isNull()) QSKIP("this machine has no address beyond loopback");
        Rig rig{QHostAddress(QHostAddress::AnyIPv4)};
        RemoteSettings settings = rig.remote.settings();
        settings.passcode = "kestrel-42-amber";
        settings.enabled = true;
        QVERIFY(rig.remote.apply(settings));
        std::vector<std::string> log;
        rig.station.copyLineLogTo([&log](const std::string& entry) { log.push_back(entry); });

        QTcpSocket stranger;
        stranger.connectToHost(outside, rig.remote.tcp().port());
        QVERIFY(stranger.waitForConnected(3000));
        Client local(rig.remote.tcp().port());
        const auto ask = [&stranger](const QByteArray& line) {
            stranger.write(line + "\n");
            QByteArray got;
            (void)QTest::qWaitFor([&] {
                got += stranger.readAll();
                return got.contains("OK") || got.contains("ERR");
            }, 3000);
            return got.trimmed();
        };
        QCOMPARE(ask("level iris 3"), QByteArray("ERR auth required"));
        QCOMPARE(ask("auth guessing"), QByteArray("ERR auth: wrong passcode"));
        local.send("level iris 5\n");  // loopback: no passcode; the stranger hears no push
        QCOMPARE(local.replies(1), QStringList{"OK"});
        QTest::qWait(1100);
        QCOMPARE(ask("auth kestrel-42-amber"), QByteArray("OK"));
        QCOMPARE(ask("get level iris"), QByteArray("OK level iris 5"));
        QVERIFY(std::any_of(log.begin(), log.end(), [](const std::string& e) { return e.find("wrong passcode") != std::string::npos; }));

        // OSC from the same host: ignored until /auth, then answered and acting.
        QUdpSocket osc;
        QVERIFY(osc.bind(outside, 0));
        const auto send = [&](const remote::Packet& p) {
            osc.writeDatagram(reinterpret_cast<const char*>(p.data()), static_cast<qint64>(p.size()), outside,
                              rig.remote.osc().port());
        };
        send(remote::encodeArgs("/camera/2", {1.0f}));
        send(remote::encodeArgs("/register", {std::string("127.0.0.1"), std::int32_t{9000}}));
        QTest::qWait(300);
        QVERIFY(!osc.hasPendingDatagrams());
        QCOMPARE(rig.readout.selectedCamera(), 1);
        QCOMPARE(rig.remote.osc().clientCount(), 0);
        send(remote::encodeArgs("/auth", {std::string("kestrel-42-amber")}));
        QTRY_VERIFY(osc.hasPendingDatagrams());  // "/reply OK"
        send(remote::encodeArgs("/camera/2", {1.0f}));
        QTRY_COMPARE(rig.readout.selectedCamera(), 2);
    }

    void exactChecksumsAreASetupChoiceKeptAndShown() {
        QTemporaryDir dir;
        QSettings store(dir.filePath(QStringLiteral("s.conf")), QSettings::IniFormat);
        Rig rig;
        {
            QMainWindow window;
            installChecksumMenu(window, rig.station, store, false);
            auto* entry = window.findChild<QAction*>(QStringLiteral("exactChecksum"));
            auto* note = window.findChild<QLabel*>(QStringLiteral("exactChecksumStatus"));
            QVERIFY(entry && note && !entry->isChecked() && note->isHidden() && !rig.readout.checksumsReadExactly());
            entry->trigger();
            QVERIFY(rig.readout.checksumsReadExactly() && !note->isHidden());
            QCOMPARE(store.value(QStringLiteral("line/exactChecksum")).toBool(), true);
            entry->trigger();
        }
        QMainWindow forRun;
        installChecksumMenu(forRun, rig.station, store, true);  // --exact-checksum: this run only
        QVERIFY(rig.readout.checksumsReadExactly());
        QCOMPARE(store.value(QStringLiteral("line/exactChecksum")).toBool(), false);
    }
};

QTEST_MAIN(RemoteTest)
#include "remote_test.moc"
