#include "app/Commands.h"
#include "app/ConnectionSupervisor.h"
#include "pages/AboutDialog.h"
#include "pages/OutputSetupPage.h"
#include "pages/SensorInfoPage.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Pacing.h"
#include "platform/core/Strings.h"
#include "platform/ui/MessageBox.h"
#include "sensor/PositionStream.h"
#include "support/FileDialogUser.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/PortDecorator.h"

#include <QAction>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <chrono>

using namespace pelorin;
using namespace pelorin::test;

namespace {

const QString kConnected = QStringLiteral("Green: connected");
const QString kNotConnected = QStringLiteral("Red, blinking: not connected");

const QByteArray kProductKey = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n";
const QByteArray kManualPower = kProductKey + "\"ManualPowerMode\"=dword:00000001\r\n";

/// Answers OK to the boxes of the manual power mode, to the second once the sensor has heard enough
/// PROG frames. They go on for three seconds after that OK, which pass in no time here.
class Technician
{
public:
    explicit Technician(MainWindowRig& rig)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, &rig] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box || (box->text() == languageString(strings::kSwitchSupplyOn) &&
                         rig.sensor().progFrames() <= 5))
                return;
            ++m_answered;
            QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
        });
        m_timer.start(5);
    }

    [[nodiscard]] int answered() const { return m_answered; }

private:
    QTimer m_timer;
    int m_answered = 0;
};

/// How soon after a frame that writes the supply was switched off at the earliest.
struct SupplyTimes
{
    std::chrono::steady_clock::time_point write; ///< of the last one
    std::chrono::nanoseconds shortest = std::chrono::hours(1);
};

class TimedPort final : public PortDecorator
{
public:
    TimedPort(std::unique_ptr<ComPort> port, SupplyTimes& times)
        : PortDecorator(std::move(port)), m_times(times)
    {
    }

    WriteResult write(std::string_view bytes) override
    {
        const WriteResult result = PortDecorator::write(bytes);
        if (bytes.size() > 1 && bytes[1] == 'N')
            m_times.write = std::chrono::steady_clock::now();
        return result;
    }
    int setRts(bool on) override
    {
        if (on) // the supply is switched off
            m_times.shortest =
                std::min(m_times.shortest, std::chrono::steady_clock::now() - m_times.write);
        return PortDecorator::setRts(on);
    }

private:
    SupplyTimes& m_times; ///< used on the worker's thread, read when that has ended
};

/// The last frames of a write or a read that the sensor has understood.
bool hasReceived(MainWindowRig& rig, const std::string& frame)
{
    const auto frames = rig.sensor().takeReceivedFrames();
    return std::find(frames.begin(), frames.end(), frame) != frames.end();
}

} // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void failedConnectShowsNoPage();
    void unidentifiedSensorIsExplained_data();
    void unidentifiedSensorIsExplained();
    void refreshWithoutAPageDoesNothing();
    void arrowKeysMoveAndEnterChooses();
    void selectedRowIsThatOfTheShownPage();
    void busyKeepsInputAway();
    void storeCommandsAreWrittenAndConnectAgain();
    void storeCommandsAreGreyedForTypeOne();
    void displayUnitItemFollowsTheSettings();
    void languageItemShowsEverythingInThatLanguage();
    void manualPowerModeAsksTheUser_data();
    void manualPowerModeAsksTheUser();
    void manualPowerModeWaitsVisibly();
    void keptFormatOfAnotherSensorIsToldAtTheStart();
    void closingSwitchesTheSupplyOff();
    void closingDuringAConnectEndsIt();
    void closingWaitsForAStoreCommand();
    void closingDoesNotWaitForADriverThatHangs();
    void closingSendsWhatWasBegunAndWaitsUntilItIsStored_data();
    void closingSendsWhatWasBegunAndWaitsUntilItIsStored();
    void closingEndsAQuestionAndTheDialogThatAsks();
    void windowMayGoWhileTheWorkerPosts();
};

