#include "display/DisplayLink.h"

#include "ScriptedPort.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/Pacing.h"
#include "platform/core/TermiosComPort.h"
#include "simulator/PtyServer.h"
#include "simulator/SimulatedDisplayUnit.h"
#include "support/Languages.h"
#include "support/MessageCollector.h"
#include "support/NoThreads.h"
#include "support/TestRegistry.h"

#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

namespace {

using Script = PortScript;

constexpr int kSensorPort = 7;
const QByteArray kKey = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n";
const QByteArray kUnitPort = kKey + "\"QDL3Comport\"=\"unit\"\r\n";

} // namespace

class TestDisplayLink : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Pacing::setSpeeds({100, 20, 5}); }

    void failedOpeningIsExplained()
    {
        const std::tuple<std::atomic<int> Script::*, int, const char*> rows[] = {
            {&Script::openError, 16, "Port unit could not be opened (system error 16).\nunit is"},
            {&Script::openError, 13, "Port unit could not be opened (system error 13).\nYou have"},
            {&Script::lineError, 22, "The line settings of port unit could not be set"},
            {&Script::queuesError, 22, "The queue sizes of port unit could not be set"},
            {&Script::readError, 5,
             "The display unit on unit (node 1) did not acknowledge its set-up."
             "\nError in ReadFile"}};
        for (const auto& [step, error, message] : rows) {
            useScript(kUnitPort);
            (*m_script).*step = error;
            QCOMPARE(open(), 0);
            QVERIFY(!m_link->isOpen() && !m_script->open);
            QVERIFY2(isTold(message), message);
            QCOMPARE(await(m_link->requestReading()), 0);
        }
        const NoThreads none;
        useScript(kUnitPort);
        QCOMPARE(open(), 0);
        QVERIFY(isTold("The communication could not be started"));
    }

    void settingsNamePortAndNode()
    {
        const QByteArray port = kKey + "\"QDL3Comport\"=", node = kKey + "\"QDL3NodeID\"=dword:";
        const std::tuple<QByteArray, const char*, const char*> rows[] = {
            {port + "\"COM96\"\r\n\"QDL3NodeID\"=dword:00000004\r\n", "$4", ""},
            {"", "$1", ""},
            {port + "\"/dev/ttyS6\"\r\n", "", "/dev/ttyS6 is the port of the sensor."},
            {node + "00000101\r\n", "", "The value QDL3NodeID of the settings is 257."}};
        for (const auto& [settings, frame, refusal] : rows) {
            useScript(settings);
            QCOMPARE(open(), *frame ? 1 : 0);
            QVERIFY2(isTold(refusal), refusal);
            QCOMPARE(m_script->takeWritten().left(2), QByteArray(frame));
        }
    }

    void failureIsToldAgainOnceItHasWorked()
    {
        useScript(kUnitPort);
        QCOMPARE(open(), 1);
        const char* const error = "Error in ReadFile. Error = 5";
        const std::tuple<std::atomic<int> Script::*, const char*, const char*> rows[] = {
            {&Script::readError, "*\r", error}, {&Script::readError, "*\r", ""},
            {&Script::purgeError, "*\r", ""}, // answered, but it did not work
            {&Script::openError, "", ""},     // nor is silence a sign that it works
            {&Script::readError, "*\r", ""},    {&Script::openError, "*\r", ""},
            {&Script::readError, "*\r", error}};
        for (const auto& [step, answer, message] : rows) {
            m_script->otherwise = answer;
            (*m_script).*step = 5;
            (void)await(m_link->requestReading());
            (*m_script).*step = 0;
            QVERIFY2(isTold(message), message);
        }
    }

    /// Over a terminal: what is asked, and a port that goes while nothing is.
    void unitIsReadAndSetUntilItGoes()
    {
        Pacing::setSpeeds({100, 20, 0.1}); // the late answer is in time
        const auto unit = std::make_shared<SimulatedDisplayUnit>();
        unit->setReading("12.345");
        PtyServer server(unit);
        QCOMPARE(server.start(), 0);
        makeLink(kUnitPort, [&](auto&) { return std::make_unique<TermiosComPort>(server.path()); });
        QCOMPARE(open(), 1);
        (void)unit->takeReceivedFrames();

        unit->setFault({SimulatedFault::Kind::Late, 50, 1}, "RD");
        (void)m_link->requestReading();
        const RequestId apply = m_link->requestApply({0x47, 25, 5});
        QCOMPARE(await(m_link->requestReading()), 1);
        QCOMPARE(m_link->lastReading(), QStringLiteral("12.345"));
        QCOMPARE(await(apply), 1);
        QCOMPARE(unit->takeReceivedFrames().back(), std::string("$1SPR0.005"));
        QVERIFY(isTold(""));

        unit->vanish();
        QTRY_COMPARE(m_window->resultOf(0), 0);
        QVERIFY(isTold("The port unit no longer exists."));
        QCOMPARE(await(m_link->requestReading()), 0);
        QCOMPARE(m_link->lastReading(), QStringLiteral("****"));
        QVERIFY(isTold(""));
        QCOMPARE(await(m_link->close()), 1);
    }

private:
    /// @param begin of what is told; empty: nothing is
    bool isTold(const char* begin)
    {
        const QString message = m_link->takeMessage();
        return *begin ? message.startsWith(QLatin1String(begin)) : message.isEmpty();
    }
    void makeLink(const QByteArray& settings, const ComPortFactory::Maker& maker)
    {
        m_registry.write(settings);
        m_link.reset(); // before its factory
        m_factory = std::make_unique<ComPortFactory>(maker);
        m_window = std::make_unique<MessageCollector>();
        m_link = std::make_unique<DisplayLink>(*m_factory);
        m_link->setReplyTarget(m_window.get(), 1);
    }
    void useScript(const QByteArray& settings)
    {
        m_script = std::make_shared<PortScript>();
        makeLink(settings, [this](auto&) { return std::make_unique<ScriptedPort>(m_script); });
    }
    int open() { return await(m_link->open(kSensorPort)); }
    int await(RequestId request)
    {
        (void)QTest::qWaitFor([&] { return m_window->resultOf(request) >= 0; }, 30000);
        return m_window->resultOf(request);
    }

    const Languages m_languages{1};
    const TestRegistry m_registry{""};
    std::shared_ptr<PortScript> m_script;
    std::unique_ptr<ComPortFactory> m_factory;
    std::unique_ptr<MessageCollector> m_window;
    std::unique_ptr<DisplayLink> m_link;
};

QTEST_GUILESS_MAIN(TestDisplayLink)
#include "TestDisplayLink.moc"
