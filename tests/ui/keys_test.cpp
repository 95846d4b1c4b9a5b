// The keyboard works the main window through the same model calls as the mouse.
#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QtTest>

#include <map>

#include "tests/support/frames.hpp"
#include "tests/ui/view_rig.hpp"
#include "ui/windows/camera_set_window.hpp"
#include "ui/windows/console_window.hpp"
#include "ui/windows/function_window.hpp"
#include "ui/windows/line_log_window.hpp"
#include "ui/widgets/focus_mark.hpp"
#include "ui/widgets/level_bar.hpp"

using namespace station;
using namespace station::testing;

namespace {

// The main window shown and active, so that its shortcuts and focus work.
void showActive(ViewRig& rig) {
    QWidget& window = rig.view->mainWindow();
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
}

// Each Alt key that two entries of one menu level share ("Setup: Alt+R twice").
void mnemonicClashes(const QString& where, const QList<QAction*>& actions, QStringList& clashes) {
    std::map<int, int> seen;
    for (QAction* a : actions) {
        const QKeySequence key = QKeySequence::mnemonic(a->text());
        if (!a->isSeparator() && !key.isEmpty() && ++seen[key[0].toCombined()] == 2)
            clashes << QStringLiteral("%1: %2 twice").arg(where, key.toString());
        if (a->menu() != nullptr) mnemonicClashes(a->text().remove(QLatin1Char('&')), a->menu()->actions(), clashes);
    }
}

std::string levelCommand(int value) {
    return "302B" + hexByte(static_cast<std::uint8_t>(value)) + "00";
}

}  // namespace

class KeysTest : public QObject {
    Q_OBJECT

private slots:
    void everyAltKeyIsUniqueAndAltCOpensTheCameraMenu() {
        ViewRig rig;
        rig.openStudio();
        showActive(rig);
        QMenuBar& bar = *rig.view->mainWindow().menuBar();
        QStringList clashes;
        mnemonicClashes(QStringLiteral("menu bar"), bar.actions(), clashes);
        QVERIFY2(clashes.isEmpty(), qPrintable(clashes.join(QStringLiteral("; "))));

        // "Camera to PC" replaces the working copy: no Alt key reaches it.
        QAction* read = rig.view->mainWindow().menus().action(QStringLiteral("Camera to PC"));
        QVERIFY(read != nullptr);
        QVERIFY(QKeySequence::mnemonic(read->text()).isEmpty());

        QMenu* cameraMenu = nullptr;
        for (QAction* a : bar.actions())
            if (a->menu() != nullptr && a->text() == QStringLiteral("&Camera")) cameraMenu = a->menu();
        QVERIFY(cameraMenu != nullptr);
        QSignalSpy opened(cameraMenu, &QMenu::aboutToShow);
        QSignalSpy readRan(read, &QAction::triggered);
        QTest::keyClick(&rig.view->mainWindow(), Qt::Key_C, Qt::AltModifier);
        QTRY_COMPARE(opened.count(), 1);
        cameraMenu->close();
        QCOMPARE(readRan.count(), 0);
        QVERIFY(rig.takeQueued().empty());  // no read requests went out
    }

