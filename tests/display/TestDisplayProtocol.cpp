#include "display/DisplayProtocol.h"

#include "ScriptedPort.h"

#include <QTest>

#include <clocale>

using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr DisplaySettings kGray25{0x47, 25, 5};

} // namespace

/// What goes out and what counts as an answer, on a port whose answers are written down.
class TestDisplayProtocol : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(std::setlocale(LC_ALL, "")); }
    void init();
    void readingIsTheAnswerWithoutItsEnds_data();
    void readingIsTheAnswerWithoutItsEnds();
    void applySendsTheSettings_data();
    void applySendsTheSettings();
    void onlyStarAndOneMoreByteAcknowledge();
    void frameIsAddressedToTheNode();
    void onlyTheAnswerCountsWhenThePortFails_data();
    void onlyTheAnswerCountsWhenThePortFails();
    void errorOfSeveralCommandsIsToldOnce();

private:
    std::unique_ptr<ScriptedPort> m_port;
    std::shared_ptr<PortScript> m_script;
};

void TestDisplayProtocol::init()
{
    m_script = std::make_shared<PortScript>();
    m_port = std::make_unique<ScriptedPort>(m_script);
}

void TestDisplayProtocol::readingIsTheAnswerWithoutItsEnds_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QByteArray>("reading");
    const auto row = [](const char* name, const char* answer, const char* reading) {
        QTest::newRow(name) << QByteArray(answer) << QByteArray(reading);
    };
    row("number", "*12.345\r", "12.345");
    row("nothing displayed", "*\r", "");
    row("nothing after CR is read", "*1.5\r*9\r", "1.5");
    row("longest", "*12345678901234\r", "12345678901234");
    row("longer than 16 bytes", "*123456789012345678\r", "12345678901234");
    row("time runs out before CR", "*12.345", "12.34");
    for (const char* none : {"*", "", "\r", "?\r", "12.345\r"})
        row(none, none, "none");
}

void TestDisplayProtocol::readingIsTheAnswerWithoutItsEnds()
{
    QFETCH(QByteArray, answer);
    m_script->answers = {answer};
    QTEST(DisplayProtocol(*m_port, 1).readDisplay().value_or("none"), "reading");
    QCOMPARE(m_script->takeWritten(), QByteArray("\x24\x31\x52\x44\x0D"));
}

void TestDisplayProtocol::applySendsTheSettings_data()
{
    QTest::addColumn<DisplaySettings>("settings");
    QTest::addColumn<QByteArray>("frames");
    const auto row = [](const char* name, DisplaySettings settings, const char* frames) {
        QTest::newRow(name) << settings << QByteArray(frames);
    };
    row("Gray", kGray25, "$1WE\r$1SXTSSIGRAY\r$1SXB25\r$1SPR0.005\r");
    row("binary", {0x42, 24, 100}, "$1WE\r$1SXTSSIBIN\r$1SXB24\r$1SPR0.100\r");
    row("any other mode", {0, 1, 1}, "$1WE\r$1SXTSSIGRAY\r$1SXB1\r$1SPR0.001\r");
    row("largest", {0x42, 255, 255}, "$1WE\r$1SXTSSIBIN\r$1SXB255\r$1SPR0.255\r");
}

void TestDisplayProtocol::applySendsTheSettings()
{
    QFETCH(DisplaySettings, settings);
    QVERIFY(DisplayProtocol(*m_port, 1).apply(settings));
    QTEST(m_script->takeWritten(), "frames");
}

void TestDisplayProtocol::onlyStarAndOneMoreByteAcknowledge()
{
    for (const char* answer : {"", "*", "?\r", "\r*", "\r", "00000"}) {
        m_script->answers = {"*\r", answer};
        QVERIFY2(!DisplayProtocol(*m_port, 1).setUp(), answer);
        QCOMPARE(m_script->takeWritten(), QByteArray("$1WE\r$1SdP3\r"));
    }
    m_script->answers = {"**", "*\r*\r"};
    QVERIFY(DisplayProtocol(*m_port, 1).setUp());
}

void TestDisplayProtocol::frameIsAddressedToTheNode()
{
    for (const auto& [node, frame] : {std::pair(0, "$0RD\r"), {9, "$9RD\r"}, {10, "$:RD\r"}}) {
        (void)DisplayProtocol(*m_port, static_cast<std::uint8_t>(node)).readDisplay();
        QCOMPARE(m_script->takeWritten(), QByteArray(frame));
    }
}

void TestDisplayProtocol::onlyTheAnswerCountsWhenThePortFails_data()
{
    QTest::addColumn<std::atomic<int> PortScript::*>("step");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("isReading");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, std::atomic<int> PortScript::*step, int value,
                        bool isReading, const char* error) {
        QTest::newRow(name) << step << value << isReading << QString::fromLatin1(error);
    };
    row("purge", &PortScript::purgeError, 5, true, "Error in PurgeComm. Error = 5");
    row("write", &PortScript::writeError, 19, true, "Error in WriteFile. Error = 19");
    row("short write", &PortScript::missing, 2, true,
        "Byte count mismatch in WriteFile. Wrote = 3, Correct = 5,Error = 0");
    row("read", &PortScript::readError, 5, false, "Error in ReadFile. Error = 5");
}

void TestDisplayProtocol::onlyTheAnswerCountsWhenThePortFails()
{
    QFETCH(std::atomic<int> PortScript::*, step);
    QFETCH(int, value);
    QFETCH(QString, error);
    (*m_script).*step = value;
    m_script->otherwise = "*12.345\r";
    DisplayProtocol protocol(*m_port, 1);
    QTEST(protocol.readDisplay().has_value(), "isReading");
    QCOMPARE(m_script->takeWritten(), QByteArray("$1RD\r"));
    QCOMPARE(protocol.takeErrors(), QStringList(error));
    QCOMPARE(protocol.takeErrors(), QStringList());
}

void TestDisplayProtocol::errorOfSeveralCommandsIsToldOnce()
{
    m_script->purgeError = 5;
    DisplayProtocol protocol(*m_port, 1);
    QVERIFY(protocol.setUp());
    QCOMPARE(protocol.takeErrors(), QStringList(QStringLiteral("Error in PurgeComm. Error = 5")));
}

QTEST_GUILESS_MAIN(TestDisplayProtocol)
#include "TestDisplayProtocol.moc"
