#include "link/SensorIdentification.h"
#include "sensor/RunnerBench.h"
#include "support/Languages.h"
#include "support/LogLines.h"
#include "support/NoThreads.h"

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

/// The link to a sensor of type 2, by whoever uses it.
class TestSensorLink : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_bench.reset(); // before the next one's settings
        m_bench = std::make_unique<RunnerBench>();
    }

    void typeFollowsFromRevisionAndBounds()
    {
        const QByteArray usual = kSimulatedBounds;
        const QByteArray key = usual.left(usual.indexOf('\n') + 1);
        const QByteArray overlapping = key + "\"Type1Low\"=dword:10\n\"Type1High\"=dword:30\n"
                                             "\"Type2Low\"=dword:10\n\"Type2High\"=dword:30\n";
        const QByteArray nineBits = key + "\"Type1Low\"=dword:1f0\n\"Type1High\"=dword:1ff\n";
        const QByteArray turned = key + "\"Type1Low\"=dword:30\n\"Type1High\"=dword:20\n";
        for (const auto& [name, bounds, version, type] :
             {std::tuple("upper end of type 0", usual, "1F0203", 0),
              std::tuple("within type 1", usual, "2A0000", 1),
              std::tuple("lower end of type 2", usual, "300000", 2),
              std::tuple("below all", usual, "0F0000", 3),
              std::tuple("above all", usual, "400000", 3),
              std::tuple("no digit at the end", usual, "1GFFFF", 3),
              std::tuple("digit only at the end", usual, "G5FFFF", 3),
              std::tuple("revision 0 without bounds", QByteArray(), "5GFFFF", 0),
              std::tuple("other revision without bounds", QByteArray(), "010000", 3),
              std::tuple("overlap: lowest type wins", overlapping, "200000", 1),
              std::tuple("only the low eight bits count", nineBits, "FF0000", 1),
              std::tuple("low above high holds nothing", turned, "280000", 3)}) {
            m_bench->settings.write(bounds);
            QVERIFY2(ssiTypeOfVersion(version) == type, name);
        }
    }

    void connectIdentifiesEachType()
    {
        for (const int type : {0, 1, 2}) {
            m_bench->sensor =
                std::make_shared<SimulatedSensor>(SimulatedSensor::Options{.type = type});
            QVERIFY(m_bench->connectSensor());
            QVERIFY(link().isIdentified());
            QCOMPARE(link().ssiType(), type);
            QCOMPARE(logged().back(), u"SSI Type: %1"_s.arg(type));
            QVERIFY(m_bench->run(readPlan("D")));
            QCOMPARE(link().lastReply().toStdString(), m_bench->sensor->parameter('D'));
            QVERIFY(!m_bench->run(readPlan("X")) && link().lastReply().isEmpty());
            m_bench->runner.closePort(true, [] {});
            QVERIFY(waitFor([this] { return !link().isOpen(); }));
            QVERIFY(!link().isIdentified());
            QCOMPARE(m_bench->sensor->mode(), SimulatedSensor::Mode::Off);
            QVERIFY(!m_bench->run(readPlan("D")));
        }
        m_bench->settings.write("");
        QVERIFY(!m_bench->connectSensor() && !link().isIdentified());
        QCOMPARE(link().ssiType(), 3);
        QCOMPARE(link().versionText(), QByteArray("3A0102"));
        QCOMPARE(logged().back(), u"SSY Type: Unknown"_s);
    }

    void lossIsCountedOnce()
    {
        QVERIFY(m_bench->connectSensor());
        m_bench->sensor->setFault({SimulatedFault::Kind::Vanish}, "CN");
        QVERIFY(!m_bench->run(commandPlan('C', {})));
        (void)link().requestWrite('C', {});
        QVERIFY(waitFor([this] { return logged().filter(u"Error in WriteFile"_s).size() == 2; }));
        QVERIFY(link().linkFailed() == 1 && link().isDeviceGone() && !link().isIdentified());
        m_bench->sensor->comeBack();
        m_bench->sensor->clearFaults();
        QVERIFY(m_bench->connectSensor());
        QVERIFY(link().linkFailed() == 0 && !link().isDeviceGone());
        QCOMPARE(link().lossCount(), 1);
        m_bench->loseLink(); // without a request
        QVERIFY(waitFor([this] { return link().isDeviceGone(); }));
        QCOMPARE(logged().back(), u"Error in PurgeComm. Error = 19"_s);
    }

    void closeTakesBackUndeliveredLossReports()
    {
        QVERIFY(m_bench->connectSensor());
        m_bench->loseLink(); // delivers nothing
        (void)link().close();
        while (link().isOpen())
            std::this_thread::yield();
        m_bench->sensor->comeBack();
        (void)link().open(7);
        QVERIFY(waitFor([this] { return link().linkFailed() == 0; }));
        QVERIFY(m_bench->run(connectPlan()));
        QCOMPARE(m_bench->lossReports, 0);
    }

    void portIsOpenedAgainByItsDevice()
    {
        const QByteArray map = "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n\"/dev/";
        m_bench->settings.write(map + "one\"=\"COM7\"\r\n");
        QVERIFY(m_bench->openPort(7));
        m_bench->settings.write(map + "two\"=\"COM7\"\r\n");
        bool opened = false;
        m_bench->runner.reopenPort([&opened](bool isOpen) { opened = isOpen; });
        QVERIFY(waitFor([&opened] { return opened; }));
        QCOMPARE(m_bench->devices, QStringList({u"/dev/one"_s, u"/dev/one"_s}));
        QCOMPARE(link().device(), u"/dev/one"_s);
        QCOMPARE(link().portNumber(), 7);
    }

    void portThatIsNotGivenBackIsToldByItsName()
    {
        const auto hold = std::make_shared<std::mutex>();
        m_bench->makePort = [&hold] {
            const auto sensor = std::make_shared<SimulatedSensor>(SimulatedSensor::Options());
            return std::make_unique<HeldPort>(std::make_unique<SimulatedComPort>(sensor), hold);
        };
        QString stuck;
        QObject::connect(&m_bench->runner, &SequenceRunner::portStuck, m_bench.get(),
                         [&stuck](const QString& name) { stuck = name; });
        std::unique_lock closing(*hold);
        for (const auto& [number, name] : {std::pair(9, u"COM9"_s), {0, u"/dev/one"_s}}) {
            m_bench->runner.openPort(number, u"/dev/one"_s, [](bool) {});
            QVERIFY(waitFor([this, port = number] { return link().openedPort() == port; }));
            m_bench->runner.closePort(false, [] {});
            QVERIFY(waitFor([&stuck, told = name] { return stuck == told; }));
        }
        closing.unlock();
        QVERIFY(waitFor([&hold] { return hold.use_count() == 1; })); // what was left has ended
    }

    void failedOpenTellsWhy()
    {
        m_bench->lineError = EINVAL;
        QVERIFY(!m_bench->openPort());
        QStringList failures{link().openFailure()};
        m_bench->lineError = 0;
        {
            const NoThreads none;
            QVERIFY(!m_bench->openPort());
            failures << link().openFailure();
        }
        m_bench->sensor->vanish();
        QVERIFY(!m_bench->openPort());
        QCOMPARE(logged(), failures); // nothing of a port that is not there
        failures << link().openFailure();
        QVERIFY(!failures.contains(QString()) && failures.removeDuplicates() == 0);
        QVERIFY(!link().hasOpened());
        QCOMPARE(link().portNumber(), 1);

        m_bench->sensor->comeBack();
        QVERIFY(m_bench->connectSensor()); // each time the port was given back
        QVERIFY(link().openFailure().isNull());
        const NoThreads none;
        const auto lines = logged().size();
        link().setKeepAlive(1);
        QCOMPARE(logged().size(), lines + 1);
    }

    void connectSetsALineThatCouldNotBeSet()
    {
        QVERIFY(m_bench->connectSensor());
        QVERIFY(m_bench->run({{.kind = Step::Kind::StreamLine, .dataBits = 25}}));
        m_bench->lineError = EIO;
        QVERIFY(m_bench->run({{.kind = Step::Kind::ParameterLine}}));
        m_bench->lineError = 0;
        QVERIFY(m_bench->run(connectPlan()));
    }

    void keepAliveEnds()
    {
        QVERIFY(m_bench->connectSensor());
        const int frames = m_bench->sensor->progFrames();
        link().setKeepAlive(1);
        QVERIFY(waitFor([&] { return m_bench->sensor->progFrames() >= frames + 5; }));
        const Step off{.kind = Step::Kind::SupplyOff}, on{.kind = Step::Kind::SupplyOn};
        QVERIFY(m_bench->run({{.kind = Step::Kind::KeepAliveOff}, off, on}));
        QVERIFY(!m_bench->run(readPlan("D")));
        QCOMPARE(m_bench->sensor->progFrames(), 0);
    }

private:
    [[nodiscard]] SensorLink& link() { return m_bench->link; }
    [[nodiscard]] QStringList logged() { return logLines(link().commLog()); }

    const Languages m_languages{1};
    std::unique_ptr<RunnerBench> m_bench;
};

QTEST_GUILESS_MAIN(TestSensorLink)
#include "TestSensorLink.moc"
