#include "PositionPageRig.h"

#include "app/Commands.h"

#include <QSignalSpy>

using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr auto kOwn = "020018";
constexpr auto kStreaming = "060018";

const QString kNotice = QStringLiteral(
    "The sensor on COM7 still carries the data format for the position stream. Its "
    "own data format 020018 is written back as soon as it is connected there again.");

/// Where a sequence is caught: the answer to this frame has come and is not yet handled.
struct Moment
{
    const char* name;
    bool leaving;      ///< false: during the start
    const char* frame; ///< empty: while it streams
};

constexpr Moment kMoments[] = {
    {"start, format read", false, "DA"},
    {"start, format written", false, "DN060018"},
    {"start, closing command sent", false, "CN"},
    {"start, resolution read", false, "AA"},
    {"stream", false, ""},
    {"stop, connected", true, "VA"},
    {"stop, format read", true, "DA"},
    {"stop, format written", true, "DN020018"},
    {"stop, closing command sent", true, "CN"},
};

} // namespace

class TestMagnetPositionRestore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowClosesAtAnyMomentAndTheSensorHasItsFormat_data() { addMoments(); }
    void windowClosesAtAnyMomentAndTheSensorHasItsFormat();
    void supplyByHandIsNoReasonToStayOpen_data() { addMoments(); }
    void supplyByHandIsNoReasonToStayOpen();
    void linkLostAtAnyMomentIsMadeUpForAtTheNextConnect_data() { addMoments(); }
    void linkLostAtAnyMomentIsMadeUpForAtTheNextConnect();
    void linkLostDuringTheProgFramesIsMadeUpFor();
    void failedConnectIsTriedThreeTimes_data();
    void failedConnectIsTriedThreeTimes();
    void anotherSensorGetsNothingWhenThePageIsLeft_data();
    void anotherSensorGetsNothingWhenThePageIsLeft();
    void keptFormatIsNotOverwrittenByAnotherStart();
    void programThatEndsWithoutTheSensorRestoresItNextTime();
    void windowIsNotClosedBeforeAKeptFormatIsWrittenBack();
    void clicksBeforeTheStopEndOneStream();

private:
    static void addMoments();
};

void TestMagnetPositionRestore::addMoments()
{
    QTest::addColumn<bool>("leaving");
    QTest::addColumn<std::string>("frame");
    for (const Moment& moment : kMoments)
        QTest::newRow(moment.name) << moment.leaving << std::string(moment.frame);
}

namespace {

/// With a window that connects, comes to the moment and acts there.
/// @return false if it does not come
bool actAt(PositionPageRig& rig, bool leaving, const std::string& frame,
           std::unique_ptr<AnswerGate>& gate, const std::function<void()>& action)
{
    const bool streams = leaving || frame.empty();
    if (!rig.waitConnected() || (streams && !rig.stream()))
        return false;
    gate = std::make_unique<AnswerGate>(rig, frame, action);
    if (leaving)
        rig.clickPage(0);
    else if (!streams)
        rig.clickPositionPage();
    return QTest::qWaitFor([&] { return gate->hasActed(); });
}

bool writesOnly(const Frames& frames, const Frames& allowed)
{
    const Frames writes = writesOf(frames);
    return std::all_of(writes.begin(), writes.end(), [&](const auto& frame) {
        return std::find(allowed.begin(), allowed.end(), frame) != allowed.end();
    });
}

} // namespace

void TestMagnetPositionRestore::windowClosesAtAnyMomentAndTheSensorHasItsFormat()
{
    QFETCH(bool, leaving);
    QFETCH(std::string, frame);
    PositionPageRig rig({.type = 0});
    rig.start();
    QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    std::unique_ptr<AnswerGate> gate;
    QVERIFY(actAt(rig, leaving, frame, gate, [&] {
        rig.window().close();
        rig.window().close(); // somebody is impatient
    }));

    QTRY_COMPARE(closed.count(), 1);
    QVERIFY(!rig.window().isVisible());
    QCOMPARE(rig.format(), QByteArray(kOwn));
    QVERIFY(!rig.isKept(kOwn, kStreaming));
    QCOMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Off);
    QVERIFY(writesOnly(gate->frames(), {"DN060018", "DN020018", "CN"}));
    if (frame == "DA" && !leaving)
        QCOMPARE(writesOf(gate->frames()), Frames());
}

