// What the desktop program remembers between runs: the settings round trip, the recent
// files menu, the windows' places and the temporary file an interrupted save left behind.
#include <QMenu>
#include <QSettings>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QScreen>
#include <QtTest>

#include <fstream>

#include "tests/ui/view_rig.hpp"
#include "ui/start/remembered_session.hpp"
#include "ui/windows/function_window.hpp"

using namespace station;
using namespace station::ui;

namespace {

std::string inDir(const QTemporaryDir& dir, const char* name) { return dir.filePath(QString::fromUtf8(name)).toStdString(); }

// The windows made again on the same station, as at the next start.
StationView& freshView(testing::ViewRig& rig) {
    rig.view.reset();
    rig.view = std::make_unique<StationView>(rig.station, rig.modal);
    return *rig.view;
}

}  // namespace

class SettingsTest : public QObject {
    Q_OBJECT

private slots:

    void recentFilesAndPlaces() {
        QTemporaryDir dir;
        QSettings qs(dir.filePath(QStringLiteral("s.conf")), QSettings::IniFormat);
        RememberedSettings remembered(qs);
        const std::string studio = inDir(dir, "sp\u00e9cial.csd");  // named as the file system spells it
        QVERIFY(QFile::copy(QStringLiteral(STATION_SAMPLES_DIR "/studio.csd"), QString::fromStdString(studio)));
        std::ofstream(studio + ".tmp") << "cut short";
        QVERIFY(!remembered.lastFile());
        remembered.fileUsed(inDir(dir, "g\u00f4ne.csd"));
        remembered.fileUsed(studio);
        QCOMPARE(remembered.lastFile(), std::optional<std::string>(studio));  // the session to come back to

        testing::ViewRig rig;
        QRect place;
        {
            RememberedSession session(remembered, *rig.view, rig.station, rig.preset, rig.writer);
            rig.view->refresh();
            QVERIFY(!QFile::exists(QString::fromStdString(studio + ".tmp")));
            QMenu& menu = session.recentFiles().menu();
            emit menu.aboutToShow();
            QCOMPARE(menu.actions().size(), 2);
            QCOMPARE(menu.actions()[0]->text(), QStringLiteral("&1 ") + QString::fromStdString(studio));

            menu.actions()[0]->trigger();
            QCOMPARE(rig.readout.fileName(), studio);
            QCOMPARE(rig.readout.cameraType(1), std::string("ST1"));
            QCOMPARE(rig.view->mainWindow().windowTitle(), QString::fromUtf8("sp\u00e9cial.csd - Camera Control"));

            menu.actions()[1]->trigger();  // gone: not opened, told, and taken off the list
            QCOMPARE(rig.readout.fileName(), studio);
            QVERIFY(QString::fromStdString(rig.forms.log.text()).contains(QString::fromUtf8("g\u00f4ne.csd was not found")));
            QTRY_VERIFY_WITH_TIMEOUT(
                rig.view->mainWindow().statusBar()->currentMessage().contains(QString::fromUtf8("g\u00f4ne.csd was not found")),
                30000);
            QCOMPARE(remembered.recentFiles(), std::vector<std::string>{studio});

            rig.view->mainWindow().setGeometry(40, 50, 900, 600);
            place = rig.view->mainWindow().geometry();
        }
        const RememberedSession restored(remembered, freshView(rig), rig.station, rig.preset, rig.writer);
        QCOMPARE(rig.view->mainWindow().geometry(), place);
    }

    void satellitesOpenBesideTheMainWindowAndKeepTheirPlacePerScreenSize() {
        // Beside the main window where the screen has room, else in the farthest corner.
        const struct {
            QRect screen, main;
            QPoint at;
        } table[] = {
            {{0, 0, 1920, 1080}, {0, 0, 1180, 660}, {1184, 0}},       // right
            {{0, 0, 1920, 1080}, {700, 100, 1180, 660}, {76, 100}},   // left
            {{0, 0, 1280, 1080}, {0, 0, 1180, 600}, {0, 604}},        // below
            {{0, 0, 1280, 720}, {0, 0, 1180, 660}, {660, 360}},       // no room: far corner
            {{1920, 0, 1920, 1080}, {1920, 0, 1180, 660}, {3104, 0}},  // a second screen
        };
        for (const auto& row : table) {
            const QPoint at = placeBeside(row.main, QSize(620, 360), row.screen);
            QCOMPARE(at, row.at);
            QVERIFY(row.screen.contains(QRect(at, QSize(620, 360))));
        }

        QTemporaryDir dir;
        QSettings qs(dir.filePath(QStringLiteral("s.conf")), QSettings::IniFormat);
        RememberedSettings remembered(qs);
        testing::ViewRig rig;
        QPoint left;
        QSize screen;
        {
            const RememberedSession session(remembered, *rig.view, rig.station, rig.preset, rig.writer);
            screen = rig.view->mainWindow().screen()->availableGeometry().size();
            rig.view->forward([&rig] { rig.form2.form.Show(); });
            rig.view->functionWindow().move(30, 40);
            left = rig.view->functionWindow().pos();
            rig.view->forward([&rig] { rig.form2.form.Hide(); });
        }
        QVERIFY(!remembered.windowPlace(placeKey(QStringLiteral("Form2"), screen)).isEmpty());
        QVERIFY(remembered.windowPlace(placeKey(QStringLiteral("Form2"), screen + QSize(1, 1))).isEmpty());
        const RememberedSession restored(remembered, freshView(rig), rig.station, rig.preset, rig.writer);
        rig.view->forward([&rig] { rig.form2.form.Show(); });
        QCOMPARE(rig.view->functionWindow().pos(), left);  // where it was left, not placed afresh
    }
};

QTEST_MAIN(SettingsTest)
#include "settings_test.moc"
