#include "app/Commands.h"
#include "pages/AboutDialog.h"
#include "pages/SelectPortDialog.h"
#include "pages/SensorInfoPage.h"
#include "platform/core/Pacing.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"

#include <QComboBox>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace pelorin;
using test::MainWindowRig;
using test::ModalAnswer;

namespace {

const QString kConnected = QStringLiteral("Green: connected");
const QString kLost = QStringLiteral("Lost communication with COM7, trying to reconnect...");
const QString kGone =
    QStringLiteral("Serial communications port COM7 no longer exists, please check the "
                   "connection and retry.");

/// Lets three periods of the reconnect timer go by.
bool waitThreePeriods()
{
    QTimer timer;
    const QSignalSpy ticks(&timer, &QTimer::timeout);
    timer.start(Pacing::pause(std::chrono::milliseconds(500)));
    return QTest::qWaitFor([&ticks] { return ticks.size() >= 3; });
}

/// Chooses COM9, which is the same sensor, in the dialog.
void choosePortNine(SelectPortDialog& dialog)
{
    auto* combo = dialog.findChild<QComboBox*>();
    combo->addItem(QStringLiteral("COM9"), 9);
    combo->setCurrentIndex(combo->findData(9));
    QTest::keyClick(&dialog, Qt::Key_Return);
}

const QByteArray kManualPower = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n"
                                "\"ManualPowerMode\"=dword:00000001\r\n";

} // namespace

class TestReconnect : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lostPortIsReopenedSilently();
    void userIsAskedAfterElevenAttempts();
    void cancelClosesTheProgram();
    void connectWaitsUntilADialogIsClosed();
    void questionWaitsUntilADialogIsClosed();
    void portLostInsideTheManualBoxesStartsNoSecondConnect();
    void openingAnotherPortEndsTheReconnecting();
    void portThatCannotBeOpenedEndsTheProgram();
};

void TestReconnect::lostPortIsReopenedSilently()
{
    MainWindowRig rig;
    QVERIFY(rig.startConnected());
    const int attempts = rig.openAttempts();
    rig.sensor().vanish();
    rig.clickRefresh();
    QTRY_COMPARE(rig.statusText(), kLost);
    QTRY_VERIFY(rig.openAttempts() > attempts + 2);
    QVERIFY(!rig.window().isBusy()); // the sequence ended as a failed one

    rig.sensor().comeBack();
    QTRY_COMPARE(rig.statusText(), QStringLiteral("Ready."));
    QCOMPARE(rig.lightText(), kConnected);
    const int atReturn = rig.openAttempts();
    QVERIFY(waitThreePeriods());
    QCOMPARE(rig.openAttempts(), atReturn);
}