    // Arrows step a level and page keys move ten; an option group is one Tab stop with
    // arrows inside.
    void arrowsStepALevelAndMoveInsideAGroup() {
        ViewRig rig;
        showActive(rig);
        auto& bar = rig.main<QScrollBar>("VrMblk.bar");
        bar.setFocus();
        const int start = rig.form1.VrMblk.value();
        // The bar's top is its highest level.
        const struct {
            Qt::Key key;
            int change;
        } table[] = {{Qt::Key_Up, 1}, {Qt::Key_Down, -1}, {Qt::Key_PageUp, 10}, {Qt::Key_PageDown, -10}};
        for (const auto& row : table) {
            const int was = rig.form1.VrMblk.value();
            QTest::keyClick(&bar, row.key);
            QCOMPARE(rig.form1.VrMblk.value(), was + row.change);
            QCOMPARE(rig.takeQueued(), Commands{levelCommand(was + row.change)});
        }
        QCOMPARE(rig.form1.VrMblk.value(), start);


        // Only the selected button of a group is a Tab stop.
        auto& cam = rig.main<QRadioButton>("OptBar(0)");
        auto& bars = rig.main<QRadioButton>("OptBar(1)");
        QVERIFY(cam.isChecked());
        QVERIFY(cam.focusPolicy() & Qt::TabFocus);
        QVERIFY(!(bars.focusPolicy() & Qt::TabFocus));

        // An arrow in a mode group selects, as a click does.
        cam.setFocus();
        QTest::keyClick(&cam, Qt::Key_Down);
        QVERIFY(bars.hasFocus());
        QCOMPARE(rig.form1.OptBar.selected(), 1);
        QCOMPARE(rig.takeQueued(), Commands{"200801FE"});
        QVERIFY(bars.focusPolicy() & Qt::TabFocus);

        // In the scene row an arrow only moves; Space selects (a scene can be stored into).
        auto& scene1 = rig.main<QPushButton>("Option7(1)");
        scene1.setFocus();
        QTest::keyClick(&scene1, Qt::Key_Right);
        auto& scene2 = rig.main<QPushButton>("Option7(2)");
        QVERIFY(scene2.hasFocus());
        QCOMPARE(rig.form1.Option7.selected(), 1);
        QTest::keyClick(&scene2, Qt::Key_Space);
        QCOMPARE(rig.form1.Option7.selected(), 2);
    }

    void theFocusedControlIsMarked() {
        ViewRig rig;
        rig.openStudio();
        showActive(rig);
        QWidget& window = rig.view->mainWindow();
        auto* mark = window.findChild<ui::FocusMark*>(QStringLiteral("focusMark"));
        QVERIFY(mark != nullptr);
        for (const char* name : {"VrMblk.bar", "OptBar(0)", "Option7(1)"}) {
            auto& control = rig.main(name);
            control.setFocus(Qt::TabFocusReason);
            QVERIFY2(mark->isVisible() && mark->marked() == &control, name);
            const QRect around(mark->mapTo(&window, QPoint(0, 0)), mark->size());
            QVERIFY2(around.contains(QRect(control.mapTo(&window, QPoint(0, 0)), control.size())), name);
            QVERIFY2(around.width() < control.width() + 8, name);  // a frame round it, not a box over the panel
        }
        auto& bar = rig.main("VrMblk.bar");
        bar.setFocus(Qt::TabFocusReason);
        bar.hide();  // a hidden control leaves no mark behind
        QVERIFY(mark->marked() != &bar);
        QVERIFY(!mark->isVisible() || mark->marked() != nullptr);
    }

    void gainArrowsGreyAtTheirLimits() {
        ViewRig rig;
        rig.openStudio();  // camera 1 is ST1
        showActive(rig);
        QWidget& spin = rig.main("SpinButton1(1)");  // MID
        auto& up = *spin.findChild<QAbstractButton*>(QStringLiteral("up"));
        auto& down = *spin.findChild<QAbstractButton*>(QStringLiteral("down"));
        // Down to the bottom: each press sends until the arrow greys; then up greys at the top.
        int presses = 0;
        while (down.isEnabled() && presses < 64) {
            QTest::mouseClick(&down, Qt::LeftButton);
            ++presses;
        }
        QVERIFY(!down.isEnabled());
        QVERIFY(up.isEnabled());
        rig.takeQueued();
        QTest::mouseClick(&down, Qt::LeftButton);  // greyed: nothing happens
        QVERIFY(rig.takeQueued().empty());
        presses = 0;
        while (up.isEnabled() && presses < 64) {
            QTest::mouseClick(&up, Qt::LeftButton);
            ++presses;
        }
        QVERIFY(!up.isEnabled() && down.isEnabled());
        QVERIFY(presses >= 2);
        QCOMPARE(static_cast<int>(rig.takeQueued().size()), presses);
    }

