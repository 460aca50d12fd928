#include "platform/core/Pacing.h"
#include "platform/core/TermiosComPort.h"
#include "support/FaultyCalls.h"
#include "support/OpenDescriptors.h"
#include "support/PseudoTerminal.h"

#include <QTest>

#include <cerrno>
#include <cstring>
#include <future>
#include <map>
#include <random>
#include <thread>

using namespace pelorin;
using namespace std::chrono_literals;

namespace {

/// Longer than any test may take, on the faster clock too.
constexpr ComPort::Timeouts kLongTimeouts = {100, 1, 600'000, 1, 600'000};

/// A port on a device of its own, whose system calls can be made to fail.
struct Rig
{
    PseudoTerminal terminal;
    FaultyCalls calls;
    TermiosComPort port{terminal.path(), calls.table()};

    /// Acts before the given call from now, 0 for the next, and lets it fail if the action says so.
    void beforeCall(int number, const std::function<int()>& action)
    {
        calls.before = [number, action](const std::string&) mutable {
            return number-- == 0 ? action() : 0;
        };
    }
};

/// The operations of a port and the error that each ends with.
const std::map<std::string, int (*)(Rig&)>& operations()
{
    static const std::map<std::string, int (*)(Rig&)> table = {
        {"open", [](Rig& rig) { return rig.port.open(); }},
        {"read", [](Rig& rig) { return rig.port.read().error; }},
        {"write", [](Rig& rig) { return rig.port.write("PROG\r").error; }},
        {"purge", [](Rig& rig) { return rig.port.purge(ComPort::Purge::Both); }},
        {"setLine",
         [](Rig& rig) {
             return rig.port.setLine({38400, 'N', 8, 1});
         }},
        {"setRts", [](Rig& rig) { return rig.port.setRts(true); }},
    };
    return table;
}

/// Brings a port to where the operation has most to do, and forgets the calls so far.
bool prepare(Rig& rig, const std::string& operation)
{
    bool ready = operation == "open" || rig.port.open() == 0;
    if (operation == "read")
        ready = ready && rig.port.setTimeouts(kLongTimeouts) == 0 && rig.terminal.send("V");
    if (operation == "purge") { // what a stuck write left behind
        rig.calls.queued = [] { return 5; };
        ready = ready && rig.port.write("PROG\r").written == 0;
        rig.calls.queued = nullptr;
    }
    rig.calls.made.clear();
    return ready;
}

} // namespace

class TestTermiosFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void failingCallIsReportedByItsOperation_data();
    void failingCallIsReportedByItsOperation();
    void unpluggingInsideAnyCallIsNoticed_data();
    void unpluggingInsideAnyCallIsNoticed();

    void randomFaultsLoseNothing();

    void stuckDeviceEndsAWriteAtItsDeadline_data();
    void stuckDeviceEndsAWriteAtItsDeadline();
    void deviceWithoutRoomEndsAWriteAtItsDeadline();
    void interruptEndsAStuckWrite();
    void transmittedBytesAreFlushedOnlyAfterAShortWrite();
    void stuckOutputIsDiscardedBeforeClosing();
    void deviceIsAskedToDrainOnlyWhenNothingIsQueued();

    void burstRunsOnOneTimeLine_data();
    void burstRunsOnOneTimeLine();
    void interruptedWaitsKeepTheDeadline();
};

void TestTermiosFaults::init()
{
    Pacing::setSpeeds({1.0, 1e9, 20.0});
}

void TestTermiosFaults::failingCallIsReportedByItsOperation_data()
{
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<int>("error");
    QTest::addColumn<int>("reported");
    for (const auto& [name, operation] : operations()) {
        if (name == "open")
            continue;
        for (const int error : {EIO, ENXIO, ENODEV, ENOMEM, EPERM, EFAULT}) {
            const bool gone = error == EIO || error == ENXIO;
            QTest::addRow("%s: %s", name.c_str(), strerrorname_np(error))
                << QByteArray::fromStdString(name) << error << (gone ? ENODEV : error);
        }
    }
}

