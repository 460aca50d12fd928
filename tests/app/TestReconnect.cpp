#include "app/Commands.h"
#include "pages/AboutDialog.h"
#include "pages/SelectPortDialog.h"
#include "platform/core/Pacing.h"
#include "support/FileDialogUser.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/PortDecorator.h"

#include <QComboBox>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <cerrno>

using namespace pelorin;
using namespace pelorin::test;

namespace {

const QString kConnected = QStringLiteral("Green: connected");
const QString kReady = QStringLiteral("Ready.");
const QString kLost = QStringLiteral("Lost communication with COM7, trying to reconnect...");
const QString kGone =
    QStringLiteral("Serial communications port COM7 no longer exists, please check the "
                   "connection and retry.");
constexpr int kAttempts = 11;

/// A port that can be opened, and lets no byte out while it is broken.
class DeafPort final : public PortDecorator
{
public:
    DeafPort(std::unique_ptr<ComPort> port, const std::atomic<bool>& broken)
        : PortDecorator(std::move(port)), m_broken(broken)
    {
    }

    WriteResult write(std::string_view bytes) override
    {
        return m_broken ? WriteResult{.error = EPROTO} : PortDecorator::write(bytes);
    }

private:
    const std::atomic<bool>& m_broken;
};

/// A connected main window whose port can break.
class Rig : public MainWindowRig
{
public:
    explicit Rig(const SimulatedSensor::Options& options = {.type = 2},
                 const QByteArray& settings = {})
        : MainWindowRig(options, settings)
    {
        Pacing::setSpeeds({10, 200, 1}); // time to look before the eleventh attempt
    }

    [[nodiscard]] bool startWithDeafPort()
    {
        wrapPorts([this](std::unique_ptr<ComPort> port) {
            return std::make_unique<DeafPort>(std::move(port), m_broken);
        });
        return startConnected();
    }
    void breakPort(bool broken) { m_broken = broken; }

    [[nodiscard]] qsizetype connects() { return logged().count(QStringLiteral("SSI Type: 2")); }

    /// Whether it is connected, idle and shows a page that it has read.
    [[nodiscard]] bool isWell()
    {
        return lightText() == kConnected && !window().isBusy() && statusText() == kReady;
    }

private:
    std::atomic<bool> m_broken = false;
};

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
    void lostPortIsReopenedSilently_data();
    void lostPortIsReopenedSilently();
    void quickReturnIsConnectedOverTheFailedRead();
    void quickReturnWhileThePositionPageIsLeft_data();
    void quickReturnWhileThePositionPageIsLeft();
    void userIsAskedAfterElevenAttempts_data();
    void userIsAskedAfterElevenAttempts();
    void anotherPortCanBeChosenInsteadOfADeafOne();
    void attemptsGoOnUnderADialog_data();
    void attemptsGoOnUnderADialog();
    void portLostInsideTheManualBoxesStartsNoSecondConnect();
    void openingAnotherPortEndsTheReconnecting_data();
    void openingAnotherPortEndsTheReconnecting();
    void portChosenWhileTheStreamEndsOnALostOneStays();
    void programEndsWithoutAPort_data();
    void programEndsWithoutAPort();
};

void TestReconnect::lostPortIsReopenedSilently_data()
{
    QTest::addColumn<QByteArray>("lostAt");
    QTest::addColumn<bool>("sent"); // else no byte of the request gets out
    QTest::newRow("lost while a page is read") << QByteArray("ZA") << false;
    QTest::newRow("lost between a request and its answer") << QByteArray("ZA") << true;
    QTest::newRow("lost while nothing is exchanged") << QByteArray() << false;
}

