#include "PositionPageRig.h"

#include "app/Commands.h"
#include "pages/SelectPortDialog.h"
#include "pages/SerialPortComboBox.h"
#include "platform/core/Pacing.h"
#include "support/ModalAnswer.h"

#include <QLabel>
#include <QSignalSpy>

#include <algorithm>

using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr auto kNoPosition = "****";

/// Counts how often a widget is painted.
class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }
    [[nodiscard]] int count() const { return m_count; }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        m_count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    int m_count = 0;
};

/// Keeps the results and request numbers of all answers of the link.
class Answers : public QObject
{
public:
    explicit Answers(QObject& window) { window.installEventFilter(this); }
    [[nodiscard]] int count(int result) const
    {
        return static_cast<int>(std::count(m_results.begin(), m_results.end(), result));
    }
    [[nodiscard]] const std::vector<RequestId>& requests() const { return m_requests; }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        const auto* message = WindowMessage::from(event);
        if (message && message->message() == WM_LINK_REPLY) {
            m_results.push_back(static_cast<int>(message->wParam()));
            m_requests.push_back(message->request());
        }
        return false;
    }

private:
    std::vector<int> m_results;
    std::vector<RequestId> m_requests;
};

const QString kGreen = QStringLiteral("Green: connected");
const QString kRed = QStringLiteral("Red, blinking: not connected");

} // namespace

class TestMagnetPositionPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pageWritesTheStreamingFormatAndItsOwnBack_data();
    void pageWritesTheStreamingFormatAndItsOwnBack();
    void noPositionIsShownFromTheClickToTheFirstOne();
    void textFollowsTheMagnet();
    void positionIsRoundedToOneDecimal_data();
    void positionIsRoundedToOneDecimal();
    void spoiledFrameKeepsTheText_data();
    void spoiledFrameKeepsTheText();
    void cutFramesNeverShowAWrongPosition();
    void oneRequestIsOutstandingAtMost();
    void equalPositionsAreNotPaintedAgain();
    void refreshWhileStreamingIsIgnored();
    void languageChangesWhileStreaming();
    void streamDoesNotStartWithoutAnIdentifiedSensor_data();
    void streamDoesNotStartWithoutAnIdentifiedSensor();
    void formatThatCannotBeReadIsNotWritten_data();
    void formatThatCannotBeReadIsNotWritten();
    void refreshStartsAgainWhenTheResolutionCannotBeRead();
    void commandsEndTheStreamFirst_data();
    void commandsEndTheStreamFirst();
    void chosenPortEndsTheStreamOnTheOldOne();
    void supplySwitchedByHandIsAskedFor();
};

void TestMagnetPositionPage::pageWritesTheStreamingFormatAndItsOwnBack_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("own");
    QTest::addColumn<Frames>("start");
    QTest::addColumn<Frames>("stop");
    QTest::newRow("type 0") << 0 << QByteArray("123456") << Frames{"DA", "DN163456", "CN", "AA"}
                            << Frames{"VA", "DA", "DN123456", "CN"};
    QTest::newRow("type 1") << 1 << QByteArray("820318") << Frames{"DA", "DN860318", "EN", "AA"}
                            << Frames{"VA", "DA", "DN820318", "EN"};
    QTest::newRow("type 2") << 2 << QByteArray("4A0519") << Frames{"DA", "DN4E0519", "CN", "AA"}
                            << Frames{"VA", "DA", "DN4A0519", "CN"};
    QTest::newRow("stream bit already set")
        << 2 << QByteArray("040018") << Frames{"DA", "DN040018", "CN", "AA"}
        << Frames{"VA", "DA", "DN040018", "CN"};
    QTest::newRow("eight digits") << 2 << QByteArray("00123456")
                                  << Frames{"DA", "DN163456", "CN", "AA"}
                                  << Frames{"VA", "DA", "DN123456", "CN"};
}

