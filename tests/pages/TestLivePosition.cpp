#include "pages/MagnetPositionPage.h"
#include "pages/PositionTrace.h"
#include "platform/ui/ColorableTextBox.h"
#include "sensor/PositionStream.h"
#include "support/MainWindowRig.h"

#include <QSignalSpy>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int kRow = 1;

} // namespace

/// The position page on a stream that nearly fills its line.
class TestLivePosition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void digitsAndLightTellWhetherItStreams()
    {
        MainWindowRig rig({.type = 1, .magnetPosition = 100, .framesPerSecond = 400});
        QVERIFY(rig.startConnected() && rig.choosePage(kRow));
        const auto* box = rig.page<MagnetPositionPage>().findChild<ColorableTextBox*>();
        QTRY_COMPARE(box->text(), u"99.8"_s);
        auto* stream = rig.window().findChild<PositionStream*>();
        QSignalSpy positions(stream, &PositionStream::position);
        QSignalSpy missed(stream, &PositionStream::missed);
        QSignalSpy frames(stream, &PositionStream::frames);
        QTRY_VERIFY(positions.count() >= 100);
        QCOMPARE(missed.count(), 0);
        QVERIFY(frames.count() > 0);
        QCOMPARE(rig.lightText(), u"Green: connected"_s);

        rig.sensor().setFault({SimulatedFault::Kind::Silent}, "stream");
        QTRY_COMPARE(box->text(), u"****"_s);
        QTRY_COMPARE(rig.lightText(), u"Red, blinking: not connected"_s);
        const auto& velocity = rig.page<QLabel>("figure159");
        QTRY_COMPARE(velocity.text(), QString());
    }

    void traceIsOfOneSensor()
    {
        MainWindowRig rig({.magnetPosition = 100});
        QVERIFY(rig.startConnected() && rig.choosePage(kRow));
        const auto& trace = rig.page<PositionTrace>("positionTrace");
        QTRY_VERIFY(trace.last());
        QVERIFY(rig.choosePage(0));
        QVERIFY(trace.last()); // stays for a look at something else
        rig.sensor().setMagnetPosition(50);
        rig.sensor().setParameter('A', "00000002");
        QVERIFY(rig.choosePage(kRow));
        QTRY_VERIFY(trace.last() && trace.last()->millimetres < 60);
        QVERIFY(trace.visible().front().millimetres < 60);
    }

    void statusTextTellsTheSteps()
    {
        MainWindowRig rig;
        QVERIFY(rig.startConnected());
        QStringList texts;
        auto* stream = rig.window().findChild<PositionStream*>();
        const auto note = [&] { texts << rig.statusText(); };
        connect(stream, &PositionStream::stepBegun, &rig.window(), note, Qt::QueuedConnection);
        QVERIFY(rig.choosePage(kRow));
        QTRY_COMPARE(rig.statusText(), QString()); // with the first position
        QVERIFY(rig.choosePage(0));
        QCOMPARE(texts.join(u'|'),
                 u"Reading the data format…|Writing the data format for the position stream…|"
                 "Waiting for the sensor to store the data format…|Restarting the sensor…|"
                 "Waiting for the position stream…|"
                 "Ending the position stream and connecting the sensor…|Reading the data format…|"
                 "Writing the sensor's own data format back…|"
                 "Waiting for the sensor to store the data format…"_s);
        QCOMPARE(rig.statusText(), u"Ready."_s);
    }
};

QTEST_MAIN(TestLivePosition)
#include "TestLivePosition.moc"
