#include "platform/core/RequestWorker.h"

#include "platform/core/Pacing.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedDisplayUnit.h"
#include "support/MessageCollector.h"
#include "support/PortDecorator.h"

#include <QTest>

#include <sys/resource.h>

using namespace pelorin;
using Context = RequestWorker::Context;

namespace {

const RequestWorker::Job kWait = [](auto& context) { return context.pause(std::chrono::hours(1)); };
const RequestWorker::Job kRead = [](Context& context) { return context.port().read().error == 0; };
const RequestWorker::Job kSucceed = [](Context& /*context*/) { return 1; };

} // namespace

class TestRequestWorker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        Pacing::setSpeeds({1, 1, 0.01}); // a read waits for 50 seconds
        m_worker = std::make_unique<RequestWorker>();
        m_window = std::make_unique<MessageCollector>();
        m_worker->setReplyTarget(m_window.get(), 1);
    }

    void lowestKindIsPerformedFirst()
    {
        std::string order; // the worker's until the last one is answered
        const auto note = [&](char kind) { return [&, kind](auto&) { return order += kind, 1; }; };
        QCOMPARE(await(start()), 1);
        const RequestId running = m_worker->submit(1, kWait);
        const RequestId last = m_worker->submit(9, note('9'));
        for (int i = 0; i < 2; ++i)
            m_worker->tick(4, note('4'));
        (void)m_worker->submit(2, note('2'));
        m_worker->cutShort(running);
        QCOMPARE(await(last), 1);
        QCOMPARE(order, std::string("249"));
    }

    void everyRequestIsAnsweredOnce()
    {
        const RequestId refused = start(0);
        QCOMPARE(await(m_worker->submit(1, kSucceed)) + await(refused), 0);
        QVERIFY(!m_worker->isRunning());
        QCOMPARE(await(start()), 1);
        const RequestId running = m_worker->submit(1, kWait), replaced = m_worker->submit(2, kWait);
        const RequestId waiting = m_worker->submit(2, kWait), stop = m_worker->stop();
        const RequestId again = m_worker->stop(), late = m_worker->submit(1, kSucceed);
        for (const RequestId request : {running, replaced, waiting, late})
            QCOMPARE(await(request), 0);
        for (const RequestId request : {stop, again, m_worker->stop()})
            QCOMPARE(await(request), 1);
        QCOMPARE(m_window->messages().size(), std::size_t{10});
    }

    /// One that waits, too, whatever is performed before it.
    void requestIsCutShort()
    {
        QCOMPARE(await(start()), 1);
        for (const auto& job : {kWait, kRead}) {
            const RequestId running = m_worker->submit(1, job), waiting = m_worker->submit(9, job);
            for (const RequestId request : {waiting, running, m_worker->submit(2, job)})
                m_worker->cutShort(request);
            QCOMPARE(await(running) + await(waiting), 0);
        }
    }

    void portThatDoesNotCloseIsLeft()
    {
        Pacing::setSpeeds({1, 1, 2}); // the limit is half a second
        QCOMPARE(await(start()), 1);
        QCOMPARE(await(m_worker->stop()), 1);
        QCOMPARE(await(start()), 1);
        QTest::qWait(700);
        QVERIFY(m_worker->isRunning()); // the limit of the first stop is none of the second run
        std::unique_lock closing(*m_closing);
        (void)m_worker->submit(1, kWait);
        const RequestId waiting = m_worker->submit(2, kWait);
        QCOMPARE(await(m_worker->stop()) + await(waiting), 0);
        QVERIFY(!m_worker->isRunning());
        closing.unlock(); // it lets the device go some time
        QVERIFY(QTest::qWaitFor([this] { return await(start()) == 1; }, 30'000));
    }

    void deviceThatGoesIsNoticedOnce()
    {
        QCOMPARE(await(start()), 1);
        m_unit->vanish();
        QTRY_COMPARE_WITH_TIMEOUT(m_gone.load(), 1, 30'000);
        QCOMPARE(await(m_worker->submit(1, kSucceed)), 1);
        QCOMPARE(m_gone.load(), 1); // though nobody has told the port
    }

    void programWithoutDescriptorsGoesOn()
    {
        rlimit before{};
        QCOMPARE(getrlimit(RLIMIT_NOFILE, &before), 0);
        const rlimit none{3, before.rlim_max};
        QCOMPARE(setrlimit(RLIMIT_NOFILE, &none), 0);
        init();
        const RequestId opening = start();
        QCOMPARE(setrlimit(RLIMIT_NOFILE, &before), 0);
        QCOMPARE(await(opening), 0);
    }

private:
    RequestId start(int opened = 1)
    {
        auto port =
            std::make_unique<test::HeldPort>(std::make_unique<SimulatedComPort>(m_unit), m_closing);
        const auto open = [opened](auto& context) { return context.port().open() ? 0 : opened; };
        int error = 0;
        return m_worker->start(
            std::move(port), open, [this](auto&) { return ++m_gone; }, error);
    }
    int await(RequestId request)
    {
        (void)QTest::qWaitFor([&] { return m_window->resultOf(request) >= 0; }, 30000);
        return m_window->resultOf(request);
    }

    const std::shared_ptr<SimulatedDevice> m_unit = std::make_shared<SimulatedDisplayUnit>();
    const std::shared_ptr<std::mutex> m_closing = std::make_shared<std::mutex>();
    std::atomic<int> m_gone = 0;
    std::unique_ptr<MessageCollector> m_window;
    std::unique_ptr<RequestWorker> m_worker;
};

QTEST_GUILESS_MAIN(TestRequestWorker)
#include "TestRequestWorker.moc"
