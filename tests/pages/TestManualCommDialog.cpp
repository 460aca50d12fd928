#include "pages/ManualCommDialog.h"

#include "link/SensorLink.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/Pacing.h"
#include "platform/core/TermiosComPort.h"
#include "support/Languages.h"
#include "support/MessageCollector.h"
#include "support/PseudoTerminal.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <atomic>
#include <thread>

using namespace pelorin;
using namespace pelorin::test;
using namespace std::chrono_literals;

namespace {

constexpr int kPort = 7;

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

std::string everyByteValue()
{
    std::string bytes;
    for (int value = 0; value < 256; ++value)
        bytes += static_cast<char>(value);
    return bytes;
}

/// "00,01,02" and so on up to "FF".
QString everyByteText()
{
    QStringList fields;
    for (unsigned value = 0; value < 256; ++value)
        fields << QString::asprintf("%02X", value);
    return fields.join(QLatin1Char(','));
}

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

    void typedBytesReachTheSensorAsTheyAre_data();
    void typedBytesReachTheSensorAsTheyAre();
    void fieldThatIsNotHexadecimalIsUnderlined();
    void answerIsShownByteForByte_data();
    void answerIsShownByteForByte();
    void everyByteValuePassesBothWays();
    void tenThousandBytesAreShown();
    void sensorThatNeverFallsSilentIsCutOff();
    void closingTheLinkEndsTheExchangeAtOnce();
    void emptyTextClearsTheAnswerAndSendsNothing();
    void lostPortIsToldAndThenRefusedAtOnce();
    void answersToOthersAreIgnored();
    void closedDuringAnExchangeTheDialogLeavesNothingBusy();
    void changeOfLanguageKeepsTheEntries();

private:
    template <class Control>
    [[nodiscard]] Control& control(int id) const
    {
        return *m_dialog->getControl<Control>(id);
    }

    void enter(const QString& text) const;
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

/// Puts a text into the send field in place of the one that is there.
void TestManualCommDialog::enter(const QString& text) const
{
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(&control<QLineEdit>(1051), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&control<QLineEdit>(1051), Qt::Key_V, Qt::ControlModifier);
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

void TestManualCommDialog::typedBytesReachTheSensorAsTheyAre_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("mark");
    const auto row = [](const char* name, const char* text, const QByteArray& bytes,
                        const char* mark = "") {
        QTest::newRow(name) << QString::fromUtf8(text) << bytes << QString::fromUtf8(mark);
    };

    row("PROG", "50,52,4F,47,0D", "PROG\r");
    row("with a comma behind", "50,52,4F,47,0D,", "PROG\r");
    row("more than a byte", "1FF", "\xFF");
    row("one digit", "d", "\r");
    row("blanks, lower case, prefix", " 0d ,0x4f, 0X4f ", "\rOO");
    row("empty field", "41,,42", QByteArray("A\0B", 3),
        R"(Not hexadecimal, but sent all the same: field 2 "" as 00)");
    row("only a comma", ",", QByteArray("\0", 1),
        R"(Not hexadecimal, but sent all the same: field 1 "" as 00)");
    row("blank behind the last comma", "41, ", QByteArray("A\0", 2),
        R"(Not hexadecimal, but sent all the same: field 2 " " as 00)");
    row("digits and a letter", "5G,41",
        "\x05"
        "A",
        R"(Not hexadecimal, but sent all the same: field 1 "5G" as 05)");
    row("negative", "41,-1", QByteArray("A\0", 2),
        R"(Not hexadecimal, but sent all the same: field 2 "-1" as 00)");
    row("mark-up is only text", "<b>%1", QByteArray("\0", 1),
        R"(Not hexadecimal, but sent all the same: field 1 "<b>%1" as 00)");
    row("beyond 32 bits", "123456789", "\x89",
        R"(Not hexadecimal, but sent all the same: field 1 "123456789" as 89)");
    row("many", "x,y,z,u,v", QByteArray(5, '\0'),
        "Not hexadecimal, but sent all the same: "
        "field 1 \"x\" as 00; field 2 \"y\" as 00; field 3 \"z\" as 00; \u2026");
}

void TestManualCommDialog::typedBytesReachTheSensorAsTheyAre()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, mark);

    QVERIFY(control<QLineEdit>(1051).hasFocus());
    QTest::keyClicks(&control<QLineEdit>(1051), text);
    QCOMPARE(marked(), mark);
    execute();
    QCOMPARE(QByteArray::fromStdString(m_terminal->receive(std::size_t(bytes.size()))), bytes);
    QVERIFY(waitDone());
    QCOMPARE(m_terminal->receive(1, 0ms), std::string());
    QCOMPARE(received(), QString());
    QCOMPARE(outcome(), QString());
    QCOMPARE(m_link->commLog().snapshot().size(), 0);
}

void TestManualCommDialog::fieldThatIsNotHexadecimalIsUnderlined()
{
    enter(QStringLiteral("50,4G,47"));
    QVERIFY(hasRedPixel(control<QLineEdit>(1051)));
    enter(QStringLiteral("50,4F,47"));
    QVERIFY(!hasRedPixel(control<QLineEdit>(1051)));
    QCOMPARE(marked(), QString());
}

void TestManualCommDialog::answerIsShownByteForByte_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("text");

    QTest::newRow("three bytes") << QByteArray("\r\n1") << QStringLiteral("0D,0A,31");
    QTest::newRow("one byte") << QByteArray("\0", 1) << QStringLiteral("00");
    QTest::newRow("none") << QByteArray() << QString();
}

