#include "pages/PositionView.h"

#include "pages/PositionTrace.h"
#include "platform/core/Profile.h"
#include "support/Languages.h"
#include "support/WaitFor.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QTest>
#include <QWheelEvent>

using namespace pelorin;
using namespace pelorin::test;

namespace {

/// A view with 100 positions a second, each as many millimetres as it has seconds.
struct Rig
{
    explicit Rig(PositionView::Kind kind) : view(kind, nullptr)
    {
        view.setStreaming(kind == PositionView::Kind::Live);
        view.resize(1000, 300);
        view.show();
        view.trace().setResolution(0.01);
    }

    void come(int from, int to, int malformed = 0)
    {
        std::vector<PositionPoint> points;
        for (int i = from * 100; i < to * 100; ++i)
            points.push_back({i / 100.0, i / 100.0});
        view.append(points, malformed, to);
    }
    [[nodiscard]] QString figure(int caption)
    {
        return view.findChild<QLabel*>(QStringLiteral("figure%1").arg(caption))->text();
    }
    [[nodiscard]] QString cursor() { return figure(1848); }
    void click(const char* button)
    {
        QTest::mouseClick(view.findChild<QAbstractButton*>(QLatin1String(button)), Qt::LeftButton);
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&view.trace(), key, modifiers);
    }
    void clickAt(double share)
    {
        const QRect plot = view.trace().plot();
        const int x = plot.left() + static_cast<int>(share * (plot.width() - 1));
        QTest::mouseClick(&view.trace(), Qt::LeftButton, {}, {x, plot.center().y()});
    }
    /// In the middle of the trace.
    void turnWheel(int delta, Qt::KeyboardModifiers modifiers = {})
    {
        const QPoint at = view.trace().plot().center();
        QWheelEvent event(at, view.trace().mapToGlobal(at), {}, {0, delta}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&view.trace(), &event);
    }

    PositionView view;
};

struct Recording : Rig
{
    explicit Recording(const QList<PositionPoint>& points) : Rig(PositionView::Kind::Recording)
    {
        view.trace().setRecording(points);
    }
};

/// An hour, with a position of its own each second, which is less than a pixel. Its last time less
/// its length is not quite its first time.
QList<PositionPoint> hour()
{
    QList<PositionPoint> points;
    for (int i = 0; i <= 3600; ++i)
        points.append({i + 0.001, i / 100.0});
    return points;
}

} // namespace

