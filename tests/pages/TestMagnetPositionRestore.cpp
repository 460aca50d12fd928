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

/// With a window that connects, comes to the moment at which the answer to a frame is there and
/// not yet handled, and acts then.
/// @param leaving false: during the start; without a frame while it streams
/// @return null if the moment does not come
std::unique_ptr<AnswerGate> actAt(PositionPageRig& rig, bool leaving, const std::string& frame,
                                  const std::function<void()>& action)
{
    const bool streams = leaving || frame.empty();
    if (!rig.waitConnected() || (streams && !rig.stream()))
        return nullptr;
    auto gate = std::make_unique<AnswerGate>(rig, frame, action);
    if (leaving)
        rig.clickPage(0);
    else if (!streams)
        rig.clickPositionPage();
    return QTest::qWaitFor([&] { return gate->hasActed(); }) ? std::move(gate) : nullptr;
}

/// Whether nothing was written but the two formats and the closing command.
bool writesOnlyFormats(const Frames& frames)
{
    const Frames writes = PositionPageRig::writesOf(frames);
    return std::all_of(writes.begin(), writes.end(), [](const auto& frame) {
        return frame == "DN060018" || frame == "DN020018" || frame == "CN";
    });
}

} // namespace

class TestMagnetPositionRestore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowClosesAtAnyMomentAndTheSensorHasItsFormat_data() { addMoments(); }
    void windowClosesAtAnyMomentAndTheSensorHasItsFormat();
    void linkLostAtAnyMomentIsMadeUpForAtTheNextConnect_data() { addMoments(); }
    void linkLostAtAnyMomentIsMadeUpForAtTheNextConnect();
    void linkLostDuringTheProgFramesIsMadeUpFor();
    void failedConnectIsTriedThreeTimes_data();
    void failedConnectIsTriedThreeTimes();
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
    const auto row = [](const char* name, bool leaving, const char* frame) {
        QTest::newRow(name) << leaving << std::string(frame);
    };
    row("start, format read", false, "DA");
    row("start, format written", false, "DN060018");
    row("start, closing command sent", false, "CN");
    row("start, resolution read", false, "AA");
    row("stream", false, "");
    row("stop, connected", true, "VA");
    row("stop, format read", true, "DA");
    row("stop, format written", true, "DN020018");
    row("stop, closing command sent", true, "CN");
}

/// Also where the supply is switched by hand.
void TestMagnetPositionRestore::windowClosesAtAnyMomentAndTheSensorHasItsFormat()
{
    QFETCH(bool, leaving);
    QFETCH(std::string, frame);
    for (const bool byHand : {false, true}) {
        PositionPageRig rig({.type = 0,
                             .supply = byHand ? SimulatedSensor::Supply::ByLineSpeed
                                              : SimulatedSensor::Supply::ByRts},
                            byHand ? kManualPower : QByteArray());
        const BoxAnswers boxes(byHand ? &rig : nullptr);
        rig.start();
        QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
        const auto gate = actAt(rig, leaving, frame, [&rig] {
            rig.window().close();
            rig.window().close(); // somebody is impatient
        });
        QVERIFY(gate);
        QTRY_COMPARE(closed.count(), 1);
        QVERIFY(!rig.window().isVisible());
        QCOMPARE(rig.format(), QByteArray(kOwn));
        QVERIFY(!rig.isKept(kOwn, kStreaming));
        QCOMPARE(rig.sensor().mode() == SimulatedSensor::Mode::Off, !byHand);
        QVERIFY(writesOnlyFormats(gate->frames()));
        if (frame == "DA" && !leaving)
            QCOMPARE(PositionPageRig::writesOf(gate->frames()), Frames());
    }
}

