// The Qt implementations of the station's platform: message boxes, file filters and the
// serial port on a pseudo-terminal.
#include <QSysInfo>
#include <QtTest>

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <sys/wait.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>

#include "common/line_fault.hpp"
#include "common/runtime_error.hpp"
#include "ui/platform/file_filter.hpp"
#include "ui/platform/qt_file_dialogs.hpp"
#include "ui/platform/qt_serial_port.hpp"
#include "ui/platform/stale_lock.hpp"

using namespace station;
using namespace station::ui;

namespace {

// Whether the port reports its line lost, naming the device.
bool lostNaming(SerialPort& port, const std::string& device) {
    try {
        port.bytesWaiting();
    } catch (const LineFault& fault) {
        return std::string(fault.what()).find(device) != std::string::npos;
    }
    return false;
}

// The far end of a pseudo-terminal that the port under test opens as its device.
struct Pty {
    Pty() {
        master = ::posix_openpt(O_RDWR | O_NOCTTY);
        ::grantpt(master);
        ::unlockpt(master);
        std::array<char, 128> name{};
        ::ptsname_r(master, name.data(), name.size());
        path = name.data();
    }
    ~Pty() { ::close(master); }
    QByteArray read(int want) {
        QByteArray out;
        while (out.size() < want) {
            pollfd p{master, POLLIN, 0};
            if (::poll(&p, 1, 2000) <= 0) break;
            std::array<char, 256> buf{};
            const ssize_t n = ::read(master, buf.data(), buf.size());
            if (n <= 0) break;
            out.append(buf.data(), static_cast<qsizetype>(n));
        }
        return out;
    }
    int master = -1;
    std::string path;
};

}  // namespace

class PlatformTest : public QObject {
    Q_OBJECT

private slots:

    void fileFilter() {
        QCOMPARE(qtFileFilter("Camera setup data files (*.csd)|*.csd|"), std::string("Camera setup data files (*.csd)"));
        QCOMPARE(qtFileFilter("Setup|*.csd;*.CSD|All files (*.*)|*.*"),
                 std::string("Setup (*.csd *.CSD);;All files (*.*)"));
        QCOMPARE(qtFileFilter(""), std::string());
    }

    void serialBytes() {
        Pty pty;
        QtSerialPort port(pty.path);
        port.setCommPort(1);
        port.setSettings("9600,N,8,1");
        port.open();
        QVERIFY(port.isOpen());

        termios tio{};
        QCOMPARE(::tcgetattr(pty.master, &tio), 0);
        QCOMPARE(::cfgetospeed(&tio), speed_t(B9600));
        port.setSettings("19200,N,8,1");  // applied while the port stays open
        QCOMPARE(::tcgetattr(pty.master, &tio), 0);
        QCOMPARE(::cfgetospeed(&tio), speed_t(B19200));

        port.write(bytesOf({0x02, 0x02, 0x40, 0x10, 0xAD, 0xFF}));
        QCOMPARE(pty.read(6), QByteArray("\x02\x02\x40\x10\xAD\xFF", 6));

        const char reply[] = {0x06, 0x00, 0x0D, 0x11};
        QCOMPARE(::write(pty.master, reply, sizeof reply), ssize_t(sizeof reply));
        QTRY_COMPARE(port.bytesWaiting(), 4);
        QCOMPARE(port.readAll(), bytesOf({0x06, 0x00, 0x0D, 0x11}));  // raw: no line-end handling
        QCOMPARE(port.bytesWaiting(), 0);
    }

    void aLockWhoseProcessIsGoneDoesNotKeepThePortOut() {
        const pid_t zombie = ::fork();  // ended, not yet reaped: the process id still exists
        if (zombie == 0) ::_exit(0);
        QTRY_VERIFY(lockIsStale(std::to_string(zombie)));
        QVERIFY(lockIsStale("  " + std::to_string(zombie)));  // the blank-padded form
        const pid_t alive = ::fork();  // the same program, running
        if (alive == 0) {
            ::pause();
            ::_exit(0);
        }
        QVERIFY(!lockIsStale(std::to_string(alive)));
        QVERIFY(lockIsStale(std::to_string(::getpid())));  // an earlier station's, with this one's id
        QVERIFY(!lockIsStale("") && !lockIsStale("not a lock") && !lockIsStale("12ab"));

        Pty pty;
        const std::filesystem::path lock = lockFilesOf(pty.path).front();
        // As the serial library writes them: process id, program, host.
        const auto lockText = [](pid_t pid) {
            return std::to_string(pid) + "\n" + QCoreApplication::applicationFilePath().toStdString() + "\n" +
                   QSysInfo::machineHostName().toStdString() + "\n";
        };
        {
            std::ofstream(lock) << lockText(alive);  // held by a station that runs
            QtSerialPort busy(pty.path);
            QVERIFY_THROWS_EXCEPTION(std::runtime_error, busy.open());
            QVERIFY(std::filesystem::exists(lock));
        }
        ::kill(alive, SIGKILL);
        ::waitpid(alive, nullptr, 0);
        // Left by a station whose process id this one now has, as after a restart in a fresh
        // container: the serial library takes it for this process's own lock.
        std::ofstream(lock) << lockText(::getpid());
        QtSerialPort port(pty.path);
        port.open();
        QVERIFY(port.isOpen());
        port.close();
        QVERIFY(!std::filesystem::exists(lock));  // and the station's own lock went with the port
        ::waitpid(zombie, nullptr, 0);
    }

    void serialHangUp() {
        auto pty = std::make_unique<Pty>();
        QtSerialPort port(pty->path);
        port.open();
        const std::string device = pty->path;
        pty.reset();  // the adapter pulled out
        QTRY_VERIFY(lostNaming(port, device));
        port.close();

        pty = std::make_unique<Pty>();  // a new terminal: the device back, with a byte waiting
        QtSerialPort again(pty->path);
        QCOMPARE(::write(pty->master, "\x06", 1), ssize_t(1));
        QTest::qWait(20);
        again.open();
        QTest::qWait(50);
        QCOMPARE(again.bytesWaiting(), 0);
    }
};

QTEST_MAIN(PlatformTest)
#include "platform_test.moc"
