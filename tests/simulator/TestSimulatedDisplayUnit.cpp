#include "simulator/SimulatedDisplayUnit.h"

#include <QTest>

using namespace pelorin;
using namespace std::chrono_literals;

using TimePoint = SimulatedDevice::TimePoint;

namespace {

/// A display unit on a line of its own, and the clock.
struct Bench
{
    explicit Bench(int node = 1) : unit(node) { unit.setLine({19200}, now); }

    QByteArray ask(std::string_view bytes)
    {
        (void)unit.receive(bytes, now);
        now += 100ms;
        return QByteArray::fromStdString(unit.take(now));
    }

    TimePoint now{100s};
    SimulatedDisplayUnit unit;
};

} // namespace

class TestSimulatedDisplayUnit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commandIsAcknowledgedOnceWritingIsAllowed_data();
    void commandIsAcknowledgedOnceWritingIsAllowed();
    void appliedSettingsAreKept();
    void otherNodesFramesAreIgnored();
    void valueShownMovesSlowly();
    void faultStrikesTheCommandsThatBeginWithItsText();
};

void TestSimulatedDisplayUnit::commandIsAcknowledgedOnceWritingIsAllowed_data()
{
    QTest::addColumn<bool>("known");
    for (const char* command : {"SdP3", "SPUMM", "SXAOFF", "SXE00000000", "SXeFFFFFFFF",
                                "SXTSSIBIN", "SXTSSIGRAY", "SXB25", "SPR0.005"})
        QTest::newRow(command) << true;
    for (const char* command : {"SXB", "SdP4", "XX"})
        QTest::newRow(command) << false;
}

void TestSimulatedDisplayUnit::commandIsAcknowledgedOnceWritingIsAllowed()
{
    QFETCH(bool, known);
    Bench bench;
    const std::string frame = std::string("$1") + QTest::currentDataTag() + '\r';

    QCOMPARE(bench.ask(frame), QByteArray("?\r"));
    QCOMPARE(bench.ask("$1WE\r"), QByteArray("*\r"));
    QCOMPARE(bench.ask(frame), QByteArray(known ? "*\r" : "?\r"));
}

void TestSimulatedDisplayUnit::appliedSettingsAreKept()
{
    Bench bench;
    for (const char* frame : {"$1WE\r", "$1SXTSSIGRAY\r", "$1SXB25\r", "$1SPR0.005\r"})
        QCOMPARE(bench.ask(frame), QByteArray("*\r"));
    QCOMPARE(bench.unit.settings(), (SimulatedDisplayUnit::Settings{"SSIGRAY", "25", "0.005"}));
    QCOMPARE(bench.unit.takeReceivedFrames(),
             (std::vector<std::string>{"$1WE", "$1SXTSSIGRAY", "$1SXB25", "$1SPR0.005"}));
}

void TestSimulatedDisplayUnit::otherNodesFramesAreIgnored()
{
    Bench bench(4);
    for (const char* frame : {"$1WE\r", "#4WE\r", "4WE\r", "$4\r", "$\r", "\r"})
        QCOMPARE(bench.ask(frame), QByteArray());
    QCOMPARE(bench.ask("$4WE\r"), QByteArray("*\r"));
}

void TestSimulatedDisplayUnit::valueShownMovesSlowly()
{
    Bench bench;
    double before = 0;
    for (int reading = 0; reading < 300; ++reading) {
        const QByteArray answer = bench.ask("$1RD\r");
        QVERIFY2(answer.startsWith('*') && answer.endsWith('\r'), answer);
        const double value = answer.mid(1).chopped(1).toDouble();
        QVERIFY2(value >= 100.0 && value <= 200.0, answer);
        QVERIFY2(reading == 0 || (value != before && std::abs(value - before) < 1.5), answer);
        before = value;
    }
}

void TestSimulatedDisplayUnit::faultStrikesTheCommandsThatBeginWithItsText()
{
    Bench bench;
    bench.unit.setReading("12.345");
    bench.unit.setFault({.kind = SimulatedFault::Kind::Silent}, "SdP3");
    bench.unit.setFault({.kind = SimulatedFault::Kind::NoTerminator}, "S");
    bench.unit.setFault({.kind = SimulatedFault::Kind::Short, .amount = 1}, "RD");
    QCOMPARE(bench.ask("$1WE\r"), QByteArray("*\r"));
    QCOMPARE(bench.ask("$1SdP3\r"), QByteArray());
    QCOMPARE(bench.ask("$1SPUMM\r"), QByteArray("*"));
    QCOMPARE(bench.ask("$1RD\r"), QByteArray("*"));
}

QTEST_APPLESS_MAIN(TestSimulatedDisplayUnit)
#include "TestSimulatedDisplayUnit.moc"
