#include "display/DisplayProtocol.h"

#include "ScriptedPort.h"

#include <QTest>

#include <clocale>

using namespace pelorin;
using namespace pelorin::test;

/// What goes out and what counts as an answer, on a port whose answers are written down.
class TestDisplayProtocol : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(std::setlocale(LC_ALL, "")); }
    void init()
    {
        m_script = std::make_shared<PortScript>();
        m_port = std::make_unique<ScriptedPort>(m_script);
    }

    void readingIsTheAnswerWithoutItsEnds()
    {
        const std::pair<const char*, const char*> rows[] = {
            {"*12.345\r", "12.345"},
            {"*\r", ""},
            {"*1.5\r*9\r", "1.5"}, // nothing after CR is read
            {"*12345678901234\r", "12345678901234"},
            {"*123456789012345678\r", "12345678901234"}, // at most 16 bytes
            {"*12.345", "12.34"},                        // time runs out before CR
            {"*", "none"},
            {"", "none"},
            {"\r", "none"},
            {"?\r", "none"},
            {"12.345\r", "none"}};
        for (const auto& [answer, reading] : rows) {
            m_script->answers = {answer};
            QCOMPARE(DisplayProtocol(*m_port, 1).readDisplay().value_or("none"), reading);
            QCOMPARE(m_script->takeWritten(), QByteArray("\x24\x31\x52\x44\x0D"));
        }
    }

    void applySendsTheSettings()
    {
        const std::tuple<int, DisplaySettings, const char*> rows[] = {
            {1, {0x47, 25, 5}, "$1WE\r$1SXTSSIGRAY\r$1SXB25\r$1SPR0.005\r"},
            {0, {0x42, 24, 100}, "$0WE\r$0SXTSSIBIN\r$0SXB24\r$0SPR0.100\r"},
            {9, {0, 1, 1}, "$9WE\r$9SXTSSIGRAY\r$9SXB1\r$9SPR0.001\r"}, // any other mode
            {1, {0x42, 255, 255}, "$1WE\r$1SXTSSIBIN\r$1SXB255\r$1SPR0.255\r"}};
        for (const auto& [node, settings, frames] : rows) {
            QVERIFY(DisplayProtocol(*m_port, static_cast<std::uint8_t>(node)).apply(settings));
            QCOMPARE(m_script->takeWritten(), QByteArray(frames));
        }
    }

    void onlyStarAndOneMoreByteAcknowledge()
    {
        for (const char* answer : {"", "*", "?\r", "\r*", "\r", "00000"}) {
            m_script->answers = {"*\r", answer};
            QVERIFY2(!DisplayProtocol(*m_port, 1).setUp(), answer);
            QCOMPARE(m_script->takeWritten(), QByteArray("$1WE\r$1SdP3\r"));
        }
        m_script->answers = {"**", "*\r*\r"};
        QVERIFY(DisplayProtocol(*m_port, 1).setUp());
        QCOMPARE(m_script->takeWritten(), QByteArray("$1WE\r$1SdP3\r$1SPUMM\r$1SXAOFF\r"
                                                     "$1SXE00000000\r$1SXeFFFFFFFF\r"));
    }

    /// And an error of several commands is told once.
    void onlyTheAnswerCountsWhenThePortFails()
    {
        const std::tuple<std::atomic<int> PortScript::*, int, bool, std::string> rows[] = {
            {&PortScript::purgeError, 5, true, "Error in PurgeComm. Error = 5"},
            {&PortScript::writeError, 19, true, "Error in WriteFile. Error = 19"},
            {&PortScript::missing, 2, true,
             "Byte count mismatch in WriteFile. Wrote = 3, Correct = 5,Error = 0"},
            {&PortScript::readError, 5, false, "Error in ReadFile. Error = 5"}};
        for (const auto& [step, value, isReading, error] : rows) {
            init();
            (*m_script).*step = value;
            DisplayProtocol protocol(*m_port, 1);
            for (int i = 0; i < 2; ++i)
                QCOMPARE(protocol.readDisplay().has_value(), isReading);
            QCOMPARE(m_script->takeWritten(), QByteArray("$1RD\r$1RD\r"));
            QCOMPARE(protocol.takeErrors(), std::vector<std::string>{error});
            QCOMPARE(protocol.takeErrors(), std::vector<std::string>());
        }
    }

private:
    std::unique_ptr<ScriptedPort> m_port;
    std::shared_ptr<PortScript> m_script;
};

QTEST_GUILESS_MAIN(TestDisplayProtocol)
#include "TestDisplayProtocol.moc"
