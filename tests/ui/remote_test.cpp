// Control from outside over real sockets on the loopback address: TCP lines and OSC
// datagrams into a station on a fake port, the replies, the pushed state, and what a
// client cannot do.
#include <QTcpSocket>
#include <QUdpSocket>
#include <QtTest>

#include "remote/osc_codec.hpp"
#include "tests/support/fake_messages.hpp"
#include "tests/support/fake_port.hpp"
#include "tests/support/null_platform.hpp"
#include "tests/support/queued_commands.hpp"
#include "ui/remote/remote_control.hpp"

using namespace station;
using namespace station::ui;

namespace {

using station::testing::NoDialogs;

struct Rig {
    explicit Rig(QHostAddress address = QHostAddress(QHostAddress::LocalHost)) : settings{true, address, 0, 0, {}} {
        station.Form_Load();
        dialogs.answerNextOpen(STATION_SAMPLES_DIR "/studio.csd");
        station.OPEN_Click();
        for (int i = 0; i < 10; ++i) station.Timer2_Timer();  // the link's watches idle
        station.Timer3_Timer();
    }

    testing::FakePort port;
    testing::FakeMessages messages;
    NoDialogs none;
    PresetDialogs dialogs{none};
    DiskWriter writer;
    Station station{{port, messages, dialogs, writer, STATION_SAMPLES_DIR}};
    RemoteSettings settings;
    RemoteControl remote{station, dialogs, settings, [] {}, [] { return false; }};
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
    // The same for reply lines, leaving out the pushed "EV" lines.
    QStringList replies(int count) {
        QStringList out;
        (void)QTest::qWaitFor([&] {
            buffer += socket.readAll();
            out = QString::fromUtf8(buffer).split(QLatin1Char('\n'), Qt::SkipEmptyParts).filter(QRegularExpression("^(OK|ERR)"));
            return out.size() >= count;
        }, 10000);
        return out;
    }
    QTcpSocket socket;
    QByteArray buffer;
};

}  // namespace

class RemoteTest : public QObject {
    Q_OBJECT

private slots:
    void nothingListensUntilTurnedOnAndTheStatusSaysWhere() {
        const ProgramOptions o = parseProgramOptions({"--port", "/dev/ttyS0", "--remote-address", "0.0.0.0", "--osc-port=9000"});
        std::string error;
        const RemoteSettings s = remoteSettings(o.remote, error);
        QVERIFY(o.error.empty() && error.empty() && s.enabled && s.oscPort == 9000 && s.tcpPort == 5250);
        QCOMPARE(o.port, std::optional<std::string>("/dev/ttyS0"));
        QCOMPARE(parseProgramOptions({"--remote-port", "70000"}).error, std::string("--remote-port: not a port number: 70000"));
        remoteSettings(parseProgramOptions({"--remote-address=studio"}).remote, error);
        QCOMPARE(error, std::string("--remote-address: not an address: studio"));

        Rig local;
        QVERIFY(!local.remote.enabled() && local.remote.status().isEmpty());
        QVERIFY(local.remote.setEnabled(true));
        QVERIFY(local.remote.status().startsWith(QStringLiteral("Remote control: TCP 127.0.0.1:")));
        Rig open(QHostAddress(QStringLiteral("0.0.0.0")));
        QVERIFY(open.remote.setEnabled(true));
        QVERIFY(open.remote.status().endsWith(QStringLiteral("(open to the network)")));
    }

    void commandsAreAnsweredAndEveryClientSeesTheChanges() {
        Rig rig;
        QVERIFY(rig.remote.setEnabled(true));
        Client a(rig.remote.tcp().port());
        Client b(rig.remote.tcp().port());
        QTRY_COMPARE(rig.remote.tcp().clientCount(), 2);
        a.send("level iris 12\r\nmode bar 1\n");
        QCOMPARE(a.lines(4), (QStringList{"OK", "EV level iris 12", "OK", "EV mode bar 1"}));
        QCOMPARE(b.lines(2), (QStringList{"EV level iris 12", "EV mode bar 1"}));
        QCOMPARE(testing::takeQueuedCommands(rig.station.link.queue()), (std::vector<std::string>{"30390C00", "200801FE"}));

        rig.station.form1.VrDtl.setValue(5);  // the operator's own gesture reaches the clients too
        QCOMPARE(b.lines(3).last(), QStringLiteral("EV level detail 5"));
    }

