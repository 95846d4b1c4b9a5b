// The windows forward each gesture to the station's models and show the models' state.
#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QStatusBar>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QtTest>

#include "app/actions.hpp"
#include "link/frame.hpp"
#include "tests/ui/view_rig.hpp"
#include "ui/platform/qt_messages.hpp"
#include "ui/windows/auto_message_window.hpp"
#include "ui/windows/camera_set_window.hpp"
#include "ui/windows/function_window.hpp"
#include "ui/windows/console_window.hpp"
#include "ui/windows/line_log_window.hpp"
#include "ui/widgets/level_bar.hpp"

using namespace station;
using namespace station::testing;

namespace {

// One gesture: whether each of its triggers in the windows is enabled, and the named action
// a remote client runs for it.
struct WalkGesture {
    std::string name;
    std::function<std::vector<bool>(ViewRig&)> triggers;
    std::function<ActionResult(Actions&)> act;
};

// Refused because the control is greyed (not for a client's own reason: a ticked COPY, no
// room in the queue for a whole page).
bool refusedAsGreyed(const ActionResult& r) {
    return r.status() == ActionResult::Status::Refused &&
           (r.why().ends_with(notAvailable("")) || r.why().starts_with("the selected camera has no functions"));
}

std::function<std::vector<bool>(ViewRig&)> mainButton(std::string name) {
    return [name](ViewRig& rig) { return std::vector<bool>{rig.main(name.c_str()).isEnabled()}; };
}

// A button and the menu entry of the same gesture.
std::function<std::vector<bool>(ViewRig&)> buttonAndEntry(std::string name, const char* entry) {
    return [name, entry](ViewRig& rig) {
        const QAction* menu = rig.view->mainWindow().menus().action(QString::fromLatin1(entry));
        return std::vector<bool>{rig.main(name.c_str()).isEnabled(), menu != nullptr && menu->isEnabled()};
    };
}

std::vector<WalkGesture> everyGesture() {
    std::vector<WalkGesture> all{
        {"camera 2", mainButton("Option9(2)"), [](Actions& a) { return a.selectCamera(2); }},
        {"GROUP", mainButton("Option9(0)"), [](Actions& a) { return a.selectCamera(0); }},
        {"scene 2", mainButton("Option7(2)"), [](Actions& a) { return a.recallScene(2); }},
        {"CLEAR", mainButton("Command2"), [](Actions& a) { return a.clearScene(); }},
        {"filter up", mainButton("SpinButton2.up"), [](Actions& a) { return a.stepFilter(true); }},
        {"filter down", mainButton("SpinButton2.down"), [](Actions& a) { return a.stepFilter(false); }},
        {"CALL", mainButton("Command9"), [](Actions& a) { return a.call(true); }},
        {"auto white", mainButton("Command8"), [](Actions& a) { return a.startAuto(true); }},
        {"auto black", mainButton("Command7"), [](Actions& a) { return a.startAuto(false); }},
        {"Camera to PC", buttonAndEntry("Command12", "Camera to PC"), [](Actions& a) { return a.readPage(); }},
        {"PC to Camera", buttonAndEntry("Command13", "PC to Camera"), [](Actions& a) { return a.sendPage(); }},
        {"1Page to CAM", mainButton("Command3"), [](Actions& a) { return a.sendOnePage(); }},
        {"OPEN", buttonAndEntry("Command10", "OPEN"), [](Actions& a) { return a.open(); }},
        {"console", [](ViewRig& rig) {
             return std::vector<bool>{rig.widget(rig.view->consoleWindow(), "Command1").isEnabled()};
         }, [](Actions& a) { return a.consoleFrame("06"); }},
        {"function list", [](ViewRig& rig) {
             rig.view->forward([&rig] { rig.form2.form.Show(); });
             return std::vector<bool>{rig.widget(rig.view->functionWindow(), "List1").isEnabled()};
         }, [](Actions& a) { return a.chooseFunctionValue(1, 1, 1); }},
    };
    const char* const groups[] = {"OptBar", "OptDtl", "OptSht", "OptGain", "OptWhite", "OptIris", "OptMonsel"};
    for (const ModeControl& m : kModes) {
        const int b = (Form1().*m.group).lo() + 1;
        all.push_back({std::string("mode ") + m.name,
                       mainButton(std::string(groups[static_cast<int>(m.mode)]) + "(" + std::to_string(b) + ")"),
                       [m, b](Actions& a) { return a.setMode(m.mode, b); }});
    }
    const char* const bars[] = {"VrMblk", "VrIris", "VrDtl", "VrRGain", "VrBGain", "VrRBlk", "VrBBlk"};
    for (const LevelControl& l : kLevels)
        all.push_back({std::string("level ") + l.name, mainButton(std::string(bars[static_cast<int>(l.level)]) + ".bar"),
                       [l](Actions& a) { return a.setLevel(l.level, 1); }});
    for (int step = 0; step <= 2; ++step)
        for (const bool up : {true, false})
            all.push_back({"gain " + std::to_string(step) + (up ? " up" : " down"),
                           [step, up](ViewRig& rig) {
                               QWidget& spin = rig.main(("SpinButton1(" + std::to_string(step) + ")").c_str());
                               return std::vector<bool>{rig.widget(spin, up ? "up" : "down").isEnabled()};
                           },
                           [step, up](Actions& a) { return a.stepGain(step, up); }});
    return all;
}

}  // namespace

