#include "link/PositionFrame.h"
#include "link/SensorProtocol.h"
#include "platform/core/Pacing.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedSensor.h"
#include "support/LogLines.h"
#include "support/PortDecorator.h"

#include <QTest>

#include <thread>

using namespace pelorin;
using namespace std::chrono_literals;

using Kind = SimulatedFault::Kind;

namespace {

/// A port whose other end sends without end.
class TalkingPort final : public test::PortDecorator
{
public:
    /// @param stopAfter bytes until a stop interrupts the port
    TalkingPort(std::chrono::microseconds byteTime, int stopAfter)
        : PortDecorator(nullptr), m_byteTime(byteTime), m_bytesLeft(stopAfter)
    {
    }

    ReadResult read() override
    {
        if (m_bytesLeft-- == 0)
            return {ECANCELED, false, 0};
        std::this_thread::sleep_for(m_byteTime);
        return {0, true, 'x'};
    }
    WriteResult write(std::string_view bytes) override { return {0, int(bytes.size())}; }

private:
    std::chrono::microseconds m_byteTime;
    int m_bytesLeft;
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
    void replyIsTakenWholeOrNotAtAll_data();
    void replyIsTakenWholeOrNotAtAll();
    void lateReplyIsNotTakenForTheNextOne();
    void writeFrameCarriesIdAndValue_data();
    void writeFrameCarriesIdAndValue();
    void vanishedPortIsReportedAndLogged();
    void rawExchangeReturnsEveryByte();
    void rawExchangeOfATalkingSensorIsCut_data();
    void rawExchangeOfATalkingSensorIsCut();
    void rawExchangeReportsAVanishedPortOnce();
    void positionFrameIsScaled_data();
    void positionFrameIsScaled();

private:
    [[nodiscard]] QStringList logged() const { return test::logLines(*m_log); }