class TestPositionView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { (void)QFile::remove(profilePath()); } // with the time that is shown

    void cursorReadsTheValueByMouseAndKeys()
    {
        Recording rig(hour());
        QCOMPARE(rig.figure(1840), QStringLiteral("0.00 mm")); // the first one is shown, too
        QCOMPARE(rig.cursor(), QString());
        rig.clickAt(0.5);
        QVERIFY(qAbs(rig.view.trace().cursor()->millimetres - 18.0) < 0.1); // two pixels
        rig.key(Qt::Key_Home);
        QCOMPARE(rig.cursor(), QStringLiteral("0.00 mm"));
        rig.key(Qt::Key_Left);
        QCOMPARE(rig.cursor(), QStringLiteral("0.00 mm"));
        rig.key(Qt::Key_Right, Qt::ShiftModifier);
        rig.key(Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(rig.cursor(), QStringLiteral("0.02 mm"));
        rig.key(Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(rig.cursor(), QStringLiteral("0.01 mm"));
        QCOMPARE(rig.figure(1847), QStringLiteral("1.0010 s"));
        const double single = rig.view.trace().cursor()->seconds;
        rig.key(Qt::Key_Right); // a pixel is several seconds
        QVERIFY(rig.view.trace().cursor()->seconds > single + 3);
        rig.key(Qt::Key_End);
        QCOMPARE(rig.cursor(), QStringLiteral("36.00 mm"));
        rig.key(Qt::Key_Escape);
        QCOMPARE(rig.cursor(), QString());
        rig.key(Qt::Key_Left);
        QCOMPARE(rig.cursor(), QStringLiteral("36.00 mm"));
    }

    void zoomKeepsTheCursorAndTheCursorMovesTheView()
    {
        Recording rig(hour());
        rig.clickAt(0.5);
        const QString before = rig.cursor();
        rig.key(Qt::Key_Plus);
        QCOMPARE(rig.view.findChild<QComboBox*>()->currentText(), QStringLiteral("10 min"));
        QCOMPARE(rig.cursor(), before);
        QCOMPARE(rig.figure(1842), QStringLiteral("6.00 mm"));
        rig.key(Qt::Key_End);
        const double end = rig.view.trace().end();
        rig.key(Qt::Key_Right);
        QVERIFY(rig.view.trace().end() > end && !rig.cursor().isEmpty());
        rig.key(Qt::Key_Minus);
        QCOMPARE(rig.figure(1842), QStringLiteral("36.00 mm"));
    }

    void pauseKeepsWhatIsShown()
    {
        Rig rig(PositionView::Kind::Live);
        rig.come(0, 100, 2);
        QTRY_COMPARE(rig.figure(1841), QStringLiteral("99.99 mm"));
        QCOMPARE(rig.figure(1840), QStringLiteral("69.99 mm"));
        rig.click("pauseButton");
        rig.come(100, 1000, 3);
        rig.view.clear(); // of another sensor
        rig.come(1000, 2000);
        rig.key(Qt::Key_Home);
        QCOMPARE(rig.figure(1841), QStringLiteral("99.99 mm"));
        QCOMPARE(rig.cursor(), QStringLiteral("69.99 mm"));
        QCOMPARE(rig.figure(1846), QStringLiteral("2"));
        rig.click("pauseButton");
        QTRY_COMPARE(rig.figure(1841), QStringLiteral("1999.99 mm"));
        QCOMPARE(rig.cursor(), QString());
        auto* durations = rig.view.findChild<QComboBox*>();
        QTest::keyClick(durations, Qt::Key_End); // ten minutes, which are all kept
        QTRY_COMPARE(rig.figure(1842), QStringLiteral("600.00 mm"));
        rig.key(Qt::Key_Up);
        QTRY_VERIFY(Profile().readTexts(u"Trace"_qs).size() == 2);
        Rig later(PositionView::Kind::Live);
        QCOMPARE(later.view.findChild<QComboBox*>()->currentData().toInt(), 600);
        QCOMPARE(later.view.trace().scale().range.low, rig.view.trace().scale().range.low);
        rig.click("holdRangeCheck");
        QTRY_VERIFY(Profile().readTexts(u"Trace"_qs).isEmpty());
    }

    void zeroAndCopyTellTheSameFigures()
    {
        Rig rig(PositionView::Kind::Live);
        rig.click("zeroButton"); // of nothing
        rig.clickAt(0.5);
        rig.key(Qt::Key_Up);
        rig.key(Qt::Key_PageUp);
        QVERIFY(!rig.view.trace().zero() && rig.cursor().isEmpty());
        QVERIFY(!rig.view.findChild<QAbstractButton*>(u"holdRangeCheck"_qs)->isChecked());
        rig.come(0, 11);
        QTRY_COMPARE(rig.figure(1841), QStringLiteral("10.99 mm"));
        rig.click("zeroButton");
        QTRY_COMPARE(rig.figure(1840), QStringLiteral("-10.99 mm"));
        QCOMPARE(rig.figure(1842), QStringLiteral("10.99 mm"));
        QVERIFY(rig.view.trace().accessibleDescription().contains(QLatin1String("-10.99 mm")));
        rig.click("copyFiguresButton");
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 QStringLiteral("Minimum\t-10.99\tmm\nMaximum\t0.00\tmm\nSpan\t10.99\tmm\n"
                                "Mean\t-5.50\tmm\nStandard Deviation\t3.1769\tmm\n"
                                "Velocity\t1.0\tmm/s\nPositions per Second\t100.0\t\n"
                                "Longest Gap\t0.0100\ts\n"
                                "Malformed Frames\t0\t\nRecorded\t\ts\nTime at the Cursor\t\ts\n"
                                "Position at the Cursor\t\tmm\nRelative to 10.99 mm\n"));
        rig.click("zeroButton");
        QTRY_COMPARE(rig.figure(1840), QStringLiteral("0.00 mm"));
    }

    void whatIsWaitedForIsNoPosition()
    {
        Rig rig(PositionView::Kind::Live);
        rig.come(0, 0, 3);
        QTRY_COMPARE(rig.figure(1846), QStringLiteral("3"));
        rig.come(0, 10);
        rig.view.trace().waitUntil(20);
        QTRY_COMPARE(rig.figure(1861), QStringLiteral("10.0100 s"));
        QCOMPARE(rig.figure(1841), QStringLiteral("9.99 mm"));
        QCOMPARE(rig.figure(159), QString());
        rig.view.trace().waitUntil(50);
        QTRY_COMPARE(rig.figure(1841), QString()); // not within what is shown any more
        rig.view.clear();
        QTRY_COMPARE(rig.figure(1846), QString());
        rig.come(0, 1);
        QTRY_COMPARE(rig.figure(159), QStringLiteral("1.0 mm/s"));
        rig.view.setStreaming(false);
        QCOMPARE(rig.figure(159), QString());
        QCOMPARE(rig.figure(1841), QStringLiteral("0.99 mm"));
        rig.view.append({}, 2, 1);
        rig.view.begin(3);
        QCOMPARE(rig.figure(1841) + rig.figure(1846), QString());
        rig.come(8, 9);
        QTRY_COMPARE(rig.figure(1841), QStringLiteral("8.99 mm"));
        QCOMPARE(rig.figure(1861), QStringLiteral("0.0100 s"));
        QCOMPARE(rig.figure(1846), QStringLiteral("2"));
    }

    void rangeIsKeptOnceThereIsOne()
    {
        Rig rig(PositionView::Kind::Live);
        rig.click("holdRangeCheck");
        rig.view.hide();
        QVERIFY(Profile().readTexts(u"Trace"_qs).isEmpty());
        rig.view.show();
        rig.come(0, 11);
        QTRY_VERIFY(rig.view.trace().scale().range.high > 10);
        rig.view.close();
        QVERIFY(Rig(PositionView::Kind::Live).view.trace().scale().range.high > 10);
    }

    void rangeAndTimeAreMovedByKeysAndWheel()
    {
        Recording rig(hour()); // 0 to 36 mm
        const auto middle = [&rig] {
            const QPoint at = rig.view.trace().plot().center();
            return rig.view.trace().scale().millimetresAt(at.y());
        };
        auto* held = rig.view.findChild<QAbstractButton*>(QStringLiteral("holdRangeCheck"));
        const double before = middle();
        rig.key(Qt::Key_Up);
        QVERIFY(middle() > before + 3 && middle() < before + 5);
        QVERIFY(held->isChecked());
        rig.key(Qt::Key_Down);
        QCOMPARE(middle(), before);
        rig.click("holdRangeCheck");
        QCOMPARE(middle(), before);
        const double perPixel = rig.view.trace().scale().millimetresPerPixel();
        rig.key(Qt::Key_Plus, Qt::ControlModifier);
        const double closer = rig.view.trace().scale().millimetresPerPixel();
        QVERIFY(closer < perPixel && qAbs(middle() - before) < perPixel);
        rig.turnWheel(120, Qt::ControlModifier);
        QVERIFY(rig.view.trace().scale().millimetresPerPixel() < closer);
        rig.turnWheel(-120, Qt::ControlModifier);
        QCOMPARE(rig.view.trace().scale().millimetresPerPixel(), closer);

        rig.turnWheel(120); // the last ten minutes
        rig.turnWheel(0);
        rig.key(Qt::Key_PageUp);
        QCOMPARE(rig.view.trace().end(), 3600.001 - 0.9 * 600);
        for (int i = 0; i < 9; ++i)
            rig.key(Qt::Key_PageUp);
        QCOMPARE(rig.figure(1840), QStringLiteral("0.00 mm"));
        rig.key(Qt::Key_PageDown);
        QCOMPARE(rig.view.trace().from(), 0.001 + 0.9 * 600);
    }

    void heldRangeStaysAndPeaksAreDrawn()
    {
        auto points = hour();
        points[1800].millimetres = 90.0;
        Recording rig(points);
        const QRect plot = rig.view.trace().plot();
        const QColor line = rig.view.palette().color(QPalette::Highlight);
        const auto isDrawn = [&](int y) {
            const QImage image = rig.view.trace().grab().toImage();
            bool found = false;
            for (int x = plot.left(); x < plot.right(); ++x)
                found = found || image.pixelColor(x, y) == line;
            return found;
        };
        QVERIFY(isDrawn(plot.center().y())); // on the way to the peak alone
        rig.click("holdRangeCheck");
        rig.key(Qt::Key_End);
        rig.key(Qt::Key_Plus); // the last ten minutes have none
        QVERIFY(!isDrawn(plot.center().y()));
        rig.click("holdRangeCheck");
        QVERIFY(isDrawn(plot.center().y()));
    }

private:
    const Languages m_languages{1};
};

QTEST_MAIN(TestPositionView)
#include "TestPositionView.moc"