void TestTermiosFaults::failingCallIsReportedByItsOperation()
{
    QFETCH(QByteArray, operation);
    QFETCH(int, error);
    QFETCH(int, reported);
    const auto perform = operations().at(operation.toStdString());

    int steps = 1;
    for (int step = 0; step < steps; ++step) {
        Rig rig;
        QVERIFY(prepare(rig, operation.toStdString()));
        const int before = countOpenDescriptors();
        bool failed = false;
        rig.beforeCall(step, [&] {
            failed = true;
            return error;
        });
        const int result = perform(rig);
        if (!failed)
            continue;
        ++steps;
        QCOMPARE(result, reported);
        QCOMPARE(rig.port.isOpen(), reported != ENODEV);
        QCOMPARE(countOpenDescriptors(), reported == ENODEV ? before - 2 : before);
    }
    QVERIFY(steps > 1);
}

void TestTermiosFaults::unpluggingInsideAnyCallIsNoticed_data()
{
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<int>("fewestCalls");
    QTest::newRow("open") << QByteArray("open") << 9;
    QTest::newRow("read") << QByteArray("read") << 2;
    QTest::newRow("write") << QByteArray("write") << 5;
    QTest::newRow("purge") << QByteArray("purge") << 2;
    QTest::newRow("setLine") << QByteArray("setLine") << 3;
    QTest::newRow("setRts") << QByteArray("setRts") << 1;
}

void TestTermiosFaults::unpluggingInsideAnyCallIsNoticed()
{
    QFETCH(QByteArray, operation);
    QFETCH(int, fewestCalls);
    const auto perform = operations().at(operation.toStdString());
    const int before = countOpenDescriptors();

    int steps = 1;
    for (int step = 0; step < steps; ++step) {
        Rig rig;
        QVERIFY(prepare(rig, operation.toStdString()));
        rig.beforeCall(step, [&rig] {
            rig.terminal.unplug();
            return 0;
        });
        const int result = perform(rig);
        if (rig.terminal.isPluggedIn())
            continue;
        ++steps;
        QVERIFY(operation == "open" ? result != 0 : result == ENODEV);
        QVERIFY(!rig.port.isOpen());
        QCOMPARE(countOpenDescriptors(), before);

        QVERIFY(rig.terminal.plugIn());
        QCOMPARE(rig.port.open(), 0);
        QCOMPARE(rig.port.write("VA\r").written, 3);
        QCOMPARE(rig.terminal.receive(3), std::string("VA\r"));
    }
    QVERIFY2(steps > fewestCalls, qPrintable(QString::number(steps - 1)));
}