class ViewTest : public QObject {
    Q_OBJECT

private slots:
    // A level is sent once, where the thumb is let go; the camera's report is shown and
    // sends nothing back.
    void levelBarSendsWhereTheThumbIsLetGoAndShowsTheCamerasReply() {
        ViewRig rig;
        auto& bar = rig.main<QScrollBar>("VrMblk.bar");
        bar.setSliderDown(true);  // what the scroll bar does with the mouse on its thumb
        for (int level : {20, 30, 10}) {
            bar.setSliderPosition(ui::LevelBar::positionOf(rig.form1.VrMblk, level));
            rig.view->refresh();  // the timers' redraws leave the thumb under the pointer
            QCOMPARE(rig.main<QLabel>("VrMblk.number").text(), QString::number(level));  // and its number follows it
        }
        QVERIFY(rig.takeQueued().empty());
        bar.setSliderDown(false);
        QCOMPARE(rig.takeQueued(), Commands{"302B0A00"});

        rig.port.arrive(buildFrame("322B40", FrameHeader{}));  // the camera reports master black 64
        QTRY_COMPARE(rig.main<QLabel>("VrMblk.number").text(), QStringLiteral("64"));
        QCOMPARE(bar.value(), ui::LevelBar::positionOf(rig.form1.VrMblk, 64));
        QVERIFY(rig.takeQueued().empty());
    }

    void tallyLampIsRedWhileCallIsHeld() {
        ViewRig rig;
        rig.openStudio();  // camera 1 is of a type with tally
        auto& call = rig.main<QPushButton>("Command9");
        auto& lamp = rig.main<QLabel>("Label15");
        QVERIFY(call.isEnabled());
        const QColor grey(0xC0, 0xC0, 0xC0);
        QCOMPARE(lamp.palette().color(QPalette::Window), grey);

        QTest::mousePress(&call, Qt::LeftButton);
        QCOMPARE(lamp.palette().color(QPalette::Window), QColor(Qt::red));
        // Released away from the button, the call still ends.
        QTest::mouseRelease(&call, Qt::LeftButton, {}, QPoint(-20, -20));
        QCOMPARE(lamp.palette().color(QPalette::Window), grey);
        QCOMPARE(rig.takeQueued(), (Commands{"200304FB", "200300FB"}));
    }

