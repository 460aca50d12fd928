#include "link/PositionFrame.h"
#include "link/SensorProtocol.h"
#include "platform/core/Pacing.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedSensor.h"
#include "support/LogLines.h"
#include "support/PortDecorator.h"

#include <QTest>

#include <algorithm>

using namespace pelorin;
using namespace std::chrono_literals;

using Kind = SimulatedFault::Kind;

namespace {

/// A port whose reads end at once, as a script says: with a byte; at '.' with nothing, as when the
/// time is over; at '!' cut short. After the script it talks without end.
class ScriptedPort final : public test::PortDecorator
{
public:
    explicit ScriptedPort(std::string script) : PortDecorator(nullptr), m_script(std::move(script))
    {
    }

    int setTimeouts(const Timeouts& timeouts) override
    {
        m_limit = timeouts.readConstant;
        return 0;
    }
    int purge(Purge) override { return 0; }
    int setRts(bool) override { return 0; }
    WriteResult write(std::string_view bytes) override
    {
        if (!bytes.starts_with("PROG"))
            m_sent += bytes;
        return {0, static_cast<int>(bytes.size())};
    }
    ReadResult read() override
    {
        if (m_limit != Timeouts().readConstant)
            m_waits << m_limit;
        const char next = m_at < m_script.size() ? m_script[m_at++] : 'x';
        return {next == '!' ? ECANCELED : 0, next != '.' && next != '!', next};
    }

    [[nodiscard]] const std::string& sent() const { return m_sent; }
    [[nodiscard]] const QList<int>& waits() const { return m_waits; } ///< milliseconds

private:
    std::string m_script;
    std::size_t m_at = 0;
    int m_limit = Timeouts().readConstant;
    std::string m_sent;
    QList<int> m_waits;
};

} // namespace

/// The frames on the line of a simulated sensor, which knows no link.
class TestSensorProtocol : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void connectSendsItsFramesAndReadsTheVersion();
    void silentSensorIsTriedTwice();
    void replyIsTakenWholeOrNotAtAll();
    void whatHasComeBeforeIsDiscarded();
    void lateAnswerIsOutlasted_data();
    void lateAnswerIsOutlasted();
    void onlyReadsAndWritesWait();
    void writeFrameCarriesIdAndValue();
    void vanishedPortIsReportedAndLogged();
    void portThatGoesBeforeTheAnswerIsReported();
    void rawExchangeReturnsEveryByte();
    void rawExchangeOfATalkingSensorIsCut();
    void positionFrameIsScaled();

private:
    [[nodiscard]] QStringList logged() const { return test::logLines(*m_log); }
    [[nodiscard]] SensorProtocol protocolOn(ComPort& port)
    {
        return {port, *m_log, {[this] { ++m_losses; }, [] {}, [](auto) { return true; }}};
    }

    std::shared_ptr<SimulatedSensor> m_sensor;
    std::unique_ptr<SimulatedComPort> m_port;
    std::unique_ptr<CommLog> m_log;
    std::unique_ptr<SensorProtocol> m_protocol;
    int m_losses = 0;
};

void TestSensorProtocol::init()
{
    Pacing::setSpeeds({100, 100, 5});
    m_losses = 0;
    m_sensor = std::make_shared<SimulatedSensor>(SimulatedSensor::Options{.type = 2});
    m_port = std::make_unique<SimulatedComPort>(m_sensor);
    QCOMPARE(m_port->open(), 0);
    QCOMPARE(m_port->setLine({4800, 'N', 8, 1}), 0);
    m_log = std::make_unique<CommLog>();
    m_protocol = std::make_unique<SensorProtocol>(protocolOn(*m_port));
}

void TestSensorProtocol::connectSendsItsFramesAndReadsTheVersion()
{
    m_sensor->setParameter('V', "1A0B2C");
    QCOMPARE(m_protocol->connect(), QByteArray("1A0B2C"));
    QCOMPARE(m_sensor->progFrames(), 101);
    QCOMPARE(logged(), (QStringList{QStringLiteral("TX: [56][Get][TERM]"),
                                    QStringLiteral("RX: [31][Get][30][42][32][43][TERM]")}));
    QCOMPARE(m_losses, 0);
}

void TestSensorProtocol::silentSensorIsTriedTwice()
{
    m_sensor->setFault({Kind::Silent}, "V");
    QVERIFY(!m_protocol->connect());
    const QStringList attempt{QStringLiteral("TX: [56][Get][TERM]"), QStringLiteral("RX: "),
                              QStringLiteral("Invalid input byte count of 0")};
    QCOMPARE(logged(), attempt + attempt);
    QCOMPARE(m_losses, 0);
}