void TestReconnect::lostPortIsReopenedSilently()
{
    QFETCH(QByteArray, lostAt);
    QFETCH(bool, sent);
    Rig rig;
    std::atomic<bool> vanishes = false;
    rig.wrapPorts([&](std::unique_ptr<ComPort> port) {
        return std::make_unique<WatchedPort>(std::move(port), [&](std::string_view bytes) {
            if (bytes.starts_with(lostAt.constData()) && vanishes.exchange(false))
                rig.sensor().vanish();
        });
    });
    QVERIFY(rig.startConnected());
    const int attempts = rig.openAttempts();
    vanishes = sent;
    if (lostAt.isEmpty())
        rig.sensor().vanish();
    else if (!sent)
        rig.sensor().setFault({SimulatedFault::Kind::Vanish}, lostAt.toStdString());
    if (!lostAt.isEmpty())
        rig.clickRefresh();
    QTRY_COMPARE(rig.statusText(), kLost);
    QTRY_VERIFY(rig.openAttempts() > attempts + 2);
    QCOMPARE(rig.statusText(), kLost);
    QVERIFY(!rig.window().isBusy()); // the sequence ended as a failed one

    rig.sensor().clearFaults();
    rig.sensor().comeBack();
    QTRY_VERIFY(rig.isWell());
    const int atReturn = rig.openAttempts();
    QVERIFY(waitThreePeriods());
    QCOMPARE(rig.openAttempts(), atReturn);
}

void TestReconnect::quickReturnIsConnectedOverTheFailedRead()
{
    Rig rig;
    QVERIFY(rig.startConnected());
    (void)rig.frames();
    rig.sensor().setFault({SimulatedFault::Kind::Vanish, 1, 1}, "L");
    rig.sensor().setFault({SimulatedFault::Kind::Late, 200, 1}, "V");
    rig.clickRefresh();
    QVERIFY(QTest::qWaitFor([&] { return rig.frames().contains(QStringLiteral("VA")); }));
    QCOMPARE(rig.statusText(), QStringLiteral("Connecting to the sensor\u2026"));
    QTRY_VERIFY(rig.isWell());
    QCOMPARE(rig.connects(), 2);
}

void TestReconnect::quickReturnWhileThePositionPageIsLeft_data()
{
    QTest::addColumn<QByteArray>("frame");
    for (const char* frame : {"VA", "DA", "DN", "CN"})
        QTest::newRow(frame) << QByteArray(frame);
}

/// The connect that is wanted then, the plan that ends the stream and the page that was chosen
/// must not meet each other.
void TestReconnect::quickReturnWhileThePositionPageIsLeft()
{
    QFETCH(QByteArray, frame);
    Rig rig;
    QVERIFY(rig.startConnected());
    const std::string own = rig.sensor().parameter('D');
    rig.clickPage(1);
    QTRY_COMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Streaming);
    QVERIFY(rig.waitIdle());
    const FileDialogUser answers({}); // that the format is still to be written back
    rig.sensor().setFault({SimulatedFault::Kind::Vanish, 1, 1}, frame.toStdString());
    rig.clickPage(4);
    const int connects = frame == "VA" ? 2 : 3; // with that which ends the stream
    QTRY_VERIFY(rig.connects() >= connects && rig.isWell());
    QCOMPARE(rig.sensor().parameter('D'), own);
    QVERIFY(rig.choosePage(2)); // nothing is stuck
    QVERIFY(rig.isWell());
}

void TestReconnect::userIsAskedAfterElevenAttempts_data()
{
    QTest::addColumn<bool>("deaf");
    QTest::newRow("the port is gone") << false;
    QTest::newRow("the port opens and every write fails") << true;
}

