#include "app/Commands.h"
#include "app/SensorHeader.h"
#include "pages/SelectPortDialog.h"
#include "pages/SensorInfoPage.h"
#include "pages/SerialPortComboBox.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/Pacing.h"
#include "platform/core/WindowMessage.h"
#include "sensor/PositionStream.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/PortDecorator.h"
#include "support/Rows.h"
#include "support/WaitFor.h"

#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>

using namespace pelorin;
using namespace pelorin::test;
using namespace Qt::StringLiterals;

using Fault = SimulatedFault::Kind;

namespace {

const QString kLost = u"Lost communication with COM7, trying to reconnect..."_s;

/// The main window with a user who answers its message boxes.
struct Rig : MainWindowRig
{
    /// @param byHand whether the user switches the supply
    explicit Rig(bool byHand = false)
        : MainWindowRig({.supply = byHand ? SimulatedSensor::Supply::ByLineSpeed
                                          : SimulatedSensor::Supply::ByRts},
                        byHand ? kManualPower : QByteArray())
    {
    }

    /// Waits until the sensor has been connected a number of times, and a page has read its values.
    [[nodiscard]] bool isConnected(qsizetype times)
    {
        return waitFor([&] { return connects() == times && statusText() == u"Ready."_s; }) &&
               waitIdle();
    }
    /// Waits until the loss is told and a number of attempts was made to open the port again.
    [[nodiscard]] bool isLost(int attempts)
    {
        return waitFor([&] { return statusText() == kLost && openAttempts() >= attempts; });
    }
    /// Lets three periods of the reconnect timer go by. @return whether no attempt was made
    [[nodiscard]] bool restsOnItsPort()
    {
        const int before = openAttempts();
        bool isOver = false;
        const auto periods = Pacing::pause(std::chrono::milliseconds(1500));
        QTimer::singleShot(periods, &window(), [&isOver] { isOver = true; });
        return waitFor([&isOver] { return isOver; }) && openAttempts() == before;
    }

    /// What stands above the page, and whether the page's values are gray.
    [[nodiscard]] QString header()
    {
        QStringList texts;
        for (const auto* label : page<SensorHeader>().findChildren<QLabel*>())
            texts << label->text();
        const QColor text =
            page<SensorInfoPage>().palette().color(QPalette::Active, QPalette::Text);
        const bool isGray = text == QPalette().color(QPalette::Disabled, QPalette::Text);
        return texts.join(u'|') + (isGray ? u"|gray"_s : QString());
    }

    /// The caption of the button that answers a message box, nothing: not yet. A box without it is
    /// closed. By hand the second box asks to switch the supply on, which the PROG frames show.
    std::function<QString()> answer = [this] {
        return told.size() % 2 == 1 && sensor().progFrames() <= 5 ? QString() : u"OK"_s;
    };
    QStringList told; ///< the texts of the boxes

private:
    const ModalAnswer<QMessageBox> m_user{
        [this](QMessageBox& box) {
            const QString caption = answer();
            if (caption.isEmpty())
                return;
            told << box.text();
            for (auto* button : box.findChildren<QPushButton*>()) {
                if (button->text().remove(u'&') == caption)
                    return QTest::mouseClick(button, Qt::LeftButton);
            }
            box.close();
        },
        false};
};

} // namespace

