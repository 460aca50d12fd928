#include "link/SensorLink.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/Pacing.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedSensor.h"
#include "support/LogLines.h"
#include "support/MessageCollector.h"
#include "support/NoThreads.h"
#include "support/PortDecorator.h"
#include "support/TestRegistry.h"

#include <QElapsedTimer>
#include <QTest>

using namespace pelorin;
using namespace std::chrono_literals;

namespace {

enum class Fault { None, Line, Timeouts, Queues, CutWrites };

/// A port that refuses one step of its configuration, or whose frames never leave whole.
class FaultyPort final : public test::PortDecorator
{
public:
    FaultyPort(std::shared_ptr<SimulatedSensor> sensor, Fault fault)
        : PortDecorator(std::make_unique<SimulatedComPort>(std::move(sensor))), m_fault(fault)
    {
    }

    int setLine(const LineSettings& line) override
    {
        return m_fault == Fault::Line ? EINVAL : PortDecorator::setLine(line);
    }
    int setTimeouts(const Timeouts& timeouts) override
    {
        return m_fault == Fault::Timeouts ? EINVAL : PortDecorator::setTimeouts(timeouts);
    }
    int setQueueSizes(int receive, int transmit) override
    {
        return m_fault == Fault::Queues ? EINVAL : PortDecorator::setQueueSizes(receive, transmit);
    }
    WriteResult write(std::string_view bytes) override
    {
        return PortDecorator::write(m_fault == Fault::CutWrites ? bytes.substr(0, 2) : bytes);
    }

private:
    Fault m_fault;
};

} // namespace

class TestSensorLink : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void connectIdentifiesEachType_data();
    void connectIdentifiesEachType();
    void connectWithoutBoundsFailsButKeepsTheVersion();
    void requestWithoutWorkerFailsAtOnce();
    void connectIsServedBeforeRead();
    void nothingIsPostedWithoutATarget();

    void lostPortIsCountedOnceAndWriteStillReportsSuccess();
    void cutFrameIsCountedButLosesNoPort();
    void closeTakesBackUndeliveredLossReports();
    void closeCutsAConnectShortAndAnswersWhatWasRequested();
    void windowMayGoWhileTheWorkerPosts();

    void openLeavesARunningWorkersPortAlone();
    void refusedConfigurationClosesThePort_data();
    void refusedConfigurationClosesThePort();
    void missingPortIsShownOnlyWhenAsked();
    void threadThatCannotBeStartedIsReported();

    void keepAliveRunsBesideReads();
    void positionsComeFromTheStream();

private:
    [[nodiscard]] int await(RequestId request);
    [[nodiscard]] QStringList logged() { return test::logLines(m_link->commLog()); }
    [[nodiscard]] bool connectSensor();
    void makeSensor(int type);

    std::unique_ptr<TestRegistry> m_registry;
    std::shared_ptr<SimulatedSensor> m_sensor;
    Fault m_fault = Fault::None;
    std::unique_ptr<ComPortFactory> m_factory;
    std::unique_ptr<MessageCollector> m_window;
    std::unique_ptr<SensorLink> m_link;
    QStringList m_shown;
};

void TestSensorLink::init()
{
    Pacing::setSpeeds({100, 100, 5});
    m_registry.reset();
    m_registry = std::make_unique<TestRegistry>(kSimulatedBounds);
    m_fault = Fault::None;
    m_shown.clear();
    makeSensor(2);
    m_factory = std::make_unique<ComPortFactory>(
        [this](const QString&) { return std::make_unique<FaultyPort>(m_sensor, m_fault); });
    m_window = std::make_unique<MessageCollector>();
    m_link = std::make_unique<SensorLink>(*m_factory);
    m_link->setErrorPresenter([this](const QString& text) { m_shown << text; });
    m_link->setReplyTarget(m_window.get(), WM_LINK_REPLY);
    m_link->setLossTarget(m_window.get());
}

void TestSensorLink::cleanup()
{
    m_link.reset();
    m_window.reset();
}

void TestSensorLink::makeSensor(int type)
{
    m_sensor = std::make_shared<SimulatedSensor>(SimulatedSensor::Options{.type = type});
}

/// The result of a request, -1 if it is not answered in time.
int TestSensorLink::await(RequestId request)
{
    (void)QTest::qWaitFor([&] { return m_window->resultOf(request) >= 0; });
    return m_window->resultOf(request);
}

bool TestSensorLink::connectSensor()
{
    return m_link->open(7, 1) == 1 && await(m_link->requestConnect()) == 1;
}

void TestSensorLink::connectIdentifiesEachType_data()
{
    QTest::addColumn<int>("type");
    for (const int type : {0, 1, 2})
        QTest::addRow("type %d", type) << type;
}

