#include "app/LinkStatusBar.h"

#include "platform/core/Pacing.h"
#include "support/Languages.h"

#include <QImage>
#include <QLabel>
#include <QMainWindow>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <cmath>

using namespace pelorin;
using namespace pelorin::test;

namespace {

enum class Light { None, Red, Green, Gray };

} // namespace

class TestLinkStatusBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void lightAndItsWordsFollowTheState_data();
    void lightAndItsWordsFollowTheState();
    void sameStateTwiceStartsBlinkingOnce();
    void resizingLeavesTheBlinkingAlone();
    void connectedEndsTheBlinkingAtOnce();
    void otherFailureStartsBlinkingAnew();
    void portIsNamed_data();
    void portIsNamed();
    void changeOfLanguageTranslatesPortAndLight();
    void explanationIsTheToolTipOfTheMessage();
    void longMessageNeitherWidensNorHeightensTheWindow();
    void panesShareTheWidth_data();
    void panesShareTheWidth();

private:
    [[nodiscard]] QLabel* pane(const char* name) const
    {
        return m_bar->findChild<QLabel*>(QLatin1String(name));
    }

    /// The colour in the middle of the light, as it is on the screen.
    [[nodiscard]] Light light() const
    {
        if (pane("linkLight")->pixmap().isNull())
            return Light::None;
        const QImage picture = pane("linkLight")->grab().toImage();
        const QColor color = picture.pixelColor(picture.rect().center());
        if (color.saturation() < 60)
            return Light::Gray;
        return color.red() > color.green() ? Light::Red : Light::Green;
    }

    /// Waits until the blinking light shows a colour.
    [[nodiscard]] bool becomes(Light wanted) const
    {
        return QTest::qWaitFor([this, wanted] { return light() == wanted; });
    }

    /// Lets as much time go by as three phases of the blinking take.
    [[nodiscard]] static bool waitThreePhases()
    {
        QTimer timer;
        const QSignalSpy ticks(&timer, &QTimer::timeout);
        timer.start(Pacing::pause(std::chrono::milliseconds(500)));
        return QTest::qWaitFor([&ticks] { return ticks.size() >= 3; });
    }

    Languages m_languages{1};
    std::unique_ptr<QMainWindow> m_window;
    LinkStatusBar* m_bar = nullptr;
};

void TestLinkStatusBar::init()
{
    Pacing::setSpeeds({25, 25, 1});
    QCOMPARE(m_languages.loadLanguage(1), 1);
    m_window = std::make_unique<QMainWindow>();
    m_bar = new LinkStatusBar(m_window.get());
    m_window->setStatusBar(m_bar);
    m_window->resize(1280, 720);
    QCOMPARE(light(), Light::None);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QCOMPARE(light(), Light::Gray);
}

void TestLinkStatusBar::lightAndItsWordsFollowTheState_data()
{
    QTest::addColumn<QList<int>>("states");
    QTest::addColumn<Light>("shown");
    QTest::addColumn<bool>("blinks");
    QTest::addColumn<QString>("words");
    const QString gray = QStringLiteral("Gray: no exchange yet");
    const QString green = QStringLiteral("Green: connected");
    const QString red = QStringLiteral("Red, blinking: not connected");
    QTest::newRow("at first") << QList<int>{} << Light::Gray << false << gray;
    QTest::newRow("no state") << QList<int>{-1} << Light::Gray << false << gray;
    QTest::newRow("success") << QList<int>{1} << Light::Green << false << green;
    QTest::newRow("failure") << QList<int>{0} << Light::Red << true << red;
    QTest::newRow("another failure") << QList<int>{2} << Light::Red << true << red;
    QTest::newRow("negative failure") << QList<int>{-2} << Light::Red << true << red;
    QTest::newRow("failure after success") << QList<int>{1, 0} << Light::Red << true << red;
    QTest::newRow("success after failure") << QList<int>{0, 1} << Light::Green << false << green;
    QTest::newRow("no state after success") << QList<int>{1, -1} << Light::Gray << false << gray;
    QTest::newRow("failure after no state") << QList<int>{-1, 0} << Light::Red << true << red;
}

void TestLinkStatusBar::lightAndItsWordsFollowTheState()
{
    QFETCH(QList<int>, states);
    QFETCH(Light, shown);
    QFETCH(bool, blinks);
    QFETCH(QString, words);

    for (const int state : states)
        m_bar->setLinkState(state);
    QCOMPARE(light(), shown);
    QCOMPARE(pane("linkLight")->accessibleDescription(), words);
    QCOMPARE(pane("linkLight")->toolTip(), words);
    QCOMPARE(pane("linkLight")->accessibleName(), QStringLiteral("Link light"));
    if (blinks) {
        for (const Light phase : {Light::Gray, Light::Red, Light::Gray})
            QVERIFY(becomes(phase));
        QCOMPARE(pane("linkLight")->accessibleDescription(), words);
    } else {
        QVERIFY(waitThreePhases());
        QCOMPARE(light(), shown);
    }
}

void TestLinkStatusBar::sameStateTwiceStartsBlinkingOnce()
{
    m_bar->setLinkState(0);
    QVERIFY(becomes(Light::Gray));
    m_bar->setLinkState(0);
    QCOMPARE(light(), Light::Gray);
    QVERIFY(becomes(Light::Red));
}