void TestReconnect::userIsAskedAfterElevenAttempts()
{
    QFETCH(bool, deaf);
    Rig rig;
    Pacing::setSpeeds({100, 200, 1});
    QVERIFY(rig.startWithDeafPort());
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
            rig.breakPort(false);
            QTest::mouseClick(again.button(QMessageBox::Retry), Qt::LeftButton);
        });
        QTest::mouseClick(box.button(QMessageBox::Retry), Qt::LeftButton);
    });
    if (deaf)
        rig.breakPort(true);
    else
        rig.sensor().vanish();
    rig.clickRefresh();

    QTRY_VERIFY_WITH_TIMEOUT(second && second->wasShown(), 10'000);
    QTRY_VERIFY_WITH_TIMEOUT(rig.isWell(), 10'000);
    QCOMPARE(question, kGone);
    QCOMPARE(attempts, kAttempts);
    QCOMPARE(attemptsAgain, kAttempts);
}

void TestReconnect::anotherPortCanBeChosenInsteadOfADeafOne()
{
    Rig rig;
    QVERIFY(rig.startWithDeafPort());
    bool chosen = false;
    const ModalAnswer<SelectPortDialog> ports([&](SelectPortDialog& dialog) {
        rig.breakPort(false); // COM9 works
        choosePortNine(dialog);
        chosen = true;
    });
    QTimer retry; // the user answers each question so
    connect(&retry, &QTimer::timeout, this, [] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
            QTest::mouseClick(box->button(QMessageBox::Retry), Qt::LeftButton);
    });
    retry.start(5);
    rig.breakPort(true);
    rig.clickRefresh();
    QVERIFY(QTest::qWaitFor([&] {
        if (!chosen && !QApplication::activeModalWidget())
            (void)rig.clickCommand(kSelectPortCommand); // greyed by nothing, but dropped while busy
        return chosen;
    }));
    QTRY_COMPARE(rig.link().portNumber(), 9);
    QVERIFY(rig.waitIdle());
}

void TestReconnect::attemptsGoOnUnderADialog_data()
{
    QTest::addColumn<bool>("returns");
    QTest::newRow("the port is back before the dialog is closed") << true;
    QTest::newRow("the question waits until the dialog is closed") << false;
}

