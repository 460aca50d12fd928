#include "simulator/PtyServer.h"
#include "simulator/SimulatedSensor.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <chrono>

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

using namespace pelorin;

namespace {

/// A program that uses a serial device.
class Client
{
public:
    explicit Client(const QString& path)
        : m_device(::open(QFile::encodeName(path).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK))
    {
    }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;
    ~Client()
    {
        if (isOpen())
            (void)::close(m_device); // nothing is pending that a failure could lose
    }

    [[nodiscard]] bool isOpen() const { return m_device >= 0; }

    [[nodiscard]] bool setSpeed(speed_t speed)
    {
        termios settings{};
        if (::tcgetattr(m_device, &settings) != 0)
            return false;
        ::cfmakeraw(&settings);
        return ::cfsetspeed(&settings, speed) == 0 &&
               ::tcsetattr(m_device, TCSANOW, &settings) == 0;
    }

    [[nodiscard]] bool send(const QByteArray& bytes)
    {
        return ::write(m_device, bytes.constData(), static_cast<std::size_t>(bytes.size())) ==
               bytes.size();
    }

    /// The bytes up to the next CR; fewer if the rest does not come within some seconds.
    [[nodiscard]] QByteArray readFrame()
    {
        QByteArray frame;
        char byte = 0;
        while (!frame.endsWith('\r') && waitForInput() && ::read(m_device, &byte, 1) == 1)
            frame += byte;
        return frame;
    }

    [[nodiscard]] bool discardInput() { return ::tcflush(m_device, TCIFLUSH) == 0; }

    [[nodiscard]] bool isGone()
    {
        char byte = 0;
        return ::read(m_device, &byte, 1) == 0 || errno == EIO;
    }

private:
    [[nodiscard]] bool waitForInput()
    {
        pollfd source{m_device, POLLIN, 0};
        return ::poll(&source, 1, 5000) == 1;
    }

    int m_device;
};

/// Puts the sensor into programming mode and reads its version.
QByteArray readVersion(Client& client)
{
    if (!client.send(QByteArray("PROG\r").repeated(10)) || !client.send("VA\r"))
        return "not sent";
    return client.readFrame();
}

/// The running program, told to end when it goes.
struct Program
{
    explicit Program(const QStringList& arguments)
    {
        process.start(QStringLiteral(PELORIN_SIMULATOR), arguments);
    }
    ~Program()
    {
        process.kill();
        process.waitForFinished();
    }

    /// The next line that it prints.
    QByteArray line()
    {
        while (!process.canReadLine() && process.waitForReadyRead(10'000))
            ;
        return process.readLine().trimmed();
    }

    [[nodiscard]] bool endsOn(int signal)
    {
        return ::kill(static_cast<pid_t>(process.processId()), signal) == 0 &&
               process.waitForFinished(10'000) && process.exitStatus() == QProcess::NormalExit &&
               process.exitCode() == 0;
    }

    QProcess process;
};

} // namespace

class TestPelorinSimulator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sensorAnswersOverItsTerminalUntilASignalEndsTheProgram_data();
    void sensorAnswersOverItsTerminalUntilASignalEndsTheProgram();
    void eachDeviceHasItsTerminalAndLink();
    void meaninglessOptionsAreRefused_data();
    void meaninglessOptionsAreRefused();
    void linkNeverReplacesAFile();
    void sensorStreamsAtTheStreamSpeedAndListensAgain();
    void vanishedDeviceComesBackUnderItsLink();

private:
    [[nodiscard]] QString linkPath(const char* name = "sensor") const
    {
        return m_folder.filePath(QString::fromLatin1(name));
    }

    QTemporaryDir m_folder;
};

void TestPelorinSimulator::sensorAnswersOverItsTerminalUntilASignalEndsTheProgram_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
}

void TestPelorinSimulator::sensorAnswersOverItsTerminalUntilASignalEndsTheProgram()
{
    QFETCH(int, signal);
    Program program(
        {QStringLiteral("--type"), QStringLiteral("1"), QStringLiteral("--link"), linkPath()});
    const QByteArray line = program.line();
    QVERIFY2(line.startsWith("sensor of type 1: /dev/pts/"), line);
    {
        Client client(QString::fromLatin1(line.mid(line.indexOf('/'))));
        QVERIFY(client.isOpen());
        QVERIFY(client.setSpeed(B4800));
        QCOMPARE(readVersion(client), QByteArray("2A0103\r"));
    }
    QCOMPARE(QFileInfo(linkPath()).symLinkTarget().toLatin1(), line.mid(line.indexOf('/')));

    QVERIFY(program.endsOn(signal));
    QVERIFY(!QFileInfo(linkPath()).isSymLink());
}

void TestPelorinSimulator::eachDeviceHasItsTerminalAndLink()
{
    const Program program({QStringLiteral("--type"), QStringLiteral("0"),
                           QStringLiteral("--display"), QStringLiteral("--link"), linkPath("one"),
                           QStringLiteral("--link"), linkPath("two"), QStringLiteral("--fault"),
                           QStringLiteral("short:4@V")});
    QTRY_VERIFY(QFileInfo(linkPath("two")).isSymLink());

    Client sensor(linkPath("one"));
    QVERIFY(sensor.setSpeed(B4800));
    QVERIFY(sensor.send(QByteArray("PROG\r").repeated(10) + "VA\rAA\r"));
    QCOMPARE(sensor.readFrame(), QByteArray("1A0200000010\r"));

    Client display(linkPath("two"));
    QVERIFY(display.setSpeed(B19200));
    QVERIFY(display.send("$1WE\r"));
    QCOMPARE(display.readFrame(), QByteArray("*\r"));
}

void TestPelorinSimulator::meaninglessOptionsAreRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    for (const char* line : {"--type 3", "--type x", "--fault loud", "surplus",
                             "--link /nonexistent/a --link /nonexistent/b", "--speed 9"})
        QTest::newRow(line) << QString::fromLatin1(line).split(QLatin1Char(' '));
}

