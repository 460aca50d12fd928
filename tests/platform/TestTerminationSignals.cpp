#include "platform/core/TerminationSignals.h"

#include <QSignalSpy>
#include <QTest>

#include <cerrno>
#include <csignal>
#include <thread>

using namespace pelorin;

class TestTerminationSignals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void signalBecomesACallFromTheEventLoop();
    void floodOfSignalsLeavesTheInterruptedThreadAlone();
};

void TestTerminationSignals::signalBecomesACallFromTheEventLoop()
{
    const TerminationSignals signals;
    const QSignalSpy received(&signals, &TerminationSignals::received);
    int calls = 0;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGTERM}) {
        QCOMPARE(::raise(signal), 0);
        QCOMPARE(received.size(), calls);
        ++calls;
        QTRY_COMPARE(received.size(), calls);
    }
}

/// Also when nobody reads and the pipe behind it is full.
void TestTerminationSignals::floodOfSignalsLeavesTheInterruptedThreadAlone()
{
    constexpr int kMoreThanAPipeTakes = 65'537;
    const TerminationSignals signals;
    const QSignalSpy received(&signals, &TerminationSignals::received);
    int error = 0;
    std::thread worker([&error] {
        for (int count = 0; count < kMoreThanAPipeTakes; ++count)
            (void)::raise(SIGTERM);
        errno = ENODEV;
        (void)::raise(SIGTERM);
        error = errno;
    });
    worker.join();
    QCOMPARE(error, ENODEV);
    QTRY_COMPARE(received.size(), 1);
}

QTEST_GUILESS_MAIN(TestTerminationSignals)
#include "TestTerminationSignals.moc"
