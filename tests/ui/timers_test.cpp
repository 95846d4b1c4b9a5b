// The desktop program's timers at rest: with a port that tells when bytes come, every timer
// sleeps while it has nothing to do, and a gesture or an arriving byte wakes the poll.
#include <QtTest>

#include "tests/ui/view_rig.hpp"

using namespace station;
using namespace station::testing;
using Which = ui::StationTimers::Which;

class TimersTest : public QObject {
    Q_OBJECT

private slots:
    void theTimersSleepAtRestAndWakeForWork() {
        ViewRig rig;
        // A view whose poll may sleep: the test says when bytes came, as the port's notifier does.
        rig.view = std::make_unique<ui::StationView>(rig.station, rig.modal, std::function<void()>{},
                                                     [&rig] { return rig.port.bytesWaiting() > 0; });
        ui::StationTimers& timers = rig.view->timers();
        QVERIFY(timers.awake(Which::AckWatch));  // the watches count down from 0 once
        QTRY_VERIFY_WITH_TIMEOUT(!timers.awake(Which::AckWatch) && !timers.awake(Which::AnswerWatch), 2000);
        for (const Which w : {Which::Poll, Which::FilterRelease, Which::AutoMessage}) QVERIFY(!timers.awake(w));
        QVERIFY(timers.running(Which::Poll));  // asleep, not stopped

        // A gesture queues a frame: the poll wakes and sends it, the acknowledge watch runs.
        rig.view->forward([&rig] { rig.form1.OptBar.click(1); });
        QVERIFY(timers.awake(Which::Poll));
        QTRY_COMPARE_WITH_TIMEOUT(rig.port.writes.size(), std::size_t{1}, 500);
        QVERIFY(timers.awake(Which::AckWatch));

        // Its ACK arrives while the poll is awake for it; then everything sleeps again.
        rig.port.arrive(bytesOf({0x06}));
        QTRY_COMPARE_WITH_TIMEOUT(rig.readout.queued(), 0, 500);
        QTRY_VERIFY_WITH_TIMEOUT(!timers.awake(Which::Poll) && !timers.awake(Which::AckWatch), 500);
        QVERIFY(rig.messages.shown.empty());  // acknowledged in time: no "No Acknowledge"

        // A reply arriving at rest is read only once the notifier wakes the poll.
        rig.port.writes.clear();
        const Bytes reply = bytesOf({0x02, 0x03, 0x40, 0x00, 0x00, 0xBC, 0xFF});
        rig.port.arrive(reply);
        QTest::qWait(150);
        QCOMPARE(rig.port.incoming, reply);
        timers.wake();
        QTRY_VERIFY_WITH_TIMEOUT(rig.port.incoming.empty(), 500);
        QCOMPARE(rig.port.writes, std::vector<Bytes>{bytesOf({0x06})});  // acknowledged
        QTRY_VERIFY_WITH_TIMEOUT(!timers.awake(Which::Poll), 500);

        // A frame that is never acknowledged: the sleeping watch still counts its ten ticks.
        rig.view->forward([&rig] { rig.form1.OptBar.click(0); });
        QTRY_COMPARE_WITH_TIMEOUT(rig.messages.texts(), std::vector<std::string>{"No Acknowledge"}, 3000);
        QTRY_VERIFY_WITH_TIMEOUT(!timers.awake(Which::Poll) && !timers.awake(Which::AckWatch), 500);
    }

    void withoutANotifierThePollNeverSleeps() {
        ViewRig rig;
        QTest::qWait(700);
        QVERIFY(rig.view->timers().awake(Which::Poll));
        rig.port.arrive(bytesOf({0x02, 0x03, 0x40, 0x00, 0x00, 0xBC, 0xFF}));
        QTRY_VERIFY_WITH_TIMEOUT(rig.port.incoming.empty(), 500);
    }
};

QTEST_MAIN(TimersTest)
#include "timers_test.moc"