void TestMagnetPositionRestore::supplyByHandIsNoReasonToStayOpen()
{
    QFETCH(bool, leaving);
    QFETCH(std::string, frame);
    PositionPageRig rig({.type = 0, .supply = SimulatedSensor::Supply::ByLineSpeed}, kManualPower);
    const BoxAnswers boxes;
    rig.start();
    QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    std::unique_ptr<AnswerGate> gate;
    QVERIFY(actAt(rig, leaving, frame, gate, [&] { rig.window().close(); }));

    QTRY_COMPARE(closed.count(), 1);
    QCOMPARE(rig.format(), QByteArray(kOwn));
    QVERIFY(!rig.isKept(kOwn, kStreaming));
    QVERIFY(writesOnly(gate->frames(), {"DN060018", "DN020018", "CN"}));
}

void TestMagnetPositionRestore::linkLostAtAnyMomentIsMadeUpForAtTheNextConnect()
{
    QFETCH(bool, leaving);
    QFETCH(std::string, frame);
    PositionPageRig rig({.type = 0});
    rig.start();
    const BoxAnswers boxes;
    std::unique_ptr<AnswerGate> gate;
    QVERIFY(actAt(rig, leaving, frame, gate, [&] {
        rig.sensor().vanish();
        rig.sensor().comeBack();
    }));

    QTRY_COMPARE(rig.link().lossCount(), 1);
    QTRY_COMPARE(rig.window().currentPage(), 0);
    QTRY_COMPARE(rig.statusText(), QStringLiteral("Ready."));
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.format(), QByteArray(kOwn));
    QVERIFY(writesOnly(gate->frames(), {"DN060018", "DN020018", "CN"}));
    const bool done = frame == "CN" && leaving; // the loss comes too late to do harm
    QCOMPARE(boxes.texts(), done ? QStringList() : QStringList{kNotice});

    rig.clickPositionPage(); // and all is as before
    QVERIFY(rig.isStreaming());
    QVERIFY(rig.leave());
    QCOMPARE(rig.format(), QByteArray(kOwn));
}

void TestMagnetPositionRestore::linkLostDuringTheProgFramesIsMadeUpFor()
{
    PositionPageRig rig({.type = 0});
    QVERIFY(rig.startStreaming());
    const BoxAnswers boxes;
    rig.sensor().vanishAfter(100);
    rig.clickPage(0);
    QTRY_COMPARE(rig.link().lossCount(), 1);
    rig.sensor().comeBack();
    QTRY_COMPARE(rig.format(), QByteArray(kOwn));
    QTRY_COMPARE(rig.statusText(), QStringLiteral("Ready."));
    QCOMPARE(boxes.texts(), QStringList{kNotice});
    QVERIFY(!rig.isKept(kOwn, kStreaming));
}

void TestMagnetPositionRestore::failedConnectIsTriedThreeTimes_data()
{
    QTest::addColumn<std::string>("silent");
    QTest::addColumn<Frames>("frames");
    QTest::newRow("version") << std::string("VA") << Frames{"VA", "VA", "VA", "VA", "VA", "VA"};
    QTest::newRow("format") << std::string("DA") << Frames{"VA", "DA", "VA", "DA", "VA", "DA"};
}

void TestMagnetPositionRestore::failedConnectIsTriedThreeTimes()
{
    QFETCH(std::string, silent);
    QFETCH(Frames, frames);
    PositionPageRig rig({.type = 0});
    QVERIFY(rig.startStreaming());
    const BoxAnswers boxes;
    (void)rig.sensor().takeReceivedFrames();
    rig.sensor().setFault({SimulatedFault::Kind::Silent}, silent);
    QVERIFY(rig.leave());
    QTRY_COMPARE(boxes.texts(), QStringList{kNotice});

    auto received = rig.sensor().takeReceivedFrames();
    QCOMPARE(writesOf(received), Frames());
    received.resize(frames.size());
    QCOMPARE(received, frames);
    QCOMPARE(rig.format(), QByteArray(kStreaming));
    QVERIFY(rig.waitIdle());

    rig.sensor().clearFaults();
    QVERIFY(rig.clickCommand(kConnectCommand));
    QTRY_COMPARE(rig.statusText(), QStringLiteral("Ready."));
    received = rig.sensor().takeReceivedFrames();
    received.resize(5);
    QCOMPARE(received, (Frames{"VA", "DA", "DN020018", "CN", "DA"})); // then the page reads
    QCOMPARE(rig.format(), QByteArray(kOwn));
}