    void escClosesEverySatelliteWindow() {
        ViewRig rig;
        rig.openStudio();
        showActive(rig);
        rig.view->forward([&rig] {
            rig.form2.form.Show();
            rig.form4.form.Show();
            rig.forms.console.form.Show();
            rig.forms.lineLog.Show();
        });
        const std::string before = rig.readout.cameraType(1);
        QWidget* windows[] = {&rig.view->functionWindow(), &rig.view->cameraSetWindow(), &rig.view->consoleWindow(),
                              &rig.view->lineLogWindow()};
        for (QWidget* w : windows) {
            QVERIFY2(w->isVisible(), qPrintable(w->objectName()));
            QCOMPARE(w->windowType(), Qt::Dialog);  // kept above its main window
            QCOMPARE(w->windowHandle()->transientParent(), rig.view->mainWindow().windowHandle());
            QTest::keyClick(w, Qt::Key_Escape);
            QVERIFY2(!w->isVisible(), qPrintable(w->objectName()));
        }
        QVERIFY(!rig.form2.form.Visible && !rig.form4.form.Visible);
        QCOMPARE(rig.readout.cameraType(1), before);  // Esc only closes: no "OK"
        QVERIFY(rig.takeQueued().empty());
    }

    // The title's "*" says SAVE would change the file; the scene button's mark and "not
    // stored" say the panel holds what no scene (and so no file) holds.
    void marksTellWhatSaveAndStoreWouldKeep() {
        ViewRig rig;
        rig.openStudio();
        QMainWindow& window = rig.view->mainWindow();
        auto& mark = rig.main("notStoredMark");
        auto& state = rig.main<QLabel>("panelState");
        const auto marked = [&](const QString& name) {
            return mark.isVisibleTo(&window) && mark.parentWidget()->objectName() == name &&
                   state.text().contains(QStringLiteral("not stored"));
        };
        QCOMPARE(window.windowTitle(), QStringLiteral("studio.csd - Camera Control"));
        const int scene = rig.readout.sceneOf(1);
        const int other = scene == 1 ? 2 : 1;
        const auto sceneButton = [](int n) { return QStringLiteral("Option7(%1)").arg(n); };

        // Another scene and back: the file would be written as it is.
        QTest::mouseClick(&rig.main<QPushButton>(qPrintable(sceneButton(other))), Qt::LeftButton);
        QCOMPARE(window.windowTitle(), QStringLiteral("*studio.csd - Camera Control"));  // its scene number
        QTest::mouseClick(&rig.main<QPushButton>(qPrintable(sceneButton(scene))), Qt::LeftButton);
        QCOMPARE(window.windowTitle(), QStringLiteral("studio.csd - Camera Control"));
        QVERIFY(!mark.isVisibleTo(&window));

        // An edit is in the working copy only: marked on the scene, not in the title.
        const bool bar = rig.main<QRadioButton>("OptBar(1)").isChecked();
        QTest::mouseClick(&rig.main<QRadioButton>(bar ? "OptBar(0)" : "OptBar(1)"), Qt::LeftButton);
        QVERIFY(marked(sceneButton(scene)));
        QCOMPARE(window.windowTitle(), QStringLiteral("studio.csd - Camera Control"));

        // STORE puts it into the scene, and so into what SAVE writes.
        rig.main<QAbstractButton>("ScnStore").click();
        QTest::mouseClick(&rig.main<QPushButton>(qPrintable(sceneButton(scene))), Qt::LeftButton);
        QVERIFY(!mark.isVisibleTo(&window));
        QCOMPARE(window.windowTitle(), QStringLiteral("*studio.csd - Camera Control"));

        // SAVE AS: the title names the new file, unmarked.
        rig.dialogs.saveAnswer = (rig.folder / "day.csd").string();
        rig.view->forward([&rig] { rig.station.SAVE_AS_Click(); });
        QCOMPARE(window.windowTitle(), QStringLiteral("day.csd - Camera Control"));

        // Camera to PC: the camera's values fill the working copy, which no file holds.
        rig.view->forward([&rig] { rig.form1.Command12.click(); });
        rig.port.arrive(reply(bar ? "22 08 01" : "22 08 00"));  // the camera still has the old bar
        QTRY_VERIFY(marked(sceneButton(scene)));
        QCOMPARE(window.windowTitle(), QStringLiteral("day.csd - Camera Control"));

        // CLEAR goes back to the scene.
        QTest::mouseClick(&rig.main<QPushButton>("Command2"), Qt::LeftButton);
        QVERIFY(!mark.isVisibleTo(&window));
        QVERIFY(!state.text().contains(QStringLiteral("not stored")));
    }