void TestSensorLink::connectIdentifiesEachType()
{
    QFETCH(int, type);
    makeSensor(type);
    QVERIFY(connectSensor());

    QCOMPARE(m_link->ssiType(), type);
    QVERIFY(m_link->isIdentified());
    QCOMPARE(m_link->portNumber(), 7);
    QCOMPARE(logged().back(), QStringLiteral("SSI Type: %1").arg(type));

    QCOMPARE(await(m_link->requestRead('D')), 1);
    QCOMPARE(m_link->lastReply(), QByteArray::fromStdString(m_sensor->parameter('D')));
    QCOMPARE(await(m_link->requestRead('X')), 0);
    QCOMPARE(m_link->lastReply(), QByteArray());

    m_link->close(1);
    QVERIFY(!m_link->isIdentified());
    QCOMPARE(m_sensor->mode(), SimulatedSensor::Mode::Off);
}

void TestSensorLink::connectWithoutBoundsFailsButKeepsTheVersion()
{
    m_registry->write(QByteArray());
    QCOMPARE(m_link->open(7, 1), 1);
    QCOMPARE(await(m_link->requestConnect()), 0);

    QCOMPARE(m_link->versionText(), QByteArray::fromStdString(m_sensor->parameter('V')));
    QCOMPARE(m_link->ssiType(), 3);
    QVERIFY(!m_link->isIdentified());
    QCOMPARE(logged().back(), QStringLiteral("SSY Type: Unknown"));
}

void TestSensorLink::requestWithoutWorkerFailsAtOnce()
{
    const auto before = m_sensor->parameter('D');
    QCOMPARE(await(m_link->requestRead('D')), 0);
    QCOMPARE(await(m_link->requestWrite('D', "123456")), 0);

    QVERIFY(connectSensor());
    QCOMPARE(await(m_link->requestWrite('C', QByteArray())), 1);
    QCOMPARE(m_sensor->parameter('D'), before);
}

void TestSensorLink::connectIsServedBeforeRead()
{
    Pacing::setSpeeds({1, 100, 5}); // the first connect lasts while the others are requested
    QCOMPARE(m_link->open(7, 1), 1);
    m_link->requestConnect();
    const auto read = m_link->requestRead('D');
    const auto connect = m_link->requestConnect();
    QCOMPARE(await(read), 1);
    QCOMPARE(m_window->messages().back().request, read);
    QVERIFY(m_window->resultOf(connect) >= 0);
}

void TestSensorLink::nothingIsPostedWithoutATarget()
{
    QVERIFY(connectSensor());
    const auto posted = m_window->messages().size();
    m_link->setReplyTarget(nullptr, 0);
    m_link->requestWrite('D', "020018");
    QTRY_VERIFY(logged().back().startsWith(QStringLiteral("TX: [44][Set]")));
    m_link->close();
    QCoreApplication::processEvents();
    QCOMPARE(m_window->messages().size(), posted);
}

void TestSensorLink::lostPortIsCountedOnceAndWriteStillReportsSuccess()
{
    QVERIFY(connectSensor());
    m_sensor->vanish();
    QCOMPARE(await(m_link->requestWrite('E', QByteArray())), 1);

    QCOMPARE(m_link->linkFailed(), 1);
    QCOMPARE(m_link->lossCount(), 1);
    QVERIFY(!m_link->isIdentified());
    QCOMPARE(m_window->count(WM_LINK_LOST), 2); // the purge and the write

    m_link->close();
    m_sensor->comeBack();
    QVERIFY(connectSensor());
    QCOMPARE(m_link->linkFailed(), 0);
    QCOMPARE(m_link->lossCount(), 1);
    QVERIFY(m_link->isIdentified());
}

void TestSensorLink::cutFrameIsCountedButLosesNoPort()
{
    m_fault = Fault::CutWrites;
    QCOMPARE(m_link->open(7, 1), 1);
    QCOMPARE(await(m_link->requestWrite('D', "020018")), 1);

    QCOMPARE(logged(), QStringList(QStringLiteral("Byte count mismatch in WriteFile. Wrote = 2, "
                                                  "Correct = 9,Error = 0")));
    QCOMPARE(m_link->lossCount(), 1); // who wrote is told that the sensor lacks it
    QCOMPARE(m_link->linkFailed(), 0);
    QCOMPARE(m_window->count(WM_LINK_LOST), 0);
}

void TestSensorLink::closeTakesBackUndeliveredLossReports()
{
    QCOMPARE(m_link->open(7, 1), 1);
    m_sensor->vanish();
    m_link->requestConnect();
    while (m_link->linkFailed() == 0)
        std::this_thread::sleep_for(1ms); // delivers nothing
    m_link->close();
    QCoreApplication::processEvents();
    QCOMPARE(m_window->count(WM_LINK_LOST), 0);
    QCOMPARE(m_link->lossCount(), 1);
}

void TestSensorLink::closeCutsAConnectShortAndAnswersWhatWasRequested()
{
    Pacing::setSpeeds({1, 1, 1});
    QCOMPARE(m_link->open(7, 1), 1);
    const auto connect = m_link->requestConnect();
    const auto write = m_link->requestWrite('D', "111111");
    QTRY_VERIFY(m_sensor->progFrames() > 2); // one of the hundred frames is on the line

    QElapsedTimer timer;
    timer.start();
    m_link->close();
    QVERIFY(timer.elapsed() < 500);
    QCOMPARE(await(connect), 0);
    QCOMPARE(await(write), 0);
    QCOMPARE(m_link->linkFailed(), 0);
    for (const auto& frame : m_sensor->takeReceivedFrames())
        QCOMPARE(frame, std::string("PROG"));
    QCOMPARE(m_link->open(7, 1), 1); // the worker has given the port back
}