void TestReconnect::userIsAskedAfterElevenAttempts()
{
    MainWindowRig rig;
    QVERIFY(rig.startConnected());
    const int before = rig.openAttempts();
    int attempts = 0;
    int attemptsAgain = 0;
    QString question;
    std::unique_ptr<ModalAnswer<QMessageBox>> second;
    ModalAnswer<QMessageBox> first([&](QMessageBox& box) {
        attempts = rig.openAttempts() - before;
        question = box.text();
        second = std::make_unique<ModalAnswer<QMessageBox>>([&](QMessageBox& again) {
            attemptsAgain = rig.openAttempts() - before - attempts;
            rig.sensor().comeBack();
            QTest::mouseClick(again.button(QMessageBox::Retry), Qt::LeftButton);
        });
        QTest::mouseClick(box.button(QMessageBox::Retry), Qt::LeftButton);
    });
    rig.sensor().vanish();
    rig.clickRefresh();

    QTRY_VERIFY_WITH_TIMEOUT(second && second->wasShown(), 10'000);
    QTRY_COMPARE_WITH_TIMEOUT(rig.lightText(), kConnected, 10'000);
    QCOMPARE(question, kGone);
    QCOMPARE(attempts, 11);
    QCOMPARE(attemptsAgain, 11);
}

void TestReconnect::cancelClosesTheProgram()
{
    MainWindowRig rig;
    QVERIFY(rig.startConnected());
    const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    ModalAnswer<QMessageBox> question([](QMessageBox& box) {
        QTest::mouseClick(box.button(QMessageBox::Cancel), Qt::LeftButton);
    });
    rig.sensor().vanish();
    rig.clickRefresh();
    QTRY_COMPARE(closed.size(), 1);
    QVERIFY(question.wasShown());
}

void TestReconnect::connectWaitsUntilADialogIsClosed()
{
    MainWindowRig rig;
    QVERIFY(rig.startConnected());
    QString statusInside;
    ModalAnswer<AboutDialog> about([&](AboutDialog& dialog) {
        rig.sensor().vanish();
        rig.link().requestWrite('D', "020018"); // notices the loss
        QTRY_COMPARE(rig.statusText(), kLost);
        rig.sensor().comeBack();
        QTRY_COMPARE(rig.link().linkFailed(), 0);
        QCoreApplication::processEvents();
        statusInside = rig.statusText();
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    QVERIFY(rig.clickCommand(kAboutCommand));

    QTRY_COMPARE(rig.logged().count(QStringLiteral("SSI Type: 2")), 2);
    QCOMPARE(statusInside, kLost); // no Connect had begun
    QTRY_COMPARE(rig.lightText(), kConnected);
}

void TestReconnect::questionWaitsUntilADialogIsClosed()
{
    MainWindowRig rig;
    QVERIFY(rig.startConnected());
    bool askedInside = false;
    std::unique_ptr<ModalAnswer<QMessageBox>> question;
    ModalAnswer<AboutDialog> about([&](AboutDialog& dialog) {
        rig.sensor().vanish();
        rig.link().requestWrite('D', "020018");
        const int attempts = rig.openAttempts();
        QTRY_COMPARE(rig.openAttempts(), attempts + 11);
        QVERIFY(waitThreePeriods());
        askedInside = QApplication::activeModalWidget() != &dialog;
        question = std::make_unique<ModalAnswer<QMessageBox>>([&](QMessageBox& box) {
            rig.sensor().comeBack();
            QTest::mouseClick(box.button(QMessageBox::Retry), Qt::LeftButton);
        });
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    QVERIFY(rig.clickCommand(kAboutCommand));
    QTRY_VERIFY(question && question->wasShown());
    QVERIFY(!askedInside);
    QTRY_COMPARE(rig.lightText(), kConnected);
}

void TestReconnect::portLostInsideTheManualBoxesStartsNoSecondConnect()
{
    MainWindowRig rig({.type = 2, .supply = SimulatedSensor::Supply::ByLineSpeed}, kManualPower);
    int boxes = 0;
    std::unique_ptr<ModalAnswer<QMessageBox>> second;
    std::unique_ptr<ModalAnswer<QMessageBox>> third;
    ModalAnswer<QMessageBox> first([&](QMessageBox& box) {
        ++boxes;
        second = std::make_unique<ModalAnswer<QMessageBox>>([&](QMessageBox& next) {
            ++boxes;
            QTRY_VERIFY(rig.sensor().progFrames() > 0);
            rig.sensor().vanish();
            QTRY_COMPARE(rig.statusText(), kLost);
            rig.sensor().comeBack();
            QTRY_COMPARE(rig.link().linkFailed(), 0);
            // The frames go on, for the user is still switching the supply.
            QTRY_VERIFY(rig.sensor().progFrames() > 5);
            third = std::make_unique<ModalAnswer<QMessageBox>>([&](QMessageBox& more) {
                ++boxes;
                QTest::keyClick(&more, Qt::Key_Escape);
            });
            QTest::mouseClick(next.button(QMessageBox::Ok), Qt::LeftButton);
        });
        QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
    });
    rig.start();
    QTRY_COMPARE(rig.lightText(), kConnected);
    QVERIFY(rig.waitIdle());
    QCoreApplication::processEvents();
    QCOMPARE(boxes, 2);
}

void TestReconnect::openingAnotherPortEndsTheReconnecting()
{
    MainWindowRig rig;
    QVERIFY(rig.startConnected());
    const int before = rig.openAttempts();
    ModalAnswer<SelectPortDialog> ports([&](SelectPortDialog& dialog) {
        rig.sensor().vanish();
        rig.link().requestWrite('D', "020018"); // notices the loss
        QTRY_COMPARE(rig.openAttempts(), before + 11);
        rig.sensor().comeBack(); // no tick opens COM7 any more
        choosePortNine(dialog);
    });
    QVERIFY(rig.clickCommand(kSelectPortCommand));
    QTRY_VERIFY(ports.wasShown());
    QTRY_COMPARE(rig.link().portNumber(), 9);
    QVERIFY(rig.waitIdle());
    const int attempts = rig.openAttempts();
    QVERIFY(waitThreePeriods());
    QCOMPARE(rig.openAttempts(), attempts);
}

void TestReconnect::portThatCannotBeOpenedEndsTheProgram()
{
    MainWindowRig rig;
    QVERIFY(rig.startConnected());
    const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    ModalAnswer<SelectPortDialog> ports([&](SelectPortDialog& dialog) {
        rig.sensor().vanish();
        choosePortNine(dialog);
    });
    QVERIFY(rig.clickCommand(kSelectPortCommand));
    QTRY_COMPARE(closed.size(), 1);
    QVERIFY(ports.wasShown());
}

QTEST_MAIN(TestReconnect)
#include "TestReconnect.moc"
