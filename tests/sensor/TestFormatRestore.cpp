#include "sensor/FormatRestore.h"

#include "sensor/PositionStream.h"
#include "sensor/RunnerBench.h"
#include "support/Languages.h"
#include "support/TestFolder.h"

#include <QSignalSpy>

using namespace pelorin;
using namespace pelorin::test;

using Result = FormatRestore::Result;
using Fault = SimulatedFault::Kind;

/// A sensor whose own format is 4A0519, and which streams with 4E0519.
class TestFormatRestore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void formatsAreToldApart();
    void streamStartsAndEndsWithTheOwnFormat();
    void formatThatCannotBeStoredIsNotReplaced();
    void whatIsNotReadBackStaysKeptAndIsTold();
    void whatIsReadBackWaitsForTheNextRestart();
    void anotherSensorGetsNothing();
    void linkLostAtAnyMoment();
    void startWithoutAResolutionIsTakenBack();
    void startThatIsGivenUpIsTakenBack();

private:
    void makeStream(const QString& folder);
    [[nodiscard]] bool startStream();
    [[nodiscard]] int endStream();
    [[nodiscard]] std::optional<Result> restore(int port = 7);
    [[nodiscard]] QString frames() { return m_bench->frames(); }
    [[nodiscard]] QByteArray answeredFormat()
    {
        const auto& known = m_bench->runner.known();
        return known.contains('D') ? known.at('D') : QByteArray();
    }
    [[nodiscard]] std::string ownFormat() { return m_bench->sensor->parameter('D'); }
    /// What is kept of the sensor: nothing, its format, or that this was read back.
    [[nodiscard]] QString kept()
    {
        const auto all = m_formats->all();
        return all.isEmpty()          ? QString()
               : all.front().readBack ? QStringLiteral("noted")
                                      : QStringLiteral("kept");
    }

    const Languages m_languages{1};
    std::unique_ptr<TestFolder> m_folder;
    std::unique_ptr<RunnerBench> m_bench;
    std::unique_ptr<KeptFormats> m_formats;
    std::unique_ptr<FormatRestore> m_restore;
    std::unique_ptr<PositionStream> m_stream;
    QStringList m_told;
};

void TestFormatRestore::init()
{
    m_folder = std::make_unique<TestFolder>();
    m_bench = std::make_unique<RunnerBench>();
    makeStream(QStringLiteral("formats"));
    QVERIFY(m_bench->connectSensor());
}

void TestFormatRestore::cleanup()
{
    m_bench.reset();
    m_stream.reset();
}

void TestFormatRestore::makeStream(const QString& folder)
{
    m_formats = std::make_unique<KeptFormats>(m_folder->path(folder), QString());
    m_restore = std::make_unique<FormatRestore>(m_bench->runner, *m_formats);
    m_stream = std::make_unique<PositionStream>(m_bench->runner, *m_formats, *m_restore, false);
    m_told.clear();
    connect(m_stream.get(), &PositionStream::failed, this,
            [this](char id) { m_told << QStringLiteral("failed ") + QLatin1Char(id); });
    connect(m_stream.get(), &PositionStream::noticed, this,
            [this](const QString& text) { m_told << text; });
    connect(m_stream.get(), &PositionStream::formatKept, this, [this](const KeptFormat& format) {
        m_told << (format.own == "4A0519" ? QStringLiteral("own format") : QString());
    });
    connect(m_stream.get(), &PositionStream::ended, this,
            [this] { m_told << QStringLiteral("ended"); });
}

bool TestFormatRestore::startStream()
{
    return m_stream->start() && QTest::qWaitFor([this] { return m_stream->isStreaming(); });
}

/// @return 1 if the sensor is as it was before, 0 if not
int TestFormatRestore::endStream()
{
    int result = -1;
    const bool begun = m_bench->runner.endStream(
        *m_bench, [&result](bool restored) { result = restored ? 1 : 0; });
    (void)QTest::qWaitFor([&result] { return result >= 0; });
    return begun ? result : -1;
}

