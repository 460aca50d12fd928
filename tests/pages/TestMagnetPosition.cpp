#include "app/Commands.h"
#include "pages/MagnetPositionPage.h"
#include "pages/SelectPortDialog.h"
#include "pages/SerialPortComboBox.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/WindowMessage.h"
#include "platform/ui/ColorableTextBox.h"
#include "sensor/PositionStream.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/WaitFor.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace pelorin;
using namespace pelorin::test;
using Fault = SimulatedFault::Kind;

namespace {

constexpr int kRow = 1;
constexpr auto kOwn = "020018";
constexpr auto kStreaming = "060018";
const QString kNoPosition = QStringLiteral("****");
const QByteArray kManualPower =
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n\"ManualPowerMode\"=dword:1\r\n";

struct Rig : MainWindowRig
{
    explicit Rig(const SimulatedSensor::Options& options = {.type = 0},
                 const QByteArray& settings = {})
        : MainWindowRig(options, settings)
    {
    }
    explicit Rig(bool byHand)
        : MainWindowRig({.type = 0,
                         .supply = byHand ? SimulatedSensor::Supply::ByLineSpeed
                                          : SimulatedSensor::Supply::ByRts},
                        byHand ? kManualPower : QByteArray())
    {
    }

    [[nodiscard]] QString shown()
    {
        return page<MagnetPositionPage>().findChild<ColorableTextBox*>()->text();
    }
    [[nodiscard]] bool isStreaming()
    {
        return waitFor([this] {
            return window().currentPage() == kRow && !window().isBusy() && shown() != kNoPosition;
        });
    }
    /// Shows the position page and waits for the first position. @return false if there is none
    [[nodiscard]] bool stream()
    {
        (void)frames();
        clickPage(kRow);
        return isStreaming();
    }
    [[nodiscard]] bool startStreaming() { return startConnected() && stream(); }
    [[nodiscard]] bool leave() { return choosePage(0); }

    /// What was written since the last call.
    [[nodiscard]] QString writes() { return writesOf(frames()); }
    [[nodiscard]] static QString writesOf(const QString& frames)
    {
        return frames.split(u' ').filter(QRegularExpression(QStringLiteral("^.N"))).join(u' ');
    }
    [[nodiscard]] QString format() { return QString::fromStdString(sensor().parameter('D')); }
    [[nodiscard]] QString device() { return ComPortNames::stableName(link().device()); }
    /// Whether a format still has to be written back.
    [[nodiscard]] bool owesFormat()
    {
        const auto all = formats().all();
        return std::any_of(all.begin(), all.end(), [](auto& kept) { return !kept.readBack; });
    }
    [[nodiscard]] QString notice()
    {
        return QStringLiteral(
                   "The sensor on %1 with the version answer %2 may still carry the data "
                   "format for the position stream: its own one, 020018, has not been "
                   "read back from it. That is written back as soon as the sensor is "
                   "connected there again.")
            .arg(device(), QString::fromStdString(sensor().parameter('V')));
    }
};

/// Answers every message box with OK, or with nothing where it has none, and keeps their texts.
class BoxAnswers
{
public:
    /// @param rig with a supply switched by hand: the second box, which asks to switch it on, is
    /// open until the sensor has heard PROG frames
    explicit BoxAnswers(Rig* rig = nullptr)
    {
        QObject::connect(&m_poll, &QTimer::timeout, &m_poll, [this, rig] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            const bool early = rig && texts.size() == 1 && rig->sensor().progFrames() <= 5;
            if (!box || early)
                return;
            texts << box->text();
            if (auto* button = box->button(QMessageBox::Ok))
                QTest::mouseClick(button, Qt::LeftButton);
            else
                QTest::keyClick(box, Qt::Key_Escape);
        });
        m_poll.start(2);
    }

    QStringList texts;

private:
    QTimer m_poll;
};

/// Acts once, when the answer to a frame is there and not yet handled.
class At : public QObject
{
public:
    At(Rig& rig, const char* frame, std::function<void()> action)
        : m_rig(rig), m_frame(QLatin1String(frame)), m_action(std::move(action))
    {
        (void)rig.frames();
        rig.runner().installEventFilter(this);
    }

    /// All frames since this was made.
    [[nodiscard]] QString frames()
    {
        const QString more = m_rig.frames();
        if (!more.isEmpty())
            m_frames << more.split(u' ');
        return m_frames.join(u' ');
    }
    bool hasActed = false;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (!hasActed && WindowMessage::from(event) && frames().endsWith(m_frame)) {
            hasActed = true;
            m_action();
        }
        return false;
    }

private:
    Rig& m_rig;
    QString m_frame;
    std::function<void()> m_action;
    QStringList m_frames;
};

