#include "simulator/SimulatedSensor.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <cerrno>

using namespace pelorin;
using namespace std::chrono_literals;

using TimePoint = SimulatedDevice::TimePoint;
using Kind = SimulatedFault::Kind;
using Mode = SimulatedSensor::Mode;

namespace {

const LineSettings kParameterLine{4800};
const LineSettings kStreamLine{38400};

/// A sensor on a line of its own, and the clock.
struct Bench
{
    explicit Bench(const SimulatedSensor::Options& options = {}) : sensor(options)
    {
        sensor.setLine(kParameterLine, now);
    }

    void send(std::string_view bytes) { (void)sensor.receive(bytes, now); }

    /// What comes within a time.
    QByteArray heardFor(std::chrono::milliseconds time)
    {
        now += time;
        return QByteArray::fromStdString(sensor.take(now));
    }

    QByteArray ask(std::string_view bytes)
    {
        send(bytes);
        return heardFor(100ms);
    }

    void powerCycle()
    {
        sensor.setRts(true, now);
        now += 500ms;
        sensor.setRts(false, now);
    }

    void sendProgFrames(int count)
    {
        for (int frame = 0; frame < count; ++frame)
            send("PROG\r");
    }

    /// As a connect does it.
    void enterProgramming()
    {
        sensor.setLine(kParameterLine, now);
        powerCycle();
        sendProgFrames(101);
    }

    TimePoint now{100s};
    SimulatedSensor sensor;
};

SimulatedSensor::Options ofType(int type)
{
    SimulatedSensor::Options options;
    options.type = type;
    return options;
}

} // namespace

class TestSimulatedSensor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typeDecidesVersionAndParameters_data();
    void typeDecidesVersionAndParameters();
    void answersOnlyInProgrammingMode_data();
    void answersOnlyInProgrammingMode();
    void progFramesThatBeganBeforeTheSupplyCount();
    void answerArrivesByteByByteAtTheLineSpeed();
    void writeLastsOnlyOnceClosedWithTheCommandOfItsType();
    void positionFrameCarriesTheWord_data();
    void positionFrameCarriesTheWord();
    void streamStartsWithTheSupplyAndKeepsItsRate();
    void changeOfLineSpeedRestartsSensorWithoutRts();
    void faultSpoilsTheAnswer_data();
    void faultSpoilsTheAnswer();
    void faultRuleIsReadWholeOrNotAtAll_data();
    void faultRuleIsReadWholeOrNotAtAll();
    void faultStrikesAsOftenAsToldAndTheStreamToo();
    void portVanishesAtTheByteToldAndComesBackOnCommand();
};

void TestSimulatedSensor::typeDecidesVersionAndParameters_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<QByteArray>("parameters");

    QTest::newRow("type 0") << 0 << QByteArray("1A0204\r") << QByteArray("ADFLNPSUVZ");
    QTest::newRow("type 1") << 1 << QByteArray("2A0103\r") << QByteArray("ADFLMNPSUVZ");
    QTest::newRow("type 2") << 2 << QByteArray("3A0102\r") << QByteArray("ADFJKLMNOPSUVZ");
}

void TestSimulatedSensor::typeDecidesVersionAndParameters()
{
    QFETCH(int, type);
    QFETCH(QByteArray, version);
    QFETCH(QByteArray, parameters);
    Bench bench(ofType(type));
    bench.enterProgramming();

    QCOMPARE(bench.ask("VA\r"), version);

    QByteArray answering;
    for (char id = '!'; id <= '~'; ++id) {
        const QByteArray answer = bench.ask(std::string(1, id) + "A\r");
        if (answer.isEmpty())
            continue;
        answering += id;
        QVERIFY2(answer.size() >= 7 && answer.size() <= 9 && answer.endsWith('\r'), answer);
    }
    QCOMPARE(answering, parameters);
}

void TestSimulatedSensor::answersOnlyInProgrammingMode_data()
{
    QTest::addColumn<QByteArray>("sent");
    QTest::addColumn<int>("millisecondsAfterPower");
    QTest::addColumn<QByteArray>("answer");

    const QByteArray version("3A0102\r");
    const QByteArray entry = QByteArray("PROG\r").repeated(5);
    QTest::newRow("too few") << QByteArray("PROG\r").repeated(4) << 0 << QByteArray();
    QTest::newRow("just enough") << entry << 0 << version;
    QTest::newRow("begun in the middle of one") << "OG\r" + entry << 0 << version;
    QTest::newRow("broken off") << QByteArray("PROG\rPROG\rPROG\rPROG\rPRG\rPROG\r") << 0
                                << QByteArray();
    QTest::newRow("late") << entry << 2900 << version;
    QTest::newRow("too late") << entry << 3100 << QByteArray();
}