/// Restarts and connects the sensor, and has its format looked after.
std::optional<Result> TestFormatRestore::restore(int port)
{
    m_bench->sensor->comeBack();
    if (!m_bench->openPort(port))
        return std::nullopt;
    (void)m_bench->run(connectPlan());
    (void)frames();
    std::optional<Result> ended;
    m_restore->begin(*m_bench, [&ended](Result result) { ended = result; });
    (void)QTest::qWaitFor([&ended] { return ended.has_value(); });
    return ended;
}

void TestFormatRestore::formatsAreToldApart()
{
    QCOMPARE(formatDigits("4a0519"), QByteArray("4A0519"));
    for (const char* disturbed : {"12G456", " 12345", "1\xB2\x33\x34\x35\x36", "00123456", ""})
        QVERIFY2(!formatDigits(disturbed), disturbed);
    QCOMPARE(streamingFormat("123456"), QByteArray("163456"));
    QCOMPARE(streamingFormat("040018"), QByteArray("040018"));
    QCOMPARE(streamingFormat("FBFFFF"), QByteArray("FFFFFF"));
}

void TestFormatRestore::streamStartsAndEndsWithTheOwnFormat()
{
    QVERIFY(startStream());
    QCOMPARE(frames(), QStringLiteral("DA DN4E0519 CN AA"));
    QCOMPARE(kept(), QStringLiteral("kept"));
    QSignalSpy positions(m_stream.get(), &PositionStream::position);
    QTRY_VERIFY((m_stream->requestPosition(), !positions.isEmpty()));
    QCOMPARE(positions.front().front().toDouble(), 100.05); // ten counts of offset

    QCOMPARE(endStream(), 1);
    QCOMPARE(frames(), QStringLiteral("VA DA DN4A0519 CN DA"));
    QCOMPARE(ownFormat(), std::string("4A0519"));
    QCOMPARE(m_told, QStringList(QStringLiteral("ended")));
    QVERIFY(!m_stream->isActive() && m_bench->link.isIdentified());

    QVERIFY(restore() == Result::Restored);
    m_bench->sensor->setParameter('D', "4E0519"); // its own one streams already
    QVERIFY(startStream());
    QCOMPARE(kept(), QString());
    QCOMPARE(endStream(), 1);
    QCOMPARE(ownFormat(), std::string("4E0519"));
}

void TestFormatRestore::formatThatCannotBeStoredIsNotReplaced()
{
    QVERIFY(m_folder->put(QStringLiteral("file"), "x"));
    makeStream(QStringLiteral("file/formats"));
    QVERIFY(m_stream->start());
    QTRY_VERIFY(!m_stream->isActive());
    QCOMPARE(frames(), QStringLiteral("DA"));
    QCOMPARE(m_told.size(), 2);
    QVERIFY(m_told.front().contains(m_folder->path(QStringLiteral("file"))));
    QCOMPARE(endStream(), 1); // there is none
}

void TestFormatRestore::whatIsNotReadBackStaysKeptAndIsTold()
{
    for (const bool swallowed : {true, false}) {
        QVERIFY(startStream());
        (void)frames();
        m_told.clear();
        m_bench->swallowed = swallowed ? "DN" : "";
        if (!swallowed)
            m_bench->sensor->setFault({Fault::WrongByte, 1}, "DA");
        QCOMPARE(endStream(), 0);
        QCOMPARE(frames(), swallowed ? QStringLiteral("VA DA CN DA CN DA CN DA")
                                     : QStringLiteral("VA DA DA DA"));
        QCOMPARE(m_told, QStringList({QStringLiteral("own format"), QStringLiteral("ended")}));
        QCOMPARE(kept(), QStringLiteral("kept"));

        m_bench->swallowed.clear();
        m_bench->sensor->clearFaults();
        QVERIFY(m_restore->isStreamingFormat(answeredFormat()) == swallowed);
        QVERIFY(startStream()); // its own format is the kept one
        QCOMPARE(endStream(), 1);
        QCOMPARE(ownFormat(), std::string("4A0519"));
        QVERIFY(!m_restore->isStreamingFormat(answeredFormat()));
    }
}