void TestMainWindow::failedConnectShowsNoPage()
{
    MainWindowRig rig;
    rig.sensor().setFault({SimulatedFault::Kind::Silent});
    rig.start();
    QTRY_COMPARE(rig.lightText(), kNotConnected);
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.window().currentPage(), -1);
    QVERIFY(!rig.page<SensorInfoPage>().isVisible());

    rig.sensor().clearFaults();
    QVERIFY(rig.clickCommand(kConnectCommand));
    QTRY_COMPARE(rig.lightText(), kConnected);
    QCOMPARE(rig.window().currentPage(), 0);
}

void TestMainWindow::unidentifiedSensorIsExplained_data()
{
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QByteArray>("bounds");
    QTest::addColumn<QString>("words");
    const QByteArray others =
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin\\Firmware Rev "
        "Bounds]\r\n\"Type0Low\"=dword:00000050\r\n"
        "\"Type0High\"=dword:0000005f\r\n";
    const QString revision = QStringLiteral("revision 3A");
    const QString none = QStringLiteral("bounds");
    QTest::newRow("other bounds") << QByteArray() << others << revision;
    QTest::newRow("no bounds") << QByteArray() << QByteArray() << none;
    QTest::newRow("other bounds, supply by hand") << kManualPower << others << revision;
    QTest::newRow("no bounds, supply by hand") << kManualPower << QByteArray() << none;
}

/// In every language, until another connect has shown something else.
void TestMainWindow::unidentifiedSensorIsExplained()
{
    QFETCH(QByteArray, settings);
    QFETCH(QByteArray, bounds);
    QFETCH(QString, words);

    const auto supply =
        settings.isEmpty() ? SimulatedSensor::Supply::ByRts : SimulatedSensor::Supply::ByLineSpeed;
    MainWindowRig rig({.type = 2, .supply = supply}, settings);
    const Technician technician(rig);
    rig.settings().write(settings + bounds);
    rig.start();
    const auto* message = rig.window().findChild<QLabel*>(QStringLiteral("messagePane"));
    const auto tip = [&] { return message->toolTip(); };
    QTRY_VERIFY(tip().startsWith(QStringLiteral("SSY Type: Unknown\n")));
    QVERIFY2(tip().contains(words), qPrintable(tip()));
    QCOMPARE(tip().contains(QStringLiteral("3A")), !bounds.isEmpty());
    QVERIFY(rig.waitIdle());
    const QString english = tip();
    QVERIFY(rig.clickCommand(kFirstLanguageCommand + 1));
    QTRY_VERIFY(tip() != english);
    QVERIFY(tip().startsWith(QStringLiteral("SSY Type: Unknown\n")));
    QCOMPARE(tip().contains(QStringLiteral("3A")), !bounds.isEmpty());

    if (settings.isEmpty())
        rig.settings().write(kSimulatedBounds);
    else
        rig.sensor().setFault({SimulatedFault::Kind::Silent});
    QVERIFY(rig.clickCommand(kConnectCommand));
    QTRY_COMPARE(tip(), QString());
    QVERIFY(rig.waitIdle());
    QCOMPARE(tip(), QString());
}

void TestMainWindow::refreshWithoutAPageDoesNothing()
{
    MainWindowRig rig;
    rig.sensor().setFault({SimulatedFault::Kind::Silent});
    rig.start();
    QTRY_COMPARE(rig.lightText(), kNotConnected);
    QVERIFY(rig.waitIdle());
    const auto logged = rig.logged();
    rig.clickRefresh();
    QVERIFY(rig.clickCommand(kRefreshCommand));
    QCoreApplication::processEvents();
    QVERIFY(!rig.window().isBusy());
    QCOMPARE(rig.logged(), logged);
}

void TestMainWindow::arrowKeysMoveAndEnterChooses()
{
    MainWindowRig rig;
    QVERIFY(rig.startConnected());
    (void)rig.sensor().takeReceivedFrames();
    rig.clickPage(0); // is shown already
    QCoreApplication::processEvents();
    QVERIFY(rig.sensor().takeReceivedFrames().empty());

    auto& list = rig.pageList();
    list.setFocus();
    for (const auto key : {Qt::Key_Return, Qt::Key_Space}) {
        QTest::keyClick(&list, Qt::Key_Down);
        QCoreApplication::processEvents();
        QCOMPARE(list.currentRow(), 1);
        QCOMPARE(list.selectedItems(), QList<QListWidgetItem*>{list.item(0)});
        QCOMPARE(rig.window().currentPage(), 0);

        QTest::keyClick(&list, key);
        QTRY_COMPARE(rig.window().currentPage(), 1);
        QVERIFY(rig.waitIdle());
        QVERIFY(rig.choosePage(0));
    }
}