    void badInputGetsAnErrOrTheClientIsClosed() {
        Rig rig;
        QVERIFY(rig.remote.setEnabled(true));
        const quint16 port = rig.remote.tcp().port();
        Client c(port);
        c.send(QByteArray(3000, 'x') + "\n" + QByteArray("\x00\xff\x01 junk\n", 9) + "get camera\n");
        QCOMPARE(c.lines(3), (QStringList{"ERR line too long (over 1024 bytes)", "ERR not a text line (control byte)",
                                          "OK camera 1"}));

        // A flood is answered line by line, and the queue is never filled past the limit.
        QByteArray flood;
        for (int i = 0; i < 10000; ++i) flood += i % 2 ? "level iris 5\n" : "level iris 6\n";
        Client f(port);
        f.send(flood);
        const QStringList replies = f.replies(10000);
        QCOMPARE(replies.size(), 10000);
        QVERIFY(replies.count(QStringLiteral("ERR queue full: 201 frames waiting, try again")) > 9000);
        QCOMPARE(rig.station.link.queue().SendCnt(), 201);
        QVERIFY(rig.messages.shown.empty());

        // Sixteen clients at most.
        std::vector<std::unique_ptr<Client>> many;
        for (int i = 0; i < 15; ++i) many.push_back(std::make_unique<Client>(port));
        QTRY_COMPARE(rig.remote.tcp().clientCount(), RemoteTcpServer::kMaxClients);
        Client extra(port);
        QCOMPARE(extra.lines(1), QStringList{"ERR too many clients"});
        QTRY_COMPARE(extra.socket.state(), QAbstractSocket::UnconnectedState);
        many.clear();
        QTRY_COMPARE(rig.remote.tcp().clientCount(), 2);

        // A client that never reads its replies is closed, not waited for.
        Client deaf(port);
        QTRY_COMPARE(rig.remote.tcp().clientCount(), 3);
        deaf.socket.setReadBufferSize(1);
        deaf.socket.setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, 4096);
        QByteArray asks;
        for (int i = 0; i < 20000; ++i) asks += "help\n";
        deaf.send(asks);
        QTRY_COMPARE_WITH_TIMEOUT(rig.remote.tcp().clientCount(), 2, 10000);
    }

    void oscCommandsAreAnsweredAndRegisteredClientsGetTheChanges() {
        Rig rig;
        QVERIFY(rig.remote.setEnabled(true));
        QUdpSocket client;
        QVERIFY(client.bind(QHostAddress::LocalHost, 0));
        QStringList got;
        auto send = [&](const remote::Packet& p) {
            client.writeDatagram(reinterpret_cast<const char*>(p.data()), static_cast<qint64>(p.size()),
                                 QHostAddress::LocalHost, rig.remote.osc().port());
        };
        auto receive = [&](int count) {
            (void)QTest::qWaitFor([&] {
                while (client.hasPendingDatagrams()) {
                    QByteArray d(static_cast<int>(client.pendingDatagramSize()), '\0');
                    client.readDatagram(d.data(), d.size());
                    const auto text = remote::describeOsc(remote::Packet(d.begin(), d.end()));
                    got << QString::fromStdString(text.value_or("(not OSC)"));
                }
                return got.size() >= count;
            }, 3000);
            return got;
        };
        send(remote::encodeMessage("/level/iris", {}, {12}));
        QCOMPARE(receive(1), QStringList{"/reply OK"});  // not registered: no feedback
        send(remote::encodeMessage("/register", {}));
        send(remote::encodeMessage("/level/iris/step", {}, {}, {-2.4f}));
        send(remote::encodeMessage("/auto", {"white"}));
        QCOMPARE(receive(7), (QStringList{"/reply OK", "/reply OK", "/reply OK", "/level/iris 10", "/reply OK",
                                          "/auto AUTO WHITE: Now doing", "/auto/window on"}));
        got.clear();
        const QByteArray junk("\x01\x02garbage", 9);
        client.writeDatagram(junk, QHostAddress::LocalHost, rig.remote.osc().port());
        send(remote::encodeMessage("/scene/recall", {}, {9}));
        QCOMPARE(receive(2), (QStringList{"/reply ERR not an OSC message",
                                          "/reply ERR scene must be a number from 1 to 4, not \"9\""}));
    }
};

QTEST_GUILESS_MAIN(RemoteTest)
#include "remote_test.moc"
