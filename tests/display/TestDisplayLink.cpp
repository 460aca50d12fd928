#include "display/DisplayLink.h"

#include "ScriptedPort.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/Pacing.h"
#include "platform/core/TermiosComPort.h"
#include "simulator/PtyServer.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedDisplayUnit.h"
#include "support/Languages.h"
#include "support/MessageCollector.h"
#include "support/TestRegistry.h"

#include <QElapsedTimer>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr int kSensorPort = 7;
constexpr DisplaySettings kGray25{0x47, 25, 5};

const QByteArray kPelorinKey = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n";

const QList<QByteArray> kSetUpCommands{"WE",     "SdP3",        "SPUMM",
                                       "SXAOFF", "SXE00000000", "SXeFFFFFFFF"};
const QList<QByteArray> kApplyCommands{"WE", "SXTSSIGRAY", "SXB25", "SPR0.005"};

/// How the link reaches the unit.
enum class Way { InProcess, Terminal };

const QList<std::pair<const char*, Way>> kWays{{"in process", Way::InProcess},
                                               {"terminal", Way::Terminal}};

struct NamedFault
{
    const char* name;
    SimulatedFault fault;
};

/// Late is beyond the time limit of init.
const QList<NamedFault> kFaults{{"silent", {SimulatedFault::Kind::Silent}},
                                {"late", {SimulatedFault::Kind::Late, 150}},
                                {"short", {SimulatedFault::Kind::Short, 1}},
                                {"wrong", {SimulatedFault::Kind::WrongByte, 0}}};

QList<QByteArray> framesOf(const QList<QByteArray>& commands)
{
    QList<QByteArray> frames;
    for (const QByteArray& command : commands)
        frames << "$1" + command;
    return frames;
}

} // namespace

class TestDisplayLink : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_languages = std::make_unique<Languages>(1); }
    void init();
    void cleanup();

    void unitIsSetUpReadAndSet_data();
    void unitIsSetUpReadAndSet();
    void faultDuringSetUpEndsIt_data();
    void faultDuringSetUpEndsIt();
    void faultDuringApplyEndsIt_data();
    void faultDuringApplyEndsIt();
    void faultyReadingShowsStars_data();
    void faultyReadingShowsStars();
    void answerIsReadAsFarAsItCounts_data();
    void answerIsReadAsFarAsItCounts();
    void unpluggedUnitIsToldOnce_data();
    void unpluggedUnitIsToldOnce();
    void failureIsToldAgainOnceItHasWorked();
    void failureWithAnAnswerIsToldOnce();
    void failedOpeningIsExplained_data();
    void failedOpeningIsExplained();
    void failedSetUpTellsTheErrorsInItsMessage();
    void portOfTheSensorIsNotOpened_data();
    void portOfTheSensorIsNotOpened();
    void settingsNamePortAndNode_data();
    void settingsNamePortAndNode();
    void requestWithoutWorkerFailsAtOnce();
    void closeCutsShortWhatRuns_data();
    void closeCutsShortWhatRuns();

private:
    void reach(Way way);
    void useScript();
    [[nodiscard]] bool openUnit();
    [[nodiscard]] int await(RequestId request);
    [[nodiscard]] QList<QByteArray> takeFrames();

    std::unique_ptr<Languages> m_languages;
    std::unique_ptr<TestRegistry> m_registry;
    std::shared_ptr<SimulatedDisplayUnit> m_unit;
    std::shared_ptr<PortScript> m_script;
    std::unique_ptr<PtyServer> m_server;
    std::unique_ptr<ComPortFactory> m_factory;
    std::unique_ptr<MessageCollector> m_window;
    std::unique_ptr<DisplayLink> m_link;
};

void TestDisplayLink::init()
{
    Pacing::setSpeeds({100, 20, 5});
    m_registry = std::make_unique<TestRegistry>(kPelorinKey + "\"QDL3Comport\"=\"unit\"\r\n");
    m_unit = std::make_shared<SimulatedDisplayUnit>();
    m_unit->setReading("12.345");
    m_window = std::make_unique<MessageCollector>();
    reach(Way::InProcess);
}