void TestMagnetPositionRestore::linkLostAtAnyMomentIsMadeUpForAtTheNextConnect()
{
    QFETCH(bool, leaving);
    QFETCH(std::string, frame);
    PositionPageRig rig({.type = 0});
    rig.start();
    const BoxAnswers boxes;
    const auto gate = actAt(rig, leaving, frame, [&rig] {
        rig.sensor().vanish();
        rig.sensor().comeBack();
    });
    QVERIFY(gate);
    QTRY_COMPARE(rig.link().lossCount(), 1);
    QTRY_COMPARE(rig.format(), QByteArray(kOwn));
    QTRY_COMPARE(rig.window().currentPage(), 0);
    QTRY_COMPARE(rig.statusText(), QStringLiteral("Ready."));
    QVERIFY(rig.waitIdle());
    QVERIFY(writesOnlyFormats(gate->frames()));
    const bool done = frame == "CN" && leaving; // the loss comes too late to do harm
    QCOMPARE(boxes.texts(), done ? QStringList() : QStringList{kNotice});

    QVERIFY(rig.stream()); // and all is as before
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
    QTest::addColumn<Frames>("frames");
    QTest::newRow("VA") << Frames{"VA", "VA", "VA", "VA", "VA", "VA"};
    QTest::newRow("DA") << Frames{"VA", "DA", "VA", "DA", "VA", "DA"};
}

void TestMagnetPositionRestore::failedConnectIsTriedThreeTimes()
{
    QFETCH(Frames, frames);
    PositionPageRig rig({.type = 0});
    QVERIFY(rig.startStreaming());
    const BoxAnswers boxes;
    (void)rig.frames();
    rig.sensor().setFault({SimulatedFault::Kind::Silent}, QTest::currentDataTag());
    QVERIFY(rig.leave());
    QTRY_COMPARE(boxes.texts(), QStringList{kNotice});
    const Frames received = rig.frames();
    QCOMPARE(PositionPageRig::writesOf(received), Frames());
    QCOMPARE(Frames(received.begin(), received.begin() + 6), frames);
    QVERIFY(rig.waitIdle());

    rig.sensor().clearFaults();
    QVERIFY(rig.clickCommand(kConnectCommand));
    QTRY_COMPARE(rig.statusText(), QStringLiteral("Ready."));
    QCOMPARE(rig.frames(5), (Frames{"VA", "DA", "DN020018", "CN", "DA"})); // then the page reads
    QCOMPARE(rig.format(), QByteArray(kOwn));
}

void TestMagnetPositionRestore::anotherSensorGetsNothingWhenThePageIsLeft()
{
    PositionPageRig rig({.type = 0});
    QVERIFY(rig.startStreaming());
    const BoxAnswers boxes;
    rig.sensor().setParameter('V', "1A0205"); // its plug was put into another one
    (void)rig.frames();
    QVERIFY(rig.leave());
    QTRY_COMPARE(boxes.texts(), QStringList{kNotice});
    QCOMPARE(rig.writes(), Frames());

    rig.sensor().setParameter('V', "1A0204"); // and back
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
    QVERIFY(rig.stream());
    QVERIFY(rig.leave());
    QCOMPARE(rig.format(), QByteArray(kOwn));
    QVERIFY(!rig.isKept(kOwn, kStreaming));
}

void TestMagnetPositionRestore::programThatEndsWithoutTheSensorRestoresItNextTime()
{
    PositionPageRig rig({.type = 0});
    QVERIFY(rig.startStreaming());
    rig.sensor().vanish();
    rig.window().close();
    QVERIFY(!rig.window().isVisible());
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
    (void)rig.frames();
    rig.clickPage(0); // all before the program comes to act on the first
    rig.clickPage(0);
    rig.clickRefresh();
    QVERIFY(rig.clickCommand(kWriteECommand));
    QTRY_COMPARE(rig.window().currentPage(), 0);
    QTRY_COMPARE(rig.statusText(), QStringLiteral("Ready."));
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.writes(), (Frames{"DN020018", "CN"}));
}

QTEST_MAIN(TestMagnetPositionRestore)
#include "TestMagnetPositionRestore.moc"
