#include "link/CommLog.h"
#include "link/PositionFrame.h"
#include "link/SensorProtocol.h"
#include "platform/core/Pacing.h"
#include "support/LogLines.h"
#include "support/PortDecorator.h"

#include <QDeadlineTimer>
#include <QTest>

#include <algorithm>
#include <cerrno>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

/// The protocol on a port that writes down what is done with it, and whose reads end at once, as a
/// script says: with a byte; at '.' with nothing, as when the time is over; at '!' cut short; at
/// '?' without the device. After the script it talks without end.
struct Line final : PortDecorator
{
    explicit Line(std::string_view itsScript) : PortDecorator(nullptr), script(itsScript) {}

    int setTimeouts(const Timeouts& timeouts) override
    {
        limit = timeouts.readConstant;
        return 0;
    }
    int purge(Purge what) override { return note(what == Purge::Both ? "<both>" : "<receive>"); }
    int setRts(bool on) override { return note(on ? "<set>" : "<clear>"); }
    WriteResult write(std::string_view bytes) override
    {
        (void)note(bytes);
        return {writeError, std::min(mostWritten, static_cast<int>(bytes.size()))};
    }
    ReadResult read() override
    {
        if (limit != Timeouts().readConstant)
            waits << limit;
        const char next = at < script.size() ? script[at++] : 'x';
        const int failure = next == '!' ? ECANCELED : next == '?' ? ENODEV : error;
        return {failure, next != '.' && failure == 0, next};
    }

    int note(std::string_view what)
    {
        done += what;
        return error;
    }
    /// The lines of the log, a bar behind each.
    [[nodiscard]] QString logged() const { return logLines(log).join(u'|') + u'|'; }

    const std::string_view script;
    std::size_t at = 0;
    int error = 0;      ///< of everything but writes
    int writeError = 0; ///< of those
    int mostWritten = 100;
    int limit = Timeouts().readConstant; ///< milliseconds, as the next
    QList<int> waits;                    ///< limits of reads that are no usual ones
    std::string done;
    int losses = 0;
    int cutFrames = 0;
    CommLog log;
    SensorProtocol protocol{
        *this, log, {[this] { ++losses; }, [this] { ++cutFrames; }, [](auto) { return true; }}};
};

const std::string kConnect =
    ("<set><clear><both>" + QByteArray("PROG\r").repeated(101) + "<both>VA\r").toStdString();

} // namespace

