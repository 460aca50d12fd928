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
const SimulatedDisplayUnit::Settings kGray25OfUnit{"SSIGRAY", "25", "0.005"};

const QByteArray kPelorinKey = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n";

const QList<QByteArray> kSetUpFrames{"$1WE",     "$1SdP3",        "$1SPUMM",
                                     "$1SXAOFF", "$1SXE00000000", "$1SXeFFFFFFFF"};
const QList<QByteArray> kReadingFrames{"$1RD"};
const QList<QByteArray> kApplyFrames{"$1WE", "$1SXTSSIGRAY", "$1SXB25", "$1SPR0.005"};

/// How the link reaches the unit.
enum class Way { InProcess, Terminal };

const QList<std::pair<const char*, Way>> kWays{{"in process", Way::InProcess},
                                               {"terminal", Way::Terminal}};

/// Late is beyond the time limit of init.
const QList<std::pair<const char*, SimulatedFault>> kFaults{
    {"silent", {SimulatedFault::Kind::Silent}},
    {"late", {SimulatedFault::Kind::Late, 150}},
    {"short", {SimulatedFault::Kind::Short, 1}},
    {"wrong", {SimulatedFault::Kind::WrongByte, 0}}};

void addWays()
{
    QTest::addColumn<Way>("way");
    for (const auto& [name, way] : kWays)
        QTest::newRow(name) << way;
}

} // namespace

class TestDisplayLink : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void unitIsSetUpReadAndSet_data() { addWays(); }
    void unitIsSetUpReadAndSet();
    void faultyAnswerEndsTheExchange_data();
    void faultyAnswerEndsTheExchange();
    void answerIsReadAsFarAsItCounts_data() { addWays(); }
    void answerIsReadAsFarAsItCounts();
    void unpluggedUnitIsToldOnce_data() { addWays(); }
    void unpluggedUnitIsToldOnce();
    void failureIsToldAgainOnceItHasWorked();
    void failedOpeningIsExplained_data();
    void failedOpeningIsExplained();
    void failedSetUpTellsTheErrorsInItsMessage();
    void portOfTheSensorIsNotOpened();
    void settingsNamePortAndNode();
    void nodeThatNoUnitHasIsRefused();
    void closeCutsShortWhatRuns_data();
    void closeCutsShortWhatRuns();

private:
    void reach(Way way);
    void useScript();
    void makeLink();
    [[nodiscard]] RequestId request(const QList<QByteArray>& frames);
    [[nodiscard]] int await(RequestId request);
    [[nodiscard]] bool openUnit();
    [[nodiscard]] QList<QByteArray> takeFrames();

    const Languages m_languages{1};
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
}

void TestDisplayLink::cleanup()
{
    m_link.reset();
    m_server.reset();
    m_registry.reset();
}

/// Makes the link whose port leads to the unit.
void TestDisplayLink::reach(Way way)
{
    if (way == Way::Terminal) {
        m_server = std::make_unique<PtyServer>(m_unit);
        QCOMPARE(m_server->start(), 0);
    }
    m_factory =
        std::make_unique<ComPortFactory>([this](const QString&) -> std::unique_ptr<ComPort> {
            if (m_server)
                return std::make_unique<TermiosComPort>(m_server->path());
            return std::make_unique<SimulatedComPort>(m_unit);
        });
    makeLink();
}

/// Makes the link whose port does what m_script says.
void TestDisplayLink::useScript()
{
    m_link.reset(); // before its port's factory
    m_script = std::make_shared<PortScript>();
    m_factory = std::make_unique<ComPortFactory>(
        [this](const QString&) { return std::make_unique<ScriptedPort>(m_script); });
    makeLink();
}

/// Each link counts its requests anew, so it gets a window of its own.
void TestDisplayLink::makeLink()
{
    m_link.reset();
    m_window = std::make_unique<MessageCollector>();
    m_link = std::make_unique<DisplayLink>(*m_factory);
    m_link->setReplyTarget(m_window.get(), WM_DISPLAY_UNIT);
}

/// Makes the request that sends these frames.
RequestId TestDisplayLink::request(const QList<QByteArray>& frames)
{
    if (frames == kSetUpFrames)
        return m_link->open(kSensorPort);
    return frames == kReadingFrames ? m_link->requestReading() : m_link->requestApply(kGray25);
}

/// The result of a request, -1 if it is not answered in time.
int TestDisplayLink::await(RequestId request)
{
    (void)QTest::qWaitFor([&] { return m_window->resultOf(request) >= 0; });
    return m_window->resultOf(request);
}

