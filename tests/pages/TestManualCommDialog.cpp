#include "pages/ManualCommDialog.h"

#include "link/SensorLink.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/Pacing.h"
#include "platform/core/TermiosComPort.h"
#include "support/Languages.h"
#include "support/PseudoTerminal.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <atomic>
#include <thread>

using namespace pelorin;
using namespace pelorin::test;
using namespace std::chrono_literals;

namespace {

constexpr int kPort = 7;

const QString kNotSent = QStringLiteral("The serial port is not connected. Nothing was sent.");

/// Stands for the main window: keeps the busy messages.
class BusyWindow : public QWidget
{
public:
    QList<int> busy;

protected:
    void customEvent(QEvent* event) override
    {
        const auto* message = WindowMessage::from(event);
        if (message && message->message() == WM_BUSY)
            busy << static_cast<int>(message->wParam());
    }
};

/// A sensor that talks without end as long as this object lives.
class Talker
{
public:
    explicit Talker(PseudoTerminal& terminal)
        : m_thread([this, &terminal] {
              while (!m_quiet && terminal.send("0123456789\r"))
                  std::this_thread::sleep_for(1ms);
          })
    {
    }
    Talker(const Talker&) = delete;
    Talker& operator=(const Talker&) = delete;
    ~Talker()
    {
        m_quiet = true;
        m_thread.join();
    }

private:
    std::atomic<bool> m_quiet = false;
    std::thread m_thread;
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

/// The dialog on a real serial port, the test at the other end of the line.
class TestManualCommDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void typedBytesReachTheSensorAsTheyAre();
    void fieldThatIsNotHexadecimalIsUnderlined();
    void answerIsShownByteForByte();
    void sensorThatNeverFallsSilentIsCutOff();
    void lostPortIsToldAndThenRefusedAtOnce();
    void answersToOthersAreIgnored();

private:
    template <class Control>
    [[nodiscard]] Control& control(int id) const
    {
        return *m_dialog->getControl<Control>(id);
    }

    void enter(const char* text) const;
    void execute() const;
    [[nodiscard]] bool waitDone() const;
    [[nodiscard]] QString received() const { return control<QPlainTextEdit>(1053).toPlainText(); }
    [[nodiscard]] QString marked() const { return control<QLabel>(1055).text(); }
    [[nodiscard]] QString outcome() const { return control<QLabel>(1056).text(); }

