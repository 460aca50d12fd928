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
#include <vector>

using namespace pelorin;
using namespace std::chrono_literals;

namespace {

/// Longer than any test may take, on the faster clock too.
constexpr ComPort::Timeouts kLongTimeouts = {100, 1, 600'000, 1, 600'000};
constexpr LineSettings kStreamLine = {38400, 'N', 8, 1};

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
const std::map<std::string, int (*)(TermiosComPort&)> kOperations = {
    {"open", [](TermiosComPort& port) { return port.open(); }},
    {"read", [](TermiosComPort& port) { return port.read().error; }},
    {"write", [](TermiosComPort& port) { return port.write("PROG\r").error; }},
    {"purge", [](TermiosComPort& port) { return port.purge(ComPort::Purge::Both); }},
    {"setLine", [](TermiosComPort& port) { return port.setLine(kStreamLine); }},
    {"setRts", [](TermiosComPort& port) { return port.setRts(true); }},
};

constexpr int kUnplugged = -1; ///< stands for an error: the device goes

/// What an operation reports when one of its calls fails.
int reportedFor(const std::string& call, int error)
{
    if (error == kUnplugged || error == EIO || error == ENXIO)
        return ENODEV;
    if (call == "flock" && error == EAGAIN)
        return EBUSY; // another program's lock
    const bool hasNoModemLines = call == "TIOCMBIS" && (error == ENOTTY || error == EINVAL);
    return error == EINTR || hasNoModemLines ? 0 : error;
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
    void init() { Pacing::setSpeeds({1.0, 1e9, 20.0}); }

    void failingCallIsReportedAndLeavesNothingBehind_data();
    void failingCallIsReportedAndLeavesNothingBehind();

    void randomFaultsLoseNothing();

    void stuckDeviceEndsAWriteAtItsDeadline_data();
    void stuckDeviceEndsAWriteAtItsDeadline();
    void deviceWithoutRoomEndsAWriteAtItsDeadline();
    void stuckWriteThatIsCutShortIsPurged();
    void transmittedBytesAreFlushedOnlyAfterAShortWrite();

    void burstRunsOnOneTimeLine_data();
    void burstRunsOnOneTimeLine();
};

void TestTermiosFaults::failingCallIsReportedAndLeavesNothingBehind_data()
{
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<int>("error");
    QTest::addColumn<int>("fewestCalls");
    const auto rows = [](const char* operation, int fewestCalls, const std::vector<int>& errors) {
        for (const int error : errors) {
            const char* name = error == kUnplugged ? "unplugged" : strerrorname_np(error);
            QTest::addRow("%s: %s", operation, name)
                << QByteArray(operation) << error << fewestCalls;
        }
    };
    const std::vector<int> usual = {kUnplugged, EIO, ENXIO, ENODEV, ENOMEM, EPERM, EFAULT};
    rows("open", 9, usual);
    rows("open", 9, {EINTR, EAGAIN, EACCES, EBUSY, ENOENT, ENOTTY, EINVAL, EMFILE, ENFILE});
    rows("read", 2, usual);
    rows("write", 5, usual);
    rows("purge", 2, usual);
    rows("setLine", 3, usual);
    rows("setRts", 1, usual);
}

/// Each call that the operation makes fails in turn, or the device is unplugged before it.
void TestTermiosFaults::failingCallIsReportedAndLeavesNothingBehind()
{
    QFETCH(QByteArray, operation);
    QFETCH(int, error);
    QFETCH(int, fewestCalls);
    const int before = countOpenDescriptors();
    int step = 0;
    for (std::string failing = "first"; !failing.empty(); ++step) {
        Rig rig;
        const int free = countOpenDescriptors();
        QVERIFY(prepare(rig, operation.toStdString()));
        failing.clear();
        rig.beforeCall(step, [&] {
            failing = rig.calls.made.back();
            if (error != kUnplugged)
                return error;
            rig.terminal.unplug();
            return 0;
        });
        const int result = kOperations.at(operation.toStdString())(rig.port);
        rig.calls.before = nullptr;
        const bool unplugged = !rig.terminal.isPluggedIn();
        const int whole = operation == "setRts" ? ENOTTY : 0; // a pseudo-terminal has no RTS
        const int expected = failing.empty() ? whole : reportedFor(failing, error);
        QVERIFY2(result == expected || (operation == "open" && unplugged && result != 0),
                 qPrintable(QStringLiteral("%1 at %2").arg(result).arg(step)));
        QCOMPARE(rig.port.isOpen(), operation == "open" ? result == 0 : result != ENODEV);
        QCOMPARE(countOpenDescriptors(), unplugged ? before : free + (rig.port.isOpen() ? 2 : 0));

        rig.port.close();
        QVERIFY(!rig.terminal.isExclusive());
        rig.terminal.unplug(); // also what has been sent
        QVERIFY(rig.terminal.plugIn());
        QCOMPARE(rig.port.open(), 0);
        QCOMPARE(rig.port.write("VA\r").written, 3);
        QCOMPARE(rig.terminal.receive(3), std::string("VA\r"));
    }
    QVERIFY2(step > fewestCalls, qPrintable(QString::number(step - 1)));
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

void TestTermiosFaults::stuckWriteThatIsCutShortIsPurged()
{
    Rig rig;
    QCOMPARE(rig.port.open(), 0);
    QCOMPARE(rig.port.setTimeouts(kLongTimeouts), 0);
    rig.calls.queued = [] { return 3; };
    rig.port.beginExchange(1);

    auto writing = std::async(std::launch::async, [&rig] { return rig.port.write("PROG\r"); });
    QCOMPARE(rig.terminal.receive(5), std::string("PROG\r")); // so it waits for them to leave
    rig.port.cutShort(1);

    QCOMPARE(writing.wait_for(10s), std::future_status::ready);
    const auto result = writing.get();
    QCOMPARE(result.error, ECANCELED);
    QCOMPARE(result.written, 2);

    rig.port.beginExchange(2);
    QCOMPARE(rig.port.purge(ComPort::Purge::Both), 0);
    QCOMPARE(rig.calls.count("TCOFLUSH"), 1);
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

    rig.calls.queued = [] { return 3; };
    QCOMPARE(rig.port.write("PROG\r").written, 2);
    rig.calls.made.clear();
    rig.port.close(); // which would wait for stuck output
    QCOMPARE(rig.calls.made.front(), std::string("TCOFLUSH"));
}

void TestTermiosFaults::burstRunsOnOneTimeLine_data()
{
    // 101 frames of five bytes of ten bits.
    QTest::addColumn<int>("baud");
    QTest::addColumn<int>("atOnce");
    QTest::addColumn<int>("microseconds");
    QTest::newRow("frames taken whole") << 4800 << 5 << 1'052'083;
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

QTEST_GUILESS_MAIN(TestTermiosFaults)
#include "TestTermiosFaults.moc"
