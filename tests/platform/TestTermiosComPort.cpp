#include "platform/core/Pacing.h"
#include "platform/core/TermiosComPort.h"
#include "support/ComPortContract.h"
#include "support/PseudoTerminal.h"

#include <QTest>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/time.h>
#include <unistd.h>

#include <csignal>

using namespace pelorin;
using namespace std::chrono_literals;

namespace {

/// A pseudo-terminal as the peer of a port.
class TerminalPeer : public ComPortPeer
{
public:
    std::unique_ptr<ComPort> makePort() override
    {
        return std::make_unique<TermiosComPort>(m_terminal.path());
    }

    void send(std::string_view bytes) override { QVERIFY(m_terminal.send(bytes)); }
    std::string receive(std::size_t count) override { return m_terminal.receive(count); }
    void vanish() override { m_terminal.unplug(); }
    void comeBack() override { QVERIFY(m_terminal.plugIn()); }

private:
    PseudoTerminal m_terminal;
};

/// Interrupts the system calls of the main thread every millisecond.
class SignalStorm
{
public:
    SignalStorm()
    {
        struct sigaction action = {};
        action.sa_handler = [](int) {};
        sigaction(SIGALRM, &action, nullptr); // without SA_RESTART
        setPeriod(1000);
    }
    SignalStorm(const SignalStorm&) = delete;
    SignalStorm& operator=(const SignalStorm&) = delete;
    ~SignalStorm() { setPeriod(0); }

private:
    static void setPeriod(suseconds_t microseconds)
    {
        const itimerval timer = {{0, microseconds}, {0, microseconds}};
        setitimer(ITIMER_REAL, &timer, nullptr);
    }
};

} // namespace

class TestTermiosComPort : public ComPortContract
{
    Q_OBJECT

    std::unique_ptr<ComPortPeer> makePeer() override { return std::make_unique<TerminalPeer>(); }

private Q_SLOTS:
    void whatAnotherProgramLeftBehindIsReplaced();
    void freshTerminalPassesBytesUnchangedAndWithoutEcho();
    void lineArrivesAtTheDeviceWholeOrNotAtAll_data();
    void lineArrivesAtTheDeviceWholeOrNotAtAll();
    void queuesLargerThanTheSystemsAreRefused();
    void onlyTheProgramMovesRts();
    void purgeReachesOnlyTheReceivingSideAfterACompletedWrite();
    void burstsLoseNothingToThePurgeBehindThem();
    void signalsNeitherShortenNorLengthenASilentRead();
};