    std::shared_ptr<SimulatedSensor> m_sensor;
    std::unique_ptr<SimulatedComPort> m_port;
    std::unique_ptr<CommLog> m_log;
    std::unique_ptr<SensorProtocol> m_protocol;
    int m_losses = 0;
};

void TestSensorProtocol::init()
{
    Pacing::setSpeeds({100, 100, 10});
    m_losses = 0;
    m_sensor = std::make_shared<SimulatedSensor>(SimulatedSensor::Options{.type = 2});
    m_port = std::make_unique<SimulatedComPort>(m_sensor);
    QCOMPARE(m_port->open(), 0);
    QCOMPARE(m_port->setLine({4800, 'N', 8, 1}), 0);
    m_log = std::make_unique<CommLog>();
    const auto pause = [](std::chrono::milliseconds duration) {
        Pacing::sleep(duration);
        return true;
    };
    m_protocol = std::make_unique<SensorProtocol>(
        *m_port, *m_log, SensorProtocol::Callbacks{[this] { ++m_losses; }, [] {}, pause});
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

void TestSensorProtocol::replyIsTakenWholeOrNotAtAll_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<Kind>("fault");
    QTest::addColumn<int>("amount");
    QTest::addColumn<bool>("taken");
    QTest::addColumn<QString>("lastLine");

    const auto row = [](const char* title, const char* text, Kind fault, int amount, bool taken,
                        const char* lastLine) {
        QTest::newRow(title) << QByteArray(text) << fault << amount << taken
                             << QString::fromLatin1(lastLine);
    };
    row("six data bytes", "0A1234", Kind::None, 0, true, "RX: [30][Get][31][32][33][34][TERM]");
    row("eight data bytes", "0N345678", Kind::None, 0, true,
        "RX: [30][Set][33][34][35][36][37][38][TERM]");
    row("five data bytes", "12345", Kind::None, 0, false, "Invalid input byte count of 6");
    row("eight bytes, then silence", "12345678", Kind::Short, 8, false,
        "Invalid message terminator received ($38)");
    row("ten bytes without a terminator", "123456", Kind::Long, 10, false,
        "Invalid input byte count of 10");
    row("silence", "123456", Kind::Silent, 0, false, "Invalid input byte count of 0");
}

void TestSensorProtocol::replyIsTakenWholeOrNotAtAll()
{
    QFETCH(QByteArray, text);
    QFETCH(Kind, fault);
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

void TestSensorProtocol::lateReplyIsNotTakenForTheNextOne()
{
    QVERIFY(m_protocol->connect());
    m_sensor->setParameter('F', "222222");
    Pacing::setSpeeds({100, 1e9, 10}); // what has begun to come is there
    QCOMPARE(m_port->write("VA\r").written, 3);
    QVERIFY(m_port->read().received);
    QCOMPARE(m_protocol->readParameter('F'), QByteArray("222222"));
}

void TestSensorProtocol::writeFrameCarriesIdAndValue_data()
{
    QTest::addColumn<char>("id");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QByteArray>("frame"); // without its CR; none is sent if empty
    QTest::addColumn<QString>("line");

    QTest::newRow("closing command")
        << 'E' << QByteArray() << QByteArray("\x45\x4E") << QStringLiteral("TX: [45][Set][TERM]");
    QTest::newRow("nine characters")
        << 'F' << QByteArray("ABCDEFGHI") << QByteArray("FNABCDEFGHI")
        << QStringLiteral("TX: [46][Set][41][42][43][44][45][46][47][48][49][TERM]");
    QTest::newRow("ten characters") << 'F' << QByteArray("ABCDEFGHIJ") << QByteArray()
                                    << QStringLiteral("Invalid output data length of 10");
}

void TestSensorProtocol::writeFrameCarriesIdAndValue()
{
    QFETCH(char, id);
    QFETCH(QByteArray, value);
    QFETCH(QByteArray, frame);
    QFETCH(QString, line);

    QVERIFY(m_protocol->connect());
    (void)m_sensor->takeReceivedFrames();
    QCOMPARE(m_protocol->writeParameter(id, value), frame.isEmpty() ? 0 : 1);

    std::vector<std::string> sent;
    if (!frame.isEmpty())
        sent.push_back(frame.toStdString());
    QCOMPARE(m_sensor->takeReceivedFrames(), sent);
    QCOMPARE(logged().back(), line);
}

void TestSensorProtocol::vanishedPortIsReportedAndLogged()
{
    m_sensor->vanish();
    QCOMPARE(m_protocol->writeParameter('E', QByteArray()), 1);
    QCOMPARE(m_losses, 2);
    SensorProtocol::setRts(*m_port, *m_log, 0);
    SensorProtocol::setRts(*m_port, *m_log, 1);
    QVERIFY(!m_protocol->readPositionFrame());
    QCOMPARE(m_losses, 3);

    QCOMPARE(logged(),
             (QStringList{QStringLiteral("Error in PurgeComm. Error = 19"),
                          QStringLiteral("Error in WriteFile. Error = 19"),
                          QStringLiteral("Error in EscapeCommFunction SETRTS. Error = 19"),
                          QStringLiteral("Error in EscapeCommFunction CLRRTS. Error = 19"),
                          QStringLiteral("Error in PurgeComm. Error = 19")}));
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
    SensorProtocol protocol(port, *m_log, {[this] { ++m_losses; }, [] {}, {}});

    const auto reply = protocol.rawExchange("1");
    QVERIFY(reply.cut);
    QVERIFY2(reply.bytes.size() >= least && reply.bytes.size() <= most,
             qPrintable(QString::number(reply.bytes.size())));
    QCOMPARE(m_losses, 0);
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
    QTest::addColumn<double>("counts"); // NaN for no position

    const auto row = [](const char* title, const char* frame, int dataBits, double counts) {
        QTest::newRow(title) << QByteArray(frame) << dataBits << counts;
    };
    row("one count of 24 bits", "00000100\r", 24, 1);
    row("minus one count of 24 bits", "FFFFFF00\r", 24, -1);
    row("most negative of 25 bits", "80000000\r", 25, -16777216);
    row("one bit", "80000000\r", 1, -1);
    row("31 bits", "00000002\r", 31, 1);
    row("32 bits are not shifted", "FFFFFFFF\r", 32, -1);
    row("more bits are not shifted", "00000001\r", 200, 1);
    row("a bad digit", "FFxx0100\r", 24, qQNaN());
    row("a blank", " 0000100\r", 24, qQNaN());
    row("eight bytes", "0000100\r", 24, qQNaN());
    row("no terminator", "000001000", 24, qQNaN());
    row("nothing", "", 24, qQNaN());
}

void TestSensorProtocol::positionFrameIsScaled()
{
    QFETCH(QByteArray, frame);
    QFETCH(int, dataBits);
    QFETCH(double, counts);

    const auto position = decodePosition(frame.toStdString(), {dataBits, 0.005});
    QCOMPARE(position.has_value(), !qIsNaN(counts));
    if (position)
        QCOMPARE(*position, counts * 0.005);
}

QTEST_GUILESS_MAIN(TestSensorProtocol)
#include "TestSensorProtocol.moc"