/// Whatever the list makes of drags and of clicks that end while the program is busy.
void TestMainWindow::selectedRowIsThatOfTheShownPage()
{
    MainWindowRig rig;
    QVERIFY(rig.startConnected());
    auto& list = rig.pageList();
    const auto middle = [&list](int row) { return list.visualItemRect(list.item(row)).center(); };
    const auto selected = [&list] { return list.selectedItems(); };
    const QList<QListWidgetItem*> shown{list.item(0)};

    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, middle(0));
    QTest::mouseMove(list.viewport(), middle(2));
    QTest::mouseMove(list.viewport(), middle(3));
    QCOMPARE(selected(), shown);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, middle(3));
    QVERIFY(rig.waitIdle());
    QCOMPARE(selected(), QList<QListWidgetItem*>{list.item(rig.window().currentPage())});

    QVERIFY(rig.window().currentPage() == 0 || rig.choosePage(0));
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, middle(4));
    QTest::keyClick(&rig.window(), Qt::Key_F5);
    QCoreApplication::sendPostedEvents(&rig.window());
    QVERIFY(rig.window().isBusy());
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, middle(4));
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.window().currentPage(), 0);
    QCOMPARE(selected(), shown);
}

void TestMainWindow::busyKeepsInputAway()
{
    MainWindowRig rig;
    QVERIFY(rig.startConnected());
    rig.sensor().setFault({SimulatedFault::Kind::Late, 100, 1}, "D"); // it answers in the end
    rig.clickRefresh();
    QTRY_VERIFY(rig.window().isBusy());

    rig.clickPage(1);
    QTest::keyClick(&rig.pageList(), Qt::Key_Down);
    rig.clickRefresh();
    QVERIFY(!rig.clickCommand(kAboutCommand) || !QApplication::activeModalWidget());
    QCOMPARE(rig.pageList().currentRow(), 0);
    QVERIFY(rig.waitIdle());
    QCoreApplication::processEvents();
    QCOMPARE(rig.window().currentPage(), 0);
    QVERIFY(!QApplication::activeModalWidget());
}

void TestMainWindow::storeCommandsAreWrittenAndConnectAgain()
{
    MainWindowRig rig;
    QVERIFY(rig.startConnected());
    int connects = 1;
    for (const auto& [command, frame] : {std::pair(kWriteECommand, "EN"), {kWriteQCommand, "QN"}}) {
        (void)rig.sensor().takeReceivedFrames();
        QVERIFY(rig.clickCommand(command));
        ++connects;
        QTRY_COMPARE(rig.logged().count(QStringLiteral("SSI Type: 2")), connects);
        QVERIFY(rig.waitIdle());
        QVERIFY(hasReceived(rig, frame));
        QCOMPARE(rig.statusText(), QStringLiteral("Ready."));
    }
    rig.runner().reserveConnect(*rig.window().findChild<ConnectionSupervisor*>());
    (void)rig.frames();
    const FileDialogUser user({});
    QVERIFY(rig.clickCommand(kWriteECommand));
    QTRY_COMPARE(user.boxes(),
                 QStringList(QStringLiteral("The sensor is being connected, so nothing else was "
                                            "done. Try again when that has ended.")));
    QVERIFY(rig.waitIdle());
    QCOMPARE(rig.frames(), QString());
}

void TestMainWindow::storeCommandsAreGreyedForTypeOne()
{
    MainWindowRig rig({.type = 1});
    QVERIFY(rig.startConnected());
    QVERIFY(!rig.clickCommand(kWriteECommand));
    QVERIFY(!rig.clickCommand(kWriteQCommand));
}