void TestSensorProtocol::replyIsTakenWholeOrNotAtAll()
{
    for (const auto& [script, taken, lastLine] :
         {std::tuple("0A1234\r", true, "RX: [30][Get][31][32][33][34][TERM]"),
          std::tuple("0N345678\r", true, "RX: [30][Set][33][34][35][36][37][38][TERM]"),
          std::tuple("12345\r", false, "Invalid input byte count of 6"),
          std::tuple("12345678.", false, "Invalid message terminator received ($38)"),
          std::tuple("1234567890", false, "Invalid input byte count of 10"),
          std::tuple(".", false, "Invalid input byte count of 0")}) {
        ScriptedPort port(script);
        const auto reply = protocolOn(port).readParameter('F');
        QCOMPARE(reply.has_value(), taken);
        if (taken)
            QCOMPARE(*reply + '\r', QByteArray(script));
        QCOMPARE(logged().back(), QLatin1String(lastLine));
    }
}

void TestSensorProtocol::whatHasComeBeforeIsDiscarded()
{
    QVERIFY(m_protocol->connect());
    m_sensor->setParameter('F', "222222");
    Pacing::setSpeeds({100, 1e9, 5}); // what has begun to come is there
    QCOMPARE(m_port->write("VA\r").written, 3);
    QVERIFY(m_port->read().received);
    QCOMPARE(m_protocol->readParameter('F'), QByteArray("222222"));
}

void TestSensorProtocol::lateAnswerIsOutlasted_data()
{
    QTest::addColumn<QByteArray>("script"); // of a read, what is waited for, and the next read
    QTest::addColumn<double>("speed");
    QTest::addColumn<QList<int>>("waits"); // at most, milliseconds
    QTest::newRow("answered") << QByteArray("111111\r222222\r") << 1.0 << QList<int>();
    QTest::newRow("silent") << QByteArray("..222222\r") << 1.0 << QList<int>{1500};
    QTest::newRow("late") << QByteArray(".1\r.222222\r") << 1.0 << QList<int>{1500, 200, 200};
    QTest::newRow("disturbed") << QByteArray("1\r.222222\r") << 1.0 << QList<int>{1500};
    QTest::newRow("cut short") << QByteArray("!.222222\r") << 1.0 << QList<int>{1500};
    QTest::newRow("longer ago") << QByteArray(".222222\r") << 1e9 << QList<int>();
}

void TestSensorProtocol::lateAnswerIsOutlasted()
{
    QFETCH(QByteArray, script);
    QFETCH(double, speed);
    QFETCH(QList<int>, waits);
    ScriptedPort port(script.toStdString());
    SensorProtocol protocol = protocolOn(port);
    Pacing::setSpeeds({100, 100, speed});
    (void)protocol.readParameter('D');
    QCOMPARE(protocol.readParameter('A'), QByteArray("222222"));
    QCOMPARE(port.sent(), std::string("DA\rAA\r"));
    QCOMPARE(port.waits().size(), waits.size());
    for (qsizetype at = 0; at < waits.size(); ++at)
        QVERIFY(port.waits()[at] <= waits[at] && port.waits()[at] > waits[at] - 1000);
}

void TestSensorProtocol::onlyReadsAndWritesWait()
{
    ScriptedPort port("...!!" // a read; a keep-alive, a raw exchange, a position and a raw exchange
                      "222222\r"); // that is cut short, a connect
    SensorProtocol protocol = protocolOn(port);
    (void)protocol.readParameter('D');
    protocol.sendKeepAlive();
    (void)protocol.rawExchange("1");
    (void)protocol.readPositionFrame();
    QVERIFY(protocol.rawExchange("2").cut);
    (void)protocol.readPositionFrame();
    QCOMPARE(protocol.connect(), QByteArray("222222"));
    QCOMPARE(protocol.writeParameter('E', QByteArray()), 1);
    QVERIFY(port.waits().isEmpty()); // the connect was answered
    QCOMPARE(port.sent(), std::string("DA\r12VA\rEN\r"));

    Pacing::setSpeeds({100, 100, 100}); // from here on it talks without end
    (void)protocol.readParameter('D');
    QCOMPARE(protocol.writeParameter('E', QByteArray()), 1);
    QVERIFY(port.waits().size() > 2);
    QVERIFY(*std::max_element(port.waits().begin() + 1, port.waits().end()) <= 200);
}