void TestDisplayLink::cleanup()
{
    m_link.reset();
    m_factory.reset();
    m_server.reset();
    m_window.reset();
    m_registry.reset();
}

/// Makes the link whose port leads to the unit.
void TestDisplayLink::reach(Way way)
{
    m_link.reset();
    m_factory =
        std::make_unique<ComPortFactory>([this, way](const QString&) -> std::unique_ptr<ComPort> {
            if (way == Way::Terminal)
                return std::make_unique<TermiosComPort>(m_server->path());
            return std::make_unique<SimulatedComPort>(m_unit);
        });
    if (way == Way::Terminal) {
        m_server = std::make_unique<PtyServer>(m_unit);
        QCOMPARE(m_server->start(), 0);
    }
    m_link = std::make_unique<DisplayLink>(*m_factory);
    m_link->setReplyTarget(m_window.get(), WM_DISPLAY_UNIT);
}

/// Makes the link whose port does what m_script says.
void TestDisplayLink::useScript()
{
    m_link.reset();
    m_script = std::make_shared<PortScript>();
    m_factory = std::make_unique<ComPortFactory>(
        [this](const QString&) { return std::make_unique<ScriptedPort>(m_script); });
    m_link = std::make_unique<DisplayLink>(*m_factory);
    m_link->setReplyTarget(m_window.get(), WM_DISPLAY_UNIT);
}

/// Opens the link, and forgets the frames of the set-up.
bool TestDisplayLink::openUnit()
{
    const bool open = await(m_link->open(kSensorPort)) == 1 && m_link->takeMessage().isEmpty();
    (void)takeFrames();
    return open;
}

/// The result of a request, -1 if it is not answered in time.
int TestDisplayLink::await(RequestId request)
{
    (void)QTest::qWaitFor([&] { return m_window->resultOf(request) >= 0; });
    return m_window->resultOf(request);
}

QList<QByteArray> TestDisplayLink::takeFrames()
{
    QList<QByteArray> frames;
    for (const std::string& frame : m_unit->takeReceivedFrames())
        frames << QByteArray::fromStdString(frame);
    return frames;
}

void TestDisplayLink::unitIsSetUpReadAndSet_data()
{
    QTest::addColumn<Way>("way");
    for (const auto& [name, way] : kWays)
        QTest::newRow(name) << way;
}

void TestDisplayLink::unitIsSetUpReadAndSet()
{
    QFETCH(Way, way);
    reach(way);
    QCOMPARE(await(m_link->open(kSensorPort)), 1);
    QCOMPARE(takeFrames(), framesOf(kSetUpCommands));

    QCOMPARE(await(m_link->requestReading()), 1);
    QCOMPARE(takeFrames(), QList<QByteArray>{"$1RD"});
    QCOMPARE(m_link->lastReading(), QStringLiteral("12.345"));

    QCOMPARE(await(m_link->requestApply(kGray25)), 1);
    QCOMPARE(takeFrames(), framesOf(kApplyCommands));
    QCOMPARE(m_unit->settings(), (SimulatedDisplayUnit::Settings{"SSIGRAY", "25", "0.005"}));
    QCOMPARE(m_link->lastReading(), QStringLiteral("12.345"));
    QCOMPARE(m_link->takeMessage(), QString());
}

/// Each fault at each command; over the terminal, which only carries the bytes, at one command.
static void addFaults(const QList<QByteArray>& commands, int commandOverTerminal)
{
    QTest::addColumn<Way>("way");
    QTest::addColumn<int>("index");
    QTest::addColumn<SimulatedFault>("fault");
    for (const auto& [wayName, way] : kWays)
        for (int index = 0; index < commands.size(); ++index)
            for (const auto& [name, fault] : kFaults)
                if (way == Way::InProcess || index == commandOverTerminal)
                    QTest::addRow("%s: %s %s", wayName, commands[index].constData(), name)
                        << way << index << fault;
}

void TestDisplayLink::faultDuringSetUpEndsIt_data()
{
    addFaults(kSetUpCommands, 1);
}