/// Comes to a moment of the stream and acts: while the streaming format is written (0), while
/// it streams (1), or while the own format is written back (2).
/// @return what has been sent since; null if the moment does not come
std::unique_ptr<At> actAt(int moment, Rig& rig, const std::function<void()>& action)
{
    if (moment > 0 && !rig.stream())
        return nullptr;
    auto at = std::make_unique<At>(rig, moment == 0 ? "DN060018" : "DN020018", action);
    if (moment == 1) {
        at->hasActed = true;
        action();
    } else {
        rig.clickPage(moment == 0 ? kRow : 0);
    }
    return waitFor([&at] { return at->hasActed; }) ? std::move(at) : nullptr;
}

} // namespace

class TestMagnetPosition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pageWritesTheStreamingFormatAndItsOwnBack()
    {
        for (const auto& [type, own, starting, stopping] :
             {std::tuple(0, "123456", "DA DN163456 CN AA", "VA DA DN123456 CN DA DA"),
              std::tuple(1, "820318", "DA DN860318 EN AA", "VA DA DN820318 EN DA DA"),
              std::tuple(2, "4A0519", "DA DN4E0519 CN AA", "VA DA DN4A0519 CN DA DA"),
              std::tuple(2, "040018", "DA DN040018 CN AA", "VA DA AA")}) { // streams already
            Rig rig({.type = type});
            rig.sensor().setParameter('D', own);
            QVERIFY(rig.startConnected());
            (void)rig.frames();
            rig.clickPage(kRow);
            QCOMPARE(rig.shown(), kNoPosition);
            QVERIFY(rig.isStreaming());
            QCOMPARE(rig.frames(), QLatin1String(starting));
            QCOMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Streaming);
            QCOMPARE(rig.lightText(), QStringLiteral("Green: connected"));

            rig.clickPage(0);
            QCOMPARE(rig.shown(), kNoPosition); // from the click on
            QCOMPARE(rig.window().currentPage(), kRow);
            QTRY_COMPARE(rig.window().currentPage(), 0);
            QVERIFY(rig.waitIdle());
            const QString frames = rig.frames();
            QVERIFY2(frames.startsWith(QLatin1String(stopping)), qPrintable(frames));
            QCOMPARE(rig.format(), QLatin1String(own));
            QVERIFY(!rig.owesFormat());
        }
    }

    void textFollowsTheMagnetAlsoAfterRefreshAndInAnotherLanguage()
    {
        Rig rig({.type = 1, .magnetPosition = 100}); // ten counts of 20 micrometres off
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
        rig.sensor().setMagnetPosition(-7.26);
        QTRY_COMPARE(rig.shown(), QStringLiteral("-7.5"));
        QCOMPARE(rig.frames(), QString());
    }

    void garbledFramesAreNoPositions()
    {
        Rig rig({.type = 0, .magnetPosition = 12.3});
        QVERIFY(rig.startStreaming());
        for (const SimulatedFault& fault :
             {SimulatedFault{Fault::Silent}, SimulatedFault{Fault::WrongByte, 0},
              SimulatedFault{Fault::WrongByte, 7}, SimulatedFault{Fault::WrongByte, 8},
              SimulatedFault{Fault::NoTerminator}, SimulatedFault{Fault::Short, 5},
              SimulatedFault{Fault::Long, 20}}) {
            rig.sensor().setMagnetPosition(12.3);
            QTRY_COMPARE(rig.shown(), QStringLiteral("12.3"));
            rig.sensor().setFault(fault, "stream");
            QTRY_COMPARE(rig.lightText(), QStringLiteral("Red, blinking: not connected"));
            rig.sensor().setMagnetPosition(50);
            int missed = 0;
            const auto watch = connect(rig.window().findChild<PositionStream*>(),
                                       &PositionStream::missed, this, [&missed] { ++missed; });
            QTRY_VERIFY(missed >= 5);
            disconnect(watch);
            QCOMPARE(rig.shown(), QStringLiteral("12.3"));
            rig.sensor().clearFaults();
            QTRY_COMPARE(rig.shown(), QStringLiteral("50.0"));
            QTRY_COMPARE(rig.lightText(), QStringLiteral("Green: connected"));
        }
    }

    void streamDoesNotStartWithoutAnIdentifiedSensor()
    {
        for (const bool before : {false, true}) { // it was another one that streamed
            Rig rig;
            const BoxAnswers boxes;
            QVERIFY(!before || rig.startStreaming());
            (void)rig.frames();
            rig.sensor().setParameter('V', "7A0204");
            if (before)
                QVERIFY(rig.clickCommand(kConnectCommand));
            else
                rig.start();
            QTRY_COMPARE(rig.statusText(), QStringLiteral("Not connected to the sensor."));
            QVERIFY(before ? rig.waitIdle() : rig.choosePage(kRow));
            if (before)
                rig.clickRefresh();
            QTRY_COMPARE(rig.statusText(), QStringLiteral("The sensor is not identified. Connect "
                                                          "it before its position is shown."));
            QVERIFY(rig.leave());
            QCOMPARE(rig.writes(), QString());
        }
    }

    /// Once the parameter can be read, a refresh starts again.
    void startThatFailsLeavesTheSensorItsFormat()
    {
        for (const auto& [id, text, writes, byHand] :
             {std::tuple('D', "02X018", "", false),
              std::tuple('A', "00000000", "DN060018 CN DN020018 CN", false),
              std::tuple('A', "00000000", "DN060018 CN DN020018 CN", true)}) {
            Rig rig(byHand);
            const BoxAnswers boxes(byHand ? &rig : nullptr);
            QVERIFY(rig.startConnected());
            const std::string good = rig.sensor().parameter(id);
            rig.sensor().setParameter(id, text);
            (void)rig.frames();
            QVERIFY(rig.choosePage(kRow));
            QTRY_COMPARE(
                rig.statusText(),
                QStringLiteral("Parameter %1 could not be read from the sensor.").arg(int{id}));
            QCOMPARE(rig.writes(), QLatin1String(writes));
            QCOMPARE(rig.shown(), kNoPosition);
            rig.sensor().setParameter(id, good);
            rig.clickRefresh();
            QVERIFY(rig.isStreaming());
            QVERIFY(rig.leave());
            QCOMPARE(rig.format(), QLatin1String(kOwn));
        }
    }

    void commandsEndTheStreamFirst()
    {
        for (const auto& [command, frames] :
             {std::pair(kConnectCommand, "VA DA DN020018 CN DA VA DA"),
              std::pair(kWriteECommand, "VA DA DN020018 CN DA EN VA")}) {
            Rig rig;
            QVERIFY(rig.startStreaming());
            (void)rig.frames();
            QVERIFY(rig.clickCommand(command));
            QTRY_COMPARE(rig.window().currentPage(), 0);
            QVERIFY(rig.waitIdle());
            const QString sent = rig.frames();
            QVERIFY2(sent.startsWith(QLatin1String(frames)), qPrintable(sent));
        }
    }

    void chosenPortEndsTheStreamOnTheOldOne()
    {
        Rig rig({.type = 0}, "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
                             "\"simulator:sensor?type=0\"=\"COM7\"\r\n"
                             "\"simulator:sensor?type=1\"=\"COM8\"\r\n");
        QVERIFY(rig.startStreaming());
        for (const int button : {2, 1}) { // Cancel, then OK
            QCOMPARE(rig.writes(), button == 2 ? QStringLiteral("DN060018 CN") : QString());
            const ModalAnswer<SelectPortDialog> answer([button](SelectPortDialog& dialog) {
                auto* ports = dialog.findChild<SerialPortComboBox*>();
                while (ports->getSelectedPort() != 8 && ports->currentIndex() + 1 < ports->count())
                    QTest::keyClick(ports, Qt::Key_Down);
                QTest::mouseClick(dialog.getControl<QPushButton>(button), Qt::LeftButton);
            });
            QVERIFY(rig.clickCommand(kSelectPortCommand));
            QTRY_VERIFY(answer.wasShown() && !QApplication::activeModalWidget());
        }
        QTRY_COMPARE(rig.window().currentPage(), 0);
        QVERIFY(rig.waitIdle());
        QCOMPARE(rig.link().portNumber(), 8);
        QCOMPARE(rig.writes(), QStringLiteral("DN020018 CN"));
    }

    void supplySwitchedByHandIsAskedFor()
    {
        Rig rig({.type = 2, .supply = SimulatedSensor::Supply::ByLineSpeed, .magnetPosition = 12.3},
                kManualPower);
        const BoxAnswers boxes(&rig);
        QVERIFY(rig.startConnected());
        QCOMPARE(boxes.texts.size(), 2); // off, then on
        rig.sensor().setFault({Fault::Silent}, "stream");
        QVERIFY(rig.choosePage(kRow));
        QTRY_COMPARE(rig.statusText(),
                     QStringLiteral("Switch the sensor's supply off and on again now."));
        rig.sensor().clearFaults();
        QTRY_COMPARE(rig.shown(), QStringLiteral("12.3"));
        QTRY_COMPARE(rig.statusText(), QString());
        QVERIFY(rig.leave());
        QCOMPARE(rig.writes().section(u' ', -2), QStringLiteral("DN4A0519 CN"));
        QTRY_COMPARE(rig.statusText(), QStringLiteral("Ready."));
    }

    void closingLeavesTheSensorItsFormat()
    {
        for (const bool byHand : {false, true}) {
            for (const int moment : {0, 1, 2}) {
                Rig rig(byHand);
                const BoxAnswers boxes(byHand ? &rig : nullptr);
                QVERIFY(rig.startConnected());
                QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
                const auto at = actAt(moment, rig, [&rig] {
                    rig.window().close();
                    rig.window().close(); // somebody is impatient
                });
                QVERIFY(at);
                QTRY_COMPARE(closed.count(), 1);
                QVERIFY(!rig.window().isVisible());
                QCOMPARE(rig.format(), QLatin1String(kOwn));
                QVERIFY(!rig.owesFormat());
                QCOMPARE(rig.sensor().mode() == SimulatedSensor::Mode::Off, !byHand);
            }
        }
    }

    void lostLinkIsMadeUpForAtTheNextConnect()
    {
        for (const int moment : {0, 1, 2}) {
            Rig rig;
            QVERIFY(rig.startConnected());
            const BoxAnswers boxes;
            const auto at = actAt(moment, rig, [&rig] {
                rig.sensor().vanish();
                rig.sensor().comeBack();
            });
            QVERIFY(at);
            QTRY_COMPARE(rig.link().lossCount(), 1);
            QTRY_COMPARE(rig.format(), QLatin1String(kOwn));
            QTRY_COMPARE(rig.window().currentPage(), 0);
            QTRY_COMPARE(rig.statusText(), QStringLiteral("Ready."));
            QVERIFY(rig.waitIdle());
            QCOMPARE(boxes.texts, QStringList{rig.notice()});
            QVERIFY(rig.stream()); // and all is as before
            QVERIFY(rig.leave());
            QCOMPARE(rig.format(), QLatin1String(kOwn));
        }
    }

    void sensorThatCannotBeReachedIsMadeUpForLater()
    {
        for (const bool silent : {true, false}) { // else its plug was put into another one
            Rig rig;
            QVERIFY(rig.startStreaming());
            const BoxAnswers boxes;
            const QString notice = rig.notice();
            (void)rig.frames();
            if (silent)
                rig.sensor().setFault({Fault::Silent}, "VA");
            else
                rig.sensor().setParameter('V', "1A0205");
            QVERIFY(rig.leave());
            QTRY_COMPARE(boxes.texts, QStringList{notice});
            const QString sent = rig.frames();
            QCOMPARE(Rig::writesOf(sent), QString());
            QVERIFY2(!silent || sent.startsWith(QLatin1String("VA VA VA")), qPrintable(sent));
            rig.sensor().clearFaults();
            rig.sensor().setParameter('V', "1A0204");
            QVERIFY(rig.clickCommand(kConnectCommand));
            QTRY_COMPARE(rig.format(), QLatin1String(kOwn));
            QTRY_COMPARE(rig.statusText(), QStringLiteral("Ready."));
        }
    }

    void sensorThatIsGoneAtTheEndIsRemembered()
    {
        Rig rig;
        QVERIFY(rig.startStreaming());
        QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
        rig.sensor().vanish();
        rig.window().close();
        QTRY_COMPARE(closed.count(), 1);
        QVERIFY(rig.owesFormat());
        QCOMPARE(rig.formats().all().first().own, QByteArray(kOwn));
    }

    /// As after a restore that has failed.
    void keptFormatIsNotTakenForTheSensorsOwn()
    {
        Rig rig;
        QVERIFY(rig.startConnected());
        rig.sensor().setParameter('D', kStreaming);
        QVERIFY(rig.formats().keep({rig.device(), "1A0204", kOwn, kStreaming}).isDone());
        QVERIFY(rig.stream());
        QVERIFY(rig.leave());
        QCOMPARE(rig.format(), QLatin1String(kOwn));
    }

    void clicksBeforeTheStopEndOneStream()
    {
        Rig rig;
        QVERIFY(rig.startStreaming());
        (void)rig.frames();
        rig.clickPage(0); // all before the program comes to act on the first
        rig.clickPage(4);
        rig.clickRefresh();
        rig.clickPage(0);
        QTRY_COMPARE(rig.window().currentPage(), 0);
        QTRY_COMPARE(rig.statusText(), QStringLiteral("Ready."));
        QVERIFY(rig.waitIdle());
        QCOMPARE(rig.writes(), QStringLiteral("DN020018 CN"));
    }
};

QTEST_MAIN(TestMagnetPosition)
#include "TestMagnetPosition.moc"
