#include "PositionPageRig.h"

#include "app/Commands.h"
#include "pages/SelectPortDialog.h"
#include "pages/SerialPortComboBox.h"
#include "platform/core/Pacing.h"
#include "support/ModalAnswer.h"

#include <QLabel>
#include <QSignalSpy>

using namespace pelorin;
using namespace pelorin::test;

namespace {

constexpr auto kNoPosition = "****";
const QString kGreen = QStringLiteral("Green: connected");
const QString kRed = QStringLiteral("Red, blinking: not connected");

/// Counts the answers of the link and the times that the position is painted.
class Watch : public QObject
{
public:
    explicit Watch(PositionPageRig& rig)
    {
        rig.window().installEventFilter(this);
        rig.box().installEventFilter(this);
    }

    int positions = 0;
    int failures = 0;
    int paints = 0;
    std::vector<RequestId> requests;

protected:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        const auto* message = WindowMessage::from(event);
        if (message && message->message() == WM_LINK_REPLY) {
            ++(message->wParam() == 1 ? positions : failures);
            requests.push_back(message->request());
        }
        paints += event->type() == QEvent::Paint && qobject_cast<ColorableTextBox*>(object);
        return false;
    }
};

} // namespace

class TestMagnetPositionPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pageWritesTheStreamingFormatAndItsOwnBack_data();
    void pageWritesTheStreamingFormatAndItsOwnBack();
    void noPositionIsShownFromTheClickToTheFirstOne();
    void textFollowsTheMagnetAlsoAfterRefreshAndInAnotherLanguage();
    void positionIsRoundedToOneDecimal_data();
    void positionIsRoundedToOneDecimal();
    void spoiledFramesKeepTheTextAndOneRequestIsOutstanding();
    void cutFramesNeverShowAWrongPosition();
    void equalPositionsAreNotPaintedAgain();
    void streamDoesNotStartWithoutAnIdentifiedSensor();
    void unreadableParameterEndsTheStart_data();
    void unreadableParameterEndsTheStart();
    void commandsEndTheStreamFirst();
    void chosenPortEndsTheStreamOnTheOldOne();
    void supplySwitchedByHandIsAskedFor();
};

void TestMagnetPositionPage::pageWritesTheStreamingFormatAndItsOwnBack_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<std::string>("held");
    QTest::addColumn<std::string>("streaming");
    QTest::addColumn<std::string>("own");
    const auto row = [](int type, const char* held, const char* streaming, const char* own) {
        QTest::addRow("type %d, %s", type, held)
            << type << std::string(held) << std::string(streaming) << std::string(own);
    };
    row(0, "123456", "163456", "123456");
    row(1, "820318", "860318", "820318");
    row(2, "4A0519", "4E0519", "4A0519");
    row(2, "040018", "040018", "040018"); // streams already
}

void TestMagnetPositionPage::pageWritesTheStreamingFormatAndItsOwnBack()
{
    QFETCH(int, type);
    QFETCH(std::string, held);
    QFETCH(std::string, streaming);
    QFETCH(std::string, own);
    const std::string closing = type == 1 ? "EN" : "CN";
    PositionPageRig rig({.type = type});
    rig.sensor().setParameter('D', held);
    QVERIFY(rig.startStreaming());
    QCOMPARE(rig.frames(), (Frames{"DA", "DN" + streaming, closing, "AA"}));
    QCOMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Streaming);
    QCOMPARE(rig.lightText(), kGreen);

    QVERIFY(rig.leave());
    QCOMPARE(rig.frames(4), (Frames{"VA", "DA", "DN" + own, closing}));
    QCOMPARE(rig.format(), QByteArray::fromStdString(own));
    QVERIFY(!rig.isKept(QByteArray::fromStdString(own), QByteArray::fromStdString(streaming)));
    QCOMPARE(rig.statusText(), QStringLiteral("Ready."));
}