/// Opens the link and reads once, and forgets the frames of both.
bool TestDisplayLink::openUnit()
{
    const bool open = await(m_link->open(kSensorPort)) == 1 && m_link->takeMessage().isEmpty() &&
                      await(m_link->requestReading()) == 1;
    (void)takeFrames();
    return open;
}

QList<QByteArray> TestDisplayLink::takeFrames()
{
    QList<QByteArray> frames;
    for (const std::string& frame : m_unit->takeReceivedFrames())
        frames << QByteArray::fromStdString(frame);
    return frames;
}

void TestDisplayLink::unitIsSetUpReadAndSet()
{
    QFETCH(Way, way);
    reach(way);
    for (const auto& frames : {kSetUpFrames, kReadingFrames, kApplyFrames}) {
        QCOMPARE(await(request(frames)), 1);
        QCOMPARE(takeFrames(), frames);
    }
    QCOMPARE(m_unit->settings(), kGray25OfUnit);
    QCOMPARE(m_link->lastReading(), QStringLiteral("12.345"));
    QCOMPARE(m_link->takeMessage(), QString());
}

/// Each fault at each command; over the terminal, which only carries the bytes, at the last one.
void TestDisplayLink::faultyAnswerEndsTheExchange_data()
{
    QTest::addColumn<Way>("way");
    QTest::addColumn<QList<QByteArray>>("frames");
    QTest::addColumn<int>("index");
    QTest::addColumn<SimulatedFault>("fault");
    for (const auto& [wayName, way] : kWays)
        for (const auto& frames : {kSetUpFrames, kReadingFrames, kApplyFrames})
            for (int index = way == Way::InProcess ? 0 : static_cast<int>(frames.size()) - 1;
                 index < frames.size(); ++index)
                for (const auto& [name, fault] : kFaults)
                    QTest::addRow("%s, %d of %d: %s %s", wayName, index + 1,
                                  static_cast<int>(frames.size()), frames[index].constData(), name)
                        << way << frames << index << fault;
}

void TestDisplayLink::faultyAnswerEndsTheExchange()
{
    QFETCH(Way, way);
    QFETCH(QList<QByteArray>, frames);
    QFETCH(int, index);
    QFETCH(SimulatedFault, fault);
    const bool isSetUp = frames == kSetUpFrames;
    reach(way);
    QVERIFY(isSetUp || openUnit());
    m_unit->setFault(fault, frames[index].mid(2).toStdString());

    QCOMPARE(await(request(frames)), 0);
    QCOMPARE(takeFrames(), frames.mid(0, index + 1));
    QCOMPARE(m_link->takeMessage(), isSetUp ? QStringLiteral("The display unit on unit (node 1) "
                                                             "did not acknowledge its set-up.")
                                            : QString());
    if (isSetUp)
        return;
    QCOMPARE(m_link->lastReading(),
             frames == kReadingFrames ? QStringLiteral("****") : QStringLiteral("12.345"));
    m_unit->clearFaults();
    // Once a late answer has passed:
    QVERIFY(QTest::qWaitFor([&] { return await(request(frames)) == 1; }));
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
    QCOMPARE(m_unit->settings(), kGray25OfUnit);
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
    const auto tells = [this](std::atomic<int> PortScript::*step, int error) {
        (*m_script).*step = error;
        (void)await(m_link->requestReading());
        (*m_script).*step = 0;
        return m_link->takeMessage();
    };
    const QString error = QStringLiteral("Error in ReadFile. Error = 5");
    QCOMPARE(tells(&PortScript::readError, 5), error);
    QCOMPARE(tells(&PortScript::readError, 5), QString());
    QCOMPARE(tells(&PortScript::purgeError, 5), QString()); // answered, but it did not work
    {
        const std::lock_guard lock(m_script->mutex);
        m_script->answers = {QByteArray()};
    }
    QCOMPARE(tells(&PortScript::readError, 0), QString()); // silence is no sign that it works
    QCOMPARE(tells(&PortScript::readError, 5), QString());
    QCOMPARE(tells(&PortScript::readError, 0), QString());
    QCOMPARE(tells(&PortScript::readError, 5), error);
}

