#include "platform/core/PeriodicTimer.h"
#include "platform/core/RequestEvents.h"

#include <QTest>

#include <atomic>
#include <thread>

using namespace pelorin;
using namespace std::chrono_literals;

class TestRequestEvents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lowestSignalledEventIsServedFirstAndOnce();
    void waitingForOneEventLeavesItSignalled();
    void stoppedTimerNeverTicksAgain();
};

void TestRequestEvents::lowestSignalledEventIsServedFirstAndOnce()
{
    RequestEvents events;
    events.signal(6);
    events.signal(1);
    events.signal(1);
    events.signal(0);

    QCOMPARE(events.waitForAny(), 0);
    QCOMPARE(events.waitForAny(), 1);
    QCOMPARE(events.waitForAny(), 6);
    QVERIFY(!events.waitFor(1, 0ms));
}

void TestRequestEvents::waitingForOneEventLeavesItSignalled()
{
    RequestEvents events;
    events.signal(2);

    QVERIFY(!events.waitFor(6, 1ms));
    QVERIFY(events.waitFor(2, 1ms));
    QVERIFY(events.take(2));
    QVERIFY(!events.take(2));
}

void TestRequestEvents::stoppedTimerNeverTicksAgain()
{
    std::atomic<int> ticks = 0;
    PeriodicTimer timer;
    QCOMPARE(timer.start(1ms, [&ticks] { ++ticks; }), 0);
    QTRY_VERIFY(ticks > 3);

    timer.stop();
    const int ticksAtStop = ticks;
    QTest::qWait(20);
    QCOMPARE(ticks.load(), ticksAtStop);

    QCOMPARE(timer.start(1ms, [&ticks] { ++ticks; }), 0);
    QTRY_VERIFY(ticks > ticksAtStop);
}

QTEST_GUILESS_MAIN(TestRequestEvents)
#include "TestRequestEvents.moc"