void TestMagnetPositionPage::noPositionIsShownFromTheClickToTheFirstOne()
{
    PositionPageRig rig;
    QVERIFY(rig.startStreaming());
    QStringList shown;
    AnswerGate leaving(rig, "VA", [&] { shown << rig.shown(); });
    QVERIFY(rig.leave());
    AnswerGate entering(rig, "AA", [&] { shown << rig.shown() << rig.statusText(); });
    QVERIFY(rig.stream());
    QCOMPARE(shown, (QStringList{QLatin1String(kNoPosition), QLatin1String(kNoPosition), {}}));
}

void TestMagnetPositionPage::textFollowsTheMagnetAlsoAfterRefreshAndInAnotherLanguage()
{
    PositionPageRig rig({.type = 1, .magnetPosition = 100}); // ten counts of 20 micrometres off
    QVERIFY(rig.startStreaming());
    QCOMPARE(rig.shown(), QStringLiteral("99.8"));
    (void)rig.frames();
    rig.clickRefresh();
    rig.sensor().setMagnetPosition(1234.5);
    QTRY_COMPARE(rig.shown(), QStringLiteral("1234.3"));
    QVERIFY(rig.clickCommand(kFirstLanguageCommand + 1));
    QTRY_COMPARE(rig.page<MagnetPositionPage>().getControl<QLabel>(1060)->text(),
                 QStringLiteral("Magnetposition in mm"));
    QCOMPARE(rig.shown(), QStringLiteral("1234.3"));
    rig.sensor().setMagnetPosition(-7);
    QTRY_COMPARE(rig.shown(), QStringLiteral("-7.2"));
    QVERIFY(rig.leave());
    QCOMPARE(rig.writes(), (Frames{"DN820318", "EN"}));
}

void TestMagnetPositionPage::positionIsRoundedToOneDecimal_data()
{
    QTest::addColumn<std::string>("format");
    QTest::addColumn<std::string>("resolution");
    QTest::addColumn<double>("position");
    const auto row = [](const char* text, const char* format, const char* resolution, double mm) {
        QTest::newRow(text) << std::string(format) << std::string(resolution) << mm;
    };
    row("12.3", "020018", "00000010", 12.34);
    row("12.4", "020018", "00000010", 12.36);
    row("-0.5", "020018", "00000010", -0.46);
    row("-12.3", "020020", "00000010", -12.34); // 32 bits
    row("-12.4", "020019", "00000005", -12.36);
    row("-3276.8", "020010", "00000100", 3276.8); // 16 bits overrun
    row("8388.6", "020018", "00000001", 8388.607);
}

void TestMagnetPositionPage::positionIsRoundedToOneDecimal()
{
    QFETCH(std::string, format);
    QFETCH(std::string, resolution);
    QFETCH(double, position);
    PositionPageRig rig({.type = 0, .magnetPosition = position});
    rig.sensor().setParameter('D', format);
    rig.sensor().setParameter('A', resolution);
    QVERIFY(rig.startStreaming());
    QCOMPARE(rig.shown(), QLatin1String(QTest::currentDataTag()));
}

void TestMagnetPositionPage::spoiledFramesKeepTheTextAndOneRequestIsOutstanding()
{
    using Kind = SimulatedFault::Kind;
    PositionPageRig rig({.type = 0, .magnetPosition = 12.3});
    QVERIFY(rig.startStreaming());
    for (const SimulatedFault& fault :
         {SimulatedFault{Kind::Silent}, SimulatedFault{Kind::WrongByte, 8},
          SimulatedFault{Kind::NoTerminator}, SimulatedFault{Kind::Short, 5},
          SimulatedFault{Kind::Long, 20}}) {
        rig.sensor().setMagnetPosition(12.3);
        QTRY_COMPARE(rig.shown(), QStringLiteral("12.3"));
        rig.sensor().setFault(fault, "stream");
        QTRY_COMPARE(rig.lightText(), kRed);
        rig.sensor().setMagnetPosition(50);
        const Watch watch(rig);
        QTRY_VERIFY(watch.failures >= 5);
        QCOMPARE(watch.positions, 0);
        for (std::size_t index = 1; index < watch.requests.size(); ++index)
            QCOMPARE(watch.requests[index], watch.requests[index - 1] + 1);
        QCOMPARE(rig.shown(), QStringLiteral("12.3"));
        rig.sensor().clearFaults();
        QTRY_COMPARE(rig.shown(), QStringLiteral("50.0"));
        QTRY_COMPARE(rig.lightText(), kGreen);
    }
}