void TestLinkStatusBar::resizingLeavesTheBlinkingAlone()
{
    m_bar->setLinkState(0);
    QVERIFY(becomes(Light::Gray));
    m_window->resize(1300, 800);
    QTRY_COMPARE(m_bar->width(), 1300);
    for (const Light phase : {Light::Red, Light::Gray})
        QVERIFY(becomes(phase));
}

void TestLinkStatusBar::connectedEndsTheBlinkingAtOnce()
{
    for (const Light phase : {Light::Red, Light::Gray}) {
        m_bar->setLinkState(0);
        QVERIFY(becomes(phase));
        m_bar->setLinkState(1);
        QCOMPARE(light(), Light::Green);
        QVERIFY(waitThreePhases());
        QCOMPARE(light(), Light::Green);
    }
}

void TestLinkStatusBar::otherFailureStartsBlinkingAnew()
{
    m_bar->setLinkState(0);
    QVERIFY(becomes(Light::Gray));
    m_bar->setLinkState(2);
    QCOMPARE(light(), Light::Red);
}

void TestLinkStatusBar::portIsNamed_data()
{
    QTest::addColumn<int>("port");
    QTest::addColumn<QString>("text");
    QTest::newRow("one digit") << 7 << QStringLiteral("COM7");
    QTest::newRow("three digits") << 256 << QStringLiteral("COM256");
    QTest::newRow("none") << 0 << QStringLiteral("No port");
}

void TestLinkStatusBar::portIsNamed()
{
    QFETCH(int, port);
    QFETCH(QString, text);
    m_bar->setPort(99);
    m_bar->setPort(port);
    QCOMPARE(pane("portPane")->text(), text);
}

void TestLinkStatusBar::changeOfLanguageTranslatesPortAndLight()
{
    m_bar->setPort(0);
    m_bar->setText(QStringLiteral("Ready."));
    m_bar->setLinkState(0);
    QVERIFY(becomes(Light::Gray));
    QCOMPARE(m_languages.loadLanguage(2), 1);
    m_bar->translate();

    QCOMPARE(pane("portPane")->text(), QStringLiteral("Kein Anschluss"));
    QVERIFY(pane("linkLight")->accessibleDescription().startsWith(QStringLiteral("Rot")));
    QVERIFY(pane("linkLight")->accessibleName() != QStringLiteral("Link light"));
    QCOMPARE(light(), Light::Gray); // of the blinking, as before
    QCOMPARE(m_bar->text(), QStringLiteral("Ready."));
    m_bar->setPort(12);
    m_bar->translate();
    QCOMPARE(pane("portPane")->text(), QStringLiteral("COM12"));
}

void TestLinkStatusBar::explanationIsTheToolTipOfTheMessage()
{
    m_bar->setText(QStringLiteral("Not connected."));
    m_bar->setExplanation(QStringLiteral("Bounds are missing."));
    QCOMPARE(pane("messagePane")->text(), QStringLiteral("Not connected."));
    QCOMPARE(pane("messagePane")->toolTip(), QStringLiteral("Bounds are missing."));
    QCOMPARE(pane("messagePane")->accessibleDescription(), QStringLiteral("Bounds are missing."));
    m_bar->setExplanation(QString());
    QCOMPARE(pane("messagePane")->toolTip(), QString());
}

void TestLinkStatusBar::longMessageNeitherWidensNorHeightensTheWindow()
{
    const QSize smallest = m_window->minimumSizeHint();
    const QList<int> widths = {pane("messagePane")->width(), pane("portPane")->width()};
    m_bar->setText(QString(2000, QLatin1Char('W')));
    QCoreApplication::processEvents();
    QCOMPARE(m_window->size(), QSize(1280, 720));
    QCOMPARE(m_window->minimumSizeHint(), smallest);
    QCOMPARE((QList<int>{pane("messagePane")->width(), pane("portPane")->width()}), widths);
}

void TestLinkStatusBar::panesShareTheWidth_data()
{
    QTest::addColumn<int>("width");
    for (const int width : {1280, 1600, 1920})
        QTest::addRow("%d pixels", width) << width;
}

void TestLinkStatusBar::panesShareTheWidth()
{
    QFETCH(int, width);
    m_window->resize(width, 720);
    QTRY_COMPARE(m_bar->width(), width);
    const auto share = [&](const char* name) { return 100.0 * pane(name)->width() / width; };
    QVERIFY2(std::abs(share("linkLight") - 2) < 0.5,
             qPrintable(QString::number(share("linkLight"))));
    QVERIFY2(std::abs(share("messagePane") - 85) < 3,
             qPrintable(QString::number(share("messagePane"))));
    QVERIFY2(std::abs(share("portPane") - 13) < 1, qPrintable(QString::number(share("portPane"))));
    QVERIFY(pane("linkLight")->width() >= 13); // the whole picture
    QVERIFY(pane("linkLight")->x() < pane("messagePane")->x());
    QVERIFY(pane("messagePane")->x() < pane("portPane")->x());
}

QTEST_MAIN(TestLinkStatusBar)
#include "TestLinkStatusBar.moc"