void TestDisplayLink::faultDuringSetUpEndsIt()
{
    QFETCH(Way, way);
    QFETCH(int, index);
    QFETCH(SimulatedFault, fault);
    reach(way);
    m_unit->setFault(fault, kSetUpCommands[index].toStdString());

    QCOMPARE(await(m_link->open(kSensorPort)), 0);
    QCOMPARE(takeFrames(), framesOf(kSetUpCommands).mid(0, index + 1));
    QCOMPARE(m_link->takeMessage(),
             QStringLiteral("The display unit on unit (node 1) did not acknowledge its set-up."));
    QCOMPARE(m_link->takeMessage(), QString());
}

void TestDisplayLink::faultDuringApplyEndsIt_data()
{
    addFaults(kApplyCommands, 2);
}

void TestDisplayLink::faultDuringApplyEndsIt()
{
    QFETCH(Way, way);
    QFETCH(int, index);
    QFETCH(SimulatedFault, fault);
    reach(way);
    QVERIFY(openUnit());
    QCOMPARE(await(m_link->requestReading()), 1);
    (void)takeFrames();
    m_unit->setFault(fault, kApplyCommands[index].toStdString());

    QCOMPARE(await(m_link->requestApply(kGray25)), 0);
    QCOMPARE(takeFrames(), framesOf(kApplyCommands).mid(0, index + 1));
    QCOMPARE(m_link->lastReading(), QStringLiteral("12.345"));
    QCOMPARE(m_link->takeMessage(), QString());

    m_unit->clearFaults();
    // Once a late answer has passed:
    QVERIFY(QTest::qWaitFor([&] { return await(m_link->requestApply(kGray25)) == 1; }));
}

void TestDisplayLink::faultyReadingShowsStars_data()
{
    QTest::addColumn<Way>("way");
    QTest::addColumn<SimulatedFault>("fault");
    for (const auto& [wayName, way] : kWays)
        for (const auto& [name, fault] : kFaults)
            QTest::addRow("%s: %s", wayName, name) << way << fault;
}

void TestDisplayLink::faultyReadingShowsStars()
{
    QFETCH(Way, way);
    QFETCH(SimulatedFault, fault);
    reach(way);
    QVERIFY(openUnit());
    QCOMPARE(await(m_link->requestReading()), 1);
    m_unit->setFault(fault, "RD");

    QCOMPARE(await(m_link->requestReading()), 0);
    QCOMPARE(m_link->lastReading(), QStringLiteral("****"));
    QCOMPARE(m_link->takeMessage(), QString());

    m_unit->clearFaults();
    QVERIFY(QTest::qWaitFor([&] {
        return await(m_link->requestReading()) == 1 &&
               m_link->lastReading() == QStringLiteral("12.345");
    }));
}

void TestDisplayLink::answerIsReadAsFarAsItCounts_data()
{
    unitIsSetUpReadAndSet_data();
}

/// The rest still arrives for a moment; it must not pass for what the next command is answered.
void TestDisplayLink::answerIsReadAsFarAsItCounts()
{
    QFETCH(Way, way);
    reach(way);
    for (const char* command : {"SXeFFFFFFFF", "RD", "SPR0.005"}) // filled with zeros, no CR
        m_unit->setFault({SimulatedFault::Kind::Long, 20}, command);
    QCOMPARE(await(m_link->open(kSensorPort)), 1);
    QVERIFY(QTest::qWaitFor([&] { return await(m_link->requestReading()) == 1; }));
    QCOMPARE(m_link->lastReading(), QStringLiteral("12.34500000000"));
    QVERIFY(QTest::qWaitFor([&] { return await(m_link->requestApply(kGray25)) == 1; }));
    QCOMPARE(m_unit->settings(), (SimulatedDisplayUnit::Settings{"SSIGRAY", "25", "0.005"}));
}

void TestDisplayLink::unpluggedUnitIsToldOnce_data()
{
    unitIsSetUpReadAndSet_data();
}

