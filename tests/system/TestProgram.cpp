#include "Program.h"
#include "support/TestRegistry.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>

using namespace pelorin;

namespace {

const QByteArray kSettings =
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n\"Path\"=\"C:\\\\Pelorin\"\r\n"
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin\\Help Files]\r\n" +
    kSimulatedBounds +
    "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
    "\"simulator:sensor?type=2\"=\"COM1\"\r\n\"/nonexistent/tty\"=\"COM5\"\r\n";

} // namespace

class TestProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void signalEndsTheRunningProgram_data();
    void signalEndsTheRunningProgram();
    void signalEndsTheStartAtItsFirstQuestion();
    void sensorBehindATerminalIsConnectedAndRead();

private:
    /// Starts Pelorin on the settings and with the profile folder of the test.
    [[nodiscard]] std::unique_ptr<Program> startPelorin(const QStringList& arguments) const
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_folder->path());
        return std::make_unique<Program>(QStringLiteral(PELORIN_PROGRAM), arguments, environment);
    }

    [[nodiscard]] QString profilePath() const
    {
        return m_folder->filePath(QStringLiteral("Korvex Systems/Pelorin.ini"));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<TestRegistry> m_settings;
};

void TestProgram::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_settings.reset(); // before the next one: its end ends the use of either
    m_settings = std::make_unique<TestRegistry>(kSettings);
    QVERIFY(m_folder->isValid());
}

void TestProgram::signalEndsTheRunningProgram_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

/// On a simulated sensor. The port is stored only if it has been opened.
void TestProgram::signalEndsTheRunningProgram()
{
    QFETCH(int, signal);
    const auto pelorin = startPelorin({});
    QTRY_VERIFY_WITH_TIMEOUT(pelorin->catches(signal), kTimeLimit);
    QCOMPARE(pelorin->endBy(signal), 0);
    QCOMPARE(contentOf(profilePath()), QByteArray("[Setup]\nCOMPort=1\nLanguage=1\n"));
}

void TestProgram::signalEndsTheStartAtItsFirstQuestion()
{
    const auto pelorin = startPelorin({QStringLiteral("/CP:5")});
    QTRY_VERIFY_WITH_TIMEOUT(pelorin->catches(SIGTERM), kTimeLimit);
    QCOMPARE(pelorin->endBy(SIGTERM), 0);
    QCOMPARE(contentOf(profilePath()), QByteArray("[Setup]\nLanguage=1\n"));
}

/// The sensor goes, and its terminal with it, when its parameter 'D' is read: that happens only
/// after a connect that has identified it.
void TestProgram::sensorBehindATerminalIsConnectedAndRead()
{
    const QString line = m_folder->filePath(QStringLiteral("sensor"));
    m_settings->write(kSettings + "\"" + line.toUtf8() + "\"=\"COM9\"\r\n");
    const Program simulator(
        QStringLiteral(PELORIN_SIMULATOR),
        {QStringLiteral("--link"), line, QStringLiteral("--fault"), QStringLiteral("vanish@D")});
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(line).isSymLink(), kTimeLimit);

    const auto pelorin = startPelorin({QStringLiteral("/CP:9")});
    QTRY_VERIFY_WITH_TIMEOUT(!QFileInfo(line).isSymLink(), kTimeLimit);
    QVERIFY(simulator.isRunning());
    QVERIFY(pelorin->isRunning());
    QCOMPARE(pelorin->endBy(SIGTERM), 0);
    QCOMPARE(contentOf(profilePath()), QByteArray("[Setup]\nLanguage=1\n"));
}

QTEST_GUILESS_MAIN(TestProgram)
#include "TestProgram.moc"