void TestSensorLink::windowMayGoWhileTheWorkerPosts()
{
    QVERIFY(connectSensor());
    for (int round = 0; round < 200; ++round) {
        m_link->requestWrite('D', "020018");
        m_link->setReplyTarget(nullptr, 0);
        m_link->setLossTarget(nullptr);
        m_window = std::make_unique<MessageCollector>();
        m_link->setReplyTarget(m_window.get(), WM_LINK_REPLY);
        m_link->setLossTarget(m_window.get());
    }
    QCOMPARE(await(m_link->requestRead('D')), 1);
}

void TestSensorLink::openLeavesARunningWorkersPortAlone()
{
    QVERIFY(connectSensor());
    QCOMPARE(m_link->open(8, 1), 1);
    QCOMPARE(m_link->portNumber(), 7);
    QVERIFY(m_link->isIdentified());
    QCOMPARE(await(m_link->requestRead('D')), 1);
}

void TestSensorLink::refusedConfigurationClosesThePort_data()
{
    QTest::addColumn<Fault>("step");
    QTest::newRow("line") << Fault::Line;
    QTest::newRow("time-outs") << Fault::Timeouts;
    QTest::newRow("queues") << Fault::Queues;
}

void TestSensorLink::refusedConfigurationClosesThePort()
{
    QFETCH(Fault, step);
    m_fault = step;
    QCOMPARE(m_link->open(7, 0), 0);
    QCOMPARE(m_shown.size(), 1);
    QCOMPARE(logged(), m_shown);
    QVERIFY(!m_link->hasOpened());
    QCOMPARE(m_link->portNumber(), 1);

    m_fault = Fault::None;
    QVERIFY(connectSensor()); // opened and configured anew
}

void TestSensorLink::missingPortIsShownOnlyWhenAsked()
{
    m_sensor->vanish();
    QCOMPARE(m_link->open(7, 0), 0);
    QVERIFY(m_shown.isEmpty());
    QCOMPARE(m_link->open(7, 1), 0);
    QCOMPARE(m_shown.size(), 1);
    QVERIFY(logged().isEmpty());
}

void TestSensorLink::threadThatCannotBeStartedIsReported()
{
    {
        const test::NoThreads none;
        QCOMPARE(m_link->open(7, 0), 0);
        QCOMPARE(m_shown.size(), 1);
        QCOMPARE(logged(), m_shown);
        m_link->setKeepAlive(1);
        QCOMPARE(logged().size(), 2);
    }
    QVERIFY(connectSensor()); // the port has been given back
}

void TestSensorLink::keepAliveRunsBesideReads()
{
    Pacing::setSpeeds({10, 100, 5});
    QVERIFY(connectSensor());
    const int frames = m_sensor->progFrames();
    m_link->setKeepAlive(1);
    for (int reads = 0; reads < 20; ++reads)
        QCOMPARE(await(m_link->requestRead('D')), 1);
    QTRY_VERIFY(m_sensor->progFrames() >= frames + 5);

    m_link->setKeepAlive(0);
    QCOMPARE(await(m_link->requestRead('D')), 1); // a tick signalled before has been served
    const int atStop = m_sensor->progFrames();
    QTest::qWait(20);
    QCOMPARE(m_sensor->progFrames(), atStop);
    QVERIFY(!logged().join(QLatin1Char('\n')).contains(QStringLiteral("[50][52]")));
}

void TestSensorLink::positionsComeFromTheStream()
{
    QVERIFY(connectSensor());
    m_sensor->setParameter('D', "060018");
    m_sensor->setMagnetPosition(12.5);
    m_link->setRts(0);
    m_link->setStreamMode(1, 0x060018, 5);
    m_link->setRts(1);
    QVERIFY(QTest::qWaitFor([&] { return await(m_link->requestPosition()) == 1; }));
    const double position = m_link->position();

    m_sensor->setMagnetPosition(13.5);
    QVERIFY(QTest::qWaitFor(
        [&] { return await(m_link->requestPosition()) == 1 && m_link->position() != position; }));
    QCOMPARE(m_link->position() - position, 1.0);

    m_sensor->setFault({SimulatedFault::Kind::Short, 5}, "stream");
    const double last = m_link->position();
    QVERIFY(QTest::qWaitFor([&] { return await(m_link->requestPosition()) == 0; }));
    QCOMPARE(m_link->position(), last);

    m_link->setStreamMode(0, 0, 0);
    QCOMPARE(await(m_link->requestPosition()), 0);
    m_sensor->vanish();
    QCOMPARE(await(m_link->requestPosition()), 0);
    QCOMPARE(m_link->linkFailed(), 1);
}

QTEST_GUILESS_MAIN(TestSensorLink)
#include "TestSensorLink.moc"