void TestDisplayLink::unpluggedUnitIsToldOnce()
{
    QFETCH(Way, way);
    reach(way);
    QVERIFY(openUnit());
    m_unit->vanish();

    QString message; // the terminal goes a little later than the unit
    QVERIFY(QTest::qWaitFor([&] {
        (void)await(m_link->requestReading());
        message = m_link->takeMessage();
        return !message.isEmpty();
    }));
    QCOMPARE(m_link->lastReading(), QStringLiteral("****"));
    QVERIFY2(message.startsWith(QStringLiteral("Error in ")), qPrintable(message));
    QVERIFY2(message.endsWith(
                 QStringLiteral("Error = 19\nThe port unit no longer exists. Reconnect its "
                                "adapter, then close the window of the display unit and open it "
                                "again.")),
             qPrintable(message));

    m_unit->comeBack();
    QCOMPARE(await(m_link->requestReading()), 0);
    QCOMPARE(await(m_link->requestApply(kGray25)), 0);
    QCOMPARE(m_link->takeMessage(), QString());
}

void TestDisplayLink::failureIsToldAgainOnceItHasWorked()
{
    useScript();
    QVERIFY(openUnit());
    const QString error = QStringLiteral("Error in ReadFile. Error = 5");
    const auto readingTells = [this](int readError) {
        m_script->readError = readError;
        (void)await(m_link->requestReading());
        return m_link->takeMessage();
    };
    QCOMPARE(readingTells(5), error);
    QCOMPARE(readingTells(5), QString());
    {
        const std::lock_guard lock(m_script->mutex);
        m_script->answers = {QByteArray()};
    }
    QCOMPARE(readingTells(0), QString()); // silence is no sign that it works
    QCOMPARE(readingTells(5), QString());
    QCOMPARE(readingTells(0), QString());
    QCOMPARE(readingTells(5), error);
}

void TestDisplayLink::failureWithAnAnswerIsToldOnce()
{
    useScript();
    QVERIFY(openUnit());
    m_script->purgeError = 5;
    QCOMPARE(await(m_link->requestApply(kGray25)), 1);
    QCOMPARE(m_link->takeMessage(), QStringLiteral("Error in PurgeComm. Error = 5"));
    QCOMPARE(await(m_link->requestApply(kGray25)), 1);
    QCOMPARE(m_link->takeMessage(), QString());
}

void TestDisplayLink::failedOpeningIsExplained_data()
{
    QTest::addColumn<std::atomic<int> PortScript::*>("step");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("message");
    QTest::newRow("missing") << &PortScript::openError << ENOENT
                             << QStringLiteral("Port unit could not be opened (system error 2).");
    QTest::newRow("busy") << &PortScript::openError << EBUSY
                          << QStringLiteral("Port unit could not be opened (system error 16).\n"
                                            "unit is in use by another program.");
    QTest::newRow("permission")
        << &PortScript::openError << EACCES
        << QStringLiteral("Port unit could not be opened (system error 13).\nYou have no "
                          "permission to open unit. Add your user to the group dialout, then log "
                          "in again.");
    QTest::newRow("line") << &PortScript::lineError << EINVAL
                          << QStringLiteral("The line settings of port unit could not be set "
                                            "(system error 22).");
    QTest::newRow("time-outs") << &PortScript::timeoutsError << EINVAL
                               << QStringLiteral("The time-outs of port unit could not be set "
                                                 "(system error 22).");
    QTest::newRow("queues") << &PortScript::queuesError << EINVAL
                            << QStringLiteral("The queue sizes of port unit could not be set "
                                              "(system error 22).");
}

void TestDisplayLink::failedOpeningIsExplained()
{
    QFETCH(std::atomic<int> PortScript::*, step);
    QFETCH(int, error);
    useScript();
    (*m_script).*step = error;
    QCOMPARE(m_link->open(kSensorPort), RequestId{0});
    QTEST(m_link->takeMessage(), "message");
    QVERIFY(!m_script->open);
    QCOMPARE(await(m_link->requestReading()), 0);
    QCOMPARE(m_script->takeWritten(), QByteArray());
}

void TestDisplayLink::failedSetUpTellsTheErrorsInItsMessage()
{
    useScript();
    m_script->readError = 5;
    QCOMPARE(await(m_link->open(kSensorPort)), 0);
    QCOMPARE(m_link->takeMessage(),
             QStringLiteral("The display unit on unit (node 1) did not acknowledge its set-up.\n"
                            "Error in ReadFile. Error = 5"));
    QCOMPARE(m_script->line, (LineSettings{19200, 'N', 8, 1}));
    m_link->close();
    QVERIFY(!m_script->open);
}