void TestMainWindow::displayUnitItemFollowsTheSettings()
{
    for (const bool on : {false, true}) {
        MainWindowRig rig({},
                          on ? kProductKey + "\"EnableQDL3\"=dword:00000001\r\n" : QByteArray());
        rig.start();
        QCOMPARE(rig.clickCommand(kDisplayUnitCommand), on);
    }
}

void TestMainWindow::languageItemShowsEverythingInThatLanguage()
{
    MainWindowRig rig;
    QVERIFY(rig.startConnected());
    QVERIFY(rig.clickCommand(kFirstLanguageCommand + 1));
    QTRY_COMPARE(rig.languages().getCurrentLanguage(), 2);

    QTRY_COMPARE(rig.pageList().item(0)->text(), QStringLiteral("Sensorinformation"));
    QCOMPARE(rig.pageList().currentRow(), 0);
    QTRY_COMPARE(rig.statusText(), QStringLiteral("Bereit."));
    QVERIFY(rig.lightText() != kConnected);
    QVERIFY(rig.window().findChild<QPushButton*>(QStringLiteral("refreshButton"))->text() !=
            QStringLiteral("Refresh"));

    auto* menu = rig.window().menuBar()->actions().at(2)->menu();
    Q_EMIT menu->aboutToShow();
    QList<bool> checked;
    for (const auto* action : menu->actions())
        checked << action->isChecked();
    QCOMPARE(checked, (QList<bool>{false, true, false, false, false}));
}

void TestMainWindow::manualPowerModeAsksTheUser_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<int>("boxes");
    QTest::newRow("the user switches the supply") << QMessageBox::Ok << 2;
    QTest::newRow("the user cancels") << QMessageBox::Cancel << 1;
}

void TestMainWindow::manualPowerModeAsksTheUser()
{
    QFETCH(QMessageBox::StandardButton, answer);
    QFETCH(int, boxes);

    MainWindowRig rig({.type = 2, .supply = SimulatedSensor::Supply::ByLineSpeed}, kManualPower);
    if (answer == QMessageBox::Cancel) {
        // The sensor is in its programming mode already.
        rig.start();
        for (int frame = 0; frame < 10; ++frame)
            rig.sensor().receive("PROG\r", SimulatedSensor::Clock::now());
    }
    int asked = 0;
    std::unique_ptr<ModalAnswer<QMessageBox>> second;
    ModalAnswer<QMessageBox> first([&](QMessageBox& box) {
        ++asked;
        second = std::make_unique<ModalAnswer<QMessageBox>>([&](QMessageBox& next) {
            ++asked;
            // The frames stream while the box is open.
            QTRY_VERIFY(rig.sensor().progFrames() > 5);
            QTest::mouseClick(next.button(QMessageBox::Ok), Qt::LeftButton);
        });
        QTest::mouseClick(box.button(answer), Qt::LeftButton);
    });
    if (answer == QMessageBox::Ok)
        rig.start();

    QTRY_COMPARE(rig.lightText(), kConnected);
    QCOMPARE(asked, boxes);
    QCOMPARE(rig.link().ssiType(), 2);
    QCOMPARE(rig.window().currentPage(), 0);
}

void TestMainWindow::closingSwitchesTheSupplyOff()
{
    MainWindowRig rig;
    QVERIFY(rig.startConnected());
    QCOMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Programming);
    const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    QVERIFY(rig.clickCommand(kExitCommand));
    QTRY_COMPARE(closed.size(), 1);
    QCOMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Off);
}

void TestMainWindow::closingDuringAConnectEndsIt()
{
    MainWindowRig rig;
    rig.sensor().setFault({SimulatedFault::Kind::Silent});
    rig.start();
    QTRY_VERIFY(rig.sensor().progFrames() > 0);
    QVERIFY(rig.window().isBusy());

    const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    rig.window().close();
    QTRY_COMPARE(closed.size(), 1);
    QCOMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Off);
    QVERIFY(!rig.link().isOpen()); // the worker has given the port back
}