void TestManualCommDialog::answerIsShownByteForByte()
{
    QFETCH(QByteArray, answer);
    QFETCH(QString, text);

    enter(QStringLiteral("31"));
    QVERIFY(m_terminal->send(answer.toStdString())); // is read once the byte has been sent
    execute();
    QVERIFY(waitDone());
    QCOMPARE(m_terminal->receive(1), std::string("1"));
    QCOMPARE(received(), text);
}

void TestManualCommDialog::everyByteValuePassesBothWays()
{
    enter(everyByteText());
    QVERIFY(m_terminal->send(everyByteValue()));
    execute();
    QVERIFY(waitDone());
    QCOMPARE(m_terminal->receive(256), everyByteValue());
    QCOMPARE(received(), everyByteText());
}

void TestManualCommDialog::tenThousandBytesAreShown()
{
    std::string answer;
    QStringList fields;
    for (unsigned index = 0; index < 10'000; ++index) {
        answer += static_cast<char>(index * 7);
        fields << QString::asprintf("%02X", (index * 7) & 0xFF);
    }
    enter(QStringLiteral("0D"));
    bool sent = false;
    std::thread sensor([&] { sent = m_terminal->send(answer); });
    execute();
    const bool done = waitDone();
    sensor.join();
    QVERIFY(done && sent);
    QCOMPARE(received(), fields.join(QLatin1Char(',')));
    QCOMPARE(outcome(), QString());
}

void TestManualCommDialog::sensorThatNeverFallsSilentIsCutOff()
{
    enter(QStringLiteral("31"));
    execute();
    QCOMPARE(m_terminal->receive(1), std::string("1"));
    const Talker talker(*m_terminal);
    QVERIFY(waitDone());
    QVERIFY(received().startsWith(QStringLiteral("30,31,32,33,34,35,36,37,38,39,0D,30")));
    QCOMPARE(outcome(), QStringLiteral("Cut off: the sensor did not fall silent within 60 seconds "
                                       "and 1 MiB."));
}

void TestManualCommDialog::closingTheLinkEndsTheExchangeAtOnce()
{
    Pacing::setSpeeds({1, 100, 1}); // the time limit cannot be what ends it
    enter(QStringLiteral("31"));
    execute();
    QCOMPARE(m_terminal->receive(1), std::string("1"));
    const Talker talker(*m_terminal);
    m_link->close();
    QVERIFY(waitDone());
    QVERIFY(m_link->rawReply().cut);
}

void TestManualCommDialog::emptyTextClearsTheAnswerAndSendsNothing()
{
    enter(QStringLiteral("31"));
    QVERIFY(m_terminal->send("2"));
    execute();
    QVERIFY(waitDone());
    QCOMPARE(received(), QStringLiteral("32"));

    QTest::keyClick(&control<QLineEdit>(1051), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&control<QLineEdit>(1051), Qt::Key_Delete);
    execute();
    QCOMPARE(received(), QString());
    QCoreApplication::processEvents();
    QCOMPARE(m_window->busy, QList<int>());
}

void TestManualCommDialog::lostPortIsToldAndThenRefusedAtOnce()
{
    enter(QStringLiteral("31"));
    m_terminal->unplug();
    execute();
    QVERIFY(waitDone());
    QCOMPARE(outcome(), QStringLiteral("The serial port was lost during the exchange. What was "
                                       "sent or received may be incomplete."));
    QCOMPARE(m_link->linkFailed(), 1);

    execute();
    QCOMPARE(outcome(), QStringLiteral("The serial port is not connected. Nothing was sent."));
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
    QCOMPARE(outcome(), QStringLiteral("The serial port is not connected. Nothing was sent."));
}

void TestManualCommDialog::answersToOthersAreIgnored()
{
    Pacing::setSpeeds({1, 100, 5});
    enter(QStringLiteral("31"));
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
    QCOMPARE(outcome(), QString());
}

void TestManualCommDialog::closedDuringAnExchangeTheDialogLeavesNothingBusy()
{
    enter(QStringLiteral("31"));
    execute();
    QCOMPARE(m_terminal->receive(1), std::string("1"));
    m_dialog.reset();
    MessageCollector next;
    m_link->setReplyTarget(&next, WM_LINK_REPLY);
    QVERIFY(waitDone());

    const RequestId request = m_link->requestRead('V');
    QCOMPARE(m_terminal->receive(3), std::string("VA\r"));
    QTRY_COMPARE(next.resultOf(request), 0); // nobody answers the read
    m_link->setReplyTarget(nullptr, 0);
}

void TestManualCommDialog::changeOfLanguageKeepsTheEntries()
{
    enter(QStringLiteral("4G"));
    m_link->close();
    execute();
    QVERIFY(waitDone());
    QCOMPARE(m_languages.loadLanguage(2), 1);
    QTRY_COMPARE(m_dialog->windowTitle(), QStringLiteral("Manuelle Kommunikation"));
    const QStringList shown = {control<QLineEdit>(1051).text(), marked(), outcome()};
    QCOMPARE(m_languages.loadLanguage(1), 1);

    QCOMPARE(shown, QStringList({QStringLiteral("4G"),
                                 QStringLiteral("Nicht hexadezimal, wird trotzdem gesendet: "
                                                "Feld 1 \u201E4G\u201C als 04"),
                                 QStringLiteral("Die serielle Schnittstelle ist nicht verbunden. "
                                                "Es wurde nichts gesendet.")}));
}

QTEST_MAIN(TestManualCommDialog)
#include "TestManualCommDialog.moc"
