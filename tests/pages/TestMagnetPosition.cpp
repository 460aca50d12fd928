#include "app/Commands.h"
#include "pages/MagnetPositionPage.h"
#include "pages/SelectPortDialog.h"
#include "platform/core/ComPortNames.h"
#include "platform/ui/ColorableTextBox.h"
#include "sensor/PositionStream.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/PortDecorator.h"
#include "support/WaitFor.h"

#include <QComboBox>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <array>

using namespace Qt::StringLiterals;
using namespace pelorin;
using namespace pelorin::test;
using Fault = SimulatedFault::Kind;
using Supply = SimulatedSensor::Supply;

namespace {

constexpr int kRow = 1;
const QString kOwn = u"020018"_s;
const QString kNoPosition = u"****"_s;
const QByteArray kOtherPort = "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
                              "\"simulator:sensor?type=1\"=\"COM999\"\r\n";

/// What the sensor hears at a moment: the streaming format is written, it streams, its own format
/// is written back.
constexpr std::array kMoments{"DN060018", "", "DN020018"};

/// The user of this window answers a message box with OK, or with nothing where it has none. One
/// who switches the supply by hand says so when the sensor has heard PROG frames.
struct Rig : MainWindowRig
{
    explicit Rig(const SimulatedSensor::Options& options = {.type = 0})
        : MainWindowRig(options, options.supply == Supply::ByRts ? kOtherPort : kManualPower),
          m_user(
              [this, byHand = options.supply != Supply::ByRts](QMessageBox& box) {
                  if (byHand && told.size() == 1 && sensor().progFrames() <= 5)
                      return;
                  told << box.text();
                  if (auto* button = box.button(QMessageBox::Ok))
                      QTest::mouseClick(button, Qt::LeftButton);
                  else
                      QTest::keyClick(&box, Qt::Key_Escape);
              },
              false)
    {
    }

    [[nodiscard]] QString shown()
    {
        return page<MagnetPositionPage>().findChild<ColorableTextBox*>()->text();
    }
    [[nodiscard]] QString format() { return QString::fromStdString(sensor().parameter('D')); }
    /// Waits for one of the window's or the sensor's texts.
    [[nodiscard]] bool reaches(const QString& wanted, QString (Rig::*text)() = &Rig::statusText)
    {
        return waitFor([&] { return (this->*text)() == wanted; });
    }
    [[nodiscard]] bool reachesPage(int page)
    {
        return waitFor([&] { return window().currentPage() == page; }) && waitIdle();
    }
    [[nodiscard]] bool isStreaming()
    {
        return reachesPage(kRow) && waitFor([this] { return shown() != kNoPosition; });
    }
    /// Shows the position page, and waits for the first position.
    [[nodiscard]] bool stream()
    {
        clickPage(kRow);
        return isStreaming();
    }
    [[nodiscard]] bool comesTo(const char* moment)
    {
        if (moment != kMoments[0] && !stream())
            return false;
        if (*moment)
            clickPage(moment == kMoments[0] ? kRow : 0);
        QString sent;
        return waitFor([&] { return (sent += frames()).contains(QLatin1String(moment)); });
    }

    QStringList told; ///< the boxes' texts

private:
    const ModalAnswer<QMessageBox> m_user;
};

} // namespace

