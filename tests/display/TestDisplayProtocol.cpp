#include "display/DisplayProtocol.h"

#include "ScriptedPort.h"

#include <QLocale>
#include <QTest>

#include <clocale>

using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr std::uint8_t kNode = 1;

const QList<QByteArray> kSetUpFrames{"$1WE\r",     "$1SdP3\r",        "$1SPUMM\r",
                                     "$1SXAOFF\r", "$1SXE00000000\r", "$1SXeFFFFFFFF\r"};
const QList<QByteArray> kApplyFrames{"$1WE\r", "$1SXTSSIGRAY\r", "$1SXB25\r", "$1SPR0.005\r"};
constexpr DisplaySettings kGray25{0x47, 25, 5};

} // namespace

class TestDisplayProtocol : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void readingIsTheAnswerWithoutItsEnds_data();
    void readingIsTheAnswerWithoutItsEnds();
    void setUpSendsItsSixCommands();
    void applySendsTheSettings_data();
    void applySendsTheSettings();
    void framesAreAddressedToTheNode_data();
    void framesAreAddressedToTheNode();
    void sequenceEndsAtTheFirstCommandNotAcknowledged_data();
    void sequenceEndsAtTheFirstCommandNotAcknowledged();
    void onlyTheAnswerCountsWhenThePortFails_data();
    void onlyTheAnswerCountsWhenThePortFails();
    void errorOfSeveralCommandsIsToldOnce();

private:
    std::shared_ptr<PortScript> m_script;
    std::unique_ptr<ScriptedPort> m_port;
};

void TestDisplayProtocol::init()
{
    m_script = std::make_shared<PortScript>();
    m_port = std::make_unique<ScriptedPort>(m_script);
}

void TestDisplayProtocol::readingIsTheAnswerWithoutItsEnds_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("isReading");
    QTest::addColumn<QByteArray>("reading");
    const auto row = [](const char* name, const char* answer, const char* reading) {
        QTest::newRow(name) << QByteArray(answer) << (reading != nullptr) << QByteArray(reading);
    };
    row("number", "*12.345\r", "12.345");
    row("nothing displayed", "*\r", "");
    row("nothing after CR is read", "*1.5\r*9\r", "1.5");
    row("longest", "*12345678901234\r", "12345678901234");
    row("longer than 16 bytes", "*123456789012345678\r", "12345678901234");
    row("time runs out before CR", "*12.345", "12.34");
    row("star alone", "*", nullptr);
    row("silence", "", nullptr);
    row("CR alone", "\r", nullptr);
    row("refusal", "?\r", nullptr);
    row("number without star", "12.345\r", nullptr);
}

void TestDisplayProtocol::readingIsTheAnswerWithoutItsEnds()
{
    QFETCH(QByteArray, answer);
    QFETCH(bool, isReading);
    QFETCH(QByteArray, reading);
    m_script->answers = {answer};
    DisplayProtocol protocol(*m_port, kNode);

    const auto read = protocol.readDisplay();
    QCOMPARE(m_script->takeWritten(), QByteArray("\x24\x31\x52\x44\x0D"));
    QCOMPARE(read.has_value(), isReading);
    QCOMPARE(read.value_or(QByteArray()), reading);
    QCOMPARE(protocol.takeErrors(), QStringList());
}

void TestDisplayProtocol::setUpSendsItsSixCommands()
{
    QVERIFY(DisplayProtocol(*m_port, kNode).setUp());
    QCOMPARE(m_script->takeWritten(), kSetUpFrames.join());
}

void TestDisplayProtocol::applySendsTheSettings_data()
{
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<DisplaySettings>("settings");
    QTest::addColumn<QByteArray>("frames");
    for (const char* locale : {"C", "de_DE.UTF-8"}) {
        const auto row = [locale](const char* name, DisplaySettings settings, const char* frames) {
            QTest::addRow("%s: %s", locale, name)
                << QByteArray(locale) << settings << QByteArray(frames);
        };
        row("Gray", kGray25, "$1WE\r$1SXTSSIGRAY\r$1SXB25\r$1SPR0.005\r");
        row("binary", {0x42, 24, 100}, "$1WE\r$1SXTSSIBIN\r$1SXB24\r$1SPR0.100\r");
        row("any other mode", {0, 1, 1}, "$1WE\r$1SXTSSIGRAY\r$1SXB1\r$1SPR0.001\r");
        row("largest", {0x42, 255, 255}, "$1WE\r$1SXTSSIBIN\r$1SXB255\r$1SPR0.255\r");
    }
}