void TestTermiosComPort::whatAnotherProgramLeftBehindIsReplaced()
{
    PseudoTerminal terminal;
    const int other = ::open(terminal.path().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios left = terminal.settings();
    left.c_iflag |= IXON | IXOFF | ISTRIP | INLCR | IGNCR;
    left.c_cflag |= CRTSCTS | HUPCL | CSTOPB;
    left.c_cflag &= ~tcflag_t{CLOCAL};
    left.c_cc[VMIN] = 0;
    left.c_cc[VTIME] = 1;
    QCOMPARE(tcsetattr(other, TCSANOW, &left), 0);
    ::close(other);
    QVERIFY(terminal.send("stale"));

    TermiosComPort port(terminal.path());
    QCOMPARE(port.open(), 0);
    const termios found = terminal.settings();
    QCOMPARE(found.c_iflag, tcflag_t{0});
    QCOMPARE(found.c_cflag & (CRTSCTS | HUPCL | CSTOPB | CLOCAL | CREAD), tcflag_t{CLOCAL | CREAD});
    QCOMPARE(int{found.c_cc[VMIN]}, 1);
    QCOMPARE(int{found.c_cc[VTIME]}, 0);
    QVERIFY(!port.read().received);
    QVERIFY(port.isOpen());
}

void TestTermiosComPort::freshTerminalPassesBytesUnchangedAndWithoutEcho()
{
    PseudoTerminal terminal(PseudoTerminal::State::Fresh);
    TermiosComPort port(terminal.path());
    QCOMPARE(port.open(), 0);

    // Line ends, end of file, stop and start, interrupt, erase: what a terminal acts upon.
    const std::string special("\r\n\x04\x11\x13\x03\x7F\xFF\0", 9);
    QVERIFY(terminal.send(special));
    QCOMPARE(readBytes(port, 9), special);
    QCOMPARE(port.write(special).written, 9);
    QCOMPARE(terminal.receive(9), special);
    QCOMPARE(terminal.receive(1, 20ms), std::string());
}

void TestTermiosComPort::lineArrivesAtTheDeviceWholeOrNotAtAll_data()
{
    // A pseudo-terminal takes the speed of all these, and ignores parity and size.
    QTest::addColumn<int>("baud");
    QTest::addColumn<char>("parity");
    QTest::addColumn<int>("dataBits");
    QTest::addColumn<int>("error");
    QTest::newRow("stream") << 38400 << 'N' << 8 << 0;
    QTest::newRow("fast") << 115200 << 'N' << 8 << 0;
    QTest::newRow("even parity") << 38400 << 'E' << 8 << EINVAL;
    QTest::newRow("odd parity") << 38400 << 'O' << 8 << EINVAL;
    QTest::newRow("seven bits") << 38400 << 'N' << 7 << EINVAL;
    QTest::newRow("unknown speed") << 38401 << 'N' << 8 << EINVAL;
    QTest::newRow("the system's code of a speed") << 13 << 'N' << 8 << EINVAL;
}

void TestTermiosComPort::lineArrivesAtTheDeviceWholeOrNotAtAll()
{
    QFETCH(int, baud);
    QFETCH(char, parity);
    QFETCH(int, dataBits);
    QFETCH(int, error);
    PseudoTerminal terminal;
    TermiosComPort port(terminal.path());
    QCOMPARE(port.open(), 0);
    QCOMPARE(terminal.speed(), 4800);

    QCOMPARE(port.setLine({baud, parity, dataBits, 1}), error);
    QCOMPARE(terminal.speed(), error == 0 ? baud : 4800);
    QCOMPARE(port.setLine({4800, 'N', 8, 1}), 0);
    QCOMPARE(terminal.speed(), 4800);
}

void TestTermiosComPort::queuesLargerThanTheSystemsAreRefused()
{
    PseudoTerminal terminal;
    TermiosComPort port(terminal.path());
    QCOMPARE(port.open(), 0);
    QCOMPARE(port.setQueueSizes(128, 5000), EINVAL);
    QCOMPARE(port.setQueueSizes(5000, 128), EINVAL);
    QCOMPARE(port.setQueueSizes(-1, 128), EINVAL);
}

void TestTermiosComPort::onlyTheProgramMovesRts()
{
    auto calls = PosixCalls::real();
    int lines = 0;
    calls.ioctl = [&lines, real = calls.ioctl](int fd, unsigned long request, int* argument) {
        if (request != TIOCMBIS && request != TIOCMBIC)
            return real(fd, request, argument);
        lines = request == TIOCMBIS ? lines | *argument : lines & ~*argument;
        return 0;
    };
    PseudoTerminal terminal;
    TermiosComPort port(terminal.path(), calls);
    QCOMPARE(port.open(), 0);
    QCOMPARE(lines, TIOCM_DTR | TIOCM_RTS);

    QCOMPARE(port.setRts(false), 0);
    QCOMPARE(port.write("PROG\r").written, 5);
    QCOMPARE(port.purge(ComPort::Purge::Both), 0);
    QCOMPARE(port.setLine({38400, 'N', 8, 1}), 0);
    QVERIFY(!port.read().received);
    QCOMPARE(lines, TIOCM_DTR);

    QCOMPARE(port.setRts(true), 0);
    port.close();
    QCOMPARE(lines, TIOCM_DTR | TIOCM_RTS);

    TermiosComPort withoutRts(terminal.path());
    QCOMPARE(withoutRts.open(), 0);
    QCOMPARE(withoutRts.setRts(true), ENOTTY);
    QVERIFY(withoutRts.isOpen());
}

void TestTermiosComPort::purgeReachesOnlyTheReceivingSideAfterACompletedWrite()
{
    using Purges = PseudoTerminal::Purges;
    PseudoTerminal terminal;
    TermiosComPort port(terminal.path());
    QVERIFY(terminal.reportPurges());
    QCOMPARE(port.open(), 0);
    QCOMPARE(terminal.takePurges(), (Purges{true, false}));

    for (const auto what : {ComPort::Purge::Receive, ComPort::Purge::Both}) {
        QCOMPARE(port.write("VA\r").written, 3);
        QCOMPARE(terminal.takePurges(), (Purges{false, false}));
        QCOMPARE(port.purge(what), 0);
        QCOMPARE(terminal.takePurges(), (Purges{true, false}));
    }
    QCOMPARE(terminal.receive(6), std::string("VA\rVA\r"));
    port.close();
    QCOMPARE(terminal.takePurges(), (Purges{false, false}));
}

void TestTermiosComPort::burstsLoseNothingToThePurgeBehindThem()
{
    PseudoTerminal terminal;
    TermiosComPort port(terminal.path());
    QCOMPARE(port.open(), 0);
    QCOMPARE(port.setLine({115200, 'N', 8, 1}), 0);

    std::string expected;
    for (int frame = 0; frame < 101; ++frame)
        expected += "PROG\r";
    for (int burst = 0; burst < 100; ++burst) {
        for (int frame = 0; frame < 101; ++frame)
            QCOMPARE(port.write("PROG\r").written, 5);
        QCOMPARE(port.purge(ComPort::Purge::Both), 0);
        QCOMPARE(terminal.receive(505), expected);
    }
}

void TestTermiosComPort::signalsNeitherShortenNorLengthenASilentRead()
{
    auto calls = PosixCalls::real();
    int interruptions = 0;
    calls.poll = [&, real = calls.poll](pollfd* entries, nfds_t count,
                                        std::chrono::nanoseconds limit) {
        const int ready = real(entries, count, limit);
        interruptions += ready < 0 && errno == EINTR ? 1 : 0;
        return ready;
    };
    PseudoTerminal terminal;
    TermiosComPort port(terminal.path(), calls);
    const SignalStorm storm;
    QCOMPARE(port.open(), 0);
    Pacing::setSpeeds({}); // the true 501 ms

    auto shortest = std::chrono::nanoseconds(1h);
    for (int attempt = 0; attempt < 3 && shortest > 601ms; ++attempt) {
        const auto start = std::chrono::steady_clock::now();
        const auto result = port.read();
        const auto elapsed = std::chrono::steady_clock::now() - start;
        QCOMPARE(result.error, 0);
        QVERIFY(!result.received);
        QVERIFY(elapsed >= 501ms);
        shortest = std::min<std::chrono::nanoseconds>(shortest, elapsed);
    }
    QVERIFY(shortest <= 601ms);
    QVERIFY2(interruptions > 50, qPrintable(QString::number(interruptions)));
    QCOMPARE(port.write("PROG\r").written, 5);
    QCOMPARE(terminal.receive(5), std::string("PROG\r"));
}

QTEST_GUILESS_MAIN(TestTermiosComPort)
#include "TestTermiosComPort.moc"