void TestMagnetPositionPage::pageWritesTheStreamingFormatAndItsOwnBack()
{
    QFETCH(int, type);
    QFETCH(QByteArray, own);
    QFETCH(Frames, start);
    QFETCH(Frames, stop);
    PositionPageRig rig({.type = type});
    rig.sensor().setParameter('D', own.toStdString());
    QVERIFY(rig.startStreaming());
    QCOMPARE(rig.sensor().takeReceivedFrames(), start);
    QCOMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Streaming);
    QCOMPARE(rig.lightText(), kGreen);

    QVERIFY(rig.leave());
    auto frames = rig.sensor().takeReceivedFrames();
    frames.resize(stop.size());
    QCOMPARE(frames, stop);
    QCOMPARE(rig.format(), own.right(6));
    QVERIFY(!rig.isKept(own.right(6), QByteArray::fromStdString(start[1].substr(2))));
    QCOMPARE(rig.statusText(), QStringLiteral("Ready."));
}

void TestMagnetPositionPage::noPositionIsShownFromTheClickToTheFirstOne()
{
    PositionPageRig rig;
    QVERIFY(rig.startStreaming());
    QStringList shown;
    AnswerGate leaving(rig, "VA", [&] { shown << rig.shown(); });
    QVERIFY(rig.leave());
    QCOMPARE(shown, QStringList{QLatin1String(kNoPosition)});

    AnswerGate entering(rig, "AA", [&] { shown << rig.shown() << rig.statusText(); });
    rig.clickPositionPage();
    QVERIFY(rig.isStreaming());
    QCOMPARE(shown.mid(1), (QStringList{QLatin1String(kNoPosition), QString()}));
}

void TestMagnetPositionPage::textFollowsTheMagnet()
{
    PositionPageRig rig({.type = 1, .magnetPosition = 100}); // ten counts of 20 micrometres off
    QVERIFY(rig.startStreaming());
    QCOMPARE(rig.shown(), QStringLiteral("99.8"));
    rig.sensor().setMagnetPosition(1234.5);
    QTRY_COMPARE(rig.shown(), QStringLiteral("1234.3"));
    rig.sensor().setMagnetPosition(-7);
    QTRY_COMPARE(rig.shown(), QStringLiteral("-7.2"));
}

void TestMagnetPositionPage::positionIsRoundedToOneDecimal_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<QByteArray>("resolution");
    QTest::addColumn<double>("position");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const char* format, const char* resolution,
                        double position, const char* text) {
        QTest::newRow(name) << QByteArray(format) << QByteArray(resolution) << position
                            << QString::fromLatin1(text);
    };
    row("down", "020018", "00000010", 12.34, "12.3");
    row("up", "020018", "00000010", 12.36, "12.4");
    row("negative", "020018", "00000010", -0.46, "-0.5");
    row("32 bits", "020020", "00000010", -12.34, "-12.3");
    row("25 bits", "020019", "00000005", -12.34, "-12.3");
    row("16 bits", "020010", "00000100", -1000.0, "-1000.0");
    row("16 bits overrun", "020010", "00000100", 3276.8, "-3276.8");
    row("1 micrometre", "020018", "00000001", 8388.607, "8388.6");
}

void TestMagnetPositionPage::positionIsRoundedToOneDecimal()
{
    QFETCH(QByteArray, format);
    QFETCH(QByteArray, resolution);
    QFETCH(double, position);
    PositionPageRig rig({.type = 0, .magnetPosition = position});
    rig.sensor().setParameter('D', format.toStdString());
    rig.sensor().setParameter('A', resolution.toStdString());
    QVERIFY(rig.startStreaming());
    QTEST(rig.shown(), "text");
}

void TestMagnetPositionPage::spoiledFrameKeepsTheText_data()
{
    using Kind = SimulatedFault::Kind;
    QTest::addColumn<SimulatedFault>("fault");
    QTest::newRow("silence") << SimulatedFault{Kind::Silent};
    QTest::newRow("nine bytes, the last wrong") << SimulatedFault{Kind::WrongByte, 8};
    QTest::newRow("no CR") << SimulatedFault{Kind::NoTerminator};
    QTest::newRow("cut") << SimulatedFault{Kind::Short, 5};
    QTest::newRow("too long") << SimulatedFault{Kind::Long, 20};
}