void TestMagnetPositionRestore::anotherSensorGetsNothingWhenThePageIsLeft_data()
{
    QTest::addColumn<std::string>("version");
    QTest::addColumn<std::string>("format");
    QTest::newRow("of another version") << std::string("1A0205") << std::string(kStreaming);
    QTest::newRow("with another format") << std::string("1A0204") << std::string("820018");
    QTest::newRow("with the same format") << std::string("1A0204") << std::string(kOwn);
}

void TestMagnetPositionRestore::anotherSensorGetsNothingWhenThePageIsLeft()
{
    QFETCH(std::string, version);
    QFETCH(std::string, format);
    PositionPageRig rig({.type = 0});
    QVERIFY(rig.startStreaming());
    const BoxAnswers boxes;
    rig.sensor().setParameter('V', version); // its plug was put into another one
    rig.sensor().setParameter('D', format);
    (void)rig.sensor().takeReceivedFrames();
    QVERIFY(rig.leave());
    QTRY_COMPARE(boxes.texts(), QStringList{kNotice});
    QCOMPARE(writesOf(rig.sensor().takeReceivedFrames()), Frames());
    QCOMPARE(rig.format(), QByteArray::fromStdString(format));

    rig.sensor().setParameter('V', "1A0204"); // and back
    rig.sensor().setParameter('D', kStreaming);
    QVERIFY(rig.clickCommand(kConnectCommand));
    QTRY_COMPARE(rig.format(), QByteArray(kOwn));
    QVERIFY(rig.waitIdle());
}

/// The restore after the connect fails, so that the page is chosen on a sensor that streams.
void TestMagnetPositionRestore::keptFormatIsNotOverwrittenByAnotherStart()
{
    PositionPageRig rig({.type = 0});
    QVERIFY(rig.startStreaming());
    const BoxAnswers boxes;
    rig.sensor().setFault({SimulatedFault::Kind::Silent}, "DA");
    QVERIFY(rig.leave());
    QTRY_COMPARE(boxes.texts(), QStringList{kNotice});
    AnswerGate gate(rig, "VA", [] {});
    QVERIFY(rig.clickCommand(kConnectCommand));
    QTRY_COMPARE(gate.frames(), (Frames{"VA", "DA", "DA"})); // the restore, then the page
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.format(), QByteArray(kStreaming));

    rig.sensor().clearFaults();
    rig.clickPositionPage();
    QVERIFY(rig.isStreaming());
    QVERIFY(rig.leave());
    QCOMPARE(rig.format(), QByteArray(kOwn));
    QVERIFY(!rig.isKept(kOwn, kStreaming));
}

void TestMagnetPositionRestore::programThatEndsWithoutTheSensorRestoresItNextTime()
{
    PositionPageRig rig({.type = 0});
    QVERIFY(rig.startStreaming());
    {
        QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
        rig.sensor().vanish();
        rig.window().close();
        QCOMPARE(closed.count(), 1);
    }
    rig.destroyWindow();
    rig.link().close();
    rig.sensor().comeBack();
    QCOMPARE(rig.format(), QByteArray(kStreaming));

    QVERIFY(rig.startConnected());
    QCOMPARE(rig.format(), QByteArray(kOwn));
}

void TestMagnetPositionRestore::windowIsNotClosedBeforeAKeptFormatIsWrittenBack()
{
    PositionPageRig rig({.type = 0});
    rig.sensor().setParameter('D', kStreaming);
    FormatRestore().keep({PositionPageRig::kPort, "1A0204", kOwn, kStreaming});
    rig.start();
    QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    AnswerGate gate(rig, "DN020018", [&] { rig.window().close(); });
    QTRY_COMPARE(closed.count(), 1);
    QCOMPARE(rig.format(), QByteArray(kOwn));
    QVERIFY(!rig.isKept(kOwn, kStreaming));
}

void TestMagnetPositionRestore::clicksBeforeTheStopEndOneStream()
{
    PositionPageRig rig({.type = 0});
    QVERIFY(rig.startStreaming());
    (void)rig.sensor().takeReceivedFrames();
    rig.clickPage(0); // all before the program comes to act on the first
    rig.clickPage(0);
    rig.clickRefresh();
    QVERIFY(rig.clickCommand(kWriteECommand));
    QTRY_COMPARE(rig.window().currentPage(), 0);
    QTRY_COMPARE(rig.statusText(), QStringLiteral("Ready."));
    QVERIFY(rig.waitIdle());
    QCOMPARE(writesOf(rig.sensor().takeReceivedFrames()), (Frames{"DN020018", "CN"}));
    QCOMPARE(rig.format(), QByteArray(kOwn));
}

QTEST_MAIN(TestMagnetPositionRestore)
#include "TestMagnetPositionRestore.moc"