/// On a line of real speed nearly every poll purges the beginning of a frame.
void TestMagnetPositionPage::cutFramesNeverShowAWrongPosition()
{
    PositionPageRig rig({.type = 0, .magnetPosition = 1234.5, .framesPerSecond = 400});
    QVERIFY(rig.startStreaming());
    const Watch watch(rig);
    Pacing::setSpeeds({100, 1, 10});
    while (watch.failures < 20 || watch.positions < 3) {
        QTest::qWait(1);
        QCOMPARE(rig.shown(), QStringLiteral("1234.5"));
    }
    Pacing::setSpeeds({100, 200, 10});
    QVERIFY(rig.leave());
}

void TestMagnetPositionPage::equalPositionsAreNotPaintedAgain()
{
    PositionPageRig rig({.type = 0, .magnetPosition = 12.3});
    QVERIFY(rig.startStreaming());
    QTest::qWait(0); // paints the first one
    const Watch watch(rig);
    QTRY_VERIFY(watch.positions >= 10);
    QCOMPARE(watch.paints, 0);
    rig.sensor().setMagnetPosition(12.4);
    QTRY_COMPARE(rig.shown(), QStringLiteral("12.4"));
    QTRY_VERIFY(watch.positions >= 20);
    QCOMPARE(watch.paints, 1);
}

void TestMagnetPositionPage::streamDoesNotStartWithoutAnIdentifiedSensor()
{
    PositionPageRig rig({.type = 0});
    rig.sensor().setParameter('V', "7A0204");
    rig.start();
    QTRY_COMPARE(rig.lightText(), kRed);
    QVERIFY(rig.waitIdle());
    rig.clickPositionPage();
    QTRY_COMPARE(rig.statusText(), QStringLiteral("The sensor is not identified. Connect it before "
                                                  "its position is shown."));
    QCOMPARE(rig.shown(), QLatin1String(kNoPosition));
    QVERIFY(!rig.window().isBusy());
    QVERIFY(rig.leave());
    QCOMPARE(rig.writes(), Frames());
}

void TestMagnetPositionPage::unreadableParameterEndsTheStart_data()
{
    using Kind = SimulatedFault::Kind;
    QTest::addColumn<char>("id");
    QTest::addColumn<std::string>("text");
    QTest::addColumn<SimulatedFault>("fault");
    const auto row = [](const char* name, char id, const char* text, const SimulatedFault& fault) {
        QTest::newRow(name) << id << std::string(text) << fault;
    };
    row("format silent", 'D', "020018", {Kind::Silent});
    row("format no number", 'D', "02X018", {});
    row("format disturbed", 'D', "020018", {Kind::WrongByte, 2});
    row("resolution silent", 'A', "00000010", {Kind::Silent});
    row("resolution disturbed", 'A', "00000010", {Kind::WrongByte, 7});
    row("resolution zero", 'A', "00000000", {});
}

/// Once the parameter can be read, a refresh starts again.
void TestMagnetPositionPage::unreadableParameterEndsTheStart()
{
    QFETCH(char, id);
    QFETCH(std::string, text);
    QFETCH(SimulatedFault, fault);
    PositionPageRig rig({.type = 0});
    QVERIFY(rig.startConnected());
    const std::string good = rig.sensor().parameter(id);
    rig.sensor().setParameter(id, text);
    rig.sensor().setFault(fault, std::string{id, 'A'});
    rig.clickPositionPage();
    QTRY_COMPARE(rig.statusText(),
                 QStringLiteral("Parameter %1 could not be read from the sensor.").arg(int{id}));
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.shown(), QLatin1String(kNoPosition));
    QCOMPARE(rig.writes(), id == 'D' ? Frames() : (Frames{"DN060018", "CN"}));

    rig.sensor().setParameter(id, good);
    rig.sensor().clearFaults();
    rig.clickRefresh();
    QVERIFY(rig.isStreaming());
    QVERIFY(rig.leave());
    QCOMPARE(rig.format(), QByteArray("020018")); // not the one read the second time
}

