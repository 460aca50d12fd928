#include "link/CommLog.h"
#include "link/PositionFrame.h"
#include "link/SensorProtocol.h"
#include "platform/core/Pacing.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedSensor.h"

#include <QTest>

#include <thread>

using namespace pelorin;
using namespace std::chrono_literals;

namespace {

/// A port whose other end sends without end.
class TalkingPort final : public ComPort
{
public:
    /// @param byteTime how long each byte takes
    /// @param stopAfter bytes until a stop interrupts the port
    TalkingPort(std::chrono::microseconds byteTime, int stopAfter)
        : m_byteTime(byteTime), m_bytesLeft(stopAfter)
    {
    }

    int open() override { return 0; }
    bool isOpen() const override { return true; }
    int setLine(const LineSettings&) override { return 0; }
    int setTimeouts(const Timeouts&) override { return 0; }
    int setQueueSizes(int, int) override { return 0; }
    int purge(Purge) override { return 0; }
    int setRts(bool) override { return 0; }
    ReadResult read() override
    {
        if (m_bytesLeft-- == 0)
            return {ECANCELED, false, 0};
        std::this_thread::sleep_for(m_byteTime);
        return {0, true, 'x'};
    }
    WriteResult write(std::string_view bytes) override { return {0, int(bytes.size())}; }
    void interrupt() override {}
    void close() override {}

private:
    std::chrono::microseconds m_byteTime;
    int m_bytesLeft;
};

} // namespace

/// A port on a simulated sensor whose supply has been switched by hand.
class TestSensorProtocol : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void connectSendsItsFramesAndReadsTheVersion();
    void silentSensorIsTriedTwice();
    void replyIsTakenWholeOrNotAtAll_data();
    void replyIsTakenWholeOrNotAtAll();
    void writeFrameCarriesIdAndValue_data();
    void writeFrameCarriesIdAndValue();
    void tooLongValueIsNeverSent();
    void vanishedPortIsReportedAndLogged();
    void rawExchangeReturnsEveryByte();
    void rawExchangeOfATalkingSensorIsCut_data();
    void rawExchangeOfATalkingSensorIsCut();
    void rawExchangeReportsAVanishedPortOnce();
    void positionFrameIsScaled_data();
    void positionFrameIsScaled();

private:
    [[nodiscard]] QStringList logged() const;
    void openPort(const SimulatedSensor::Options& options);

    std::shared_ptr<SimulatedSensor> m_sensor;
    std::unique_ptr<SimulatedComPort> m_port;
    std::unique_ptr<CommLog> m_log;
    std::unique_ptr<SensorProtocol> m_protocol;
    int m_losses = 0;
};

void TestSensorProtocol::initTestCase()
{
    Pacing::setSpeeds({100, 100, 10});
}

void TestSensorProtocol::init()
{
    openPort({.type = 2});
}

void TestSensorProtocol::openPort(const SimulatedSensor::Options& options)
{
    m_protocol.reset();
    m_port.reset();
    m_losses = 0;
    m_sensor = std::make_shared<SimulatedSensor>(options);
    m_port = std::make_unique<SimulatedComPort>(m_sensor);
    QCOMPARE(m_port->open(), 0);
    QCOMPARE(m_port->setLine({4800, 'N', 8, 1}), 0);
    m_log = std::make_unique<CommLog>();
    m_protocol = std::make_unique<SensorProtocol>(
        *m_port, *m_log,
        SensorProtocol::Callbacks{[this] { ++m_losses; },
                                  [](std::chrono::milliseconds duration) {
                                      Pacing::sleep(duration);
                                      return true;
                                  }});
}

QStringList TestSensorProtocol::logged() const
{
    QStringList lines;
    const auto snapshot = m_log->snapshot();
    for (int index = 0; index < snapshot.size(); ++index)
        lines << snapshot.line(index);
    return lines;
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
    m_sensor->setFault({SimulatedFault::Kind::Silent}, "V");
    QVERIFY(!m_protocol->connect());

    const QStringList attempt{QStringLiteral("TX: [56][Get][TERM]"), QStringLiteral("RX: "),
                              QStringLiteral("Invalid input byte count of 0")};
    QCOMPARE(logged(), attempt + attempt);
    QCOMPARE(m_losses, 0);
}

