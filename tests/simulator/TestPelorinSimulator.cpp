#include "SerialClient.h"

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

using namespace pelorin;

namespace {

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
        SerialClient client(QString::fromLatin1(line.mid(line.indexOf('/'))));
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

    SerialClient sensor(linkPath("one"));
    QVERIFY(sensor.setSpeed(B4800));
    QVERIFY(sensor.send(QByteArray("PROG\r").repeated(10) + "VA\rAA\r"));
    QCOMPARE(sensor.readFrame(), QByteArray("1A0200000010\r"));

    SerialClient display(linkPath("two"));
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

QTEST_GUILESS_MAIN(TestPelorinSimulator)
#include "TestPelorinSimulator.moc"