class TestMagnetPosition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pageWritesTheStreamingFormatAndItsOwnBack()
    {
        const auto check = [](int type, const char* own, const QString& start,
                              const QString& stop) {
            Rig rig({.type = type});
            rig.sensor().setParameter('D', own);
            QVERIFY(rig.startConnected());
            (void)rig.frames();
            rig.clickPage(kRow);
            QCOMPARE(rig.shown(), kNoPosition);
            QVERIFY(rig.isStreaming());
            QCOMPARE(rig.frames(), start);

            rig.clickPage(0);
            QCOMPARE(rig.shown(), kNoPosition); // from the click on
            QCOMPARE(rig.window().currentPage(), kRow);
            QVERIFY(rig.reachesPage(0));
            QCOMPARE(rig.frames().left(stop.size()), stop);
            QCOMPARE(rig.format(), QLatin1String(own));
            QCOMPARE(rig.told, QStringList());
        };
        check(0, "123456", u"DA DN163456 CN AA"_s, u"VA DA DN123456 CN DA DA"_s);
        check(1, "820318", u"DA DN860318 EN AA"_s, u"VA DA DN820318 EN DA DA"_s);
        check(2, "4A0519", u"DA DN4E0519 CN AA"_s, u"VA DA DN4A0519 CN DA DA"_s);
        check(2, "040018", u"DA DN040018 CN AA"_s, u"VA DA AA"_s); // streams already
    }

    void textFollowsTheMagnetUntilThePageIsLeft()
    {
        Rig rig({.type = 1, .magnetPosition = 100}); // ten counts of 20 micrometres off
        QVERIFY(rig.startConnected() && rig.stream());
        QCOMPARE(rig.shown(), u"99.8"_s);
        (void)rig.frames();
        rig.clickRefresh();
        rig.sensor().setMagnetPosition(1234.5);
        QVERIFY(rig.reaches(u"1234.3"_s, &Rig::shown));
        rig.sensor().setFault({Fault::WrongByte, 7}, "stream");
        QVERIFY(rig.reaches(u"Red, blinking: not connected"_s, &Rig::lightText));
        rig.sensor().setMagnetPosition(-7.26);
        const QSignalSpy missed(rig.window().findChild<PositionStream*>(), &PositionStream::missed);
        QVERIFY(waitFor([&missed] { return missed.size() >= 5; }));
        QCOMPARE(rig.shown(), kNoPosition);
        rig.sensor().clearFaults();
        QVERIFY(rig.reaches(u"-7.5"_s, &Rig::shown));
        QVERIFY(rig.reaches(u"Green: connected"_s, &Rig::lightText));
        QCOMPARE(rig.frames(), QString());

        rig.clickPage(0); // all before the program comes to act on the first
        rig.clickPage(4);
        rig.clickRefresh();
        rig.clickPage(0);
        QVERIFY(rig.reachesPage(0) && rig.reaches(u"Ready."_s));
        QCOMPARE(rig.frames().count(u"DN"_s), 1);
    }

    void supplySwitchedByHandIsAskedForUntilThereIsAPosition()
    {
        Rig rig({.type = 0, .supply = Supply::ByLineSpeed, .magnetPosition = 12.3});
        QVERIFY(rig.startConnected());
        QCOMPARE(rig.told.size(), 2); // off, then on
        (void)rig.frames();
        rig.sensor().setParameter('A', "00000000");
        QVERIFY(rig.choosePage(kRow));
        QVERIFY(rig.reaches(u"Parameter 65 could not be read from the sensor."_s));
        QCOMPARE(rig.frames(), u"DA DN060018 CN AA VA DA DN020018 CN DA"_s);
        QCOMPARE(rig.shown(), kNoPosition);

        rig.sensor().setParameter('A', "00000010");
        rig.sensor().setFault({Fault::Silent}, "stream");
        rig.clickRefresh();
        QVERIFY(rig.reaches(u"Switch the sensor's supply off and on again now."_s));
        rig.sensor().clearFaults();
        QVERIFY(rig.reaches(u"12.3"_s, &Rig::shown) && rig.reaches({}));
        QVERIFY(rig.choosePage(0) && rig.reaches(u"Ready."_s));
        QCOMPARE(rig.format(), kOwn);
    }

    void connectAndChosenPortEndTheStreamFirst()
    {
        Rig rig;
        int ports = 0;
        int restored = 0; // through that port
        rig.wrapPorts([&](auto port) {
            const auto note = [&restored, number = ++ports](std::string_view bytes) {
                if (bytes.starts_with("DN020018"))
                    restored = number;
            };
            return std::make_unique<WatchedPort>(std::move(port), note);
        });
        QVERIFY(rig.startConnected() && rig.stream());
        QVERIFY(rig.clickCommand(kConnectCommand) && rig.reachesPage(0));
        QVERIFY(rig.frames().contains(u"VA DA DN020018 CN DA VA DA"_s));

        QVERIFY(rig.stream());
        restored = 0;
        const ModalAnswer<SelectPortDialog> answer([](SelectPortDialog& dialog) {
            QTest::keyClick(dialog.findChild<QComboBox*>(), Qt::Key_End);
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
        QVERIFY(rig.clickCommand(kSelectPortCommand));
        QVERIFY(waitFor([&answer] { return answer.wasShown(); }) && rig.reachesPage(0));
        QVERIFY(rig.link().portNumber() == 999 && ports == 2 && restored == 1);
    }

    void closingLeavesTheSensorItsFormat()
    {
        for (const Supply supply : {Supply::ByRts, Supply::ByLineSpeed}) {
            for (const char* moment : kMoments) {
                Rig rig({.type = 0, .supply = supply});
                QVERIFY2(rig.startConnected() && rig.comesTo(moment), moment);
                rig.window().close();
                rig.window().close(); // somebody is impatient
                QVERIFY2(waitFor([&rig] { return !rig.window().isVisible(); }), moment);
                QVERIFY2(rig.format() == kOwn && rig.formats().all().value(0).readBack, moment);
            }
        }
    }

    void lostLinkIsMadeUpForAtTheNextConnect()
    {
        for (const char* moment : kMoments) {
            Rig rig;
            QVERIFY2(rig.startConnected() && rig.comesTo(moment), moment);
            const QSignalSpy kept(rig.window().findChild<PositionStream*>(),
                                  &PositionStream::formatKept);
            rig.sensor().vanish();
            rig.sensor().comeBack();
            QVERIFY2(waitFor([&rig] { return rig.link().lossCount() == 1; }), moment);
            QVERIFY2(rig.reaches(kOwn, &Rig::format) && rig.reachesPage(0), moment);
            QVERIFY2(rig.reaches(u"Ready."_s), moment);
            QCOMPARE(kept.size(), 1);
            const auto format = kept[0][0].value<KeptFormat>();
            QCOMPARE(format.device, ComPortNames::stableName(rig.link().device()));
            QCOMPARE(format.own, kOwn.toLatin1());
            QVERIFY2(rig.stream() && rig.choosePage(0), moment); // and all is as before
            QCOMPARE(rig.format(), kOwn);
            QCOMPARE(rig.noticeText() + rig.told.join(u' '), QString()); // that is settled now
        }
    }

    void anotherSensorGetsNothingAndItsOwnerGetsItLater()
    {
        Rig rig;
        QVERIFY(rig.startConnected() && rig.stream());
        rig.sensor().setParameter('V', "7A0204"); // is not identified either
        QVERIFY(rig.choosePage(0) && rig.choosePage(kRow));
        QVERIFY(rig.reaches(u"The sensor is not identified. Connect it before its position is "
                            "shown."_s));
        QVERIFY(!rig.frames().contains(u"DN020018"_s));

        rig.sensor().setParameter('V', "1A0204");
        QVERIFY(rig.clickCommand(kConnectCommand) && rig.reaches(kOwn, &Rig::format));
        QVERIFY(rig.reachesPage(0) && rig.stream());
        rig.sensor().vanish();
        rig.window().close();
        QVERIFY(waitFor([&rig] { return !rig.window().isVisible(); }));
        QVERIFY(rig.formats().all().size() == 1 && !rig.formats().all().first().readBack);
    }
};

QTEST_MAIN(TestMagnetPosition)
#include "TestMagnetPosition.moc"