void TestSensorProtocol::replyIsTakenWholeOrNotAtAll_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<SimulatedFault::Kind>("fault");
    QTest::addColumn<int>("amount");
    QTest::addColumn<bool>("taken");
    QTest::addColumn<QString>("lastLine");

    using Kind = SimulatedFault::Kind;
    QTest::newRow("six data bytes") << QByteArray("0A1234") << Kind::None << 0 << true
                                    << QStringLiteral("RX: [30][Get][31][32][33][34][TERM]");
    QTest::newRow("eight data bytes")
        << QByteArray("0N345678") << Kind::None << 0 << true
        << QStringLiteral("RX: [30][Set][33][34][35][36][37][38][TERM]");
    QTest::newRow("five data bytes") << QByteArray("12345") << Kind::None << 0 << false
                                     << QStringLiteral("Invalid input byte count of 6");
    QTest::newRow("only a terminator") << QByteArray("x") << Kind::None << 0 << false
                                       << QStringLiteral("Invalid input byte count of 2");
    QTest::newRow("eight bytes, then silence")
        << QByteArray("12345678") << Kind::Short << 8 << false
        << QStringLiteral("Invalid message terminator received ($38)");
    QTest::newRow("ten bytes without a terminator")
        << QByteArray("123456") << Kind::Long << 10 << false
        << QStringLiteral("Invalid input byte count of 10");
    QTest::newRow("silence") << QByteArray("123456") << Kind::Silent << 0 << false
                             << QStringLiteral("Invalid input byte count of 0");
}

void TestSensorProtocol::replyIsTakenWholeOrNotAtAll()
{
    QFETCH(QByteArray, text);
    QFETCH(SimulatedFault::Kind, fault);
    QFETCH(int, amount);
    QFETCH(bool, taken);
    QFETCH(QString, lastLine);

    QVERIFY(m_protocol->connect());
    m_sensor->setParameter('F', text.toStdString());
    m_sensor->setFault({fault, amount}, "F");
    const auto reply = m_protocol->readParameter('F');

    QCOMPARE(reply.has_value(), taken);
    if (taken)
        QCOMPARE(*reply, text);
    QCOMPARE(logged().back(), lastLine);
}

void TestSensorProtocol::writeFrameCarriesIdAndValue_data()
{
    QTest::addColumn<char>("id");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<QString>("line");

    QTest::newRow("closing command")
        << 'E' << QByteArray() << QByteArray("\x45\x4E") << QStringLiteral("TX: [45][Set][TERM]");
    QTest::newRow("data format") << 'D' << QByteArray("4A0519") << QByteArray("DN4A0519")
                                 << QStringLiteral("TX: [44][Set][34][41][30][35][31][39][TERM]");
    QTest::newRow("nine characters")
        << 'F' << QByteArray("ABCDEFGHI") << QByteArray("FNABCDEFGHI")
        << QStringLiteral("TX: [46][Set][41][42][43][44][45][46][47][48][49][TERM]");
}

void TestSensorProtocol::writeFrameCarriesIdAndValue()
{
    QFETCH(char, id);
    QFETCH(QByteArray, value);
    QFETCH(QByteArray, frame);
    QFETCH(QString, line);

    QVERIFY(m_protocol->connect());
    (void)m_sensor->takeReceivedFrames();
    QCOMPARE(m_protocol->writeParameter(id, value), 1);

    QCOMPARE(m_sensor->takeReceivedFrames(), std::vector<std::string>{frame.toStdString()});
    QCOMPARE(logged().back(), line);
}

void TestSensorProtocol::tooLongValueIsNeverSent()
{
    QVERIFY(m_protocol->connect());
    (void)m_sensor->takeReceivedFrames();
    QCOMPARE(m_protocol->writeParameter('F', "ABCDEFGHIJ"), 0);

    QVERIFY(m_sensor->takeReceivedFrames().empty());
    QCOMPARE(logged().back(), QStringLiteral("Invalid output data length of 10"));
}