void TestFormatRestore::whatIsReadBackWaitsForTheNextRestart()
{
    QVERIFY(startStream());
    m_bench->swallowed = "CN";
    QCOMPARE(endStream(), 1); // it answers what it has not stored
    QCOMPARE(kept(), QStringLiteral("noted"));
    QCOMPARE(ownFormat(), std::string("4E0519"));

    m_bench->swallowed = "DN";
    QVERIFY(restore() == Result::NotRestored);
    QCOMPARE(kept(), QStringLiteral("kept"));
    m_bench->swallowed.clear();
    QVERIFY(restore() == Result::Restored);
    QCOMPARE(frames(), QStringLiteral("DA DN4A0519 CN DA"));
    QCOMPARE(kept(), QStringLiteral("noted"));
    QVERIFY(restore() == Result::Restored);
    QCOMPARE(frames(), QStringLiteral("DA"));
    QCOMPARE(kept(), QString());
    QVERIFY(restore() == Result::NothingKept);
}

void TestFormatRestore::anotherSensorGetsNothing()
{
    QVERIFY(m_formats->keep({m_bench->link.device(), "3A0102", "4A0519", "4E0519"}).isDone());
    for (const auto& [port, version, format, read] :
         {std::tuple(8, "3A0102", "4E0519", ""), std::tuple(7, "3A0103", "4E0519", ""),
          std::tuple(7, "3A0102", "4E0518", "DA"), std::tuple(7, "3A0102", "4A0519", "DA"),
          std::tuple(7, "7A0102", "4E0519", "")}) {
        m_bench->sensor->setParameter('V', version); // the last is not identified
        m_bench->sensor->setParameter('D', format);
        QVERIFY(restore(port) == Result::NothingKept);
        QCOMPARE(frames(), QLatin1String(read));
        QCOMPARE(kept(), QStringLiteral("kept")); // its sensor may still come
    }
}

void TestFormatRestore::linkLostAtAnyMoment()
{
    const auto lost = [this](const char* moment) {
        QTRY_VERIFY2(!m_stream->isActive(), moment);
        QVERIFY2(m_told.contains(QStringLiteral("own format")), moment);
        m_told.clear();
        m_bench->sensor->clearFaults();
        QVERIFY2(restore() == Result::Restored, moment);
        QCOMPARE(ownFormat(), std::string("4A0519"));
    };
    m_bench->sensor->setFault({Fault::Vanish}, "AA");
    QVERIFY(m_stream->start());
    lost("format written");
    QVERIFY(startStream());
    m_bench->loseLink();
    lost("streaming");
    QVERIFY(startStream());
    m_bench->sensor->setFault({Fault::Vanish}, "CN");
    QCOMPARE(endStream(), 0);
    lost("format written back");
}

void TestFormatRestore::startWithoutAResolutionIsTakenBack()
{
    m_bench->sensor->setParameter('A', "00000020");
    m_bench->sensor->setFault({Fault::WrongByte, 7}, "AA"); // might be taken for 2
    QVERIFY(m_stream->start());
    QTRY_VERIFY(!m_stream->isActive());
    QCOMPARE(m_told.front(), QStringLiteral("failed A"));
    QCOMPARE(frames(), QStringLiteral("DA DN4E0519 CN AA VA DA DN4A0519 CN DA"));
}

void TestFormatRestore::startThatIsGivenUpIsTakenBack()
{
    Pacing::setSpeeds({0.5, 200, 5}); // until it pauses after its first write
    QVERIFY(m_stream->start());
    QString sent;
    QTRY_VERIFY((sent += frames()).contains(QStringLiteral("DN4E0519")));
    Pacing::setSpeeds({100, 200, 5});
    bool ended = false;
    m_bench->runner.windDown([&ended] { ended = true; });
    QTRY_VERIFY(ended);
    QCOMPARE(frames(), QStringLiteral("CN VA DA DN4A0519 CN DA"));
    QCOMPARE(ownFormat(), std::string("4A0519"));
    QVERIFY(!m_stream->isActive());
}

QTEST_GUILESS_MAIN(TestFormatRestore)
#include "TestFormatRestore.moc"