void TestMainWindow::closingWaitsForAStoreCommand()
{
    MainWindowRig rig;
    QVERIFY(rig.startConnected());
    (void)rig.sensor().takeReceivedFrames();
    const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    QVERIFY(rig.clickCommand(kWriteECommand));
    QCoreApplication::sendPostedEvents(&rig.window());
    QVERIFY(rig.window().isBusy());
    rig.window().close();
    QVERIFY(rig.window().isVisible());

    QTRY_COMPARE(closed.size(), 1);
    QVERIFY(hasReceived(rig, "EN"));
    QCOMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Off);
    QCOMPARE(rig.logged().count(QStringLiteral("SSI Type: 2")), 1); // no second connect
}

void TestMainWindow::closingDoesNotWaitForADriverThatHangs()
{
    MainWindowRig rig;
    const auto hold = std::make_shared<std::mutex>();
    rig.wrapPorts([&hold](std::unique_ptr<ComPort> port) {
        return std::make_unique<HeldPort>(std::move(port), hold, HeldPort::Call::Read);
    });
    QVERIFY(rig.startConnected());
    std::unique_lock hanging(*hold);
    rig.clickRefresh();
    QTRY_VERIFY(rig.window().isBusy());
    Pacing::setSpeeds({100, 200, 50}); // 15 seconds are the limit
    const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("COM7")));
    rig.window().close();
    QTRY_COMPARE(closed.size(), 1);
    hanging.unlock();
    QTRY_COMPARE(hold.use_count(), 1); // what was left to itself has ended
}

void TestMainWindow::closingSendsWhatWasBegunAndWaitsUntilItIsStored_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::newRow("an Apply, at its first write") << QByteArray("DN");
    QTest::newRow("an Apply, at its closing command") << QByteArray("CN");
    QTest::newRow("the position page, as its format is written") << QByteArray("DN position");
    QTest::newRow("the position page, at the closing command") << QByteArray("CN position");
}

/// The window is closed when the sensor has got a frame.
void TestMainWindow::closingSendsWhatWasBegunAndWaitsUntilItIsStored()
{
    QFETCH(QByteArray, frame);
    MainWindowRig rig;
    SupplyTimes times;
    rig.wrapPorts([&times](std::unique_ptr<ComPort> port) {
        return std::make_unique<TimedPort>(std::move(port), times);
    });
    Pacing::setSpeeds({10, 200, 1});
    QVERIFY(rig.startConnected());
    const bool position = frame.endsWith("position");
    const std::string own = rig.sensor().parameter('D');
    if (!position) {
        QVERIFY(rig.choosePage(2));
        QTest::keyClick(rig.page<OutputSetupPage>().getControl<QComboBox>(1006), Qt::Key_Home);
    }
    const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    (void)rig.frames();
    if (position)
        rig.clickPage(1);
    else
        QTest::mouseClick(rig.page<OutputSetupPage>().getControl<QPushButton>(1028),
                          Qt::LeftButton);
    QString sent;
    QVERIFY(QTest::qWaitFor(
        [&] { return (sent += rig.frames()).contains(QLatin1String(frame.left(2))); }));
    rig.window().close();
    QVERIFY(rig.window().isVisible());
    QTRY_COMPARE_WITH_TIMEOUT(closed.size(), 1, 15'000);

    QVERIFY2((sent += rig.frames()).contains(QStringLiteral("CN")), qPrintable(sent));
    QCOMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Off);
    QCOMPARE(rig.sensor().parameter('D'), position ? own : std::string("480519"));
    QVERIFY(rig.formats().all().isEmpty() || rig.formats().all().first().readBack);
    QVERIFY2(times.shortest >= Pacing::pause(kStoreTime), "the sensor could not store");
}

