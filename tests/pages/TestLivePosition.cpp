#include "pages/MagnetPositionPage.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/WindowMessage.h"
#include "platform/ui/ColorableTextBox.h"
#include "sensor/PositionStream.h"
#include "support/MainWindowRig.h"
#include "support/WaitFor.h"

#include <QSignalSpy>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int kRow = 1;
const auto kGreen = u"Green: connected"_s;

/// Keeps what the page has the window show in its status bar.
class StatusTexts : public QObject
{
public:
    explicit StatusTexts(MainWindowRig& rig) : m_rig(rig) { rig.window().installEventFilter(this); }

    QStringList all;

protected:
    bool eventFilter(QObject* window, QEvent* event) override
    {
        const auto* message = WindowMessage::from(event);
        if (!message || message->message() != WM_STATUS_TEXT || m_isShowing)
            return false;
        m_isShowing = true;
        (void)window->event(event);
        m_isShowing = false;
        all << m_rig.statusText();
        return true;
    }

private:
    MainWindowRig& m_rig;
    bool m_isShowing = false;
};

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
        QCOMPARE(rig.lightText(), kGreen);

        rig.sensor().setFault({SimulatedFault::Kind::Silent}, "stream");
        QTRY_COMPARE(box->text(), u"****"_s);
        QTRY_COMPARE(rig.lightText(), u"Red, blinking: not connected"_s);
        rig.sensor().clearFaults();
        QTRY_COMPARE(box->text(), u"99.8"_s);
        QTRY_COMPARE(rig.lightText(), kGreen);
    }

    void statusTextTellsTheSteps()
    {
        MainWindowRig rig;
        QVERIFY(rig.startConnected());
        const StatusTexts texts(rig);
        QVERIFY(rig.choosePage(kRow));
        QTRY_VERIFY(!texts.all.isEmpty() && texts.all.last().isEmpty());
        QVERIFY(rig.choosePage(0));
        QCOMPARE(texts.all.join(u'|'),
                 u"Reading the data format…|Writing the data format for the position stream…|"
                 "Waiting for the sensor to store the data format…|Restarting the sensor…|"
                 "Waiting for the position stream…||"
                 "Ending the position stream and connecting the sensor…|Reading the data format…|"
                 "Writing the sensor's own data format back…|"
                 "Waiting for the sensor to store the data format…||"
                 "Reading the sensor's parameters…|Ready."_s);
    }
};

QTEST_MAIN(TestLivePosition)
#include "TestLivePosition.moc"
