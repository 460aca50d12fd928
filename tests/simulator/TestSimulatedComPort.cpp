#include "simulator/SimulatedComPort.h"

#include "platform/core/Pacing.h"
#include "simulator/SimulatedDisplayUnit.h"
#include "simulator/SimulatedPorts.h"
#include "simulator/SimulatedSensor.h"

#include <QElapsedTimer>
#include <QTest>

#include <cerrno>

using namespace pelorin;
using namespace std::chrono_literals;

namespace {

constexpr LineSettings kParameterLine{4800};

QByteArray readFrame(ComPort& port)
{
    QByteArray frame;
    while (!frame.endsWith('\r')) {
        const auto result = port.read();
        if (!result.received)
            break;
        frame += result.byte;
    }
    return frame;
}

/// Opens the port and brings its sensor into programming mode.
bool connectSensor(ComPort& port)
{
    bool done = port.open() == 0 && port.setLine(kParameterLine) == 0 && port.setRts(true) == 0 &&
                port.setRts(false) == 0;
    for (int frame = 0; frame < 101; ++frame)
        done = done && port.write("PROG\r").written == 5;
    return done;
}

QByteArray ask(ComPort& port, std::string_view frame)
{
    if (port.purge(ComPort::Purge::Both) != 0 ||
        port.write(frame).written != static_cast<int>(frame.size()))
        return "not sent";
    return readFrame(port);
}

} // namespace

class TestSimulatedComPort : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Pacing::setSpeeds({1.0, 100.0, 50.0}); }
    void cleanupTestCase() { Pacing::setSpeeds({}); }

    void reopenedPortFindsTheSensorAsItWasLeft();
    void writeReturnsWhenItsBytesHaveLeft();
    void writeThatRunsOutOfTimeEndsShort();
    void sensorIsDeafAtAnotherSpeed();
    void nameDescribesTheDevice();
    void nameDecidesFaults();
    void unknownNameCannotBeOpened();
};

void TestSimulatedComPort::reopenedPortFindsTheSensorAsItWasLeft()
{
    SimulatedPorts ports;
    const auto name = QStringLiteral("simulator:sensor?type=2");
    {
        const auto port = ports.makePort(name);
        QVERIFY(connectSensor(*port));
        QCOMPARE(port->write("KN010102\r").written, 9);
        QCOMPARE(port->write("CN\r").written, 3);
        QCOMPARE(ports.makePort(name)->open(), EBUSY);
        port->close();
        QCOMPARE(ports.sensor(name)->mode(), SimulatedSensor::Mode::Programming);
        QCOMPARE(port->open(), 0); // switches the supply off
        QCOMPARE(ports.sensor(name)->mode(), SimulatedSensor::Mode::Off);
    }
    const auto port = ports.makePort(name);
    QVERIFY(connectSensor(*port));
    QCOMPARE(ask(*port, "KA\r"), QByteArray("010102\r"));
    QCOMPARE(ports.sensor(name)->parameter('K'), std::string("010102"));
    QCOMPARE(ports.sensor(QStringLiteral("simulator:sensor"))->parameter('K'),
             std::string("000001"));
}

void TestSimulatedComPort::writeReturnsWhenItsBytesHaveLeft()
{
    Pacing::setSpeeds({});
    SimulatedPorts ports;
    const auto port = ports.makePort(QStringLiteral("simulator:sensor"));
    QCOMPARE(port->open(), 0);
    QCOMPARE(port->setLine(kParameterLine), 0);

    QElapsedTimer timer;
    timer.start();
    for (int frame = 0; frame < 4; ++frame)
        QCOMPARE(port->write("PROG\r").written, 5);
    // Twenty bytes of ten bits.
    QVERIFY2(timer.nsecsElapsed() >= 41'600'000, qPrintable(QString::number(timer.nsecsElapsed())));
}