void TestPelorinSimulator::meaninglessOptionsAreRefused()
{
    QFETCH(QStringList, arguments);
    Program program(arguments);
    QVERIFY(program.process.waitForFinished(10'000));
    QCOMPARE(program.process.exitStatus(), QProcess::NormalExit);
    QVERIFY(program.process.exitCode() != 0);
    QVERIFY(!program.process.readAllStandardError().isEmpty());
}

void TestPelorinSimulator::linkNeverReplacesAFile()
{
    QFile file(linkPath("precious"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write("kept"), 4);
    file.close();
    {
        PtyServer server(std::make_shared<SimulatedSensor>(SimulatedSensor::Options{}),
                         file.fileName().toStdString());
        QCOMPARE(server.start(), EEXIST);
    }
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("kept"));
}

void TestPelorinSimulator::sensorStreamsAtTheStreamSpeedAndListensAgain()
{
    const auto sensor = std::make_shared<SimulatedSensor>(
        SimulatedSensor::Options{.supply = SimulatedSensor::Supply::ByLineSpeed});
    sensor->setParameter('D', "4E0519");
    PtyServer server(sensor);
    QCOMPARE(server.start(), 0);
    Client client(QString::fromStdString(server.path()));

    QVERIFY(client.setSpeed(B38400));
    for (int frame = 0; frame < 3; ++frame)
        QCOMPARE(client.readFrame(), QByteArray("00271500\r"));

    QVERIFY(client.setSpeed(B4800));
    QTRY_COMPARE(sensor->mode(), SimulatedSensor::Mode::Listening);
    QVERIFY(client.discardInput());
    QCOMPARE(readVersion(client), QByteArray("3A0102\r"));
}

void TestPelorinSimulator::vanishedDeviceComesBackUnderItsLink()
{
    const auto sensor = std::make_shared<SimulatedSensor>(
        SimulatedSensor::Options{.supply = SimulatedSensor::Supply::ByLineSpeed});
    PtyServer server(sensor, linkPath().toStdString());
    QCOMPARE(server.start(), 0);
    Client client(linkPath());
    QVERIFY(client.setSpeed(B4800));
    QCOMPARE(readVersion(client), QByteArray("3A0102\r"));

    sensor->vanish();
    QTRY_VERIFY(client.isGone());
    QTRY_VERIFY(!QFileInfo(linkPath()).isSymLink());
    QVERIFY(!Client(linkPath()).isOpen());

    sensor->comeBack();
    QTRY_VERIFY(QFileInfo::exists(linkPath()));
    Client again(linkPath());
    QVERIFY(again.setSpeed(B4800));
    QCOMPARE(readVersion(again), QByteArray("3A0102\r"));
}

QTEST_GUILESS_MAIN(TestPelorinSimulator)
#include "TestPelorinSimulator.moc"
