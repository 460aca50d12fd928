#include "platform/core/SerialDevices.h"
#include "support/MadeMachine.h"

#include <QFileInfo>
#include <QTest>

#include <cerrno>

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class TestSerialDevices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hardwareIsListedWithWhatItsMakerSays()
    {
        const MadeMachine machine;
        QVERIFY(machine.plugIn(u"ttyUSB10"_s, "Second") && machine.addConsole(u"tty7"_s) &&
                machine.plugIn(u"ttyUSB9"_s, "FT232R USB UART", u"usb-Maker-if00"_s) &&
                machine.addPort(u"ttyS1"_s, "0") && machine.addPort(u"ttyS0"_s, "4"));
        const QList<SerialDevice> expected{
            {u"/dev/ttyS0"_s},
            {u"/dev/ttyUSB9"_s, u"/dev/serial/by-id/usb-Maker-if00"_s, u"FT232R USB UART"_s,
             u"Maker"_s, u"SN1"_s},
            {u"/dev/ttyUSB10"_s, {}, u"Second"_s, u"Maker"_s, u"SN1"_s}};
        QCOMPARE(SerialDevices(machine.root()).all(), expected);
    }

    void deviceThatIsLockedIsInUse()
    {
        const MadeMachine machine;
        const SerialDevices devices(machine.root());
        const QString device = u"/dev/ttyUSB0"_s;
        QVERIFY(devices.stateOf(device) == SerialDevices::State::Missing);
        QVERIFY(devices.groupOf(device).isEmpty());
        QVERIFY(machine.plugIn(u"ttyUSB0"_s, "Adapter"));
        QVERIFY(devices.stateOf(device) == SerialDevices::State::Usable);
        struct stat status
        {
        };
        QCOMPARE(::stat((machine.root() + device).toUtf8().constData(), &status), 0);
        const auto lock = [&status](ino_t inode, int process = 1) {
            return QString::asprintf("1: FLOCK  ADVISORY  WRITE %d %02x:%02x:%llu 0 EOF\n", process,
                                     major(status.st_dev), minor(status.st_dev),
                                     static_cast<unsigned long long>(inode))
                .toUtf8();
        };
        QVERIFY(machine.put(u"proc/locks"_s,
                            lock(status.st_ino + 1) + lock(status.st_ino, ::getpid())));
        QVERIFY(devices.stateOf(device) == SerialDevices::State::Usable);
        QVERIFY(machine.put(u"proc/locks"_s, lock(status.st_ino + 1) + lock(status.st_ino)));
        QVERIFY(devices.stateOf(device) == SerialDevices::State::InUse);
        QVERIFY(machine.put(u"proc/locks"_s, {}) && machine.put(u"run/lock/LCK..ttyUSB0"_s, "77"));
        QVERIFY(devices.stateOf(device) == SerialDevices::State::InUse);
    }

    void groupIsToldThatGivesAccess()
    {
        const MadeMachine machine;
        const QString device = u"/dev/ttyUSB0"_s;
        QVERIFY(machine.plugIn(u"ttyUSB0"_s, "Adapter"));
        const QByteArray path = (machine.root() + device).toUtf8();
        const gid_t group = ::getegid() == 0 ? 20 : ::getegid(); // the test's own, or any
        QCOMPARE(::chown(path.constData(), static_cast<uid_t>(-1), group), 0);
        for (const auto& [mode, isTold] : {std::pair(0660, true), {0600, false}, {0640, false}}) {
            QCOMPARE(::chmod(path.constData(), static_cast<mode_t>(mode)), 0);
            QCOMPARE(!SerialDevices(machine.root()).groupOf(device).isEmpty(), isTold);
        }
        const bool isAdministrators = QFileInfo(u"/dev/null"_s).groupId() == 0; // as nearly always
        QCOMPARE(SerialDevices().groupOf(u"/dev/null"_s).isEmpty(), isAdministrators);
    }

    void onlyWhatWasJustPluggedInIsWaitedFor()
    {
        const MadeMachine machine;
        const SerialDevices devices(machine.root());
        QVERIFY(machine.plugIn(u"ttyUSB0"_s, "Adapter", u"usb-A"_s) &&
                machine.addConsole(u"pts0"_s));
        const auto now = std::chrono::duration_cast<std::chrono::seconds>(
            std::chrono::system_clock::now().time_since_epoch());
        for (const auto& device : {u"/dev/ttyUSB0"_s, u"/dev/serial/by-id/usb-A"_s}) {
            QVERIFY(devices.mayPass(EBUSY, device, now + 10s));
            QVERIFY(!devices.mayPass(EBUSY, device, now + 21s));
            QVERIFY(devices.mayPass(EACCES, device, now - 1s));
            QVERIFY(!devices.mayPass(EACCES, device, now + 3s));
            QVERIFY(!devices.mayPass(ENOENT, device, now));
        }
        QVERIFY(!devices.mayPass(EBUSY, u"/dev/pts0"_s, now));
        QVERIFY(!devices.mayPass(EBUSY, u"/dev/ttyUSB1"_s, now));
    }
};

QTEST_GUILESS_MAIN(TestSerialDevices)
#include "TestSerialDevices.moc"