void TestSimulatedSensor::answersOnlyInProgrammingMode()
{
    QFETCH(QByteArray, sent);
    QFETCH(int, millisecondsAfterPower);
    QFETCH(QByteArray, answer);
    Bench bench;
    QCOMPARE(bench.sensor.mode(), Mode::Off);
    bench.sendProgFrames(101);
    QCOMPARE(bench.ask("VA\r"), QByteArray());

    bench.powerCycle();
    bench.now += std::chrono::milliseconds(millisecondsAfterPower);
    bench.send(sent.toStdString());

    QCOMPARE(bench.ask("VA\r"), answer);
    bench.sensor.setRts(true, bench.now);
    QCOMPARE(bench.ask("VA\r"), QByteArray());
}

void TestSimulatedSensor::progFramesThatBeganBeforeTheSupplyCount()
{
    SimulatedSensor::Options options;
    options.supply = SimulatedSensor::Supply::ByLineSpeed;
    Bench bench(options);
    bench.sensor.setSupply(false, bench.now);

    for (int tick = 0; tick < 20; ++tick) {
        bench.send("PRO");
        if (tick == 8)
            bench.sensor.setSupply(true, bench.now);
        bench.send("G\r");
        bench.now += 50ms;
    }
    QCOMPARE(bench.sensor.progFrames(), 11);
    QCOMPARE(bench.ask("VA\r"), QByteArray("3A0102\r"));
}

void TestSimulatedSensor::answerArrivesByteByByteAtTheLineSpeed()
{
    Bench bench;
    bench.enterProgramming();
    bench.send("VA\r");

    // Ten bits at 4800 baud take 2.083 ms.
    QCOMPARE(bench.heardFor(3ms), QByteArray());
    QCOMPARE(bench.heardFor(2ms), QByteArray("3"));
    QCOMPARE(bench.heardFor(8ms), QByteArray("A010"));
    const auto due = bench.sensor.nextDue(bench.now);
    QVERIFY(due);
    QVERIFY(*due > bench.now && *due <= bench.now + 2084us);
    QCOMPARE(bench.heardFor(10ms), QByteArray("2\r"));
    QVERIFY(!bench.sensor.nextDue(bench.now));
}

void TestSimulatedSensor::writeLastsOnlyOnceClosedWithTheCommandOfItsType()
{
    struct Closing
    {
        const char* frame;
        std::array<bool, 3> lasts; ///< by type
    };
    const Closing closings[] = {{"", {false, false, false}},
                                {"CN\r", {true, false, true}},
                                {"EN\r", {true, true, true}},
                                {"QN\r", {false, false, false}},
                                {"EN1\r", {false, false, false}}};
    for (const int type : {0, 1, 2}) {
        for (const auto& [frame, lasts] : closings) {
            Bench bench(ofType(type));
            bench.enterProgramming();
            const auto before = bench.sensor.parameter('N');
            QCOMPARE(bench.ask("NN123456\rVN1A0000\rNA\r"), QByteArray("123456\r"));
            QCOMPARE(bench.ask(frame), QByteArray());
            bench.enterProgramming();
            const bool kept = lasts[static_cast<std::size_t>(type)];
            QCOMPARE(bench.sensor.parameter('N'), kept ? std::string("123456") : before);
            QVERIFY(bench.sensor.parameter('V') != "1A0000"); // is not to be written
        }
    }
}

void TestSimulatedSensor::positionFrameCarriesTheWord_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<QByteArray>("resolution");
    QTest::addColumn<QByteArray>("offset");
    QTest::addColumn<double>("millimetres");
    QTest::addColumn<QByteArray>("frame");

    QTest::newRow("25 bits, one count") << QByteArray("040019") << QByteArray("00000010")
                                        << QByteArray("000000") << 0.01 << QByteArray("00000080\r");
    QTest::newRow("24 bits, negative") << QByteArray("040018") << QByteArray("00000010")
                                       << QByteArray("000000") << -0.01 << QByteArray("FFFFFF00\r");
    QTest::newRow("with an offset") // 2468 + 10 counts
        << QByteArray("4E0519") << QByteArray("00000005") << QByteArray("00000A") << 12.34
        << QByteArray("0004D700\r");
    QTest::newRow("with a negative offset") // 0 - 10 counts
        << QByteArray("040018") << QByteArray("00000005") << QByteArray("FFFFF6") << 0.0
        << QByteArray("FFFFF600\r");
    QTest::newRow("reverse") // 10000 - 2468 counts
        << QByteArray("050018") << QByteArray("00000005") << QByteArray("002710") << 12.34
        << QByteArray("001D6C00\r");
    QTest::newRow("nearest count") << QByteArray("040018") << QByteArray("00000100")
                                   << QByteArray("000000") << 0.26 << QByteArray("00000300\r");
}