void TestSensorProtocol::writeFrameCarriesIdAndValue()
{
    ScriptedPort port({});
    SensorProtocol protocol = protocolOn(port);
    QCOMPARE(protocol.writeParameter('E', QByteArray()), 1);
    QCOMPARE(logged().back(), QStringLiteral("TX: [45][Set][TERM]"));
    QCOMPARE(protocol.writeParameter('F', "ABCDEFGHI"), 1);
    QCOMPARE(logged().back(),
             QStringLiteral("TX: [46][Set][41][42][43][44][45][46][47][48][49][TERM]"));
    QCOMPARE(protocol.writeParameter('F', "ABCDEFGHIJ"), 0);
    QCOMPARE(logged().back(), QStringLiteral("Invalid output data length of 10"));
    QCOMPARE(port.sent(), std::string("\x45\x4E\rFNABCDEFGHI\r"));
}

void TestSensorProtocol::vanishedPortIsReportedAndLogged()
{
    m_sensor->vanish();
    const auto reply = m_protocol->rawExchange("FA\r");
    QVERIFY(reply.bytes.isEmpty() && !reply.cut);
    QCOMPARE(m_losses, 1);
    QCOMPARE(m_protocol->writeParameter('E', QByteArray()), 1);
    QCOMPARE(m_losses, 3);
    QCOMPARE(m_protocol->setRts(0), 0);
    QCOMPARE(m_protocol->setRts(1), 0);
    QVERIFY(!m_protocol->readPositionFrame());
    QCOMPARE(m_losses, 4);
    QCOMPARE(logged(),
             (QStringList{QStringLiteral("Error in PurgeComm. Error = 19"),
                          QStringLiteral("Error in WriteFile. Error = 19"),
                          QStringLiteral("Error in EscapeCommFunction SETRTS. Error = 19"),
                          QStringLiteral("Error in EscapeCommFunction CLRRTS. Error = 19"),
                          QStringLiteral("Error in PurgeComm. Error = 19")}));
}

void TestSensorProtocol::portThatGoesBeforeTheAnswerIsReported()
{
    test::WatchedPort port(std::move(m_port), [this](auto) { m_sensor->vanish(); });
    QVERIFY(!protocolOn(port).readParameter('D'));
    QCOMPARE(m_losses, 1);
    QCOMPARE(logged().front(), QStringLiteral("TX: [44][Get][TERM]"));
}

void TestSensorProtocol::rawExchangeReturnsEveryByte()
{
    QVERIFY(m_protocol->connect());
    const auto before = logged().size();
    m_sensor->setParameter('F', "\r\n\x01\xff"
                                "A1");
    const auto reply = m_protocol->rawExchange("FA\r");
    QCOMPARE(reply.bytes, QByteArray("\r\n\x01\xff"
                                     "A1\r"));
    QVERIFY(!reply.cut);
    QCOMPARE(logged().size(), before);
}

void TestSensorProtocol::rawExchangeOfATalkingSensorIsCut()
{
    for (const auto& [script, pauses, least, most] :
         {std::tuple("", 1.0, 1'048'576, 1'048'576), // after 1 MiB
          std::tuple("", 60'000.0, 1, 1'048'575),    // after 60 s
          std::tuple("1234567!", 1.0, 7, 7)}) {      // at once on stop
        Pacing::setSpeeds({pauses, 100, 5});
        ScriptedPort port(script);
        const auto reply = protocolOn(port).rawExchange("1");
        QVERIFY(reply.cut);
        QVERIFY2(reply.bytes.size() >= least && reply.bytes.size() <= most, script);
    }
    QCOMPARE(m_losses, 0);
}

void TestSensorProtocol::positionFrameIsScaled()
{
    constexpr double kNone = -0.5; // counts
    for (const auto& [frame, dataBits, counts] :
         {std::tuple("00000100\r", 24, 1.0), std::tuple("FFFFFF00\r", 24, -1.0),
          std::tuple("80000000\r", 25, -16777216.0), std::tuple("80000000\r", 1, -1.0),
          std::tuple("00000002\r", 31, 1.0), std::tuple("FFFFFFFF\r", 32, -1.0),
          std::tuple("00000001\r", 200, 1.0), std::tuple("FFxx0100\r", 24, kNone),
          std::tuple(" 0000100\r", 24, kNone), std::tuple("0000100\r", 24, kNone),
          std::tuple("000001000", 24, kNone), std::tuple("", 24, kNone)}) {
        const auto position = decodePosition(frame, {dataBits, 0.005});
        QVERIFY2(position.value_or(kNone * 0.005) == counts * 0.005, frame);
    }
}

QTEST_GUILESS_MAIN(TestSensorProtocol)
#include "TestSensorProtocol.moc"
