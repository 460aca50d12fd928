#include "app/Commands.h"
#include "pages/ManualCommDialog.h"
#include "platform/core/Pacing.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

namespace {

/// Asks for the version by clicks.
void askForVersion(ManualCommDialog& dialog)
{
    auto* edit = dialog.getControl<QLineEdit>(1051);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(edit, QStringLiteral("56,41,0D"));
    QTest::mouseClick(dialog.getControl<QPushButton>(1054), Qt::LeftButton);
}

QString received(const ManualCommDialog& dialog)
{
    return dialog.getControl<QPlainTextEdit>(1053)->toPlainText();
}

QString outcome(const ManualCommDialog& dialog)
{
    return dialog.getControl<QLabel>(1056)->text();
}

void clickOk(ManualCommDialog& dialog)
{
    QTest::mouseClick(dialog.getControl<QPushButton>(1), Qt::LeftButton);
}

const QString kVersion = QStringLiteral("33,30,30,31,30,30,0D"); // "300100" and CR

} // namespace

/// The dialog as the main window's menu opens it, on the simulated sensor.
class TestManualComm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_rig.reset(); }

    void exchangeLocksAllElseAndIsNotLogged();
    void dialogClosedDuringAnExchangeGivesTheWindowItsReplies();
    void windowCanBeClosedDuringAnExchange();
    void positionStreamRestsWhileTheDialogIsOpen();
    void lostPortIsToldAndConnectedAgainAfterwards();

private:
    void openDialog(const std::function<void(ManualCommDialog&)>& steps);
    /// Whether the window is busy before any completion has been delivered.
    [[nodiscard]] bool isBusyNow()
    {
        QCoreApplication::sendPostedEvents(&m_rig->window());
        return m_rig->window().isBusy();
    }
    /// Whether the information page still gets the answers to its reads.
    [[nodiscard]] bool refreshWorks()
    {
        const auto linesBefore = m_rig->logged().size();
        m_rig->clickRefresh();
        return QTest::qWaitFor([&] { return m_rig->logged().size() > linesBefore; }) &&
               m_rig->waitIdle() && m_rig->statusText() == QStringLiteral("Ready.");
    }

    std::unique_ptr<MainWindowRig> m_rig;
};

void TestManualComm::init()
{
    m_rig = std::make_unique<MainWindowRig>();
    m_rig->sensor().setParameter('V', "300100");
    QVERIFY(m_rig->startConnected());
    QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
}

/// Chooses the command and runs the steps on the dialog; returns when the dialog is closed.
void TestManualComm::openDialog(const std::function<void(ManualCommDialog&)>& steps)
{
    const ModalAnswer<ManualCommDialog> answer([&](ManualCommDialog& dialog) {
        QVERIFY(m_rig->waitIdle()); // a page that was streaming has just been released
        steps(dialog);
    });
    QVERIFY(m_rig->clickCommand(kManualCommCommand));
    QTRY_VERIFY(answer.wasShown() && !QApplication::activeModalWidget());
}

void TestManualComm::exchangeLocksAllElseAndIsNotLogged()
{
    const auto logged = m_rig->logged();
    openDialog([this](ManualCommDialog& dialog) {
        askForVersion(dialog);
        QTRY_COMPARE(received(dialog), kVersion);
        QVERIFY(m_rig->waitIdle());

        m_rig->sensor().setFault({SimulatedFault::Kind::Silent});
        (void)m_rig->sensor().takeReceivedFrames();
        askForVersion(dialog);
        QVERIFY(isBusyNow());
        askForVersion(dialog);
        clickOk(dialog);
        QVERIFY(dialog.isVisible());
        QVERIFY(m_rig->waitIdle());
        QCOMPARE(m_rig->sensor().takeReceivedFrames().size(), 1U);
        m_rig->sensor().clearFaults();
        clickOk(dialog);
    });
    QCOMPARE(m_rig->logged(), logged);
    QVERIFY(refreshWorks());
}

void TestManualComm::dialogClosedDuringAnExchangeGivesTheWindowItsReplies()
{
    openDialog([this](ManualCommDialog& dialog) {
        askForVersion(dialog);
        QVERIFY(isBusyNow());
        dialog.close(); // as the window manager does
    });
    QVERIFY(m_rig->waitIdle());
    QVERIFY(refreshWorks());
}

void TestManualComm::windowCanBeClosedDuringAnExchange()
{
    const QSignalSpy closed(&m_rig->window(), &PelorinMainWindow::closed);
    openDialog([this](ManualCommDialog& dialog) {
        askForVersion(dialog);
        QVERIFY(isBusyNow());
        m_rig->window().close();
    });
    QTRY_COMPARE(closed.size(), 1);
}

void TestManualComm::positionStreamRestsWhileTheDialogIsOpen()
{
    QVERIFY(m_rig->choosePage(1));
    QTRY_COMPARE(m_rig->sensor().mode(), SimulatedSensor::Mode::Streaming);
    openDialog([this](ManualCommDialog& dialog) {
        QCOMPARE(m_rig->sensor().mode(), SimulatedSensor::Mode::Programming);
        QVERIFY(m_rig->waitIdle()); // the stop of the stream has just ended
        askForVersion(dialog);
        QTRY_COMPARE(received(dialog), kVersion);
        QVERIFY(m_rig->waitIdle());
        clickOk(dialog);
    });
    QTRY_COMPARE(m_rig->sensor().mode(), SimulatedSensor::Mode::Streaming);
}

void TestManualComm::lostPortIsToldAndConnectedAgainAfterwards()
{
    Pacing::setSpeeds({2, 200, 2}); // leaves time before the eleventh attempt to reconnect
    openDialog([this](ManualCommDialog& dialog) {
        m_rig->sensor().vanish();
        askForVersion(dialog);
        QTRY_COMPARE(outcome(dialog),
                     QStringLiteral("The serial port was lost during the exchange. What was sent "
                                    "or received may be incomplete."));
        QVERIFY(m_rig->waitIdle());
        askForVersion(dialog);
        QTRY_COMPARE(outcome(dialog),
                     QStringLiteral("The serial port is not connected. Nothing was sent."));
        m_rig->sensor().comeBack();
        QTRY_COMPARE(m_rig->link().linkFailed(), 0);
        QVERIFY(!m_rig->link().isIdentified()); // the Connect waits until the dialog is closed
        clickOk(dialog);
    });
    QTRY_VERIFY(m_rig->link().isIdentified());
    QVERIFY(m_rig->waitIdle());
    QCOMPARE(m_rig->window().currentPage(), 0);
}

QTEST_MAIN(TestManualComm)
#include "TestManualComm.moc"
