#include "link/SensorLink.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/Pacing.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedSensor.h"
#include "support/LogLines.h"
#include "support/MessageCollector.h"
#include "support/PortDecorator.h"
#include "support/WaitFor.h"

#include <QElapsedTimer>
#include <QTest>

#include <atomic>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

/// A port that always has more, once that is wanted.
struct FloodedPort final : PortDecorator
{
    FloodedPort(std::unique_ptr<ComPort> port, std::atomic<int>& itsTakes)
        : PortDecorator(std::move(port)), takes(itsTakes)
    {
    }
    TakeResult take() override
    {
        return takes < 0 ? PortDecorator::take() : (++takes, TakeResult{0, std::string(512, 'x')});
    }
    Watch watchBytes() const override
    {
        return takes < 0 ? PortDecorator::watchBytes() : Watch{.due = Watch::TimePoint()};
    }

    std::atomic<int>& takes;
};

} // namespace

/// A link on a sensor that sends 400 frames a second, the magnet at 100 mm.
class TestFollowedStream : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        Pacing::setSpeeds({1, 1, 2}); // it is silent after a quarter of a second
        m_sensor = std::make_shared<SimulatedSensor>(
            SimulatedSensor::Options{.magnetPosition = 100, .framesPerSecond = 400});
        m_sensor->setParameter('D', "4E0519");
        m_clock.start();
        m_takes = -1;
        m_window = std::make_unique<MessageCollector>();
        m_link = std::make_unique<SensorLink>(m_factory);
        m_link->setReplyTarget(m_window.get(), WM_LINK_REPLY);
        m_link->setFramesTarget(m_window.get());
        QVERIFY(isDone(m_link->open(1)));
        QVERIFY(isDone(m_link->requestStreamMode(1, 0x19, 5)));
        QVERIFY(isDone(m_link->requestSupply(true)));
        QVERIFY(isDone(m_link->requestPosition()));
    }

    /// However often somebody asks for a position in between, and whatever becomes of that.
    void everyFrameIsHandedOverOnce()
    {
        PositionBatch all;
        const auto take = [this, &all] {
            const PositionBatch batch = m_link->takeFrames();
            all.samples.append(batch.samples);
            all.malformed += batch.malformed;
        };
        QVERIFY(waitFor([&] {
            m_link->cutShort(m_link->requestPosition());
            return take(), all.samples.size() >= 100;
        }));
        m_sensor->setFault({SimulatedFault::Kind::WrongByte, 3}, "stream");
        QVERIFY(waitFor([&] { return take(), all.malformed >= 10; }));
        m_sensor->setFault({SimulatedFault::Kind::Silent}, "stream");
        const int sent = m_sensor->positionFrames(); // or one more
        QTRY_VERIFY((take(), all.samples.size() + all.malformed >= sent));
        QVERIFY(all.samples.size() + all.malformed <= sent + 1);
        for (qsizetype i = 0; i < all.samples.size(); ++i) {
            QCOMPARE(all.samples[i].millimetres, 100.05); // ten counts off
            QVERIFY(i == 0 || all.samples[i - 1].time <= all.samples[i].time);
        }
        QVERIFY(m_window->count(WM_LINK_FRAMES) <= 2 + m_clock.elapsed() / 33);
    }

    void requestGetsThePositionOfNowAndLogsItsFrame()
    {
        m_link->commLog().clear();
        QVERIFY(isDone(m_link->requestPosition()));
        QCOMPARE(logLines(m_link->commLog()),
                 QStringList(u"RX: [30][30][32][37][31][35][30][30][TERM]"_s));
        QCOMPARE(m_link->position(), 100.05);
    }

    void streamIsFollowedUntilItsEnd()
    {
        QVERIFY(isDone(m_link->requestStreamMode(0)));
        (void)m_link->takeFrames();
        const int sent = m_sensor->positionFrames();
        QVERIFY(!isDone(m_link->requestPosition()));
        QVERIFY(m_sensor->positionFrames() > sent); // at another speed
        QVERIFY(m_link->takeFrames() == PositionBatch());
    }

    void deviceThatSendsWithoutEndIsTakenNoFasterThanTwoLines()
    {
        m_takes = 0;
        QVERIFY(waitFor([this] { return m_takes > 0; }));
        m_clock.start();
        const int before = m_takes;
        QVERIFY(waitFor([&] { return m_takes >= before + 10; }));
        QVERIFY(m_clock.elapsed() >= 8 * 512 * 10 * 1000 / 38400 / 2);
    }

private:
    [[nodiscard]] bool isDone(RequestId request)
    {
        return waitFor([&] { return m_window->resultOf(request) >= 0; }) &&
               m_window->resultOf(request) == 1;
    }

    std::shared_ptr<SimulatedSensor> m_sensor;
    std::atomic<int> m_takes = -1; ///< of a port that is flooded from 0 on
    const ComPortFactory m_factory{[this](const QString&) {
        return std::make_unique<FloodedPort>(std::make_unique<SimulatedComPort>(m_sensor), m_takes);
    }};
    QElapsedTimer m_clock;
    std::unique_ptr<MessageCollector> m_window;
    std::unique_ptr<SensorLink> m_link;
};

QTEST_GUILESS_MAIN(TestFollowedStream)
#include "TestFollowedStream.moc"
