#include "link/SensorLink.h"

#include "platform/core/ComPortFactory.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/Pacing.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedSensor.h"
#include "support/Languages.h"
#include "support/LogLines.h"
#include "support/MessageCollector.h"
#include "support/NoThreads.h"
#include "support/PortDecorator.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <thread>

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

    void connectIdentifiesEachType();
    void connectWithoutBoundsFailsButKeepsTheVersion();
    void everyRequestIsAnsweredInItsOrder();
    void lossIsCountedOnceAndWriteStillReportsSuccess();
    void deviceThatGoesIsNoticedWithoutARequest();
    void cutFrameIsCountedButLosesNoPort();
    void closeTakesBackUndeliveredLossReports();
    void closeCutsAConnectShortAndAnswersWhatWasRequested();
    void portIsOpenedAgainByItsDevice();
    void failedOpenTellsWhy();
    void keepAliveRunsBesideReads();
    void positionsComeFromTheStream();

private:
    [[nodiscard]] int await(RequestId request);
    [[nodiscard]] QStringList logged() { return test::logLines(m_link->commLog()); }
    [[nodiscard]] bool connectSensor()
    {
        return await(m_link->open(7)) == 1 && await(m_link->requestConnect()) == 1;
    }

    const test::Languages m_languages{1};
    const TestRegistry m_registry{kSimulatedBounds};
    std::shared_ptr<SimulatedSensor> m_sensor;
    Fault m_fault = Fault::None;
    QStringList m_devices; ///< that ports were made of
    const ComPortFactory m_factory{[this](const QString& device) {
        m_devices << device;
        return std::make_unique<FaultyPort>(m_sensor, m_fault);
    }};
    std::unique_ptr<MessageCollector> m_window;
    std::unique_ptr<SensorLink> m_link;
};

void TestSensorLink::init()
{
    Pacing::setSpeeds({100, 100, 5});
    m_registry.write(kSimulatedBounds);
    m_fault = Fault::None;
    m_devices.clear();
    m_sensor = std::make_shared<SimulatedSensor>(SimulatedSensor::Options{.type = 2});
    m_window = std::make_unique<MessageCollector>();
    m_link = std::make_unique<SensorLink>(m_factory);
    m_link->setReplyTarget(m_window.get(), WM_LINK_REPLY);
    m_link->setLossTarget(m_window.get());
}

void TestSensorLink::cleanup()
{
    m_link.reset();
    m_window.reset();
}

/// The result of a request, -1 if it is not answered in time.
int TestSensorLink::await(RequestId request)
{
    (void)QTest::qWaitFor([&] { return m_window->resultOf(request) >= 0; });
    return m_window->resultOf(request);
}

void TestSensorLink::connectIdentifiesEachType()
{
    for (const int type : {0, 1, 2}) {
        m_sensor = std::make_shared<SimulatedSensor>(SimulatedSensor::Options{.type = type});
        QVERIFY(connectSensor());
        QCOMPARE(m_link->ssiType(), type);
        QVERIFY(m_link->isIdentified());
        QCOMPARE(logged().back(), QStringLiteral("SSI Type: %1").arg(type));
        QCOMPARE(await(m_link->requestRead('D')), 1);
        QCOMPARE(m_link->lastReply(), QByteArray::fromStdString(m_sensor->parameter('D')));
        QCOMPARE(await(m_link->requestRead('X')), 0);
        QCOMPARE(m_link->lastReply(), QByteArray());

        QCOMPARE(await(m_link->close(1)), 1);
        QVERIFY(!m_link->isIdentified() && !m_link->isOpen());
        QCOMPARE(m_sensor->mode(), SimulatedSensor::Mode::Off);
    }
}