void TestReconnect::attemptsGoOnUnderADialog()
{
    QFETCH(bool, returns);
    Rig rig;
    QVERIFY(rig.startConnected());
    QString statusInside;
    bool askedInside = false;
    std::unique_ptr<ModalAnswer<QMessageBox>> question;
    ModalAnswer<AboutDialog> about([&](AboutDialog& dialog) {
        const int attempts = rig.openAttempts();
        rig.sensor().vanish();
        QTRY_VERIFY(rig.openAttempts() > attempts + kAttempts + 2);
        askedInside = QApplication::activeModalWidget() != &dialog;
        if (returns) {
            rig.sensor().comeBack();
            QTRY_COMPARE(rig.link().linkFailed(), 0);
            QVERIFY(waitThreePeriods());
        }
        statusInside = rig.statusText();
        question = std::make_unique<ModalAnswer<QMessageBox>>([&](QMessageBox& box) {
            rig.sensor().comeBack();
            QTest::mouseClick(box.button(QMessageBox::Retry), Qt::LeftButton);
        });
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    QVERIFY(rig.clickCommand(kAboutCommand));

    QTRY_VERIFY(rig.connects() == 2 && rig.isWell());
    QCOMPARE(statusInside, kLost); // no Connect had begun
    QVERIFY(!askedInside);
    QCOMPARE(question->wasShown(), !returns);
}

void TestReconnect::portLostInsideTheManualBoxesStartsNoSecondConnect()
{
    Rig rig({.type = 2, .supply = SimulatedSensor::Supply::ByLineSpeed}, kManualPower);
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
    QTRY_VERIFY(rig.isWell());
    QCOMPARE(boxes, 2);
}

void TestReconnect::openingAnotherPortEndsTheReconnecting_data()
{
    using Call = HeldPort::Call;
    QTest::addColumn<Call>("held"); // the step of an attempt that takes its time
    QTest::newRow("between two attempts") << Call::Read;
    QTest::newRow("while the lost port is being closed") << Call::Close;
    QTest::newRow("while the lost port is being opened") << Call::Open;
}

void TestReconnect::openingAnotherPortEndsTheReconnecting()
{
    QFETCH(HeldPort::Call, held);
    Rig rig;
    Pacing::setSpeeds({10, 200, 0.2}); // the close is waited for as long as this takes
    const auto hold = std::make_shared<std::mutex>();
    rig.wrapPorts([&](std::unique_ptr<ComPort> port) {
        return std::make_unique<HeldPort>(std::move(port), hold, held);
    });
    QVERIFY(rig.startConnected());
    const int before = rig.openAttempts();
    std::unique_lock inFlight(*hold, std::defer_lock);
    ModalAnswer<SelectPortDialog> ports([&](SelectPortDialog& dialog) {
        if (held != HeldPort::Call::Read)
            inFlight.lock();
        rig.sensor().vanish();
        if (held == HeldPort::Call::Read)
            QTRY_VERIFY(rig.openAttempts() >= before + kAttempts);
        else if (held == HeldPort::Call::Open)
            QTRY_COMPARE(rig.openAttempts(), before + 1);
        else
            QTRY_COMPARE(rig.statusText(), kLost);
        rig.sensor().comeBack();
        choosePortNine(dialog);
    });
    QVERIFY(rig.clickCommand(kSelectPortCommand));
    QTRY_VERIFY(ports.wasShown() && !QApplication::activeModalWidget());
    if (inFlight.owns_lock()) {
        QTRY_VERIFY(rig.window().isBusy()); // with the chosen port
        QVERIFY(waitThreePeriods());
        inFlight.unlock();
    }
    QTRY_COMPARE(rig.link().portNumber(), 9);
    QVERIFY(rig.waitIdle());
    const int attempts = rig.openAttempts();
    QVERIFY(waitThreePeriods());
    QCOMPARE(rig.openAttempts(), attempts);
    QCOMPARE(rig.link().portNumber(), 9);
}

void TestReconnect::portChosenWhileTheStreamEndsOnALostOneStays()
{
    for (const char* frame : {"VA", "DN"}) {
        Rig rig;
        QVERIFY(rig.startConnected());
        rig.clickPage(1);
        QTRY_COMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Streaming);
        QVERIFY(rig.waitIdle());
        const int before = rig.openAttempts();
        rig.sensor().setFault({SimulatedFault::Kind::Vanish, 1, 1}, frame);
        {
            const ModalAnswer<SelectPortDialog> ports(choosePortNine);
            QVERIFY(rig.clickCommand(kSelectPortCommand));
            QTRY_VERIFY(ports.wasShown() && !QApplication::activeModalWidget());
        }
        const FileDialogUser answers({}); // that the format is still to be written back
        QTRY_COMPARE(rig.link().portNumber(), 9);
        QVERIFY(rig.waitIdle());
        QVERIFY(waitThreePeriods());
        QCOMPARE(rig.openAttempts(), before + 1);
        QCOMPARE(rig.link().portNumber(), 9);
        QCOMPARE(rig.link().linkFailed(), 0);
    }
}

void TestReconnect::programEndsWithoutAPort_data()
{
    QTest::addColumn<bool>("asked");
    QTest::newRow("the user gives up a lost one") << true;
    QTest::newRow("the one that the user has chosen cannot be opened") << false;
}

void TestReconnect::programEndsWithoutAPort()
{
    QFETCH(bool, asked);
    Rig rig;
    QVERIFY(rig.startConnected());
    const QSignalSpy closed(&rig.window(), &PelorinMainWindow::closed);
    if (asked) {
        ModalAnswer<QMessageBox> question([](QMessageBox& box) {
            QTest::mouseClick(box.button(QMessageBox::Cancel), Qt::LeftButton);
        });
        rig.sensor().vanish();
        QTRY_COMPARE(closed.size(), 1);
        QVERIFY(question.wasShown());
    } else {
        const FileDialogUser told({}); // why it cannot
        ModalAnswer<SelectPortDialog> ports([&](SelectPortDialog& dialog) {
            rig.sensor().vanish();
            choosePortNine(dialog);
        });
        QVERIFY(rig.clickCommand(kSelectPortCommand));
        QTRY_COMPARE(closed.size(), 1);
        QVERIFY(ports.wasShown());
    }
}

QTEST_MAIN(TestReconnect)
#include "TestReconnect.moc"
