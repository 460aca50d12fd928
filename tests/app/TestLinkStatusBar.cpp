#include "app/LinkStatusBar.h"

#include "platform/core/Pacing.h"
#include "support/Languages.h"
#include "support/WaitFor.h"

#include <QLabel>
#include <QMainWindow>
#include <QSignalSpy>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

class TestLinkStatusBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        Pacing::setSpeeds({25, 25, 1});
        m_bar = new LinkStatusBar(&m_window);
        m_window.setStatusBar(m_bar);
        m_window.show();
    }

    void lightAndItsWordsFollowTheState()
    {
        const QLabel& pane = label("linkLight");
        const auto becomes = [this](const char* color) {
            return waitFor([&] { return qstrcmp(light(), color) == 0; });
        };
        QVERIFY(!pane.pixmap().isNull() && becomes("gray"));
        QCOMPARE(pane.accessibleDescription(), u"Gray: no exchange yet"_s);
        m_bar->setLinkState(0);
        QVERIFY(becomes("red") && becomes("gray") && becomes("red") && becomes("gray"));
        m_bar->setLinkState(0); // leaves the blinking alone, as another size does
        QCOMPARE(light(), "gray");
        m_window.resize(1300, 800);
        QVERIFY(waitFor([this] { return m_bar->width() == 1300; }));
        QVERIFY(becomes("red") && becomes("gray"));
        QCOMPARE(pane.accessibleDescription(), u"Red, blinking: not connected"_s);
        m_bar->setLinkState(2); // another failure begins anew
        QCOMPARE(light(), "red");

        m_bar->setLinkState(1);
        QTimer timer; // of the phases of the blinking
        const QSignalSpy phases(&timer, &QTimer::timeout);
        timer.start(Pacing::pause(std::chrono::milliseconds(500)));
        QVERIFY(waitFor([&phases] { return phases.size() >= 3; }));
        QCOMPARE(light(), "green");
        QCOMPARE(pane.toolTip(), u"Green: connected"_s);
    }

    void textsFollowTheLanguageAndLeaveTheWindowAsItIs()
    {
        const int portWidth = label("portPane").width();
        m_bar->setPort(0);
        m_bar->setLinkState(1);
        m_bar->showString(117);
        QCOMPARE(m_languages.loadLanguage(2), 1);
        m_bar->translate();
        QCOMPARE(label("portPane").text(), u"Keine Schnittstelle"_s);
        QCOMPARE(m_bar->text(), u"Mit dem Sensor verbunden."_s);
        QVERIFY(label("linkLight").toolTip().startsWith(u"Gr\u00FCn"_s));

        const QString own(2000, u'W');
        m_bar->setText(own);
        m_bar->setExplanation([&own] { return own; });
        m_bar->translate();
        QCOMPARE(m_bar->text(), own);
        QCOMPARE(label("messagePane").accessibleDescription(), own);
        QCoreApplication::processEvents();
        QCOMPARE(label("portPane").width(), portWidth);
    }

private:
    [[nodiscard]] QLabel& label(const char* name) const
    {
        return *m_bar->findChild<QLabel*>(QLatin1String(name));
    }

    /// The colour in the middle of the light.
    [[nodiscard]] const char* light() const
    {
        const QImage picture = label("linkLight").pixmap().toImage();
        const QColor color = picture.pixelColor(picture.rect().center());
        return color.saturation() < 60 ? "gray" : color.red() > color.green() ? "red" : "green";
    }

    Languages m_languages{1};
    QMainWindow m_window;
    LinkStatusBar* m_bar = nullptr;
};

QTEST_MAIN(TestLinkStatusBar)
#include "TestLinkStatusBar.moc"