void TestSensorLink::connectWithoutBoundsFailsButKeepsTheVersion()
{
    m_registry.write(QByteArray());
    QVERIFY(!connectSensor());
    QCOMPARE(m_link->versionText(), QByteArray("3A0102"));
    QCOMPARE(m_link->ssiType(), 3);
    QVERIFY(!m_link->isIdentified());
    QCOMPARE(logged().back(), QStringLiteral("SSY Type: Unknown"));
}

void TestSensorLink::everyRequestIsAnsweredInItsOrder()
{
    QCOMPARE(await(m_link->requestRead('D')), 0); // no port is open
    QCOMPARE(await(m_link->requestWrite('D', "123456")), 0);
    QVERIFY(connectSensor());
    QCOMPARE(m_sensor->parameter('D'), std::string("4A0519"));

    Pacing::setSpeeds({1, 100, 5}); // the first connect lasts while the others are requested
    const auto first = m_link->requestConnect();
    const auto read = m_link->requestRead('D');
    const auto connect = m_link->requestConnect();
    m_link->cutShort(first);
    QCOMPARE(await(read), 1);
    QCOMPARE(m_window->resultOf(first), 0);
    QCOMPARE(m_window->resultOf(connect), 1);
    QCOMPARE(m_window->messages().back().request, read);
}

void TestSensorLink::lossIsCountedOnceAndWriteStillReportsSuccess()
{
    QVERIFY(connectSensor());
    m_sensor->setFault({SimulatedFault::Kind::Vanish}, "CN");
    for (int time = 0; time < 2; ++time)
        QCOMPARE(await(m_link->requestWrite('C', QByteArray())), 1);
    QCOMPARE(m_link->linkFailed(), 1);
    QVERIFY(m_link->isDeviceGone());
    QCOMPARE(m_link->lossCount(), 1);
    QVERIFY(!m_link->isIdentified());

    QCOMPARE(await(m_link->close()), 1);
    m_sensor->clearFaults();
    m_sensor->comeBack();
    QVERIFY(connectSensor());
    QCOMPARE(m_link->linkFailed(), 0);
    QVERIFY(!m_link->isDeviceGone());
    QCOMPARE(m_link->lossCount(), 1);
}

void TestSensorLink::deviceThatGoesIsNoticedWithoutARequest()
{
    QVERIFY(connectSensor());
    m_sensor->vanish();
    QTRY_COMPARE(m_window->count(WM_LINK_LOST), 1);
    QVERIFY(m_link->isDeviceGone());
    QCOMPARE(logged().back(), QStringLiteral("Error in PurgeComm. Error = 19"));
    QCOMPARE(await(m_link->requestRead('D')), 0);
    QCOMPARE(m_link->lossCount(), 1);
}

void TestSensorLink::cutFrameIsCountedButLosesNoPort()
{
    m_fault = Fault::CutWrites;
    QCOMPARE(await(m_link->open(7)), 1);
    QCOMPARE(await(m_link->requestWrite('D', "020018")), 1);
    QCOMPARE(logged(), QStringList(QStringLiteral("Byte count mismatch in WriteFile. Wrote = 2, "
                                                  "Correct = 9,Error = 0")));
    QCOMPARE(m_link->cutFrames(), 1); // who wrote is told that the sensor lacks it
    QCOMPARE(m_link->lossCount(), 0);
    QCOMPARE(m_link->linkFailed(), 0);
    QCOMPARE(m_window->count(WM_LINK_LOST), 0);
}

void TestSensorLink::closeTakesBackUndeliveredLossReports()
{
    QVERIFY(connectSensor());
    m_sensor->vanish();
    while (m_link->lossCount() == 0)
        std::this_thread::yield(); // delivers nothing
    const auto closed = m_link->close();
    while (m_link->isOpen())
        std::this_thread::yield();
    m_sensor->comeBack();
    QCOMPARE(await(m_link->open(7)), 1);
    QVERIFY(m_window->resultOf(closed) == 1);
    QCOMPARE(m_window->count(WM_LINK_LOST), 0);
}