    void setupMenuTicksAndTimersFollowTheAcknowledgeSetting() {
        ViewRig rig;
        ui::MainMenus& menus = rig.view->mainWindow().menus();
        QAction& ackOn = *menus.action(QStringLiteral("Ack On"));
        QAction& ackOff = *menus.action(QStringLiteral("Ack Off"));
        ui::StationTimers& timers = rig.view->timers();
        QVERIFY(ackOn.isChecked() && !ackOff.isChecked());
        QVERIFY(timers.running(ui::StationTimers::AckWatch) && timers.running(ui::StationTimers::AnswerWatch));

        ackOff.trigger();
        QVERIFY(!ackOn.isChecked() && ackOff.isChecked());
        QVERIFY(!timers.running(ui::StationTimers::AckWatch) && !timers.running(ui::StationTimers::AnswerWatch));
        QVERIFY(timers.running(ui::StationTimers::Poll));

        // Qt unticks an entry on a second trigger; the model's tick stands.
        ackOff.trigger();
        QVERIFY(ackOff.isChecked());

        ackOn.trigger();
        QVERIFY(ackOn.isChecked() && !ackOff.isChecked());
        QVERIFY(timers.running(ui::StationTimers::AckWatch) && timers.running(ui::StationTimers::AnswerWatch));

        QAction& idOn = *menus.action(QStringLiteral("Camera ID on"));
        idOn.trigger();
        QVERIFY(idOn.isChecked());
        QCOMPARE(rig.readout.cameraIdOn(), true);
    }

    // Every trigger of a gesture is enabled exactly when its named action is offered, and a
    // greyed one is refused in the control's words, in states where the greying changes.
    void everyTriggerIsEnabledExactlyWhenItsActionIsOffered() {
        struct State {
            const char* name;
            std::function<void(ViewRig&, Actions&)> reach;
        };
        const std::vector<State> states{
            {"studio, camera 1", [](ViewRig&, Actions&) {}},
            {"Ack Off", [](ViewRig& rig, Actions&) { rig.view->mainWindow().menus().action(QStringLiteral("Ack Off"))->trigger(); }},
            {"GROUP", [](ViewRig&, Actions& a) { QVERIFY(a.selectCamera(0).ok()); }},
            {"a type without tally, filter, monitor or LOW gain",
             [](ViewRig&, Actions& a) { QVERIFY(a.selectCamera(6).ok()); }},
            {"gain LOW at its limit", [](ViewRig&, Actions& a) { QVERIFY(a.stepGain(0, true).ok()); }},
            {"queue nearly full", [](ViewRig& rig, Actions&) {
                 for (int i = 0; i < 250; ++i) rig.form1.OptBar.click(1 - rig.form1.OptBar.selected());
             }},
            {"a box up", [](ViewRig&, Actions&) {}},
        };
        const std::vector<WalkGesture> gestures = everyGesture();
        for (const State& state : states) {
            for (const WalkGesture& g : gestures) {
                const QByteArray where = QByteArray(state.name) + ": " + QByteArray::fromStdString(g.name);
                ViewRig rig;
                rig.openStudio();
                Actions& actions = rig.actions;
                state.reach(rig, actions);
                std::optional<ui::ModalPause::Scope> box;
                if (std::string(state.name) == "a box up") box.emplace(rig.modal, "Camera to PC is being read");
                rig.view->refresh();
                const std::vector<bool> enabled = g.triggers(rig);
                for (const bool e : enabled) QVERIFY2(e == enabled.front(), where + ": triggers disagree");
                const ActionResult r = g.act(actions);
                QVERIFY2(enabled.front() != refusedAsGreyed(r), where + (enabled.front() ? ": offered, refused: " : ": greyed, not refused: ") + QByteArray::fromStdString(r.why()));
            }
        }
    }

    // A message box holds the timers still: nothing ticks inside the operator's box.
    void timersStandStillWhileAMessageBoxIsUp() {
        ViewRig rig;
        ui::StationTimers& timers = rig.view->timers();
        ui::QtMessages screen(rig.modal);
        bool checked = false;
        QTimer::singleShot(0, [&] {
            QVERIFY(!timers.running(ui::StationTimers::Poll) && !timers.running(ui::StationTimers::AckWatch));
            rig.view->refresh();  // a redraw meanwhile does not start them again
            QVERIFY(!timers.running(ui::StationTimers::Poll));
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            QVERIFY(box != nullptr);
            QCOMPARE(box->text(), QStringLiteral("first\n       second"));
            checked = true;
            box->accept();
        });
        screen.show("first\r       second", Icon::Exclamation);
        QVERIFY(checked);
        QVERIFY(timers.running(ui::StationTimers::Poll) && timers.running(ui::StationTimers::AckWatch));
    }

