#include "platform/core/Pacing.h"
#include "platform/core/TermiosComPort.h"
#include "support/ComPortContract.h"
#include "support/FaultyCalls.h"
#include "support/OpenDescriptors.h"
#include "support/PseudoTerminal.h"

#include <QTest>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

using namespace pelorin;

/// Who gets a device, and what is left of it in the system afterwards.
class TestTermiosOpening : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Pacing::setSpeeds({1.0, 100.0, 10.0}); }

    void deviceInUseIsNotTouched();
    void deviceIsLockedAgainstOtherProgramsUntilItIsClosed();
    void openDeviceIsNotPassedOnToChildren();
    void pathThatIsNoSerialDeviceIsRefused_data();
    void pathThatIsNoSerialDeviceIsRefused();
    void unpluggingAThousandTimesLeavesNothingOpen();
};

void TestTermiosOpening::deviceInUseIsNotTouched()
{
    PseudoTerminal terminal;
    FaultyCalls calls;
    TermiosComPort port(terminal.path(), calls.table());
    QCOMPARE(port.open(), 0);
    QCOMPARE(port.setLine({38400, 'N', 8, 1}), 0);
    QVERIFY(terminal.send("0000A5F0\r"));
    QCOMPARE(readBytes(port, 1), std::string("0"));

    TermiosComPort other(terminal.path());
    QCOMPARE(other.open(), EBUSY);
    QCOMPARE(terminal.speed(), 38400);
    QCOMPARE(readBytes(port, 1), std::string("0"));

    calls.made.clear(); // the system would raise RTS, refused or not
    QCOMPARE(port.open(), EBUSY);
    QVERIFY(calls.made.empty());
}

void TestTermiosOpening::deviceIsLockedAgainstOtherProgramsUntilItIsClosed()
{
    PseudoTerminal terminal;
    TermiosComPort port(terminal.path());
    const int other = ::open(terminal.path().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    QCOMPARE(flock(other, LOCK_EX | LOCK_NB), 0);
    QCOMPARE(port.open(), EBUSY);
    QVERIFY(!terminal.isExclusive());

    QCOMPARE(flock(other, LOCK_UN), 0);
    QCOMPARE(port.open(), 0);
    QVERIFY(terminal.isExclusive());
    QCOMPARE(flock(other, LOCK_EX | LOCK_NB), -1);

    port.close();
    QVERIFY(!terminal.isExclusive());
    QCOMPARE(flock(other, LOCK_EX | LOCK_NB), 0);
    ::close(other);
}

void TestTermiosOpening::openDeviceIsNotPassedOnToChildren()
{
    PseudoTerminal terminal;
    TermiosComPort port(terminal.path());
    const auto before = openDescriptors();
    QCOMPARE(port.open(), 0);

    auto opened = openDescriptors();
    std::erase_if(opened, [&](int fd) { return std::count(before.begin(), before.end(), fd) > 0; });
    QCOMPARE(opened.size(), std::size_t{2}); // the device, and the event that ends a wait
    for (const int fd : opened)
        QCOMPARE(fcntl(fd, F_GETFD), FD_CLOEXEC);
}

void TestTermiosOpening::pathThatIsNoSerialDeviceIsRefused_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<int>("error");
    QTest::newRow("missing") << QByteArray("/dev/ttyThatIsMissing") << ENOENT;
    QTest::newRow("null device") << QByteArray("/dev/null") << ENOTTY;
    QTest::newRow("folder") << QByteArray("/dev") << EISDIR;
    QTest::newRow("below a file") << QByteArray("/dev/null/tty") << ENOTDIR;
    QTest::newRow("no path") << QByteArray() << ENOENT;
}

void TestTermiosOpening::pathThatIsNoSerialDeviceIsRefused()
{
    QFETCH(QByteArray, path);
    QFETCH(int, error);
    const int before = countOpenDescriptors();
    TermiosComPort port(path.toStdString());
    QCOMPARE(port.open(), error);
    QVERIFY(!port.isOpen());
    QCOMPARE(countOpenDescriptors(), before);
}

void TestTermiosOpening::unpluggingAThousandTimesLeavesNothingOpen()
{
    PseudoTerminal terminal;
    TermiosComPort port(terminal.path());
    terminal.unplug();
    const int before = countOpenDescriptors();

    for (int cycle = 0; cycle < 1000; ++cycle) {
        QVERIFY(terminal.plugIn());
        QCOMPARE(port.open(), 0);
        QVERIFY(terminal.send("V"));
        QCOMPARE(readBytes(port, 1), std::string("V"));
        terminal.unplug();
        QCOMPARE(cycle % 2 == 0 ? port.write("VA\r").error : port.read().error, ENODEV);
        QCOMPARE(countOpenDescriptors(), before); // the dead device is closed at once
        QVERIFY(port.open() != 0);
        QCOMPARE(countOpenDescriptors(), before);
    }
}

QTEST_GUILESS_MAIN(TestTermiosOpening)
#include "TestTermiosOpening.moc"