    // A bare camera key does not drop unstored changes on one slip; a click does as it
    // always has. G says the panel now works every camera.
    void aCameraKeyAsksTwiceBeforeDroppingChanges() {
        ViewRig rig;
        rig.openStudio();
        showActive(rig);
        QMainWindow& window = rig.view->mainWindow();
        QTest::mouseClick(&rig.main<QRadioButton>(rig.main<QRadioButton>("OptBar(1)").isChecked() ? "OptBar(0)" : "OptBar(1)"),
                          Qt::LeftButton);
        const std::string edited = rig.field(mBar, 1);
        QTest::keyClick(&window, Qt::Key_2);
        QCOMPARE(rig.form1.Option9.selected(), 1);
        QCOMPARE(rig.field(mBar, 1), edited);
        QCOMPARE(window.statusBar()->currentMessage(), QStringLiteral("Not stored: press 2 again to choose camera 2"));
        QTest::keyClick(&window, Qt::Key_3);  // another key is a first press of its own
        QCOMPARE(rig.form1.Option9.selected(), 1);
        QTest::keyClick(&window, Qt::Key_3);
        QCOMPARE(rig.form1.Option9.selected(), 3);

        // Nothing unstored: one press chooses.
        QTest::keyClick(&window, Qt::Key_G);
        QCOMPARE(rig.form1.Option9.selected(), 0);
        QCOMPARE(rig.main<QLabel>("panelState").text(), QStringLiteral("GROUP: every camera"));
        QTest::keyClick(&window, Qt::Key_1);
        QCOMPARE(rig.form1.Option9.selected(), 1);
        QCOMPARE(rig.main<QLabel>("panelState").text(), QString());

        // The camera button itself chooses at once, unstored changes or not.
        QTest::mouseClick(&rig.main<QRadioButton>(rig.main<QRadioButton>("OptBar(1)").isChecked() ? "OptBar(0)" : "OptBar(1)"),
                          Qt::LeftButton);
        QTest::mouseClick(&rig.main<QPushButton>("Option9(2)"), Qt::LeftButton);
        QCOMPARE(rig.form1.Option9.selected(), 2);

        // With COPY ticked the key copies, as a click does: camera 1 takes camera 2's scenes
        // (both are ST1).
        rig.view->forward([&rig] {  // an edit of camera 2 stored in its scene 3
            rig.form1.OptBar.click(1 - rig.form1.OptBar.selected());
            rig.form1.ScnStore.setValue(1);
            rig.form1.Option7.click(3);
        });
        const std::string stored = rig.field(mBar, 2, 3);
        QVERIFY(rig.field(mBar, 1, 3) != stored);
        rig.takeQueued();
        rig.main<QAbstractButton>("CamCopy").click();
        QTest::keyClick(&rig.view->mainWindow(), Qt::Key_1);
        QCOMPARE(rig.messages.shown.size(), std::size_t{0});
        QCOMPARE(rig.form1.CamCopy.value(), 0);  // one-shot
        QCOMPARE(rig.readout.selectedCamera(), 1);
        QCOMPARE(rig.field(mBar, 1, 3), stored);
        QVERIFY(rig.takeQueued().empty());  // a selection sends nothing
    }
};

QTEST_MAIN(KeysTest)
#include "keys_test.moc"