void TestDisplayLink::portOfTheSensorIsNotOpened_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("number") << QByteArray("COM7");
    QTest::newRow("small letters") << QByteArray("com7");
    QTest::newRow("Windows device") << QByteArray("\\\\\\\\.\\\\COM7");
    QTest::newRow("path") << QByteArray("/dev/ttyS6");
}

void TestDisplayLink::portOfTheSensorIsNotOpened()
{
    QFETCH(QByteArray, name);
    m_registry->write(kPelorinKey + "\"QDL3Comport\"=\"" + name + "\"\r\n");
    useScript();
    QVERIFY(m_link->isPort(kSensorPort));
    QCOMPARE(m_link->open(kSensorPort), RequestId{0});
    QCOMPARE(m_link->takeMessage(),
             m_link->portName() +
                 QStringLiteral(" is the port of the sensor. The display unit needs a port of its "
                                "own; the value QDL3Comport of the settings names it."));
    QVERIFY(!m_script->open);

    QCOMPARE(await(m_link->open(kSensorPort + 1)), 1);
}

void TestDisplayLink::settingsNamePortAndNode_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QString>("port");
    QTest::addColumn<QByteArray>("firstFrame");
    QTest::newRow("both") << kPelorinKey + "\"QDL3Comport\"=\"\\\\\\\\.\\\\COM96\"\r\n" +
                                 "\"QDL3NodeID\"=dword:00000004\r\n"
                          << QStringLiteral("\\\\.\\COM96") << QByteArray("$4WE\r");
    QTest::newRow("neither") << kPelorinKey << QStringLiteral("COM1") << QByteArray("$1WE\r");
    QTest::newRow("no key") << QByteArray() << QString() << QByteArray("$1WE\r");
}

void TestDisplayLink::settingsNamePortAndNode()
{
    QFETCH(QByteArray, settings);
    m_registry->write(settings);
    useScript();
    QTEST(m_link->portName(), "port");
    QCOMPARE(await(m_link->open(kSensorPort)), 1);
    const QByteArray written = m_script->takeWritten();
    QTEST(written.left(written.indexOf('\r') + 1), "firstFrame");
}

void TestDisplayLink::requestWithoutWorkerFailsAtOnce()
{
    QCOMPARE(await(m_link->requestReading()), 0);
    QVERIFY(openUnit());
    m_link->close();
    QCOMPARE(await(m_link->requestReading()), 0);
    QCOMPARE(await(m_link->requestApply(kGray25)), 0);
    QCOMPARE(takeFrames(), QList<QByteArray>());
}

void TestDisplayLink::closeCutsShortWhatRuns_data()
{
    QTest::addColumn<Way>("way");
    QTest::addColumn<QByteArray>("command");
    for (const auto& [name, way] : kWays)
        for (const char* command : {"SdP3", "RD", "SXB25"})
            QTest::addRow("%s: %s", name, command) << way << QByteArray(command);
}

void TestDisplayLink::closeCutsShortWhatRuns()
{
    QFETCH(Way, way);
    QFETCH(QByteArray, command);
    Pacing::setSpeeds({1, 20, 0.05}); // an answer that does not come is waited for 10 seconds
    reach(way);
    m_unit->setFault({SimulatedFault::Kind::Silent}, command.toStdString());
    RequestId request = m_link->open(kSensorPort);
    if (command != "SdP3") {
        QCOMPARE(await(request), 1);
        request = command == "RD" ? m_link->requestReading() : m_link->requestApply(kGray25);
    }
    QList<QByteArray> frames;
    QTRY_VERIFY((frames += takeFrames()).contains("$1" + command));

    QElapsedTimer timer;
    timer.start();
    m_link->close();
    QVERIFY(timer.elapsed() < 5000);
    QCOMPARE(await(request), 0);
    SimulatedComPort other(m_unit);
    if (way == Way::InProcess)
        QCOMPARE(other.open(), 0); // the port has been given back
}

QTEST_GUILESS_MAIN(TestDisplayLink)
#include "TestDisplayLink.moc"