void TestDisplayLink::failedOpeningIsExplained_data()
{
    QTest::addColumn<std::atomic<int> PortScript::*>("step");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, std::atomic<int> PortScript::*step, int error,
                        const char* message) {
        QTest::newRow(name) << step << error << QString::fromLatin1(message);
    };
    row("missing", &PortScript::openError, ENOENT,
        "Port unit could not be opened (system error 2).");
    row("busy", &PortScript::openError, EBUSY,
        "Port unit could not be opened (system error 16).\nunit is in use by another program.");
    row("permission", &PortScript::openError, EACCES,
        "Port unit could not be opened (system error 13).\nYou have no permission to open unit. "
        "Add your user to the group dialout, then log in again.");
    row("line", &PortScript::lineError, EINVAL,
        "The line settings of port unit could not be set (system error 22).");
    row("time-outs", &PortScript::timeoutsError, EINVAL,
        "The time-outs of port unit could not be set (system error 22).");
    row("queues", &PortScript::queuesError, EINVAL,
        "The queue sizes of port unit could not be set (system error 22).");
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
}

void TestDisplayLink::portOfTheSensorIsNotOpened()
{
    for (const QByteArray name : {"COM7", "/dev/ttyS6"}) {
        m_registry->write(kPelorinKey + "\"QDL3Comport\"=\"" + name + "\"\r\n");
        useScript();
        QCOMPARE(m_link->open(kSensorPort), RequestId{0});
        QCOMPARE(m_link->takeMessage(),
                 QString::fromLatin1(name) +
                     QStringLiteral(" is the port of the sensor. The display unit needs a port of "
                                    "its own; the value QDL3Comport of the settings names it."));
        QVERIFY(!m_script->open);
        QCOMPARE(await(m_link->open(kSensorPort + 1)), 1);
    }
}

void TestDisplayLink::settingsNamePortAndNode()
{
    const QByteArray both = kPelorinKey + "\"QDL3Comport\"=\"\\\\\\\\.\\\\COM96\"\r\n" +
                            "\"QDL3NodeID\"=dword:00000004\r\n";
    for (const auto& [settings, port, firstFrame] : {std::tuple(both, "\\\\.\\COM96", "$4WE\r"),
                                                     {kPelorinKey, "COM1", "$1WE\r"},
                                                     {"", "", "$1WE\r"}}) {
        m_registry->write(settings);
        useScript();
        QCOMPARE(m_link->portName(), QString::fromLatin1(port));
        QCOMPARE(await(m_link->open(kSensorPort)), 1);
        QVERIFY(m_script->takeWritten().startsWith(firstFrame));
    }
}

void TestDisplayLink::nodeThatNoUnitHasIsRefused()
{
    for (const auto& [value, shown] :
         {std::pair("dword:0000000a", "10"), {"dword:ffffffff", "-1"}, {"dword:00000101", "257"}}) {
        m_registry->write(kPelorinKey + "\"QDL3NodeID\"=" + value + "\r\n");
        useScript();
        QCOMPARE(m_link->open(kSensorPort), RequestId{0});
        QCOMPARE(m_link->takeMessage(),
                 QStringLiteral("The value QDL3NodeID of the settings is %1. The display unit "
                                "needs a node from 0 to 9.")
                     .arg(QLatin1String(shown)));
        QVERIFY(!m_script->open);
    }
}

void TestDisplayLink::closeCutsShortWhatRuns_data()
{
    QTest::addColumn<Way>("way");
    QTest::addColumn<QList<QByteArray>>("frames");
    for (const auto& [name, way] : kWays)
        for (const auto& frames : {kSetUpFrames, kReadingFrames, kApplyFrames})
            QTest::addRow("%s: %s", name, frames.last().constData()) << way << frames;
}

void TestDisplayLink::closeCutsShortWhatRuns()
{
    QFETCH(Way, way);
    QFETCH(QList<QByteArray>, frames);
    reach(way);
    QVERIFY(frames == kSetUpFrames || openUnit());
    Pacing::setSpeeds({1, 20, 0.05}); // an answer that does not come is waited for 10 seconds
    m_unit->setFault({SimulatedFault::Kind::Silent}, frames.last().mid(2).toStdString());
    const RequestId running = request(frames);
    QList<QByteArray> sent;
    QVERIFY(QTest::qWaitFor([&] {
        sent += takeFrames();
        return sent == frames;
    }));

    QElapsedTimer timer;
    timer.start();
    m_link->close();
    QVERIFY(timer.elapsed() < 5000);
    QCOMPARE(await(running), 0);
    QCOMPARE(await(m_link->requestReading()), 0); // nobody is there to perform it
    SimulatedComPort other(m_unit);
    if (way == Way::InProcess)
        QCOMPARE(other.open(), 0); // the port has been given back
}

QTEST_GUILESS_MAIN(TestDisplayLink)
#include "TestDisplayLink.moc"