/// What an earlier run could not write back.
void TestMainWindow::keptFormatOfAnotherSensorIsToldAtTheStart()
{
    MainWindowRig rig;
    const KeptFormat kept{QStringLiteral("/dev/elsewhere"), "3A0102", "020018", "060018"};
    QVERIFY(rig.formats().keep(kept).isDone());
    QStringList said;
    // Try again; Forget and No; at the next connect nothing is told any more.
    QStringList answers{QStringLiteral("Try again")};
    QTimer user;
    connect(&user, &QTimer::timeout, this, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        said << box->text();
        const QString wanted = answers.isEmpty() ? QString() : answers.takeFirst();
        const auto buttons = box->buttons();
        for (auto* button : buttons) {
            if (button->text().remove(QLatin1Char('&')) == wanted)
                return QTest::mouseClick(button, Qt::LeftButton);
        }
        box->close();
    });
    user.start(5);
    QVERIFY(rig.startConnected());
    QTRY_COMPARE(rig.logged().count(QStringLiteral("SSI Type: 2")), 2); // it was tried again
    QVERIFY(rig.waitIdle());
    QCOMPARE(said.size(), 1);
    QVERIFY(said.first().contains(kept.device) && said.first().contains(QStringLiteral("020018")));
    QCOMPARE(rig.formats().all().size(), 1);

    for (const QString& sure : {QStringLiteral("No"), QStringLiteral("Yes")}) {
        said.clear();
        answers = {QStringLiteral("Forget"), sure};
        rig.destroyWindow(); // and start the program once more
        rig.start();
        QTRY_COMPARE(said.size(), 2);
        QVERIFY(rig.waitIdle());
        QVERIFY(said.last().startsWith(QStringLiteral("Forget the data format 020018")));
        QTRY_COMPARE(rig.formats().all().isEmpty(), sure == QLatin1String("Yes"));
    }
}

/// While the user is told what to do, and the sensor gets the time to start, the program is busy.
void TestMainWindow::manualPowerModeWaitsVisibly()
{
    MainWindowRig rig({.type = 2, .supply = SimulatedSensor::Supply::ByLineSpeed}, kManualPower);
    Pacing::setSpeeds({2, 200, 1});
    const Technician technician(rig);
    rig.start();
    QTRY_COMPARE(technician.answered(), 2);
    QTRY_VERIFY(QGuiApplication::overrideCursor());
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QVERIFY(!rig.frames().contains(QStringLiteral("VA"))); // the three seconds are not over
    QTRY_VERIFY(rig.window().currentPage() == 0);
    QVERIFY(rig.waitIdle());
    QVERIFY(!QGuiApplication::overrideCursor());

    // The request comes before the time in which the user switches, not behind it.
    QElapsedTimer sinceAsked;
    const QString wanted = QStringLiteral("Switch the sensor's supply off and on again now.");
    QSignalSpy streaming(rig.window().findChild<PositionStream*>(), &PositionStream::streaming);
    rig.clickPage(1);
    QTRY_COMPARE(rig.statusText(), wanted);
    sinceAsked.start();
    QVERIFY(streaming.isEmpty());
    QVERIFY(streaming.wait());
    QVERIFY(sinceAsked.elapsed() > 500);
    QTRY_COMPARE(rig.statusText(), QString());
}

void TestMainWindow::closingEndsAQuestionAndTheDialogThatAsks()
{
    MainWindowRig rig;
    QVERIFY(rig.startConnected());
    auto answer = QMessageBox::NoButton;
    bool stillOpen = true;
    ModalAnswer<QMessageBox> question([&rig](QMessageBox&) { rig.window().close(); });
    ModalAnswer<AboutDialog> about([&](AboutDialog& dialog) {
        answer = messageBox(&dialog, QStringLiteral("?"), QMessageBox::Yes | QMessageBox::No,
                            QMessageBox::Question);
        stillOpen = dialog.isVisible();
    });
    const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    QVERIFY(rig.clickCommand(kAboutCommand));
    QTRY_COMPARE(closed.size(), 1);
    QCOMPARE(answer, QMessageBox::No);
    QVERIFY(!stillOpen);
}

void TestMainWindow::windowMayGoWhileTheWorkerPosts()
{
    for (int round = 0; round < 20; ++round) {
        MainWindowRig rig;
        rig.start();
        QTRY_VERIFY(rig.sensor().progFrames() > 0);
        if (round % 2 == 0)
            rig.sensor().vanish(); // losses are posted, and the reply target stays
        rig.link().requestRead('D');
        rig.destroyWindow();
    }
}

QTEST_MAIN(TestMainWindow)
#include "TestMainWindow.moc"