void TestSimulatedComPort::writeThatRunsOutOfTimeEndsShort()
{
    Pacing::setSpeeds({});
    const auto sensor = std::make_shared<SimulatedSensor>(SimulatedSensor::Options{});
    SimulatedComPort port(sensor);
    QCOMPARE(port.open(), 0);
    QCOMPARE(port.setLine({300}), 0);
    ComPort::Timeouts timeouts;
    timeouts.writeConstant = 50;
    QCOMPARE(port.setTimeouts(timeouts), 0);

    // A byte takes 33 ms, the time limit is 60 ms.
    const auto result = port.write("PROG\rPROG\r");
    QCOMPARE(result.error, 0);
    QCOMPARE(result.written, 1);
}

void TestSimulatedComPort::sensorIsDeafAtAnotherSpeed()
{
    SimulatedPorts ports;
    const auto port = ports.makePort(QStringLiteral("simulator:sensor"));
    QVERIFY(connectSensor(*port));
    QCOMPARE(port->setLine({9600}), 0);
    QCOMPARE(ask(*port, "VA\r"), QByteArray());
    QCOMPARE(port->setLine(kParameterLine), 0);
    QCOMPARE(ask(*port, "VA\r"), QByteArray("3A0102\r"));
}

void TestSimulatedComPort::nameDescribesTheDevice()
{
    SimulatedPorts ports;
    const auto plain = ports.sensor(QStringLiteral("simulator:sensor"));
    const auto name = QStringLiteral("simulator:sensor?type=1&moving=1&power=manual");
    const auto other = ports.sensor(name);
    QVERIFY(plain && other && !ports.displayUnit(name));
    QCOMPARE(plain->type(), 2);
    QCOMPARE(other->type(), 1);

    // A magnet moves over the whole stroke of 800 mm and back.
    using TimePoint = SimulatedDevice::TimePoint;
    QCOMPARE(plain->magnetPosition(TimePoint(5s)), plain->magnetPosition(TimePoint(8s)));
    QVERIFY(other->magnetPosition(TimePoint(0s)) < 1.0);
    QVERIFY(other->magnetPosition(TimePoint(10s)) > 799.0);
    QVERIFY(other->magnetPosition(TimePoint(20s)) < 1.0);

    QVERIFY(connectSensor(*ports.makePort(name)));
    other->setRts(true, SimulatedDevice::Clock::now());
    QCOMPARE(other->mode(), SimulatedSensor::Mode::Programming); // its supply is the user's
}

void TestSimulatedComPort::nameDecidesFaults()
{
    SimulatedPorts ports;
    const auto port =
        ports.makePort(QStringLiteral("simulator:sensor?fault=silent@A&fault=short:2@V"));
    QVERIFY(connectSensor(*port));
    QCOMPARE(ask(*port, "AA\r"), QByteArray());
    QCOMPARE(ask(*port, "VA\r"), QByteArray("3A"));
    QCOMPARE(ask(*port, "NA\r"), QByteArray("00000A\r"));

    const auto displayName = QStringLiteral("simulator:display?node=3&fault=no-cr@RD");
    const auto display = ports.makePort(displayName);
    QCOMPARE(display->open(), 0);
    QCOMPARE(display->setLine({19200}), 0);
    ports.displayUnit(displayName)->setReading("1.5");
    QCOMPARE(ask(*display, "$3WE\r"), QByteArray("*\r"));
    QCOMPARE(ask(*display, "$3RD\r"), QByteArray("*1.5"));
}

void TestSimulatedComPort::unknownNameCannotBeOpened()
{
    SimulatedPorts ports;
    for (const char* text :
         {"simulator:", "simulator:valve", "simulator:sensor?type=3", "simulator:sensor?type=1.5",
          "simulator:sensor?node=1", "simulator:sensor?moving=yes", "simulator:sensor?fault=late:x",
          "simulator:display?node=10", "/dev/ttyUSB0"}) {
        const auto port = ports.makePort(QLatin1String(text));
        QCOMPARE(port->open(), ENOENT);
        QCOMPARE(port->read().error, EBADF);
    }
}

QTEST_GUILESS_MAIN(TestSimulatedComPort)
#include "TestSimulatedComPort.moc"