void TestSimulatedSensor::positionFrameCarriesTheWord()
{
    QFETCH(QByteArray, format);
    QFETCH(QByteArray, resolution);
    QFETCH(QByteArray, offset);
    QFETCH(double, millimetres);
    QFETCH(QByteArray, frame);
    Bench bench;
    bench.sensor.setParameter('D', format.toStdString());
    bench.sensor.setParameter('A', resolution.toStdString());
    bench.sensor.setParameter('N', offset.toStdString());
    bench.sensor.setMagnetPosition(millimetres);

    bench.sensor.setLine(kStreamLine, bench.now);
    bench.powerCycle();

    // The first begins after 53 ms and takes 2.34 ms.
    QCOMPARE(bench.heardFor(56ms), frame);
}

void TestSimulatedSensor::streamStartsWithTheSupplyAndKeepsItsRate()
{
    Bench bench;
    bench.enterProgramming();
    bench.send("DN4E0519\r");
    bench.send("CN\r");
    bench.sensor.setRts(true, bench.now);
    bench.sensor.setLine(kStreamLine, bench.now);
    QCOMPARE(bench.heardFor(2500ms), QByteArray());

    bench.sensor.setRts(false, bench.now);
    QCOMPARE(bench.sensor.mode(), Mode::Streaming);
    QCOMPARE(bench.heardFor(53ms), QByteArray());
    bench.sendProgFrames(101);
    // Every 10 ms one; the last is on its way.
    const QByteArray heard = bench.heardFor(501ms);
    QCOMPARE(heard.count('\r'), 50);
    QVERIFY(!heard.endsWith('\r'));
    QVERIFY(heard.startsWith("00271500\r00271500\r"));
    QCOMPARE(bench.heardFor(2ms), QByteArray("71500\r"));

    // At another speed it is garbage, and only what is a second old is kept for who looks late.
    bench.sensor.setLine(kParameterLine, bench.now);
    const QByteArray garbage = bench.heardFor(1h);
    QVERIFY(garbage.size() >= 8 * 100 && garbage.size() <= 9 * 102);
    QVERIFY(std::ranges::all_of(garbage, [](char byte) { return (byte & 0x80) != 0; }));

    bench.enterProgramming();
    QCOMPARE(bench.sensor.mode(), Mode::Programming); // not at the speed of the stream
    QCOMPARE(bench.ask("DA\r"), QByteArray("4E0519\r"));
}

void TestSimulatedSensor::changeOfLineSpeedRestartsSensorWithoutRts()
{
    SimulatedSensor::Options options;
    options.supply = SimulatedSensor::Supply::ByLineSpeed;
    Bench bench(options);
    bench.now += 1h; // PROG frames are heard at any time
    bench.sendProgFrames(5);
    bench.send("DN4E0519\rCN\rAN00000001\r");
    bench.sensor.setRts(true, bench.now);
    QCOMPARE(bench.ask("AA\r"), QByteArray("00000001\r"));

    bench.sensor.setLine(kStreamLine, bench.now);
    QCOMPARE(bench.sensor.mode(), Mode::Streaming);
    bench.sensor.setLine(kParameterLine, bench.now);
    QCOMPARE(bench.sensor.mode(), Mode::Listening);
    bench.sendProgFrames(5);
    bench.sensor.setLine(kParameterLine, bench.now);
    QCOMPARE(bench.ask("AA\r"), QByteArray("00000005\r"));
}

void TestSimulatedSensor::faultSpoilsTheAnswer_data()
{
    QTest::addColumn<QByteArray>("rule");
    QTest::addColumn<QByteArray>("withinTheTimeLimit");
    QTest::addColumn<QByteArray>("later");

    const QByteArray whole("3A0102\r");
    QTest::newRow("silent") << QByteArray("silent") << QByteArray() << QByteArray();
    QTest::newRow("silent for another") << QByteArray("silent@A") << whole << QByteArray();
    QTest::newRow("silent for its writes") << QByteArray("silent@VN") << whole << QByteArray();
    QTest::newRow("late") << QByteArray("late:600") << QByteArray() << whole;
    QTest::newRow("short") << QByteArray("short:5") << QByteArray("3A010") << QByteArray();
    QTest::newRow("long") << QByteArray("long") << QByteArray("3A01020000") << QByteArray();
    QTest::newRow("wrong end") << QByteArray("wrong-byte:6") << QByteArray("3A0102\x8D")
                               << QByteArray();
    QTest::newRow("no CR") << QByteArray("no-cr") << QByteArray("3A0102") << QByteArray();
}

