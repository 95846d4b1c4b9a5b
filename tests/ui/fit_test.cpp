// The main window fits a small screen: at the size FIT_SCREEN names (in the screen's pixels,
// with Qt's scale factor as the test runs), the window can be made that small, the panel
// scrolls to every control, and the LINE box and the status bar stay in sight.
#include <QMainWindow>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QtTest>

#include "tests/ui/view_rig.hpp"

using namespace station;
using namespace station::testing;

namespace {

QSize screenUnderTest() {
    const QStringList parts = qEnvironmentVariable("FIT_SCREEN", QStringLiteral("1280x720")).split(QLatin1Char('x'));
    return {parts.value(0).toInt(), parts.value(1).toInt()};
}

}  // namespace

class FitTest : public QObject {
    Q_OBJECT

private slots:
    void theWindowFitsAndEveryControlIsReachable() {
        ViewRig rig;
        rig.openStudio();
        QMainWindow& window = rig.view->mainWindow();
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const qreal scale = window.devicePixelRatioF();
        // A title bar and a panel of the desktop take some of the screen.
        const QSize room = screenUnderTest() - QSize(0, 60);
        const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
        QVERIFY2(least.width() * scale <= room.width() && least.height() * scale <= room.height(),
                 qPrintable(QStringLiteral("the window needs at least %1x%2 at scale %3")
                                .arg(least.width()).arg(least.height()).arg(scale)));

        window.resize((QSizeF(room) / scale).toSize());
        QTRY_VERIFY(window.width() * scale <= room.width() + 1);
        const QRect inside = window.rect();
        for (const QWidget* w : {static_cast<QWidget*>(&rig.main("monitor")), static_cast<QWidget*>(window.statusBar())}) {
            const QRect placed(w->mapTo(&window, QPoint(0, 0)), w->size());
            QVERIFY2(inside.contains(placed), qPrintable(w->objectName()));
        }
        // What the panel cannot show at once, it scrolls to: the last group and the levels.
        auto& scroll = rig.main<QScrollArea>("panelScroll");
        for (const char* name : {"Option9(8)", "VrIris", "Command6"}) {
            QWidget& control = rig.main(name);
            scroll.ensureWidgetVisible(&control);
            const QRect shown(control.mapTo(scroll.viewport(), QPoint(0, 0)), control.size());
            QVERIFY2(scroll.viewport()->rect().intersects(shown), name);
        }
    }
};

QTEST_MAIN(FitTest)
#include "fit_test.moc"