void TestMagnetPositionPage::spoiledFrameKeepsTheText()
{
    QFETCH(SimulatedFault, fault);
    PositionPageRig rig({.type = 0, .magnetPosition = 12.3});
    QVERIFY(rig.startStreaming());

    rig.sensor().setFault(fault, "stream");
    QTRY_COMPARE(rig.lightText(), kRed);
    rig.sensor().setMagnetPosition(50);
    const Answers answers(rig.window());
    QTRY_VERIFY(answers.count(0) >= 5);
    QCOMPARE(answers.count(1), 0);
    QCOMPARE(rig.shown(), QStringLiteral("12.3"));
    QCOMPARE(rig.lightText(), kRed);

    rig.sensor().clearFaults();
    QTRY_COMPARE(rig.shown(), QStringLiteral("50.0"));
    QTRY_COMPARE(rig.lightText(), kGreen);
}

/// On a line of real speed nearly every poll purges the beginning of a frame.
void TestMagnetPositionPage::cutFramesNeverShowAWrongPosition()
{
    PositionPageRig rig({.type = 0, .magnetPosition = 1234.5, .framesPerSecond = 400});
    QVERIFY(rig.startStreaming());
    const Answers answers(rig.window());
    Pacing::setSpeeds({100, 1, 10});
    while (answers.count(0) < 20 || answers.count(1) < 3) {
        QTest::qWait(1);
        QCOMPARE(rig.shown(), QStringLiteral("1234.5"));
    }
    Pacing::setSpeeds({100, 200, 10});
    QVERIFY(rig.leave());
}

void TestMagnetPositionPage::oneRequestIsOutstandingAtMost()
{
    PositionPageRig rig;
    QVERIFY(rig.startStreaming());
    rig.sensor().setFault({SimulatedFault::Kind::Silent}, "stream"); // 50 ms for each answer
    const Answers answers(rig.window());
    QTRY_VERIFY(answers.count(0) >= 5);
    for (std::size_t index = 1; index < answers.requests().size(); ++index)
        QCOMPARE(answers.requests()[index], answers.requests()[index - 1] + 1);
}

void TestMagnetPositionPage::equalPositionsAreNotPaintedAgain()
{
    PositionPageRig rig({.type = 0, .magnetPosition = 12.3});
    QVERIFY(rig.startStreaming());
    QTest::qWait(0); // paints the first one
    const PaintCount paints(rig.box());
    const Answers answers(rig.window());
    QTRY_VERIFY(answers.count(1) >= 10);
    QCOMPARE(paints.count(), 0);

    rig.sensor().setMagnetPosition(12.4);
    QTRY_COMPARE(rig.shown(), QStringLiteral("12.4"));
    QTRY_VERIFY(answers.count(1) >= 20);
    QCOMPARE(paints.count(), 1);
}

void TestMagnetPositionPage::refreshWhileStreamingIsIgnored()
{
    PositionPageRig rig({.type = 0, .magnetPosition = 12.3});
    QVERIFY(rig.startStreaming());
    (void)rig.sensor().takeReceivedFrames();
    rig.clickRefresh();
    const Answers answers(rig.window());
    QTRY_VERIFY(answers.count(1) >= 5);
    QCOMPARE(rig.shown(), QStringLiteral("12.3"));
    QVERIFY(!rig.window().isBusy());
    QCOMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Streaming);

    QVERIFY(rig.leave());
    QCOMPARE(writesOf(rig.sensor().takeReceivedFrames()), (Frames{"DN020018", "CN"}));
}

void TestMagnetPositionPage::languageChangesWhileStreaming()
{
    PositionPageRig rig({.type = 0, .magnetPosition = 12.3});
    QVERIFY(rig.startStreaming());
    (void)rig.sensor().takeReceivedFrames();
    auto& page = rig.page<MagnetPositionPage>();
    const QString english = page.getControl<QLabel>(1060)->text();

    QVERIFY(rig.clickCommand(kFirstLanguageCommand + 1));
    QTRY_COMPARE(rig.languages().getCurrentLanguage(), 2);
    QTRY_COMPARE(page.getControl<QLabel>(1060)->text(), QStringLiteral("Magnetposition in mm"));
    QVERIFY(english != page.getControl<QLabel>(1060)->text());
    QCOMPARE(rig.shown(), QStringLiteral("12.3"));
    rig.sensor().setMagnetPosition(-1.5);
    QTRY_COMPARE(rig.shown(), QStringLiteral("-1.5"));

    QVERIFY(rig.leave());
    QCOMPARE(writesOf(rig.sensor().takeReceivedFrames()), (Frames{"DN020018", "CN"}));
}