void TestSensorLink::closeCutsAConnectShortAndAnswersWhatWasRequested()
{
    Pacing::setSpeeds({1, 1, 1});
    QCOMPARE(await(m_link->open(7)), 1);
    const auto connect = m_link->requestConnect();
    const auto write = m_link->requestWrite('D', "111111");
    QTRY_VERIFY(m_sensor->progFrames() > 2); // one of the hundred frames is on the line

    const auto closed = m_link->close();
    QCOMPARE(await(closed), 1);
    QCOMPARE(m_window->resultOf(connect), 0);
    QCOMPARE(m_window->resultOf(write), 0);
    QVERIFY(m_sensor->progFrames() < 101);
    QCOMPARE(m_link->linkFailed(), 0);
    QVERIFY(m_sensor->takeReceivedFrames().empty());
}

void TestSensorLink::portIsOpenedAgainByItsDevice()
{
    const QByteArray map = "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n\"/dev/";
    m_registry.write(kSimulatedBounds + map + "one\"=\"COM7\"\r\n");
    QVERIFY(connectSensor());
    QCOMPARE(await(m_link->close()), 1);
    m_registry.write(kSimulatedBounds + map + "two\"=\"COM7\"\r\n");
    QCOMPARE(await(m_link->reopen()), 1);
    QCOMPARE(m_devices, QStringList({QStringLiteral("/dev/one"), QStringLiteral("/dev/one")}));
    QCOMPARE(m_link->device(), QStringLiteral("/dev/one"));
    QCOMPARE(m_link->portNumber(), 7);
}

void TestSensorLink::failedOpenTellsWhy()
{
    for (const Fault step : {Fault::Line, Fault::Timeouts, Fault::Queues}) {
        m_fault = step;
        QCOMPARE(await(m_link->open(7)), 0);
        QVERIFY(!m_link->openFailure().isEmpty());
        QCOMPARE(logged().back(), m_link->openFailure());
    }
    m_fault = Fault::None;
    {
        const test::NoThreads none;
        QCOMPARE(await(m_link->open(7)), 0);
        QCOMPARE(logged().back(), m_link->openFailure());
    }
    QCOMPARE(logged().size(), 4);
    m_sensor->vanish();
    QCOMPARE(await(m_link->open(7)), 0);
    QVERIFY(!m_link->openFailure().isEmpty());
    QCOMPARE(logged().size(), 4);
    QVERIFY(!m_link->hasOpened());
    QCOMPARE(m_link->portNumber(), 1);

    m_sensor->comeBack();
    QVERIFY(connectSensor()); // each time the port was given back
    QVERIFY(m_link->openFailure().isNull());
    const test::NoThreads none;
    const auto lines = logged().size();
    m_link->setKeepAlive(1);
    QCOMPARE(logged().size(), lines + 1);
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
    QVERIFY(!logged().join(QLatin1Char('\n')).contains(QStringLiteral("[50][52]")));

    m_link->setKeepAlive(0);
    for (const bool on : {false, true}) // after a tick that came before
        QCOMPARE(await(m_link->requestSupply(on)), 1);
    QCOMPARE(await(m_link->requestRead('D')), 0);
    QCOMPARE(m_sensor->progFrames(), 0);
}

void TestSensorLink::positionsComeFromTheStream()
{
    QVERIFY(connectSensor());
    m_sensor->setParameter('D', "060018");
    m_sensor->setMagnetPosition(12.5);
    QCOMPARE(await(m_link->requestSupply(false)), 1);
    QCOMPARE(await(m_link->requestStreamMode(1, 0x060018, 5)), 1);
    QCOMPARE(await(m_link->requestSupply(true)), 1);
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

    QCOMPARE(await(m_link->requestStreamMode(0)), 1);
    QCOMPARE(await(m_link->requestPosition()), 0);
}

QTEST_GUILESS_MAIN(TestSensorLink)
#include "TestSensorLink.moc"