    Languages m_languages{1};
    std::unique_ptr<PseudoTerminal> m_terminal;
    ComPortFactory m_factory{
        [this](const QString&) { return std::make_unique<TermiosComPort>(m_terminal->path()); }};
    std::unique_ptr<SensorLink> m_link;
    std::unique_ptr<BusyWindow> m_window;
    std::unique_ptr<ManualCommDialog> m_dialog;
};

void TestManualCommDialog::init()
{
    Pacing::setSpeeds({100, 100, 5});
    m_terminal = std::make_unique<PseudoTerminal>();
    m_link = std::make_unique<SensorLink>(m_factory);
    QCOMPARE(m_link->open(kPort, 0), 1);
    m_window = std::make_unique<BusyWindow>();
    m_dialog = std::make_unique<ManualCommDialog>(m_window.get(), *m_link);
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
}

void TestManualCommDialog::cleanup()
{
    m_dialog.reset();
    m_link.reset();
    m_window.reset();
}

/// Types a text in place of the one that is there.
void TestManualCommDialog::enter(const char* text) const
{
    QTest::keyClick(&control<QLineEdit>(1051), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&control<QLineEdit>(1051), Qt::Key_Delete);
    QTest::keyClicks(&control<QLineEdit>(1051), QString::fromUtf8(text));
}

void TestManualCommDialog::execute() const
{
    m_window->busy.clear();
    QTest::mouseClick(&control<QPushButton>(1054), Qt::LeftButton);
}

/// Waits until the exchange that was begun has ended.
bool TestManualCommDialog::waitDone() const
{
    return QTest::qWaitFor([this] { return m_window->busy == QList<int>({1, 0}); });
}

void TestManualCommDialog::typedBytesReachTheSensorAsTheyAre()
{
    struct Case
    {
        const char* text;
        QByteArray bytes;
        QString mark = {};
    };
    QVERIFY(control<QLineEdit>(1051).hasFocus());
    for (const auto& [text, bytes, mark] : std::initializer_list<Case>{
             {"50,52,4F,47,0D", "PROG\r"},
             {"50,52,4F,47,0D,", "PROG\r"},
             {"1FF,d, 0d ,0x4f, 0X4f ", "\xFF\r\rOO"},
             {"41,,42", QByteArray("A\0B", 3), QStringLiteral(R"(field 2 "" as 00)")},
             {",", QByteArray(1, '\0'), QStringLiteral(R"(field 1 "" as 00)")},
             {"41, ", QByteArray("A\0", 2), QStringLiteral(R"(field 2 " " as 00)")},
             {"5G,-1", QByteArray("\5\0", 2),
              QStringLiteral(R"(field 1 "5G" as 05; field 2 "-1" as 00)")},
             {"<b>%1", QByteArray(1, '\0'), QStringLiteral(R"(field 1 "<b>%1" as 00)")},
             {"123456789", "\x89", QStringLiteral(R"(field 1 "123456789" as 89)")},
             {"x,y,z,u", QByteArray(4, '\0'),
              QStringLiteral("field 1 \"x\" as 00; field 2 \"y\" as 00; field 3 \"z\" as 00; "
                             "\u2026")}}) {
        enter(text);
        const QString begin = QStringLiteral("Not hexadecimal, but sent all the same: ");
        QCOMPARE(marked(), mark.isEmpty() ? QString() : begin + mark);
        execute();
        QCOMPARE(m_terminal->receive(std::size_t(bytes.size())), bytes.toStdString());
        QVERIFY(waitDone());
        QCOMPARE(m_terminal->receive(1, 0ms), std::string());
        QCOMPARE(received() + outcome(), QString());
    }
    QCOMPARE(m_link->commLog().snapshot().size(), 0);
}

void TestManualCommDialog::fieldThatIsNotHexadecimalIsUnderlined()
{
    enter("50,4G,47");
    QVERIFY(hasRedPixel(control<QLineEdit>(1051)));
    enter("50,4F,47");
    QVERIFY(!hasRedPixel(control<QLineEdit>(1051)));
    QCOMPARE(marked(), QString());
}

/// Bytes of every value both ways, and more of them than the system's buffers hold.
void TestManualCommDialog::answerIsShownByteForByte()
{
    for (const int count : {3, 256, 10'000}) {
        std::string answer;
        QStringList fields;
        for (int index = 0; index < count; ++index) {
            answer += static_cast<char>(index);
            fields << QString::asprintf("%02X", static_cast<unsigned>(index) & 0xFF);
        }
        bool sent = false; // waits in the line until the question has been sent
        std::thread sensor([&] { sent = m_terminal->send(answer); });
        enter(fields.mid(0, 256).join(QLatin1Char(',')).toLatin1().constData());
        execute();
        const bool done = waitDone();
        sensor.join();
        QVERIFY(done && sent);
        QCOMPARE(m_terminal->receive(answer.substr(0, 256).size()), answer.substr(0, 256));
        QCOMPARE(received(), fields.join(QLatin1Char(',')));
        QCOMPARE(outcome(), QString());
    }
    enter("");
    execute(); // clears the answer and sends nothing
    QCOMPARE(received(), QString());
    QCoreApplication::processEvents();
    QCOMPARE(m_window->busy, QList<int>());
}

void TestManualCommDialog::sensorThatNeverFallsSilentIsCutOff()
{
    enter("31");
    execute();
    QCOMPARE(m_terminal->receive(1), std::string("1"));
    const Talker talker(*m_terminal);
    QVERIFY(waitDone());
    QVERIFY(received().startsWith(QStringLiteral("30,31,32,33,34,35,36,37,38,39,0D,30")));
    QCOMPARE(outcome(), QStringLiteral("Cut off: the sensor did not fall silent within 60 seconds "
                                       "and 1 MiB."));
}

void TestManualCommDialog::lostPortIsToldAndThenRefusedAtOnce()
{
    enter("31");
    m_terminal->unplug();
    execute();
    QVERIFY(waitDone());
    QCOMPARE(outcome(), QStringLiteral("The serial port was lost during the exchange. What was "
                                       "sent or received may be incomplete."));
    execute();
    QCOMPARE(outcome(), kNotSent);
    QCoreApplication::processEvents();
    QCOMPARE(m_window->busy, QList<int>());

    m_link->close();
    QVERIFY(m_terminal->plugIn());
    QCOMPARE(m_link->open(kPort, 0), 1);
    execute();
    QCOMPARE(m_terminal->receive(1), std::string("1"));
    QVERIFY(waitDone());
    QCOMPARE(outcome(), QString());

    m_link->close(); // by whom ever, without a loss
    execute();
    QVERIFY(waitDone());
    QCOMPARE(outcome(), kNotSent);
}

void TestManualCommDialog::answersToOthersAreIgnored()
{
    Pacing::setSpeeds({1, 100, 5});
    enter("31");
    {
        const Talker talker(*m_terminal); // the exchange cannot end before
        execute();
        for (const RequestId request : {RequestId{0}, RequestId{4711}})
            QCoreApplication::postEvent(m_dialog.get(),
                                        new WindowMessage(WM_MANUAL_COMM, 1, 0, request));
        QCoreApplication::sendPostedEvents(m_dialog.get());
        QCoreApplication::sendPostedEvents(m_window.get());
        QCOMPARE(m_window->busy, QList<int>({1}));
    }
    QVERIFY(waitDone());
}

QTEST_MAIN(TestManualCommDialog)
#include "TestManualCommDialog.moc"