class TestConnection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// In every language, until the next connect. By hand a sensor that answers is connected.
    void unidentifiedSensorIsExplained()
    {
        for (const bool byHand : {false, true}) {
            Rig rig(byHand);
            const QByteArray otherBounds = QByteArray(kSimulatedBounds).replace("0003", "0005");
            rig.settings().write(byHand ? kManualPower : otherBounds);
            rig.start();
            const auto* message = rig.window().findChild<QWidget*>(u"messagePane"_s);
            const auto isExplained = [message] {
                return message->toolTip().startsWith(u"SSY Type: Unknown\n"_s);
            };
            QVERIFY(waitFor(isExplained) && rig.waitIdle());
            const QString english = message->toolTip();
            QVERIFY(rig.header().startsWith(u"|Sensor not identified||Firmware revision 3A||"_s) &&
                    rig.header().endsWith(u"gray"_s));
            QVERIFY(english.contains(byHand ? u"bounds"_s : u"revision 3A"_s));
            QVERIFY(rig.clickCommand(kFirstLanguageCommand + 1));
            QVERIFY(waitFor([&] { return message->toolTip() != english; }) && isExplained());

            rig.sensor().setFault({Fault::Silent});
            QVERIFY(rig.clickCommand(kConnectCommand));
            QVERIFY(waitFor([message] { return message->toolTip().isEmpty(); }));
            QVERIFY(waitFor([&] { return rig.lightText().startsWith(u"Rot"_s); }) &&
                    rig.waitIdle());
            QCOMPARE(message->toolTip(), QString());
            QCOMPARE(rig.window().currentPage(), byHand ? 0 : -1);
            rig.clickRefresh(); // without a page there is nothing to read
            QVERIFY(rig.waitIdle());
        }
    }

    void supplyIsSwitchedByHand()
    {
        Rig rig(true);
        rig.answer = [] { return u"Cancel"_s; }; // the sensor listens already
        rig.start();
        for (int frame = 0; frame < 10; ++frame)
            rig.sensor().receive("PROG\r", SimulatedSensor::Clock::now());
        QVERIFY(rig.isConnected(1));
        QCOMPARE(rig.told.size(), 1);

        // The port is lost and back while the user switches; the frames go on then.
        rig.answer = [&] {
            if (rig.told.size() == 1)
                return u"OK"_s;
            if (rig.statusText() == kLost) {
                rig.sensor().comeBack();
            } else if (rig.sensor().progFrames() > 0) {
                rig.sensor().vanish();
            }
            const bool isBack = rig.openAttempts() > 1 && rig.link().linkFailed() == 0;
            return isBack && rig.sensor().progFrames() > 5 ? u"OK"_s : QString();
        };
        QVERIFY(rig.clickCommand(kConnectCommand));
        QVERIFY(rig.isConnected(2));
        QCOMPARE(rig.told.size(), 3); // there was no second connect

        // The stream asks before the time in which the user switches, not behind it.
        auto asked = SimulatedSensor::Mode::Off;
        connect(rig.window().findChild<PositionStream*>(), &PositionStream::supplyWanted, this,
                [&] { asked = rig.sensor().mode(); });
        QVERIFY(rig.choosePage(1));
        QCOMPARE(asked, SimulatedSensor::Mode::Programming);

        rig.answer = [&rig] {
            (void)rig.frames();
            Pacing::setSpeeds({0.1, 200, 1});
            return u"OK"_s;
        };
        QVERIFY(rig.clickCommand(kConnectCommand));
        QVERIFY(waitFor([&] { return rig.told.size() == 5 && rig.window().isBusy(); }));
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        QCOMPARE(rig.frames(), QString()); // the sensor gets the time to start
    }

    void keptFormatIsToldAtEachStartUntilItIsForgotten()
    {
        Rig rig;
        const KeptFormat kept{u"/dev/elsewhere"_s, "3A0102", "020018", "060018"};
        QVERIFY(rig.formats().keep(kept).isDone());
        const auto isTold = [&] {
            return waitFor([&] { return rig.noticeText().contains(kept.device); }) &&
                   rig.waitIdle();
        };
        int connects = 0;
        for (const QString& sure : {QString(), u"No"_s, u"Yes"_s}) {
            rig.destroyWindow();
            rig.told.clear();
            rig.answer = [&] { return sure; };
            rig.start();
            QVERIFY(isTold() && rig.isConnected(++connects));
            if (sure.isEmpty()) {
                QTest::mouseClick(&rig.page<QPushButton>("noticeButton1"), Qt::LeftButton);
                QVERIFY(rig.noticeText().isEmpty() &&
                        rig.isConnected(++connects)); // the same is tried
            } else {
                QTest::mouseClick(&rig.page<QPushButton>("noticeButton2"), Qt::LeftButton);
                QVERIFY(rig.told.size() == 1 && rig.told[0].contains(u"020018"_s));
            }
            QCOMPARE(rig.noticeText().isEmpty(), sure != u"No"_s);
            QCOMPARE(rig.formats().all().isEmpty(), sure == u"Yes"_s);
        }
    }

    void formatThatMayNotBeTheSensorsOwnIsTold()
    {
        for (const auto& [fault, command, told] :
             {std::tuple(Fault::WrongByte, "DA",
                         u"The data format of the connected sensor could"_s),
              {Fault::Deaf, "DN", u"020018"_s}}) {
            Rig rig;
            rig.answer = [] { return u"OK"_s; };
            QVERIFY(rig.startConnected());
            const QString device = ComPortNames::stableName(rig.link().device());
            QVERIFY(rig.formats()
                        .keep({device, rig.link().versionText(), "020018", "060018"})
                        .isDone());
            rig.sensor().setParameter('D', "060018");
            rig.sensor().setFault({fault, 2}, command);
            QVERIFY(rig.clickCommand(kConnectCommand) && rig.waitIdle());
            QVERIFY(waitFor([&rig, text = told] {
                return (rig.noticeText() + rig.told.join(u' ')).contains(text);
            }));
        }
    }

    void keptFormatIsToldBesidesOthersUntilItIsRead()
    {
        Rig rig;
        for (const char* version : {"3A0102", "3A0103"}) {
            QVERIFY(
                rig.formats().keep({u"/dev/elsewhere"_s, version, "020018", "060018"}).isDone());
        }
        rig.sensor().setParameter('V', "7A0204"); // which is told of, too
        rig.start();
        QVERIFY(waitFor([&] { return rig.noticeText().contains(u"3A010"_s); }) && rig.waitIdle());
        const QString first = rig.noticeText();
        QTest::keyClick(&rig.window(), Qt::Key_Escape);
        QVERIFY(rig.noticeText() != first && rig.noticeText().contains(u"3A010"_s));
        QTest::keyClick(&rig.window(), Qt::Key_Escape);
        QVERIFY(rig.noticeText().startsWith(u"Not identified"_s));
        QTest::keyClick(&rig.window(), Qt::Key_Escape);
        QCOMPARE(rig.noticeText() + rig.told.join(u' '), QString());
    }

    void portThatIsLostBeforeThereIsAWindowIsReopened()
    {
        Rig rig;
        rig.start([&rig] {
            rig.sensor().vanish();
            QVERIFY(waitFor([&rig] { return rig.link().linkFailed() == 1; }));
        });
        QVERIFY(rig.isLost(3));
        rig.sensor().comeBack();
        QVERIFY(rig.isConnected(1));
    }

    void lostPortIsReopenedSilently()
    {
        Rig rig;
        QVERIFY(rig.startConnected());
        QString lineBefore; // the header does not wait for the page to be read
        connect(&rig.page<SensorHeader>(), &SensorHeader::connectedChanged, this,
                [&] { lineBefore = rig.logged().last(); });
        for (const bool isRead : {false, true}) { // a page, else nothing
            rig.sensor().setFault({Fault::Vanish}, "ZA");
            if (isRead) {
                rig.clickRefresh();
            } else {
                rig.sensor().vanish();
            }
            QVERIFY(rig.isLost(rig.openAttempts() + 3));
            QVERIFY(!rig.window().isBusy()); // the sequence ended as a failed one
            QCOMPARE(rig.header(), u"|Connection lost||||||gray"_s);
            rig.sensor().clearFaults();
            rig.sensor().comeBack();
            QVERIFY(rig.isConnected(isRead ? 3 : 2) && rig.restsOnItsPort());
            QCOMPARE(lineBefore, u"SSI Type: 2"_s);
            QCOMPARE(rig.lightText(), u"Green: connected"_s);
            QCOMPARE(rig.header(), u"|Sensor connected|Type 2|Firmware revision 3A|SN012345|COM7"
                                   "|Safe writes off"_s);
            QCOMPARE(rig.told, QStringList());
        }
        rig.answer = [] { return u"OK"_s; };
        rig.sensor().setFault({Fault::Vanish, 1, 1}, "EN");
        QVERIFY(rig.clickCommand(kWriteECommand) && rig.isConnected(4));
        QVERIFY(rig.told.value(0).startsWith(u"Parameter 69 could not be written"_s));

        // One that is back at once is connected over the failed read.
        rig.sensor().setFault({Fault::Vanish, 1, 1}, "L");
        rig.sensor().setFault({Fault::Silent}, "V");
        Pacing::setSpeeds({100, 200, 0.2}); // the status can be looked at
        rig.clickRefresh();
        QVERIFY(waitFor([&rig] { return rig.logged().last() == u"TX: [56][Get][TERM]"_s; }));
        QCOMPARE(rig.statusText(), u"Connecting to the sensor\u2026"_s);

        rig.destroyWindow();
        rig.sensor().vanish();
        QVERIFY(waitFor([&rig] { return rig.link().linkFailed() == 1; })); // nobody is told
    }

    /// The connect that is wanted then, the plan that ends the stream and the page that was chosen
    /// must not meet each other.
    void quickReturnWhileThePositionPageIsLeft()
    {
        for (const char* frame : {"VA", "DA", "DN", "CN"}) {
            Rig rig;
            QVERIFY(rig.startConnected());
            QVERIFY(rig.choosePage(1));
            rig.sensor().setFault({Fault::Vanish, 1, 1}, frame);
            rig.clickPage(4);
            QVERIFY(rig.isConnected(*frame == 'V' ? 2 : 3)); // with that which ends the stream
            QCOMPARE(rig.sensor().parameter('D'), std::string("4A0519"));
            QVERIFY(rig.choosePage(2) && rig.statusText() == u"Ready."_s); // nothing is stuck
        }
    }

    void userIsAskedAfterElevenAttempts()
    {
        const QString gone = u"Serial communications port COM7 no longer exists, please check the "
                             "connection and retry."_s;
        for (const bool deaf : {false, true}) { // it opens then, and every frame loses it
            Rig rig;
            QVERIFY(rig.startConnected());
            QList<int> attempts;
            rig.answer = [&] {
                attempts << rig.openAttempts() - 1;
                WindowMessage late(WM_LINK_LOST); // it was on its way when the question came
                QCoreApplication::sendEvent(&rig.window(), &late);
                if (attempts.size() == 2) {
                    rig.sensor().clearFaults();
                    rig.sensor().comeBack();
                }
                return u"Retry"_s;
            };
            rig.sensor().setFault({Fault::Vanish, deaf ? 1 : 0});
            rig.clickRefresh();
            QVERIFY(rig.isConnected(2));
            QCOMPARE(rig.told, QStringList({gone, gone}));
            QCOMPARE(attempts, QList({11, 22}));
        }
    }

    /// It exists then, whatever the question says that comes after eleven attempts.
    void portThatIsBackAndCannotBeUsedIsToldOnce()
    {
        Rig rig;
        std::atomic<bool> refuses = false;
        rig.wrapPorts([&refuses](std::unique_ptr<ComPort> port) {
            return std::make_unique<RefusingPort>(std::move(port), refuses);
        });
        QVERIFY(rig.startConnected());
        rig.answer = [&] {
            refuses = rig.told.isEmpty();
            return refuses ? u"OK"_s : u"Retry"_s;
        };
        refuses = true;
        rig.sensor().setFault({Fault::Vanish, 0});
        rig.clickRefresh();
        QVERIFY(waitFor([&rig] { return rig.link().linkFailed() == 1; }));
        rig.sensor().clearFaults();
        rig.sensor().comeBack();
        QVERIFY(rig.isConnected(2));
        QCOMPARE(rig.told.size(), 2);
        QCOMPARE(rig.told.first(),
                 u"The line settings of port \\\\.\\COM7 could not be set (system "
                 "error 22)."_s);
    }

    void portIsLostUnderTheDialogOfPorts()
    {
        using Call = HeldPort::Call;
        struct Row
        {
            const char* name;
            int attempts; ///< made to open it again before the dialog is closed
            int port;     ///< afterwards: 7 is the lost one, 9 the same sensor
            bool isBack = true;
            Call held = Call::Read;          ///< the step of an attempt that takes its time
            const char* streamEnd = nullptr; ///< with this frame it is lost, after the dialog
        };
        const std::vector<Row> rows = {
            {"back, without a choice", 14, 7},
            {"gone, without a choice", 14, 7, false},
            {"choice between two attempts", 11, 9},
            {"choice while it is being closed", 0, 9, true, Call::Close},
            {"choice while it is being opened", 1, 9, true, Call::Open},
            {"choice that cannot be opened", 0, 9, false},
            {"lost as the stream ends", 0, 9, true, Call::Read, "VA"},
            {"lost as the own format is written back", 0, 9, true, Call::Read, "DN"},
        };
        forEachRow(rows, [](const Row& row) {
            Rig rig;
            const auto hold = std::make_shared<std::mutex>();
            rig.wrapPorts([&](std::unique_ptr<ComPort> port) {
                return std::make_unique<HeldPort>(std::move(port), hold, row.held);
            });
            QVERIFY(rig.startConnected());
            QVERIFY(!row.streamEnd || rig.choosePage(1));
            const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
            std::unique_lock inFlight(*hold, std::defer_lock);
            const ModalAnswer<SelectPortDialog> ports([&](SelectPortDialog& dialog) {
                if (row.held != Call::Read)
                    inFlight.lock();
                if (row.streamEnd) {
                    rig.sensor().setFault({Fault::Vanish, 1, 1}, row.streamEnd);
                } else {
                    rig.sensor().vanish();
                    QVERIFY(rig.isLost(rig.openAttempts() + row.attempts));
                }
                if (row.isBack)
                    rig.sensor().comeBack();
                if (row.port == 9) {
                    dialog.findChild<SerialPortComboBox*>()->selectPort(9);
                    return QTest::keyClick(&dialog, Qt::Key_Return);
                }
                QVERIFY(!row.isBack || waitFor([&rig] { return rig.link().linkFailed() == 0; }));
                QVERIFY(!row.isBack || rig.restsOnItsPort());
                QCOMPARE(rig.statusText(), kLost); // no Connect has begun
                QCOMPARE(rig.told, QStringList());
                QTest::keyClick(&dialog, Qt::Key_Escape);
            });
            QVERIFY(rig.clickCommand(kSelectPortCommand));
            if (!row.isBack) {
                QVERIFY(waitFor([&closed] { return closed.size() == 1; }));
                QCOMPARE(rig.told.size(), 1); // the question, or why it cannot be opened
                return;
            }
            if (row.held != Call::Read) {
                QVERIFY(waitFor([&] { return inFlight.owns_lock() && rig.window().isBusy(); }));
                (void)rig.restsOnItsPort();
                inFlight.unlock();
            }
            QVERIFY(waitFor([&] { return rig.link().portNumber() == row.port; }));
            QVERIFY(row.port == 9 ? rig.waitIdle() : rig.isConnected(2) && rig.told.isEmpty());
            QVERIFY(rig.restsOnItsPort());
            QCOMPARE(rig.link().portNumber(), row.port);
            QCOMPARE(rig.link().linkFailed(), 0);
        });
    }

    /// Its driver may not come back.
    void portThatIsNotOpenedIsLeftForAnotherOneOrAClose()
    {
        for (const bool closes : {false, true}) {
            const auto hold = std::make_shared<std::mutex>();
            Rig rig;
            rig.wrapPorts([&](std::unique_ptr<ComPort> port) {
                return std::make_unique<HeldPort>(std::move(port), hold, HeldPort::Call::Open);
            });
            QVERIFY(rig.startConnected());
            const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
            int choices = 0;
            const ModalAnswer<SelectPortDialog> ports(
                [&choices](SelectPortDialog& dialog) {
                    dialog.findChild<SerialPortComboBox*>()->selectPort(9);
                    QTest::keyClick(&dialog, ++choices == 1 ? Qt::Key_Return : Qt::Key_Escape);
                },
                false);
            rig.answer = [&] {
                if (closes)
                    rig.window().close();
                return closes               ? QString()
                       : rig.told.isEmpty() ? u"Select Communications Port"_s
                                            : u"OK"_s;
            };
            const QString stuck = u"COM9 could not be closed"_s; // not the one that was left
            if (closes)
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression(stuck));
            Pacing::setSpeeds({100, 200, 50});
            std::unique_lock opening(*hold);
            QVERIFY(rig.clickCommand(kSelectPortCommand));
            QVERIFY(waitFor([&] { return closes ? closed.size() == 1 : choices == 2; }));
            QVERIFY(closes || (rig.told.value(0).startsWith(u"COM9 is being opened"_s) &&
                               rig.told.value(1).startsWith(stuck) && !rig.window().isBusy()));
            QVERIFY(closes || rig.lightText().startsWith(u"Gray"_s)); // nothing is open
            QVERIFY(closes || rig.noticeText().startsWith(u"No port is open"_s));
            opening.unlock();
            QVERIFY(waitFor([&] { return hold.use_count() == 1; })); // what was left has ended
        }
    }
};

QTEST_MAIN(TestConnection)
#include "TestConnection.moc"