void TestMagnetPositionPage::streamDoesNotStartWithoutAnIdentifiedSensor_data()
{
    QTest::addColumn<bool>("answers");
    QTest::newRow("silent sensor") << false;
    QTest::newRow("revision outside all bounds") << true;
}

void TestMagnetPositionPage::streamDoesNotStartWithoutAnIdentifiedSensor()
{
    QFETCH(bool, answers);
    PositionPageRig rig({.type = 0});
    if (answers)
        rig.sensor().setParameter('V', "7A0204");
    else
        rig.sensor().setFault({SimulatedFault::Kind::Silent});
    rig.start();
    QTRY_COMPARE(rig.lightText(), kRed);
    QVERIFY(rig.waitIdle());
    (void)rig.sensor().takeReceivedFrames();

    rig.clickPositionPage();
    const auto text =
        QStringLiteral("The sensor is not identified. Connect it before its position is shown.");
    QTRY_COMPARE(rig.statusText(), text);
    QCOMPARE(rig.shown(), QLatin1String(kNoPosition));
    QVERIFY(!rig.window().isBusy());
    rig.clickRefresh();
    QVERIFY(rig.leave());
    QCOMPARE(writesOf(rig.sensor().takeReceivedFrames()), Frames());
    QCOMPARE(rig.format(), QByteArray("020018"));
}

void TestMagnetPositionPage::formatThatCannotBeReadIsNotWritten_data()
{
    QTest::addColumn<SimulatedFault>("fault");
    QTest::addColumn<QByteArray>("format");
    QTest::newRow("silence") << SimulatedFault{SimulatedFault::Kind::Silent}
                             << QByteArray("020018");
    QTest::newRow("no number") << SimulatedFault() << QByteArray("02X018");
    QTest::newRow("disturbed") << SimulatedFault{SimulatedFault::Kind::WrongByte, 2}
                               << QByteArray("020018");
}

void TestMagnetPositionPage::formatThatCannotBeReadIsNotWritten()
{
    QFETCH(SimulatedFault, fault);
    QFETCH(QByteArray, format);
    PositionPageRig rig({.type = 0});
    QVERIFY(rig.startConnected());
    rig.sensor().setParameter('D', format.toStdString());
    rig.sensor().setFault(fault, "DA");
    (void)rig.sensor().takeReceivedFrames();

    rig.clickPositionPage();
    QTRY_COMPARE(rig.statusText(),
                 QStringLiteral("Parameter 68 could not be read from the sensor."));
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.shown(), QLatin1String(kNoPosition));

    QVERIFY(rig.leave());
    QCOMPARE(writesOf(rig.sensor().takeReceivedFrames()), Frames());
    QCOMPARE(rig.format(), format);
}

void TestMagnetPositionPage::refreshStartsAgainWhenTheResolutionCannotBeRead()
{
    PositionPageRig rig({.type = 0, .magnetPosition = 12.3});
    QVERIFY(rig.startConnected());
    rig.sensor().setFault({.kind = SimulatedFault::Kind::Silent, .times = 1}, "AA");
    rig.clickPositionPage();
    QTRY_COMPARE(rig.statusText(),
                 QStringLiteral("Parameter 65 could not be read from the sensor."));
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.shown(), QLatin1String(kNoPosition));

    rig.clickRefresh();
    QVERIFY(rig.isStreaming());
    QVERIFY(rig.leave());
    QCOMPARE(rig.format(), QByteArray("020018")); // not the one read the second time
}

void TestMagnetPositionPage::commandsEndTheStreamFirst_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<Frames>("frames");
    QTest::newRow("Connect") << static_cast<int>(kConnectCommand)
                             << Frames{"VA", "DA", "DN020018", "CN", "VA", "DA"};
    QTest::newRow("write E") << static_cast<int>(kWriteECommand)
                             << Frames{"VA", "DA", "DN020018", "CN", "EN", "VA"};
    QTest::newRow("write Q") << static_cast<int>(kWriteQCommand)
                             << Frames{"VA", "DA", "DN020018", "CN", "QN", "VA"};
}

