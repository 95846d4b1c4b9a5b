// The keyboard works the main window through the same model calls as the mouse.
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QtTest>

#include "tests/ui/menu_walk.hpp"
#include "tests/ui/view_rig.hpp"
#include "ui/windows/function_window.hpp"
#include "ui/widgets/level_bar.hpp"

using namespace station;
using namespace station::testing;
using Commands = std::vector<std::string>;

namespace {

// The main window shown and active, so that its shortcuts and focus work.
void showActive(ViewRig& rig) {
    QWidget& window = rig.view->mainWindow();
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
}

std::string levelCommand(int value) {
    return "302B" + hexByte(static_cast<std::uint8_t>(value)) + "00";
}

}  // namespace

class KeysTest : public QObject {
    Q_OBJECT

private slots:
    void cameraKeysSelectAsTheCameraButtonsDo() {
        ViewRig rig;
        rig.openStudio();
        showActive(rig);
        QTest::keyClick(&rig.view->mainWindow(), Qt::Key_3);
        QCOMPARE(rig.station.form1.Option9.selected(), 3);
        QVERIFY(rig.main<QPushButton>("Option9(3)").isChecked());
        QTest::keyClick(&rig.view->mainWindow(), Qt::Key_G);
        QCOMPARE(rig.station.form1.Option9.selected(), 0);

        // With COPY ticked the key copies, as a click does: camera 1 takes camera 2's scenes
        // (both are ST1).
        QTest::mouseClick(&rig.main<QPushButton>("Option9(2)"), Qt::LeftButton);
        rig.station.stores.MainScnData(1, 2, 3) = "1";
        rig.main<QAbstractButton>("CamCopy").click();
        QTest::keyClick(&rig.view->mainWindow(), Qt::Key_1);
        QCOMPARE(rig.messages.shown.size(), std::size_t{0});
        QCOMPARE(rig.station.form1.CamCopy.value(), 0);  // one-shot
        QCOMPARE(rig.station.shared.CamNo, 1);
        QCOMPARE(rig.station.stores.MainScnData(1, 1, 3), std::string("1"));
        QVERIFY(rig.takeQueued().empty());  // a selection sends nothing
    }

    void fileShortcutsAndF1RunTheirMenuEntries() {
        ViewRig rig;
        showActive(rig);
        ui::MainMenus& menus = rig.view->mainWindow().menus();
        const struct {
            const char* entry;
            QKeyCombination keys;
        } table[] = {
            {"OPEN", Qt::CTRL | Qt::Key_O},
            {"SAVE", Qt::CTRL | Qt::Key_S},
            {"SAVE AS", Qt::CTRL | Qt::SHIFT | Qt::Key_S},
            {"Ver 0.13", QKeyCombination(Qt::Key_F1)},
            {"Quit", Qt::CTRL | Qt::Key_Q},
        };
        for (const auto& row : table) {
            QAction* action = menus.action(QString::fromLatin1(row.entry));
            QVERIFY2(action != nullptr, row.entry);
            QSignalSpy triggered(action, &QAction::triggered);
            QTest::keyClick(&rig.view->mainWindow(), row.keys.key(), row.keys.keyboardModifiers());
            QVERIFY2(triggered.count() == 1, row.entry);
        }
        QVERIFY(rig.ended);
    }

    void everyAltKeyIsUniqueAndAltCOpensTheCameraMenu() {
        ViewRig rig;
        rig.openStudio();
        showActive(rig);
        QMenuBar& bar = *rig.view->mainWindow().menuBar();
        const QStringList clashes = mnemonicClashes(bar);
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
        rig.station.stores.MainScnData(2, 1, 0) = "1";  // an edited working copy
        QTest::keyClick(&rig.view->mainWindow(), Qt::Key_C, Qt::AltModifier);
        QTRY_COMPARE(opened.count(), 1);
        cameraMenu->close();
        QCOMPARE(readRan.count(), 0);
        QVERIFY(rig.takeQueued().empty());  // no read requests went out
        QCOMPARE(rig.station.stores.MainScnData(2, 1, 0), std::string("1"));
    }

    void arrowsStepALevelAndPageKeysMoveTen() {
        ViewRig rig;
        showActive(rig);
        auto& bar = rig.main<QScrollBar>("VrMblk.bar");
        bar.setFocus();
        const int start = rig.station.form1.VrMblk.value();
        // The bar's top is its highest level.
        const struct {
            Qt::Key key;
            int change;
        } table[] = {{Qt::Key_Up, 1}, {Qt::Key_Down, -1}, {Qt::Key_PageUp, 10}, {Qt::Key_PageDown, -10}};
        for (const auto& row : table) {
            const int was = rig.station.form1.VrMblk.value();
            QTest::keyClick(&bar, row.key);
            QCOMPARE(rig.station.form1.VrMblk.value(), was + row.change);
            QCOMPARE(rig.takeQueued(), Commands{levelCommand(was + row.change)});
        }
        QCOMPARE(rig.station.form1.VrMblk.value(), start);

        // The wheel over a bar without the focus changes nothing.
        auto& other = rig.main<QScrollBar>("VrDtl.bar");
        QWheelEvent wheel(QPointF(5, 5), other.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&other, &wheel);
        QVERIFY(rig.takeQueued().empty());
    }

    void anOptionGroupIsOneTabStopWithArrowsInside() {
        ViewRig rig;
        showActive(rig);
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
        QCOMPARE(rig.station.form1.OptBar.selected(), 1);
        QCOMPARE(rig.takeQueued(), Commands{"200801FE"});
        QVERIFY(bars.focusPolicy() & Qt::TabFocus);

        // In the scene row an arrow only moves; Space selects (a scene can be stored into).
        auto& scene1 = rig.main<QPushButton>("Option7(1)");
        scene1.setFocus();
        QTest::keyClick(&scene1, Qt::Key_Right);
        auto& scene2 = rig.main<QPushButton>("Option7(2)");
        QVERIFY(scene2.hasFocus());
        QCOMPARE(rig.station.form1.Option7.selected(), 1);
        QTest::keyClick(&scene2, Qt::Key_Space);
        QCOMPARE(rig.station.form1.Option7.selected(), 2);
    }

    void theTitleMarksChangesNotSaved() {
        ViewRig rig;
        rig.openStudio();
        QWidget& window = rig.view->mainWindow();
        const QString title = QStringLiteral("studio.csd - Camera Control");
        QCOMPARE(window.windowTitle(), title);
        QTest::mouseClick(&rig.main<QRadioButton>("OptBar(1)"), Qt::LeftButton);
        QCOMPARE(window.windowTitle(), QStringLiteral("*") + title);
        QTest::mouseClick(&rig.main<QRadioButton>("OptBar(0)"), Qt::LeftButton);
        QCOMPARE(window.windowTitle(), title);
    }

    void satelliteWindowsStayAboveTheMainWindow() {
        ViewRig rig;
        showActive(rig);
        ui::FunctionWindow& function = rig.view->functionWindow();
        rig.view->forward([&rig] { rig.station.form2.form.Show(); });
        QVERIFY(function.isVisible());
        QCOMPARE(function.windowType(), Qt::Dialog);  // kept above its main window
        QCOMPARE(function.windowHandle()->transientParent(), rig.view->mainWindow().windowHandle());
    }
};

QTEST_MAIN(KeysTest)
#include "keys_test.moc"
