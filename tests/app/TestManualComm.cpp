#include "app/Commands.h"
#include "pages/ManualCommDialog.h"
#include "platform/core/Pacing.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

/// The dialog as the main window's menu opens it, on the simulated sensor.
class TestManualComm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_rig.reset(); }

    void answerOfTheSensorIsShownAndPagesWorkAfterwards();
    void everythingButMessagesIsLockedDuringAnExchange();
    void positionStreamRestsWhileTheDialogIsOpen();
    void lostPortIsToldAndConnectedAgainAfterwards();
    void windowCanBeClosedDuringAnExchange();

private:
    void openDialog(const std::function<void(ManualCommDialog&)>& steps);
    /// Whether the window is busy before any completion has been delivered.
    [[nodiscard]] bool isBusyNow()
    {
        QCoreApplication::sendPostedEvents(&m_rig->window());
        return m_rig->window().isBusy();
    }
    [[nodiscard]] bool refreshWorks();

    std::unique_ptr<MainWindowRig> m_rig;
};

namespace {

/// Types bytes and clicks Execute.
void send(ManualCommDialog& dialog, const char* bytes)
{
    auto* edit = dialog.getControl<QLineEdit>(1051);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(edit, QLatin1String(bytes));
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

/// The bytes of a text and a CR, as the dialog shows them.
QString shownAs(const std::string& text)
{
    return QString::fromLatin1((QByteArray::fromStdString(text) + '\r').toHex(',').toUpper());
}

void clickOk(ManualCommDialog& dialog)
{
    QTest::mouseClick(dialog.getControl<QPushButton>(1), Qt::LeftButton);
}

} // namespace

void TestManualComm::init()
{
    m_rig = std::make_unique<MainWindowRig>();
    QVERIFY(m_rig->startConnected());
    QVERIFY(QTest::qWaitForWindowActive(&m_rig->window()));
}

/// Chooses the command and runs the steps on the dialog; returns when the dialog is closed.
void TestManualComm::openDialog(const std::function<void(ManualCommDialog&)>& steps)
{
    ModalAnswer<ManualCommDialog> answer(steps);
    QVERIFY(m_rig->clickCommand(kManualCommCommand));
    QTRY_VERIFY(answer.wasShown() && !QApplication::activeModalWidget());
}

/// Whether the information page still gets the answers to its fourteen reads.
bool TestManualComm::refreshWorks()
{
    const auto linesBefore = m_rig->logged().size();
    m_rig->clickRefresh();
    return QTest::qWaitFor([&] { return m_rig->logged().size() == linesBefore + 28; }) &&
           m_rig->waitIdle() && m_rig->statusText() == QStringLiteral("Ready.");
}

void TestManualComm::answerOfTheSensorIsShownAndPagesWorkAfterwards()
{
    const auto logged = m_rig->logged();
    openDialog([this](ManualCommDialog& dialog) {
        send(dialog, "56,41,0D");
        QTRY_COMPARE(received(dialog), shownAs(m_rig->sensor().parameter('V')));
        QVERIFY(m_rig->waitIdle());
        clickOk(dialog);
    });
    QCOMPARE(m_rig->logged(), logged);
    QVERIFY(refreshWorks());

    openDialog([this](ManualCommDialog& dialog) { // closed before the answer comes
        send(dialog, "46,41,0D");
        QVERIFY(isBusyNow());
        dialog.close();
    });
    QVERIFY(m_rig->waitIdle());
    QVERIFY(refreshWorks());
}

void TestManualComm::everythingButMessagesIsLockedDuringAnExchange()
{
    openDialog([this](ManualCommDialog& dialog) {
        m_rig->sensor().setFault({SimulatedFault::Kind::Silent});
        (void)m_rig->sensor().takeReceivedFrames();
        send(dialog, "56,41,0D");
        QVERIFY(isBusyNow());
        for (int click = 0; click < 3; ++click)
            QTest::mouseClick(dialog.getControl<QPushButton>(1054), Qt::LeftButton);
        clickOk(dialog);
        QVERIFY(dialog.isVisible());
        QVERIFY(m_rig->waitIdle());
        QCOMPARE(m_rig->sensor().takeReceivedFrames().size(), 1U);
        m_rig->sensor().clearFaults();
        clickOk(dialog);
        QVERIFY(!dialog.isVisible());
    });
}

void TestManualComm::positionStreamRestsWhileTheDialogIsOpen()
{
    QVERIFY(m_rig->choosePage(1));
    QTRY_COMPARE(m_rig->sensor().mode(), SimulatedSensor::Mode::Streaming);

    openDialog([this](ManualCommDialog& dialog) {
        QCOMPARE(m_rig->sensor().mode(), SimulatedSensor::Mode::Programming);
        clickOk(dialog);
    });
    QTRY_COMPARE(m_rig->sensor().mode(), SimulatedSensor::Mode::Streaming);
}

void TestManualComm::lostPortIsToldAndConnectedAgainAfterwards()
{
    m_rig.reset();
    m_rig = std::make_unique<MainWindowRig>();
    Pacing::setSpeeds({2, 200, 2}); // leaves time before the eleventh attempt to reconnect
    QVERIFY(m_rig->startConnected());
    openDialog([this](ManualCommDialog& dialog) {
        m_rig->sensor().vanish();
        send(dialog, "56,41,0D");
        QTRY_COMPARE(outcome(dialog),
                     QStringLiteral("The serial port was lost during the exchange. What was sent "
                                    "or received may be incomplete."));
        QVERIFY(m_rig->waitIdle());
        send(dialog, "56,41,0D");
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

void TestManualComm::windowCanBeClosedDuringAnExchange()
{
    const QSignalSpy closed(&m_rig->window(), &PelorinMainWindow::closed);
    openDialog([this](ManualCommDialog& dialog) {
        send(dialog, "56,41,0D");
        QVERIFY(isBusyNow());
        m_rig->window().close();
    });
    QTRY_COMPARE(closed.size(), 1);
    QVERIFY(!m_rig->window().isVisible());
}

QTEST_MAIN(TestManualComm)
#include "TestManualComm.moc"