    void autoMessageWindowShowsTheResultAndHidesItself() {
        ViewRig rig;
        auto& window = rig.view->autoMessageWindow();
        QVERIFY(!window.isVisible());
        QTest::mouseClick(&rig.main<QPushButton>("Command8"), Qt::LeftButton);
        QVERIFY(window.isVisible());
        QCOMPARE(window.windowTitle(), QStringLiteral("Auto Message"));
        QCOMPARE(rig.widget<QLabel>(window, "Label1").text(), QStringLiteral("AUTO WHITE"));
        QCOMPARE(rig.widget<QLabel>(window, "Label2").text(), QStringLiteral("Now doing"));

        rig.port.arrive(bytesOf({0x02, 0x03, 0x40, 0x00, 0x00, 0xBC, 0xFF}));
        QTRY_COMPARE(rig.widget<QLabel>(window, "Label2").text(), QStringLiteral("OK"));
        QVERIFY(window.isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(!window.isVisible(), 3000);  // three 500 ms ticks after an OK
        QVERIFY(!rig.form6.Timer1.Enabled);
        QVERIFY(!rig.view->timers().running(ui::StationTimers::AutoMessage));
    }

    void lineStateShowsInTheStatusBarTheCameraButtonsAndTheLineLog() {
        ViewRig rig;
        auto& status = rig.main<QLabel>("lineStatus");
        rig.form1.OptBar.click(1);
        QTRY_VERIFY(!rig.port.writes.empty());
        rig.port.arrive(bytesOf({0x06}));
        QTRY_VERIFY(rig.main<QAbstractButton>("Option9(1)").toolTip().contains(QStringLiteral("\nCamera 1: answering")));
        rig.port.hungUp = true;
        QTRY_COMPARE(status.text(), QStringLiteral("COM1  |  9600bps  |  Ack On  |  Camera ID off  |  lost (fake: the device hung up)"));

        ui::MainMenus& menus = rig.view->mainWindow().menus();
        menus.action(QStringLiteral("Built-in simulated line"))->trigger();
        QVERIFY(status.text().startsWith(QStringLiteral("simulated line  |")));
        menus.action(QStringLiteral("Line log"))->trigger();
        QVERIFY(rig.widget<QPlainTextEdit>(rig.view->lineLogWindow(), "lineLogText").toPlainText().contains("Line lost"));
    }

    // Started without its port: the word appears once the window is up, in place of the line's
    // state (never drawn over it), stays while a later word waits, and is in the line log.
    void aStartUpNoticeIsReadable() {
        ViewRig rig(true);
        QMainWindow& window = rig.view->mainWindow();
        const QString told = QString::fromStdString(rig.forms.notice.last());
        QVERIFY(told.startsWith(QStringLiteral("Port not available")));
        window.hide();  // as at start-up, before the window is on the screen
        QCoreApplication::processEvents();
        QVERIFY(window.statusBar()->currentMessage().isEmpty());

        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTRY_COMPARE(window.statusBar()->currentMessage(), told);
        QVERIFY(!rig.main<QLabel>("lineStatus").isVisible());
        for (const QWidget* w : window.statusBar()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            QVERIFY2(!w->isVisible() || w->x() > window.statusBar()->width() / 2, qPrintable(w->objectName()));

        rig.forms.notice.raise("a later word");
        QTest::qWait(100);
        QCOMPARE(window.statusBar()->currentMessage(), told);
        QVERIFY(QString::fromStdString(rig.forms.log.text()).contains(QStringLiteral("Not connected: port not available")));
    }

    void quitStopsTheTimersAndEndsOnce() {
        ViewRig rig;
        QVERIFY(rig.view->timers().running(ui::StationTimers::Poll));
        rig.form1.OptBar.click(1);
        rig.view->mainWindow().menus().action(QStringLiteral("Quit"))->trigger();
        QVERIFY(rig.ended);
        QVERIFY(!rig.view->timers().running(ui::StationTimers::Poll));
        QVERIFY(!rig.view->timers().running(ui::StationTimers::FilterRelease));
        QTest::qWait(100);
        QVERIFY(rig.port.writes.empty());  // the queued frame is abandoned
    }
};

QTEST_MAIN(ViewTest)
#include "view_test.moc"