void TestTermiosFaults::randomFaultsLoseNothing()
{
    Rig rig;
    QCOMPARE(rig.port.open(), 0);
    QCOMPARE(rig.port.setTimeouts(kLongTimeouts), 0);
    std::mt19937 random(20'240'229);
    const auto chance = [&random](unsigned int perThousand) {
        return random() % 1000 < perThousand;
    };
    rig.calls.before = [&](const std::string& name) {
        rig.calls.made.clear();
        if (chance(name == "tcdrain" ? 10 : 200)) // a drain is not repeated at once
            return EINTR;
        const bool mayBeRefused = name == "read" || name == "write";
        return mayBeRefused && chance(5) ? EAGAIN : 0;
    };
    rig.calls.sizeOfWrite = [&random](std::size_t size) { return 1 + random() % size; };

    for (int frame = 0; frame < 10'000; ++frame) {
        std::string bytes(1 + random() % 12, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        const auto result = rig.port.write(bytes);
        QCOMPARE(result.error, 0);
        QCOMPARE(result.written, static_cast<int>(bytes.size()));
        QVERIFY(rig.terminal.receive(bytes.size()) == bytes);

        QVERIFY(rig.terminal.send(bytes));
        for (const char byte : bytes) {
            const auto answer = rig.port.read();
            QVERIFY(answer.received);
            QCOMPARE(answer.byte, byte);
        }
    }
}

void TestTermiosFaults::stuckDeviceEndsAWriteAtItsDeadline_data()
{
    QTest::addColumn<int>("queued");
    QTest::addColumn<int>("written");
    QTest::newRow("in the middle of the frame") << 3 << 2;
    QTest::newRow("before the frame") << 5 << 0;
    QTest::newRow("with older bytes before the frame") << 70 << 0;
}

void TestTermiosFaults::stuckDeviceEndsAWriteAtItsDeadline()
{
    QFETCH(int, queued);
    QFETCH(int, written);
    Rig rig;
    QCOMPARE(rig.port.open(), 0);
    rig.calls.queued = [queued] { return queued; };

    const auto start = std::chrono::steady_clock::now();
    const auto result = rig.port.write("PROG\r");
    QVERIFY(std::chrono::steady_clock::now() - start >= 50ms); // 1005 ms, twenty times as fast
    QCOMPARE(result.error, 0);
    QCOMPARE(result.written, written);
    QCOMPARE(rig.calls.count("tcdrain"), 0);
    QVERIFY(rig.calls.count("TIOCOUTQ") < 70); // asked once a millisecond
    QVERIFY(rig.port.isOpen());
}

void TestTermiosFaults::deviceWithoutRoomEndsAWriteAtItsDeadline()
{
    Rig rig;
    QCOMPARE(rig.port.open(), 0);
    rig.calls.sizeOfWrite = [](std::size_t) { return std::size_t{2}; };
    rig.calls.before = [&rig](const std::string& name) {
        return name == "write" && rig.calls.count("write") > 1 ? EAGAIN : 0;
    };

    const auto result = rig.port.write("PROG\r");
    QCOMPARE(result.error, 0);
    QCOMPARE(result.written, 2);
    QCOMPARE(rig.calls.count("tcdrain"), 0);
    QVERIFY(rig.calls.count("write") < 70); // the device claims to have room all the time
}

void TestTermiosFaults::interruptEndsAStuckWrite()
{
    Rig rig;
    QCOMPARE(rig.port.open(), 0);
    QCOMPARE(rig.port.setTimeouts(kLongTimeouts), 0);
    rig.calls.queued = [] { return 3; };

    auto writing = std::async(std::launch::async, [&rig] { return rig.port.write("PROG\r"); });
    QCOMPARE(rig.terminal.receive(5), std::string("PROG\r")); // so it waits for them to leave
    rig.port.interrupt();

    QCOMPARE(writing.wait_for(10s), std::future_status::ready);
    const auto result = writing.get();
    QCOMPARE(result.error, ECANCELED);
    QCOMPARE(result.written, 2);
}

void TestTermiosFaults::transmittedBytesAreFlushedOnlyAfterAShortWrite()
{
    Rig rig;
    QCOMPARE(rig.port.open(), 0);
    QCOMPARE(rig.port.write("PROG\r").written, 5);
    QCOMPARE(rig.port.purge(ComPort::Purge::Both), 0);
    QCOMPARE(rig.calls.count("TCOFLUSH"), 0);

    rig.calls.queued = [] { return 3; };
    QCOMPARE(rig.port.write("PROG\r").written, 2);
    rig.calls.queued = nullptr;
    QCOMPARE(rig.port.purge(ComPort::Purge::Receive), 0);
    QCOMPARE(rig.calls.count("TCOFLUSH"), 0);
    for (int purge = 0; purge < 2; ++purge) {
        QCOMPARE(rig.port.purge(ComPort::Purge::Both), 0);
        QCOMPARE(rig.calls.count("TCOFLUSH"), 1);
    }

    QCOMPARE(rig.port.write("PROG\r").written, 5);
    QCOMPARE(rig.port.purge(ComPort::Purge::Both), 0);
    QCOMPARE(rig.calls.count("TCOFLUSH"), 1);
    QCOMPARE(rig.calls.count("TCIOFLUSH"), 0);
}

void TestTermiosFaults::stuckOutputIsDiscardedBeforeClosing()
{
    Rig rig;
    QCOMPARE(rig.port.open(), 0);
    rig.calls.queued = [] { return 3; };
    QCOMPARE(rig.port.write("PROG\r").written, 2);

    rig.calls.made.clear();
    rig.port.close();
    QCOMPARE(rig.calls.made.front(), std::string("TCOFLUSH"));
    QCOMPARE(rig.calls.count("close"), 2);
}

void TestTermiosFaults::deviceIsAskedToDrainOnlyWhenNothingIsQueued()
{
    Rig rig;
    QCOMPARE(rig.port.open(), 0);
    int left = 5;
    rig.calls.queued = [&left] { return --left; };

    QCOMPARE(rig.port.write("PROG\r").written, 5);
    QCOMPARE(left, 0);
    QCOMPARE(rig.calls.count("TIOCOUTQ"), 5);
    QCOMPARE(rig.calls.count("tcdrain"), 1);
}

void TestTermiosFaults::burstRunsOnOneTimeLine_data()
{
    // 101 frames of five bytes of ten bits.
    QTest::addColumn<int>("baud");
    QTest::addColumn<int>("atOnce");
    QTest::addColumn<int>("microseconds");
    QTest::newRow("frames taken whole") << 4800 << 5 << 1'052'083;
    QTest::newRow("frames taken in two pieces") << 4800 << 3 << 1'052'083;
    QTest::newRow("frames taken byte by byte") << 4800 << 1 << 1'052'083;
    QTest::newRow("on the fast line") << 38400 << 5 << 131'510;
}

void TestTermiosFaults::burstRunsOnOneTimeLine()
{
    QFETCH(int, baud);
    QFETCH(int, atOnce);
    QFETCH(int, microseconds);
    Pacing::setSpeeds({});
    // A clock that only waiting moves, and every wait a tenth of a millisecond too far.
    PseudoTerminal terminal;
    auto calls = PosixCalls::real();
    PosixCalls::TimePoint now;
    calls.now = [&now] { return now; };
    calls.poll = [&now, real = calls.poll](pollfd* entries, nfds_t count,
                                           std::chrono::nanoseconds limit) {
        const int ready = real(entries, count, 0ns);
        if (ready == 0)
            now += limit + 100us;
        return ready;
    };
    calls.write = [atOnce, real = calls.write](int fd, const void* bytes, std::size_t size) {
        return real(fd, bytes, std::min(size, static_cast<std::size_t>(atOnce)));
    };
    TermiosComPort port(terminal.path(), calls);
    QCOMPARE(port.open(), 0);
    QCOMPARE(port.setLine({baud, 'N', 8, 1}), 0);

    for (int frame = 0; frame < 101; ++frame)
        QCOMPARE(port.write("PROG\r").written, 5);
    const auto elapsed = now.time_since_epoch();
    QVERIFY(elapsed >= std::chrono::microseconds(microseconds));
    QVERIFY(elapsed <= std::chrono::microseconds(microseconds + 1) + 101 * 100us);
}

void TestTermiosFaults::interruptedWaitsKeepTheDeadline()
{
    Pacing::setSpeeds({});
    // Every wait is interrupted by a signal after at most 7 ms.
    PseudoTerminal terminal;
    auto calls = PosixCalls::real();
    PosixCalls::TimePoint now;
    calls.now = [&now] { return now; };
    calls.poll = [&now](pollfd*, nfds_t, std::chrono::nanoseconds limit) {
        now += std::min<std::chrono::nanoseconds>(limit, 7ms);
        errno = EINTR;
        return limit > 7ms ? -1 : 0;
    };
    TermiosComPort port(terminal.path(), calls);
    QCOMPARE(port.open(), 0);

    const auto result = port.read();
    QCOMPARE(result.error, 0);
    QVERIFY(!result.received);
    QVERIFY(now.time_since_epoch() == 501ms);
}

QTEST_GUILESS_MAIN(TestTermiosFaults)
#include "TestTermiosFaults.moc"
