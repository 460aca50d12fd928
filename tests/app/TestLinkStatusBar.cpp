#include "app/LinkStatusBar.h"

#include "platform/core/LanguageStrings.h"
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
    void sameStateAgainOrAnotherSizeLeavesTheBlinkingAlone();
    void panesShareTheWidthWhateverTheMessage();
    void changeOfLanguageTranslatesPortAndLight();

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
    QTest::newRow("success") << QList<int>{1} << Light::Green << false << green;
    QTest::newRow("failure") << QList<int>{0} << Light::Red << true << red;
    QTest::newRow("another failure") << QList<int>{2} << Light::Red << true << red;
    QTest::newRow("failure after success") << QList<int>{1, 0} << Light::Red << true << red;
    QTest::newRow("success after failure") << QList<int>{0, 1} << Light::Green << false << green;
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

void TestLinkStatusBar::sameStateAgainOrAnotherSizeLeavesTheBlinkingAlone()
{
    m_bar->setLinkState(0);
    QVERIFY(becomes(Light::Gray));
    m_bar->setLinkState(0);
    QCOMPARE(light(), Light::Gray);
    m_window->resize(1300, 800);
    QTRY_COMPARE(m_bar->width(), 1300);
    for (const Light phase : {Light::Red, Light::Gray})
        QVERIFY(becomes(phase));
    m_bar->setLinkState(2); // another failure begins anew
    QCOMPARE(light(), Light::Red);
}

void TestLinkStatusBar::changeOfLanguageTranslatesPortAndLight()
{
    m_bar->setPort(0);
    m_bar->showString(117);
    m_bar->setExplanation([] { return languageString(1030).arg(QStringLiteral("3A")); });
    m_bar->setLinkState(0);
    QVERIFY(becomes(Light::Gray));
    QCOMPARE(pane("portPane")->text(), QStringLiteral("No port"));
    const QString english = pane("messagePane")->accessibleDescription();
    QVERIFY(english.contains(QStringLiteral("revision 3A")));
    QCOMPARE(m_languages.loadLanguage(2), 1);
    m_bar->translate();

    QCOMPARE(pane("portPane")->text(), QStringLiteral("Kein Anschluss"));
    QVERIFY(pane("linkLight")->accessibleDescription().startsWith(QStringLiteral("Rot")));
    QVERIFY(pane("linkLight")->accessibleName() != QStringLiteral("Link light"));
    QCOMPARE(light(), Light::Gray); // of the blinking, as before
    QCOMPARE(m_bar->text(), QStringLiteral("Mit dem Sensor verbunden."));
    const QString german = pane("messagePane")->toolTip();
    QVERIFY(german != english && german.contains(QStringLiteral("3A")));
    QCOMPARE(pane("messagePane")->accessibleDescription(), german);
    m_bar->setExplanation(nullptr);
    m_bar->setText(QStringLiteral("A page's own text."));
    m_bar->setPort(12);
    m_bar->translate();
    QCOMPARE(pane("portPane")->text(), QStringLiteral("COM12"));
    QCOMPARE(m_bar->text(), QStringLiteral("A page's own text."));
    QCOMPARE(pane("messagePane")->toolTip(), QString());
}

void TestLinkStatusBar::panesShareTheWidthWhateverTheMessage()
{
    const QSize smallest = m_window->minimumSizeHint();
    m_bar->setText(QString(2000, QLatin1Char('W')));
    QCoreApplication::processEvents();
    QCOMPARE(m_window->size(), QSize(1280, 720));
    QCOMPARE(m_window->minimumSizeHint(), smallest);
    const auto share = [this](const char* name) { return 100.0 * pane(name)->width() / 1280; };
    QVERIFY(std::abs(share("linkLight") - 2) < 0.5);
    QVERIFY(std::abs(share("messagePane") - 85) < 3);
    QVERIFY(std::abs(share("portPane") - 13) < 1);
    QVERIFY(pane("linkLight")->width() >= 13); // the whole picture
}

QTEST_MAIN(TestLinkStatusBar)
#include "TestLinkStatusBar.moc"
