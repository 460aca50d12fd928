#include "app/Commands.h"
#include "pages/ManualCommDialog.h"
#include "platform/core/Pacing.h"
#include "platform/core/TermiosComPort.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"
#include "support/PortDecorator.h"
#include "support/PseudoTerminal.h"
#include "support/WaitFor.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <atomic>
#include <cerrno>
#include <future>
#include <thread>

using namespace pelorin;
using namespace pelorin::test;
using namespace std::chrono_literals;

namespace {

const QString kNotSent = QStringLiteral("The serial port is not connected. Nothing was sent.");
const QString kLost = QStringLiteral("The serial port was lost during the exchange. What was sent "
                                     "or received may be incomplete.");
constexpr auto kAskForVersion = "56,41,0D";
const QString kVersion = QStringLiteral("33,30,30,31,30,30,0D"); // "300100" and CR

/// What a test makes of the answers on a line.
struct Answers
{
    std::atomic<bool> endless = false;
    std::atomic<bool> held = false; ///< until the exchange is cut short
    std::promise<void> cut;
};

class AnswerPort : public PortDecorator
{
public:
    AnswerPort(std::unique_ptr<ComPort> port, Answers& answers)
        : PortDecorator(std::move(port)), m_answers(answers)
    {
    }

    ReadResult read() override
    {
        if (m_answers.endless)
            return {0, true, '0'};
        if (!m_answers.held)
            return PortDecorator::read();
        m_answers.cut.get_future().wait();
        return {ECANCELED};
    }
    void cutShort(std::uint64_t number) override
    {
        if (m_answers.held.exchange(false))
            m_answers.cut.set_value();
        PortDecorator::cutShort(number);
    }

private:
    Answers& m_answers;
};

/// What a user does with the dialog.
struct User
{
    template <class Control>
    [[nodiscard]] Control& control(int id) const
    {
        return *dialog.getControl<Control>(id);
    }
    void enter(const char* text) const
    {
        QTest::keyClick(&control<QLineEdit>(1051), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&control<QLineEdit>(1051), Qt::Key_Delete);
        QTest::keyClicks(&control<QLineEdit>(1051), QString::fromUtf8(text));
    }
    void execute() const { QTest::mouseClick(&control<QPushButton>(1054), Qt::LeftButton); }
    void clickOk() const { QTest::mouseClick(&control<QPushButton>(1), Qt::LeftButton); }
    [[nodiscard]] QString received() const { return control<QPlainTextEdit>(1053).toPlainText(); }
    [[nodiscard]] QString marked() const { return control<QLabel>(1055).text(); }
    [[nodiscard]] QString outcome() const { return control<QLabel>(1056).text(); }

    ManualCommDialog& dialog;
};

/// The dialog on a real serial port, the test at the other end of the line.
struct Bench
{
    Bench()
    {
        Pacing::setSpeeds({100, 100, 5});
        runner.openPort(7, [this](bool opened) { isOpen = opened; });
        dialog->show();
    }
    /// @return false if the dialog is not there
    [[nodiscard]] bool wait() { return QTest::qWaitForWindowActive(dialog.get()) && waitDone(); }
    [[nodiscard]] bool waitDone()
    {
        return waitFor([this] { return !runner.isBusy(); }) && isOpen;
    }

    Languages languages{1};
    Answers answers;
    PseudoTerminal line;
    ComPortFactory factory{[this](const QString&) {
        return std::make_unique<AnswerPort>(std::make_unique<TermiosComPort>(line.path()), answers);
    }};
    SensorLink link{factory};
    SequenceRunner runner{link};
    bool isOpen = false;
    std::unique_ptr<ManualCommDialog> dialog = std::make_unique<ManualCommDialog>(nullptr, runner);
    User user{*dialog};
};

bool hasRedPixel(QWidget& widget)
{
    const QImage image = widget.grab().toImage();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (const QColor color = image.pixelColor(x, y);
                color.red() > std::max(color.green(), color.blue()) + 60)
                return true;
    return false;
}

} // namespace

