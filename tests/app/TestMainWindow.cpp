#include "app/Commands.h"
#include "pages/AboutDialog.h"
#include "pages/SensorInfoPage.h"
#include "platform/ui/MessageBox.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"

#include <QAction>
#include <QElapsedTimer>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace pelorin;
using test::MainWindowRig;
using test::ModalAnswer;

namespace {

const QString kConnected = QStringLiteral("Green: connected");
const QString kNotConnected = QStringLiteral("Red, blinking: not connected");

const QByteArray kProductKey = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n";
const QByteArray kManualPower = kProductKey + "\"ManualPowerMode\"=dword:00000001\r\n";

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
    void missingBoundsAreExplained();
    void refreshWithoutAPageDoesNothing();
    void arrowKeysMoveAndEnterChooses();
    void busyKeepsInputAway();
    void storeCommandsAreWrittenAndConnectAgain();
    void storeCommandsAreGreyedForTypeOne();
    void displayUnitItemFollowsTheSettings();
    void languageItemShowsEverythingInThatLanguage();
    void manualPowerModeAsksTheUser_data();
    void manualPowerModeAsksTheUser();
    void closingSwitchesTheSupplyOff();
    void closingDuringAConnectEndsIt();
    void closingWaitsForAStoreCommand();
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

void TestMainWindow::missingBoundsAreExplained()
{
    MainWindowRig rig;
    rig.settings().write(QByteArray());
    rig.start();
    QTRY_COMPARE(rig.lightText(), kNotConnected);
    const auto* message = rig.window().findChild<QLabel*>(QStringLiteral("messagePane"));
    QVERIFY(message->toolTip().startsWith(QStringLiteral("SSY Type: Unknown\n")));
    QVERIFY(message->toolTip().contains(QStringLiteral("bounds")));
    QVERIFY(rig.waitIdle());

    rig.settings().write(kSimulatedBounds);
    QVERIFY(rig.clickCommand(kConnectCommand));
    QTRY_COMPARE(rig.lightText(), kConnected);
    QVERIFY(rig.waitIdle());
    QCOMPARE(message->toolTip(), QString());
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
        QCOMPARE(rig.window().currentPage(), 0);

        QTest::keyClick(&list, key);
        QTRY_COMPARE(rig.window().currentPage(), 1);
        QVERIFY(rig.waitIdle());
        QVERIFY(rig.choosePage(0));
    }
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

    rig.window().close();
    QVERIFY(!rig.window().isVisible());
    QCOMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Off);
    QCOMPARE(rig.link().open(MainWindowRig::kPort, 0), 1); // the worker has given the port back
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