void TestSimulatedSensor::faultSpoilsTheAnswer()
{
    QFETCH(QByteArray, rule);
    QFETCH(QByteArray, withinTheTimeLimit);
    QFETCH(QByteArray, later);
    Bench bench;
    bench.enterProgramming();
    const auto parsed = SimulatedFaultRule::parse(rule.toStdString());
    QVERIFY(parsed);
    bench.sensor.setFault(parsed->fault, parsed->command);

    bench.send("VA\r");
    QCOMPARE(bench.heardFor(501ms), withinTheTimeLimit);
    QCOMPARE(bench.heardFor(1s), later);

    bench.sensor.clearFaults();
    QCOMPARE(bench.ask("VA\r"), QByteArray("3A0102\r"));
}

void TestSimulatedSensor::faultRuleIsReadWholeOrNotAtAll_data()
{
    QTest::addColumn<bool>("valid");
    for (const char* good : {"silent", "late", "late:0", "vanish:250@DN", "short:9@RD", "no-cr@SX"})
        QTest::newRow(good) << true;
    for (const char* bad : {"-", "Silent", "late:", "late:x", "late:5 ", "late:-1",
                            "late:99999999999", "silent@", "silent:1@", "@V", ":5"})
        QTest::newRow(bad) << false;
}

void TestSimulatedSensor::faultRuleIsReadWholeOrNotAtAll()
{
    QFETCH(bool, valid);
    QCOMPARE(SimulatedFaultRule::parse(QTest::currentDataTag()).has_value(), valid);
}

void TestSimulatedSensor::faultStrikesAsOftenAsToldAndTheStreamToo()
{
    Bench bench;
    bench.enterProgramming();
    bench.sensor.setFault({.kind = Kind::Silent, .times = 2}, "V");
    QCOMPARE(bench.ask("VA\rVA\rAA\r"), QByteArray("00000005\r"));
    QCOMPARE(bench.ask("VA\r"), QByteArray("3A0102\r"));

    bench.sensor.setFault({.kind = Kind::Short, .amount = 8, .times = 1}, "stream");
    bench.sensor.setParameter('D', "4E0519");
    bench.sensor.setLine(kStreamLine, bench.now);
    bench.powerCycle();
    QVERIFY(bench.heardFor(1s).startsWith("0027150000271500\r00271500\r"));
}

void TestSimulatedSensor::portVanishesAtTheByteToldAndComesBackOnCommand()
{
    Bench bench;
    bench.enterProgramming();
    bench.sensor.vanishAfter(4);
    QCOMPARE(bench.sensor.receive("VA", bench.now), 2);
    QVERIFY(bench.sensor.isPresent(bench.now));
    QCOMPARE(bench.sensor.receive("\rVA\r", bench.now), 2);
    QVERIFY(!bench.sensor.isPresent(bench.now));
    QCOMPARE(bench.heardFor(1h), QByteArray());
    QCOMPARE(bench.sensor.receive("VA\r", bench.now), 0);
    const int owner = 0;
    QCOMPARE(bench.sensor.claim(&owner, bench.now), ENOENT);

    bench.sensor.comeBack(bench.now);
    QVERIFY(bench.sensor.isPresent(bench.now));
    QCOMPARE(bench.sensor.mode(), Mode::Off);
    bench.enterProgramming();
    bench.send("NN000001\r");
    bench.sensor.setFault({.kind = Kind::Vanish, .amount = 2000}, "DN");
    QCOMPARE(bench.sensor.receive("DN000018\rEN\r", bench.now), 9);
    QCOMPARE(bench.sensor.claim(&owner, bench.now + 1999ms), ENOENT);
    bench.now += 2s;
    QCOMPARE(bench.sensor.claim(&owner, bench.now), 0);
    bench.enterProgramming();
    QCOMPARE(bench.ask("DA\rNA\r"), QByteArray("4A0519\r00000A\r")); // nothing was closed
}

QTEST_APPLESS_MAIN(TestSimulatedSensor)
#include "TestSimulatedSensor.moc"