void TestMagnetPositionPage::commandsEndTheStreamFirst()
{
    for (const auto& [command, frames] :
         {std::pair(kConnectCommand, Frames{"VA", "DA", "DN020018", "CN", "VA", "DA"}),
          std::pair(kWriteECommand, Frames{"VA", "DA", "DN020018", "CN", "EN", "VA"}),
          std::pair(kWriteQCommand, Frames{"VA", "DA", "DN020018", "CN", "QN", "VA"})}) {
        PositionPageRig rig({.type = 0});
        QVERIFY(rig.startStreaming());
        (void)rig.frames();
        QVERIFY(rig.clickCommand(command));
        QTRY_COMPARE(rig.window().currentPage(), 0);
        QVERIFY(rig.waitIdle());
        QCOMPARE(rig.frames(frames.size()), frames);
    }
}

void TestMagnetPositionPage::chosenPortEndsTheStreamOnTheOldOne()
{
    PositionPageRig rig({.type = 0}, "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
                                     "\"simulator:sensor?type=0\"=\"COM7\"\r\n"
                                     "\"simulator:sensor?type=1\"=\"COM8\"\r\n");
    QVERIFY(rig.startStreaming());
    (void)rig.frames();
    const auto choose = [&rig](bool accept) {
        const ModalAnswer<SelectPortDialog> answer([accept](SelectPortDialog& dialog) {
            auto* ports = dialog.findChild<SerialPortComboBox*>();
            while (ports->getSelectedPort() != 8 && ports->currentIndex() + 1 < ports->count())
                QTest::keyClick(ports, Qt::Key_Down);
            QTest::mouseClick(dialog.getControl<QPushButton>(accept ? 1 : 2), Qt::LeftButton);
        });
        return rig.clickCommand(kSelectPortCommand) && QTest::qWaitFor([&] {
                   return answer.wasShown() && !QApplication::activeModalWidget();
               });
    };
    QVERIFY(choose(false));
    QCOMPARE(rig.frames(), Frames());
    QCOMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Streaming);
    QVERIFY(choose(true));
    QTRY_COMPARE(rig.window().currentPage(), 0);
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.link().portNumber(), 8);
    QCOMPARE(rig.frames(), (Frames{"VA", "DA", "DN020018", "CN"}));
}

void TestMagnetPositionPage::supplySwitchedByHandIsAskedFor()
{
    PositionPageRig rig(
        {.type = 2, .supply = SimulatedSensor::Supply::ByLineSpeed, .magnetPosition = 12.3},
        kManualPower);
    const BoxAnswers boxes(&rig);
    QVERIFY(rig.startConnected());
    QCOMPARE(boxes.texts().size(), 2); // off, then on
    rig.sensor().setFault({SimulatedFault::Kind::Silent}, "stream");
    rig.clickPositionPage();
    QTRY_COMPARE(rig.statusText(),
                 QStringLiteral("Switch the sensor's supply off and on again now."));
    QVERIFY(rig.waitIdle());
    rig.sensor().clearFaults();
    QTRY_COMPARE(rig.shown(), QStringLiteral("12.3"));
    QTRY_COMPARE(rig.statusText(), QString());

    QVERIFY(rig.leave());
    QCOMPARE(rig.writes(), (Frames{"DN4E0519", "CN", "DN4A0519", "CN"}));
    QCOMPARE(rig.statusText(), QStringLiteral("Ready."));

    QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    QVERIFY(rig.stream());
    rig.window().close();
    QCOMPARE(closed.count(), 1);
    QCOMPARE(rig.format(), QByteArray("4A0519"));
}

QTEST_MAIN(TestMagnetPositionPage)
#include "TestMagnetPositionPage.moc"
