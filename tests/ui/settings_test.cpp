// What the desktop program remembers between runs: the settings round trip, the recent
// files menu, the windows' places and the temporary file an interrupted save left behind.
#include <QMenu>
#include <QSettings>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QtTest>

#include <fstream>

#include "tests/support/fake_dialogs.hpp"
#include "tests/support/fake_messages.hpp"
#include "tests/support/fake_port.hpp"
#include "ui/main/main_window.hpp"
#include "ui/start/remembered_session.hpp"

using namespace station;
using namespace station::ui;

namespace {

std::string inDir(const QTemporaryDir& dir, const char* name) { return dir.filePath(QString::fromLatin1(name)).toStdString(); }

}  // namespace

class SettingsTest : public QObject {
    Q_OBJECT

private slots:

    void recentFilesAndPlaces() {
        QTemporaryDir dir;
        QSettings qs(dir.filePath(QStringLiteral("s.conf")), QSettings::IniFormat);
        RememberedSettings remembered(qs);
        const std::string studio = inDir(dir, "studio.csd");
        QVERIFY(QFile::copy(QStringLiteral(STATION_SAMPLES_DIR "/studio.csd"), QString::fromStdString(studio)));
        std::ofstream(studio + ".tmp") << "cut short";
        remembered.fileUsed(inDir(dir, "gone.csd"));
        remembered.fileUsed(studio);

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
            QCOMPARE(view.mainWindow().windowTitle(), QStringLiteral("studio.csd - Camera Control"));

            menu.actions()[1]->trigger();  // gone: not opened, told, and taken off the list
            QCOMPARE(station.setupFile.FileName, studio);
            QVERIFY(view.mainWindow().statusBar()->currentMessage().contains(QStringLiteral("gone.csd was not found")));
            QCOMPARE(remembered.recentFiles(), std::vector<std::string>{studio});

            view.mainWindow().setGeometry(40, 50, 900, 600);
            place = view.mainWindow().geometry();
        }
        StationView again(station, modal);
        const RememberedSession restored(remembered, again, station, dialogs, writer);
        QCOMPARE(again.mainWindow().geometry(), place);
    }
};

QTEST_MAIN(SettingsTest)
#include "settings_test.moc"