void TestMagnetPositionPage::commandsEndTheStreamFirst()
{
    QFETCH(int, command);
    QFETCH(Frames, frames);
    PositionPageRig rig({.type = 0});
    QVERIFY(rig.startStreaming());
    (void)rig.sensor().takeReceivedFrames();
    QVERIFY(rig.clickCommand(command));
    QTRY_COMPARE(rig.window().currentPage(), 0);
    QVERIFY(rig.waitIdle());

    auto received = rig.sensor().takeReceivedFrames();
    received.resize(frames.size());
    QCOMPARE(received, frames);
    QCOMPARE(rig.format(), QByteArray("020018"));
}

void TestMagnetPositionPage::chosenPortEndsTheStreamOnTheOldOne()
{
    PositionPageRig rig({.type = 0}, "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
                                     "\"simulator:sensor?type=0\"=\"COM7\"\r\n"
                                     "\"simulator:sensor?type=1\"=\"COM8\"\r\n");
    QVERIFY(rig.startStreaming());
    (void)rig.sensor().takeReceivedFrames();
    const auto answer = [&](bool accept) {
        return ModalAnswer<SelectPortDialog>([accept](SelectPortDialog& dialog) {
            auto* ports = dialog.findChild<SerialPortComboBox*>();
            while (ports->getSelectedPort() != 8 && ports->currentIndex() + 1 < ports->count())
                QTest::keyClick(ports, Qt::Key_Down);
            QTest::mouseClick(dialog.getControl<QPushButton>(accept ? 1 : 2), Qt::LeftButton);
        });
    };
    {
        const auto cancel = answer(false);
        QVERIFY(rig.clickCommand(kSelectPortCommand));
        QTRY_VERIFY(cancel.wasShown() && !QApplication::activeModalWidget());
        QCOMPARE(rig.sensor().takeReceivedFrames(), Frames());
        QCOMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Streaming);
    }
    const auto accept = answer(true);
    QVERIFY(rig.clickCommand(kSelectPortCommand));
    QTRY_COMPARE(rig.window().currentPage(), 0);
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.link().portNumber(), 8);
    QCOMPARE(rig.sensor().takeReceivedFrames(), (Frames{"VA", "DA", "DN020018", "CN"}));
    QCOMPARE(rig.format(), QByteArray("020018"));
}

void TestMagnetPositionPage::supplySwitchedByHandIsAskedFor()
{
    PositionPageRig rig(
        {.type = 2, .supply = SimulatedSensor::Supply::ByLineSpeed, .magnetPosition = 12.3},
        kManualPower);
    const BoxAnswers boxes;
    QVERIFY(rig.startConnected());
    QCOMPARE(boxes.texts().size(), 2); // off, then on
    rig.sensor().setFault({SimulatedFault::Kind::Silent}, "stream");
    (void)rig.sensor().takeReceivedFrames();

    rig.clickPositionPage();
    QTRY_COMPARE(rig.statusText(),
                 QStringLiteral("Switch the sensor's supply off and on again now."));
    QVERIFY(rig.waitIdle());
    rig.sensor().clearFaults();
    QTRY_COMPARE(rig.shown(), QStringLiteral("12.3"));
    QTRY_COMPARE(rig.statusText(), QString());

    QVERIFY(rig.leave());
    QCOMPARE(writesOf(rig.sensor().takeReceivedFrames()),
             (Frames{"DN4E0519", "CN", "DN4A0519", "CN"}));
    QCOMPARE(rig.format(), QByteArray("4A0519"));
    QCOMPARE(rig.statusText(), QStringLiteral("Ready."));

    QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    rig.clickPositionPage();
    QVERIFY(rig.isStreaming());
    rig.window().close();
    QCOMPARE(closed.count(), 1);
    QCOMPARE(rig.format(), QByteArray("4A0519"));
}

QTEST_MAIN(TestMagnetPositionPage)
#include "TestMagnetPositionPage.moc"