class TestManualComm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typedBytesReachTheSensorAsTheyAre()
    {
        struct Case
        {
            const char* text;
            QByteArray bytes;
            QString mark = {};
        };
        Bench bench;
        QVERIFY(bench.wait());
        const User& user = bench.user;
        QVERIFY(user.control<QLineEdit>(1051).hasFocus());
        for (const auto& [text, bytes, mark] : std::initializer_list<Case>{
                 {"50,52,4F,47,0D,", "PROG\r"},
                 {"1FF,d, 0d ,0x4f, 0X4f ", "\xFF\r\rOO"},
                 {"41,,42", QByteArray("A\0B", 3), QStringLiteral(R"(field 2 "" as 00)")},
                 {"41, ", QByteArray("A\0", 2), QStringLiteral(R"(field 2 " " as 00)")},
                 {"5G,-1", QByteArray("\5\0", 2),
                  QStringLiteral(R"(field 1 "5G" as 05; field 2 "-1" as 00)")},
                 {"<b>%1", QByteArray(1, '\0'), QStringLiteral(R"(field 1 "<b>%1" as 00)")},
                 {"x,y,z,u", QByteArray(4, '\0'),
                  QStringLiteral("field 1 \"x\" as 00; field 2 \"y\" as 00; field 3 \"z\" as 00; "
                                 "\u2026")}}) {
            user.enter(text);
            const QString begin = QStringLiteral("Not hexadecimal, but sent all the same: ");
            QCOMPARE(user.marked(), mark.isEmpty() ? QString() : begin + mark);
            user.execute();
            user.execute(); // while the first one runs
            QCOMPARE(bench.line.receive(std::size_t(bytes.size())), bytes.toStdString());
            QVERIFY(bench.waitDone());
            QCOMPARE(bench.line.receive(1, 0ms), std::string());
            QCOMPARE(user.received() + user.outcome(), QString());
        }
        for (const bool hex : {false, true}) { // what can be seen of it is underlined
            user.enter(hex ? "50,4F" : "50,4G");
            QCOMPARE(hasRedPixel(user.control<QLineEdit>(1051)), !hex);
        }
    }

    /// Bytes of every value both ways, and more of them than the system's buffers hold.
    void answerIsShownByteForByte()
    {
        Bench bench;
        QVERIFY(bench.wait());
        std::string answer;
        QStringList fields;
        for (unsigned index = 0; index < 10'000; ++index) {
            answer += static_cast<char>(index);
            fields << QString::asprintf("%02X", index & 0xFF);
        }
        bool sent = false; // waits in the line until the question has been sent
        std::thread sensor([&] { sent = bench.line.send(answer); });
        bench.user.enter(fields.mid(0, 256).join(u',').toLatin1().constData());
        bench.user.execute();
        const bool done = bench.waitDone();
        sensor.join();
        QVERIFY(done && sent);
        QCOMPARE(bench.line.receive(256), answer.substr(0, 256));
        QCOMPARE(bench.user.received(), fields.join(u','));
        QCOMPARE(bench.user.outcome(), QString());
        bench.user.enter("");
        bench.user.execute(); // clears the answer and sends nothing
        QCOMPARE(bench.user.received(), QString());
        QVERIFY(!bench.runner.isBusy());
    }

    void sensorThatNeverFallsSilentIsCutOff()
    {
        Bench bench;
        QVERIFY(bench.wait());
        bench.answers.endless = true;
        bench.user.enter("31");
        bench.user.execute();
        QVERIFY(bench.waitDone());
        QVERIFY(bench.user.received().startsWith(QStringLiteral("30,30,30")));
        QCOMPARE(bench.user.outcome(), QStringLiteral("Cut off: the sensor did not fall silent "
                                                      "within 60 seconds and 1 MiB."));
    }

    void closedDialogCutsTheExchange()
    {
        Bench bench;
        QVERIFY(bench.wait());
        bench.answers.held = true;
        bench.user.enter("31");
        bench.user.execute();
        QCOMPARE(bench.line.receive(1), std::string("1"));
        bench.dialog.reset();
        QVERIFY(bench.waitDone());
    }

    void lostPortIsToldAndThenRefusedAtOnce()
    {
        Bench bench;
        QVERIFY(bench.wait());
        bench.user.enter("31");
        bench.user.execute();
        QCOMPARE(bench.line.receive(1), std::string("1"));
        bench.line.unplug();
        QVERIFY(bench.waitDone());
        QCOMPARE(bench.user.outcome(), kLost);
        bench.user.execute();
        QCOMPARE(bench.user.outcome(), kNotSent);
        QVERIFY(!bench.runner.isBusy());
    }

    /// From here on in the main window, on the simulated sensor.
    void exchangeLocksAllElseAndIsNotLogged()
    {
        MainWindowRig rig;
        QStringList logged;
        openDialog(rig, [&](const User& user) {
            logged = rig.logged();
            user.enter(kAskForVersion);
            user.execute();
            user.execute();
            user.clickOk();
            QVERIFY(user.dialog.isVisible());
            QTRY_COMPARE(user.received(), kVersion);
            QVERIFY(rig.waitIdle());
            QCOMPARE(rig.frames(), QStringLiteral("VA"));
            user.clickOk();
        });
        QCOMPARE(rig.logged(), logged);
        rig.clickRefresh();
        QTRY_VERIFY(rig.logged().size() > logged.size());
        QVERIFY(rig.waitIdle());
        QTRY_COMPARE(rig.statusText(), QStringLiteral("Ready."));
    }

    void windowCanBeClosedDuringAnExchange()
    {
        MainWindowRig rig;
        int closed = 0;
        openDialog(rig, [&](const User& user) {
            connect(&rig.window(), &PelorinMainWindow::closed, this, [&closed] { ++closed; });
            user.enter(kAskForVersion);
            user.execute();
            QVERIFY(rig.window().isBusy());
            rig.window().close();
        });
        QTRY_COMPARE(closed, 1);
    }

    void positionStreamRestsWhileTheDialogIsOpen()
    {
        MainWindowRig rig;
        openDialog(
            rig,
            [&rig](const User& user) {
                user.enter(kAskForVersion);
                user.execute();
                QTRY_COMPARE(user.received(), kVersion);
                QCOMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Programming);
                QVERIFY(rig.waitIdle());
                user.clickOk();
            },
            1);
        QTRY_COMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Streaming);
        QVERIFY(rig.waitIdle());
    }

    /// The port is back at once; the Connect waits until the dialog is closed.
    void lostPortIsToldAndConnectedAgainAfterwards()
    {
        MainWindowRig rig;
        openDialog(rig, [&rig](const User& user) {
            rig.sensor().setFault({SimulatedFault::Kind::Vanish, 1, 1}, "VA");
            user.enter(kAskForVersion);
            user.execute();
            QTRY_COMPARE(user.outcome(), kLost);
            QTRY_COMPARE(rig.link().linkFailed(), 0);
            QVERIFY(rig.waitIdle());
            user.execute();
            QCOMPARE(user.outcome(),
                     QStringLiteral("The connection to the sensor was lost. Nothing was sent. The "
                                    "sensor is connected again when this dialog is closed."));
            QVERIFY(!rig.link().isIdentified());
            user.clickOk();
        });
        QTRY_VERIFY(rig.link().isIdentified());
        QVERIFY(rig.waitIdle());
        QCOMPARE(rig.window().currentPage(), 0);
    }

private:
    /// Connects, chooses the command on a page and runs the steps on the dialog; returns when the
    /// dialog is closed.
    static void openDialog(MainWindowRig& rig, const std::function<void(const User&)>& steps,
                           int page = 0)
    {
        rig.sensor().setParameter('V', "300100");
        QVERIFY(rig.startConnected());
        if (page != 0) {
            QVERIFY(rig.choosePage(page));
            QTRY_COMPARE(rig.sensor().mode(), SimulatedSensor::Mode::Streaming);
        }
        (void)rig.frames();
        const ModalAnswer<ManualCommDialog> answer(
            [&steps](ManualCommDialog& dialog) { steps(User{dialog}); });
        QVERIFY(rig.clickCommand(kManualCommCommand));
        QTRY_VERIFY(answer.wasShown() && !QApplication::activeModalWidget());
    }
};

QTEST_MAIN(TestManualComm)
#include "TestManualComm.moc"
