// The "Function" window forwards the operator's choices to the function editor and shows
// what the station keeps and what the camera reports.
#include <QLineEdit>
#include <QListWidget>
#include <QSpinBox>
#include <QtTest>

#include "link/frame.hpp"
#include "tests/ui/view_rig.hpp"
#include "ui/windows/function_window.hpp"

using namespace station;
using namespace station::testing;

class FunctionWindowTest : public QObject {
    Q_OBJECT

private slots:
    void valueOutReplyIn() {
        ViewRig rig;
        rig.openStudio();  // camera 1: ST1
        QTest::mouseClick(&rig.main<QAbstractButton>("Command5"), Qt::LeftButton);  // "FUNC"
        QWidget& window = rig.view->functionWindow();
        QVERIFY(window.isVisible());

        auto& functions = rig.widget<QListWidget>(window, "List1");
        auto& items = rig.widget<QListWidget>(window, "List2");
        auto& values = rig.widget<QListWidget>(window, "List3");
        functions.setCurrentRow(3);  // "Shutter": shown, not sent
        items.setCurrentRow(1);      // "Shutter Speed"
        QVERIFY(rig.takeQueued().empty());
        QCOMPARE(items.item(1)->text(), QStringLiteral("Shutter Speed: 1/250"));
        QCOMPARE(values.count(), 6 + 16);  // its speeds, then the variable-shutter steps

        // Searching narrows the long list; a click on what is left sends that step.
        QTest::keyClicks(&rig.widget<QLineEdit>(window, "List3.search"), "61.2");
        QListWidgetItem* found = nullptr;
        for (int row = 0; row < values.count(); ++row)
            if (!values.item(row)->isHidden()) found = found == nullptr ? values.item(row) : nullptr;
        QVERIFY(found != nullptr);
        QTest::mouseClick(values.viewport(), Qt::LeftButton, {}, values.visualItemRect(found).center());
        QCOMPARE(rig.takeQueued(), Commands{"30550003"});
        QCOMPARE(items.item(1)->text(), QStringLiteral("Shutter Speed: 1/61.2"));

        // The camera reports 1/500 of its own accord; the poll shows it and sends nothing back.
        rig.port.arrive(buildFrame("325503", FrameHeader{}));
        QTRY_COMPARE(items.item(1)->text(), QStringLiteral("Shutter Speed: 1/500"));
        QCOMPARE(values.currentRow(), 3);
        QVERIFY(rig.takeQueued().empty());

        // The arrow keys look through the list, the redraws leave them be, and Enter chooses.
        rig.widget<QLineEdit>(window, "List3.search").clear();
        QApplication::setActiveWindow(&window);
        values.setFocus();
        QTest::keyClick(&values, Qt::Key_Down);
        rig.view->refresh();
        QCOMPARE(values.currentRow(), 4);
        QVERIFY(rig.takeQueued().empty());
        QTest::keyClick(&values, Qt::Key_Return);
        QCOMPARE(rig.takeQueued(), Commands{"30550400"});

        // Enter in the search chooses the first match; with no match it sends nothing.
        auto& search = rig.widget<QLineEdit>(window, "List3.search");
        search.setFocus();
        QTest::keyClicks(&search, "61.2");
        QTest::keyClick(&search, Qt::Key_Return);
        QCOMPARE(rig.takeQueued(), Commands{"30550003"});
        QCOMPARE(values.currentItem(), found);
        search.clear();
        QTest::keyClicks(&search, "no such speed");
        QTest::keyClick(&search, Qt::Key_Return);
        QVERIFY(rig.takeQueued().empty());
        search.clear();

        // An analog item: the hex box takes the value on Enter.
        functions.setCurrentRow(0);  // "Gamma"
        items.setCurrentRow(1);      // "Gamma Level"
        auto& hex = rig.widget<QSpinBox>(window, "HScroll1.hex");
        QVERIFY(hex.isVisibleTo(&window) && !values.isVisibleTo(&window));
        hex.selectAll();
        QTest::keyClicks(&hex, "7F");
        QTest::keyClick(&hex, Qt::Key_Return);
        QCOMPARE(rig.takeQueued(), Commands{"30507F00"});
        QCOMPARE(items.item(1)->text(), QStringLiteral("Gamma Level: 7F"));
    }

    // The window opens on its function list, and Enter sends a value only once one was
    // chosen: not from the list of functions, not from an empty search.
    void enterSendsNothingUntilAValueIsChosen() {
        ViewRig rig;
        rig.openStudio();
        rig.view->mainWindow().show();
        QTest::mouseClick(&rig.main<QAbstractButton>("Command5"), Qt::LeftButton);  // "FUNC"
        QWidget& window = rig.view->functionWindow();
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        auto& functions = rig.widget<QListWidget>(window, "List1");
        QCOMPARE(window.focusWidget(), &functions);

        functions.setCurrentRow(0);  // "Gamma"
        rig.widget<QListWidget>(window, "List2").setCurrentRow(0);  // "Gamma Mode": named values
        QVERIFY(rig.widget<QListWidget>(window, "List3").isVisibleTo(&window));
        rig.takeQueued();
        const std::size_t frames = rig.port.writes.size();
        QTest::keyClick(&functions, Qt::Key_Return);
        auto& search = rig.widget<QLineEdit>(window, "List3.search");
        search.setFocus();
        QTest::keyClick(&search, Qt::Key_Return);
        QTest::keyClicks(&search, "  ");
        QTest::keyClick(&search, Qt::Key_Enter);
        QTest::qWait(200);  // five polls: anything queued would be on the line
        QVERIFY(rig.takeQueued().empty());
        QCOMPARE(rig.port.writes.size(), frames);

        // Closed from the search box and opened again: on the function list once more.
        QTest::keyClick(&window, Qt::Key_Escape);
        QVERIFY(!window.isVisible());
        QTest::mouseClick(&rig.main<QAbstractButton>("Command5"), Qt::LeftButton);
        QApplication::setActiveWindow(&window);
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QCOMPARE(window.focusWidget(), &functions);
    }
};

QTEST_MAIN(FunctionWindowTest)
#include "function_window_test.moc"