class TestSensorProtocol : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Pacing::setSpeeds({100, 100, 1e-9}); } // time-outs do not go by

    void connectIsTriedTwice()
    {
        Line line("1A0B2C\r"), silent(".."), cut("");
        QCOMPARE(line.protocol.connect(), QByteArray("1A0B2C"));
        QCOMPARE(line.done, kConnect);
        QCOMPARE(line.logged(), u"TX: [56][Get][TERM]|RX: [31][Get][30][42][32][43][TERM]|"_s);
        QVERIFY(line.protocol.hasSwitchedSupply());
        QVERIFY(!silent.protocol.connect());
        QCOMPARE(silent.done, kConnect + kConnect);
        QCOMPARE(silent.logged(),
                 u"TX: [56][Get][TERM]|RX: |Invalid input byte count of 0|"_s.repeated(2));
        cut.writeError = ECANCELED;
        QVERIFY(!cut.protocol.connect());
        QCOMPARE(cut.logged(), u"|"_s);
        QCOMPARE(line.losses + silent.losses + cut.losses, 0);
    }

    void replyIsTakenWholeOrNotAtAll()
    {
        for (const auto& [script, isTaken, message] :
             {std::tuple("0A1234\r", true, "RX: [30][Get][31][32][33][34][TERM]|"),
              std::tuple("0N345678\r", true, "RX: [30][Set][33][34][35][36][37][38][TERM]|"),
              std::tuple("12345\r", false, "|Invalid input byte count of 6|"),
              std::tuple("12345678.", false, "|Invalid message terminator received ($38)|"),
              std::tuple("1234567890", false, "|Invalid input byte count of 10|"),
              std::tuple(".", false, "|Invalid input byte count of 0|")}) {
            Line line(script);
            const auto reply = line.protocol.readParameter('F');
            QCOMPARE(reply.value_or("none"), isTaken ? QByteArray(script).chopped(1) : "none");
            QVERIFY2(line.logged().endsWith(QLatin1String(message)), script);
            QCOMPARE(line.done, "<both>FA\r"); // what came before is no answer
        }
    }

    void lateAnswerIsOutlasted()
    {
        const QList<int> none;                          // milliseconds
        for (const auto& [name, script, speed, waits] : // a read, what comes late, the next read
             {std::tuple("answered", "111111\r222222\r", 1e-9, none),
              std::tuple("silent", "..222222\r", 1e-9, QList<int>{1500}),
              std::tuple("late", ".1\r.222222\r", 1e-9, QList<int>{1500, 200, 200}),
              std::tuple("disturbed", "1\r.222222\r", 1e-9, QList<int>{1500}),
              std::tuple("cut short", "!.222222\r", 1e-9, QList<int>{1500}),
              std::tuple("longer ago", ".222222\r", 1e9, none)}) {
            Pacing::setSpeeds({100, 100, speed});
            Line line(script);
            (void)line.protocol.readParameter('D');
            QVERIFY2(line.protocol.readParameter('A') == QByteArray("222222"), name);
            QVERIFY2(line.waits == waits, name);
            QCOMPARE(line.done, "<both>DA\r<both>AA\r");
        }
    }

    void onlyReadsAndWritesWait()
    {
        Line line("...!!" // a read; a keep-alive, a raw exchange, a position and a raw exchange
                  "222222\r"); // that is cut short, a connect
        (void)line.protocol.readParameter('D');
        line.protocol.sendKeepAlive();
        (void)line.protocol.rawExchange("1");
        (void)line.protocol.readPositionFrame();
        QVERIFY(line.protocol.rawExchange("2").cut);
        (void)line.protocol.readPositionFrame();
        QCOMPARE(line.protocol.connect(), QByteArray("222222"));
        QCOMPARE(line.protocol.writeParameter('E', {}), 1);
        QVERIFY(line.waits.isEmpty()); // the connect was answered
        QCOMPARE(line.done, "<both>DA\rPROG\r1<receive>2<receive>" + kConnect + "<both>EN\r");

        Pacing::setSpeeds({100, 100, 100}); // from here on it talks without end
        (void)line.protocol.readParameter('D');
        QCOMPARE(line.protocol.writeParameter('E', {}), 1);
        QVERIFY(line.waits.size() > 2);
        QVERIFY(*std::max_element(line.waits.begin() + 1, line.waits.end()) <= 200);
    }

    void writeFrameCarriesIdAndValue()
    {
        Line line("");
        QCOMPARE(line.protocol.writeParameter('E', {}), 1);
        QCOMPARE(line.protocol.writeParameter('F', "ABCDEFGHI"), 1);
        QCOMPARE(line.protocol.writeParameter('F', "ABCDEFGHIJ"), 0);
        line.mostWritten = 2;
        QCOMPARE(line.protocol.writeParameter('D', "020018"), 1);
        QCOMPARE(line.done, "<both>\x45\x4E\r<both>FNABCDEFGHI\r<both>DN020018\r");
        QCOMPARE(line.logged(),
                 u"TX: [45][Set][TERM]|TX: [46][Set][41][42][43][44][45][46][47][48][49][TERM]|"
                 "Invalid output data length of 10|"
                 "Byte count mismatch in WriteFile. Wrote = 2, Correct = 9,Error = 0|"_s);
        QCOMPARE(line.cutFrames, 1); // who wrote is told that the sensor lacks it
        QCOMPARE(line.losses, 0);
    }

    void vanishedPortIsReportedAndLogged()
    {
        Line line("?"), gone("");
        QVERIFY(!line.protocol.readParameter('D'));
        QCOMPARE(line.losses, 1);
        QVERIFY(line.logged().startsWith(u"TX: [44][Get][TERM]|Error in ReadFile. Error = 19|"));

        gone.error = gone.writeError = ENODEV;
        const auto reply = gone.protocol.rawExchange("FA\r");
        QVERIFY(reply.bytes.isEmpty() && !reply.cut);
        QCOMPARE(gone.losses, 1);
        QCOMPARE(gone.protocol.writeParameter('E', {}), 1);
        QCOMPARE(gone.losses, 3);
        QCOMPARE(gone.protocol.setRts(0) + gone.protocol.setRts(1), 0);
        QVERIFY(!gone.protocol.readPositionFrame());
        QCOMPARE(gone.losses, 4);
        QCOMPARE(gone.logged(), u"Error in PurgeComm. Error = 19|Error in WriteFile. Error = 19|"
                                "Error in EscapeCommFunction SETRTS. Error = 19|"
                                "Error in EscapeCommFunction CLRRTS. Error = 19|"
                                "Error in PurgeComm. Error = 19|"_s);
    }

    /// Until the line is silent; cut at once on stop, after 1 MiB and after 60 s.
    void rawExchangeReturnsEveryByte()
    {
        for (const auto& [script, pauses, least, most] :
             {std::tuple("\r\n\x01\xffZ1\r.", 1, 7, 7), std::tuple("1234567!", 1, 7, 7),
              std::tuple("", 1, 1'048'576, 1'048'576), std::tuple("", 60'000, 1, 1'048'575)}) {
            Pacing::setSpeeds({static_cast<double>(pauses), 100, 100});
            Line line(script);
            const auto [bytes, cut] = line.protocol.rawExchange("FA\r");
            QCOMPARE(cut, *script != '\r');
            QVERIFY2(bytes.size() >= least && bytes.size() <= most, script);
            QVERIFY(*script ? bytes == QByteArray(script, 7) : bytes.startsWith('x'));
            QVERIFY(line.done == "FA\r" && line.losses == 0 && line.logged() == u"|");
            (void)line.protocol.readParameter('D'); // need not wait for what has come
            QVERIFY(cut || line.waits.isEmpty());
        }
    }

    void positionIsReadUpToAWholeFrame()
    {
        for (const auto& [script, frame, log] :
             {std::tuple("0030\r00000010\r", "00000010\r", "RX: [30][30][30][30][30][30][31][30]"),
              std::tuple("0000001x\r00000010\r", "00000010\r", "RX: [30][30][30][30][30]"),
              std::tuple("0000030\r0000030\r.", "none", "RX: [30][30][30][30][30][33][30][TERM]"),
              std::tuple("00000010x.", "none", "RX: [30][30][30][30][30][30][31][30][78]|"),
              std::tuple(".00000010\r", "none", "RX: |")}) {
            Line line(script);
            QCOMPARE(line.protocol.readPositionFrame().value_or("none"), QByteArray(frame));
            QVERIFY2(line.logged().startsWith(QLatin1String(log)), script);
        }
        Pacing::setSpeeds({100, 100, 2});
        Line endless("");
        const QDeadlineTimer early(240);
        QVERIFY(!endless.protocol.readPositionFrame());
        QVERIFY(early.hasExpired() && endless.waits.last() < 400);
    }

    void positionFrameIsScaled()
    {
        for (const auto& [frame, dataBits, counts] :
             {std::tuple("00000100\r", 24, 1.0), std::tuple("FFFFFF00\r", 24, -1.0),
              std::tuple("80000000\r", 25, -16777216.0), std::tuple("80000000\r", 1, -1.0),
              std::tuple("00000002\r", 31, 1.0), std::tuple("FFFFFFFF\r", 32, -1.0),
              std::tuple("00000001\r", 200, 1.0)})
            QVERIFY2(decodePosition(frame, {dataBits, 0.005}) == counts * 0.005, frame);
        for (const char* frame : {"FFxx0100\r", " 0000100\r", "0000100\r", "000001000", ""})
            QVERIFY2(!decodePosition(frame, {24, 0.005}), frame);
    }
};

QTEST_GUILESS_MAIN(TestSensorProtocol)
#include "TestSensorProtocol.moc"