void TestDisplayProtocol::applySendsTheSettings()
{
    QFETCH(QByteArray, locale);
    QFETCH(DisplaySettings, settings);
    QVERIFY(std::setlocale(LC_ALL, locale.constData()));
    QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
    const bool acknowledged = DisplayProtocol(*m_port, kNode).apply(settings);
    QLocale::setDefault(QLocale::c());
    QVERIFY(std::setlocale(LC_ALL, "C"));

    QVERIFY(acknowledged);
    QTEST(m_script->takeWritten(), "frames");
}

void TestDisplayProtocol::framesAreAddressedToTheNode_data()
{
    QTest::addColumn<int>("node");
    QTest::addColumn<QByteArray>("frame");
    QTest::newRow("lowest") << 0 << QByteArray("$0RD\r");
    QTest::newRow("highest") << 9 << QByteArray("$9RD\r");
    QTest::newRow("beyond the digits") << 10 << QByteArray("$:RD\r");
}

void TestDisplayProtocol::framesAreAddressedToTheNode()
{
    QFETCH(int, node);
    DisplayProtocol protocol(*m_port, static_cast<std::uint8_t>(node));
    QVERIFY(protocol.readDisplay());
    QTEST(m_script->takeWritten(), "frame");
}

void TestDisplayProtocol::sequenceEndsAtTheFirstCommandNotAcknowledged_data()
{
    QTest::addColumn<bool>("isSetUp");
    QTest::addColumn<int>("index");
    QTest::addColumn<QByteArray>("answer");
    const QList<std::pair<const char*, QByteArray>> answers{{"silence", ""},
                                                            {"short", "*"},
                                                            {"refusal", "?\r"},
                                                            {"CR first", "\r*"},
                                                            {"long", "00000"}};
    for (const bool isSetUp : {true, false})
        for (int index = 0; index < (isSetUp ? 6 : 4); ++index)
            for (const auto& [name, answer] : answers)
                QTest::addRow("%s %d: %s", isSetUp ? "set-up" : "apply", index + 1, name)
                    << isSetUp << index << answer;
}

void TestDisplayProtocol::sequenceEndsAtTheFirstCommandNotAcknowledged()
{
    QFETCH(bool, isSetUp);
    QFETCH(int, index);
    QFETCH(QByteArray, answer);
    m_script->answers = QList<QByteArray>(index, "*\r") << answer;
    DisplayProtocol protocol(*m_port, kNode);

    QVERIFY(!(isSetUp ? protocol.setUp() : protocol.apply(kGray25)));
    QCOMPARE(m_script->takeWritten(),
             (isSetUp ? kSetUpFrames : kApplyFrames).mid(0, index + 1).join());
}

void TestDisplayProtocol::onlyTheAnswerCountsWhenThePortFails_data()
{
    QTest::addColumn<std::atomic<int> PortScript::*>("step");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("isReading");
    QTest::addColumn<QString>("error");
    QTest::newRow("purge") << &PortScript::purgeError << 5 << true
                           << QStringLiteral("Error in PurgeComm. Error = 5");
    QTest::newRow("write") << &PortScript::writeError << 19 << true
                           << QStringLiteral("Error in WriteFile. Error = 19");
    QTest::newRow("short write")
        << &PortScript::missing << 2 << true
        << QStringLiteral("Byte count mismatch in WriteFile. Wrote = 3, Correct = 5,Error = 0");
    QTest::newRow("read") << &PortScript::readError << 5 << false
                          << QStringLiteral("Error in ReadFile. Error = 5");
}

void TestDisplayProtocol::onlyTheAnswerCountsWhenThePortFails()
{
    QFETCH(std::atomic<int> PortScript::*, step);
    QFETCH(int, value);
    QFETCH(bool, isReading);
    QFETCH(QString, error);
    (*m_script).*step = value;
    m_script->otherwise = "*12.345\r";
    DisplayProtocol protocol(*m_port, kNode);

    QCOMPARE(protocol.readDisplay().has_value(), isReading);
    QCOMPARE(m_script->takeWritten(), QByteArray("$1RD\r"));
    QCOMPARE(protocol.takeErrors(), QStringList(error));
    QCOMPARE(protocol.takeErrors(), QStringList());
}

void TestDisplayProtocol::errorOfSeveralCommandsIsToldOnce()
{
    m_script->purgeError = 5;
    DisplayProtocol protocol(*m_port, kNode);
    QVERIFY(protocol.setUp());
    QCOMPARE(protocol.takeErrors(), QStringList(QStringLiteral("Error in PurgeComm. Error = 5")));
}

QTEST_GUILESS_MAIN(TestDisplayProtocol)
#include "TestDisplayProtocol.moc"