void TestSensorProtocol::vanishedPortIsReportedAndLogged()
{
    QVERIFY(m_protocol->connect());
    m_sensor->vanish();
    const auto before = logged().size();
    QCOMPARE(m_protocol->writeParameter('E', QByteArray()), 1);

    QCOMPARE(logged().mid(before), (QStringList{QStringLiteral("Error in PurgeComm. Error = 19"),
                                                QStringLiteral("Error in WriteFile. Error = 19")}));
    QCOMPARE(m_losses, 2);

    m_protocol->setRts(*m_port, *m_log, 0);
    m_protocol->setRts(*m_port, *m_log, 1);
    QCOMPARE(logged().mid(before + 2),
             (QStringList{QStringLiteral("Error in EscapeCommFunction SETRTS. Error = 19"),
                          QStringLiteral("Error in EscapeCommFunction CLRRTS. Error = 19")}));
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

void TestSensorProtocol::rawExchangeOfATalkingSensorIsCut_data()
{
    QTest::addColumn<std::chrono::microseconds>("byteTime");
    QTest::addColumn<int>("stopAfter");
    QTest::addColumn<int>("least");
    QTest::addColumn<int>("most");

    QTest::newRow("after 1 MiB") << 0us << -1 << 1'048'576 << 1'048'576;
    QTest::newRow("after 60 s") << 10'000us << -1 << 1 << 60; // the clock runs 100 times as fast
    QTest::newRow("at once on stop") << 0us << 7 << 7 << 7;
}

void TestSensorProtocol::rawExchangeOfATalkingSensorIsCut()
{
    QFETCH(std::chrono::microseconds, byteTime);
    QFETCH(int, stopAfter);
    QFETCH(int, least);
    QFETCH(int, most);
    TalkingPort port(byteTime, stopAfter);
    int losses = 0;
    SensorProtocol protocol(port, *m_log, {[&losses] { ++losses; }, {}});

    const auto reply = protocol.rawExchange("1");
    QVERIFY(reply.cut);
    QVERIFY2(reply.bytes.size() >= least && reply.bytes.size() <= most,
             qPrintable(QString::number(reply.bytes.size())));
    QCOMPARE(losses, 0);
}

void TestSensorProtocol::rawExchangeReportsAVanishedPortOnce()
{
    m_sensor->vanish();
    const auto reply = m_protocol->rawExchange("FA\r");
    QCOMPARE(reply.bytes, QByteArray());
    QVERIFY(!reply.cut);
    QCOMPARE(m_losses, 1);
    QCOMPARE(logged(), QStringList());
}

void TestSensorProtocol::positionFrameIsScaled_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<int>("dataBits");
    QTest::addColumn<double>("millimetres");
    QTest::addColumn<bool>("whole");

    QTest::newRow("one count of 24 bits") << QByteArray("00000100\r") << 24 << 0.005 << true;
    QTest::newRow("minus one count of 24 bits") << QByteArray("FFFFFF00\r") << 24 << -0.005 << true;
    QTest::newRow("one count of 25 bits") << QByteArray("00000080\r") << 25 << 0.005 << true;
    QTest::newRow("most negative of 25 bits")
        << QByteArray("80000000\r") << 25 << -16777216 * 0.005 << true;
    QTest::newRow("one bit") << QByteArray("80000000\r") << 1 << -0.005 << true;
    QTest::newRow("31 bits") << QByteArray("00000002\r") << 31 << 0.005 << true;
    QTest::newRow("32 bits are not shifted") << QByteArray("FFFFFFFF\r") << 32 << -0.005 << true;
    QTest::newRow("more bits are not shifted") << QByteArray("00000001\r") << 200 << 0.005 << true;
    QTest::newRow("lower case digits") << QByteArray("ffffff00\r") << 24 << -0.005 << true;
    QTest::newRow("scan stops at a bad digit") << QByteArray("FFxx0100\r") << 24 << 0.005 << true;
    QTest::newRow("eight bytes") << QByteArray("0000100\r") << 24 << 0.0 << false;
    QTest::newRow("no terminator") << QByteArray("000001000") << 24 << 0.0 << false;
    QTest::newRow("ten bytes") << QByteArray("000000100\r") << 24 << 0.0 << false;
    QTest::newRow("nothing") << QByteArray() << 24 << 0.0 << false;
}

void TestSensorProtocol::positionFrameIsScaled()
{
    QFETCH(QByteArray, frame);
    QFETCH(int, dataBits);
    QFETCH(double, millimetres);
    QFETCH(bool, whole);

    const auto position = decodePosition(frame.toStdString(), {dataBits, 0.005});
    QCOMPARE(position.has_value(), whole);
    if (whole)
        QCOMPARE(*position, millimetres);
}

QTEST_GUILESS_MAIN(TestSensorProtocol)
#include "TestSensorProtocol.moc"
