// What the desktop program remembers between runs: the settings round trip, the recent
// files menu, the windows' places and the temporary file an interrupted save left behind.
#include <QMenu>
#include <QSettings>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QScreen>
#include <QtTest>

#include <fstream>

#include "tests/support/fake_dialogs.hpp"
#include "tests/support/fake_messages.hpp"
#include "tests/support/fake_port.hpp"
#include "ui/main/main_window.hpp"
#include "ui/start/remembered_session.hpp"
#include "ui/windows/function_window.hpp"

using namespace station;
using namespace station::ui;

namespace {

std::string inDir(const QTemporaryDir& dir, const char* name) { return dir.filePath(QString::fromUtf8(name)).toStdString(); }

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

        testing::FakePort port;
        testing::FakeMessages messages;
        testing::FakeDialogs plain;
        PresetDialogs dialogs(plain);
        DiskWriter writer;
        ModalPause modal;
        Station station({port, messages, dialogs, writer, STATION_SAMPLES_DIR});
        StationView view(station, modal);
        station.Form_Load();
        QRect place;
        {
            RememberedSession session(remembered, view, station, dialogs, writer);
            view.refresh();
            QVERIFY(!QFile::exists(QString::fromStdString(studio + ".tmp")));
            QMenu& menu = session.recentFiles().menu();
            emit menu.aboutToShow();
            QCOMPARE(menu.actions().size(), 2);
            QCOMPARE(menu.actions()[0]->text(), QStringLiteral("&1 ") + QString::fromStdString(studio));

            menu.actions()[0]->trigger();
            QCOMPARE(station.setupFile.FileName, studio);
            QCOMPARE(station.shared.cams.CamType(1), std::string("ST1"));
            QCOMPARE(view.mainWindow().windowTitle(), QString::fromUtf8("sp\u00e9cial.csd - Camera Control"));

            menu.actions()[1]->trigger();  // gone: not opened, told, and taken off the list
            QCOMPARE(station.setupFile.FileName, studio);
            QVERIFY(QString::fromStdString(station.line.log.text()).contains(QString::fromUtf8("g\u00f4ne.csd was not found")));
            QTRY_VERIFY_WITH_TIMEOUT(
                view.mainWindow().statusBar()->currentMessage().contains(QString::fromUtf8("g\u00f4ne.csd was not found")), 30000);
            QCOMPARE(remembered.recentFiles(), std::vector<std::string>{studio});

            view.mainWindow().setGeometry(40, 50, 900, 600);
            place = view.mainWindow().geometry();
        }
        StationView again(station, modal);
        const RememberedSession restored(remembered, again, station, dialogs, writer);
        QCOMPARE(again.mainWindow().geometry(), place);
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
            {{0, 0, 1280, 1080}, {0, 460, 1180, 600}, {0, 96}},       // above
            {{0, 0, 1280, 720}, {0, 0, 1180, 660}, {660, 360}},       // no room: far corner
            {{0, 0, 1280, 720}, {100, 60, 1180, 660}, {0, 0}},
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
        testing::FakePort port;
        testing::FakeMessages messages;
        testing::FakeDialogs plain;
        PresetDialogs dialogs(plain);
        DiskWriter writer;
        ModalPause modal;
        Station station({port, messages, dialogs, writer, STATION_SAMPLES_DIR});
        QPoint left;
        QSize screen;
        {
            StationView view(station, modal);
            station.Form_Load();
            const RememberedSession session(remembered, view, station, dialogs, writer);
            screen = view.mainWindow().screen()->availableGeometry().size();
            view.forward([&station] { station.form2.form.Show(); });
            view.functionWindow().move(30, 40);
            left = view.functionWindow().pos();
            view.forward([&station] { station.form2.form.Hide(); });
        }
        QVERIFY(!remembered.windowPlace(placeKey(QStringLiteral("Form2"), screen)).isEmpty());
        QVERIFY(remembered.windowPlace(placeKey(QStringLiteral("Form2"), screen + QSize(1, 1))).isEmpty());
        StationView again(station, modal);
        const RememberedSession restored(remembered, again, station, dialogs, writer);
        again.forward([&station] { station.form2.form.Show(); });
        QCOMPARE(again.functionWindow().pos(), left);  // where it was left, not placed afresh
    }
};

QTEST_MAIN(SettingsTest)
#include "settings_test.moc"
