#include "DisplayUnitBench.h"

#include "pages/SelectPortDialog.h"
#include "pages/SerialPortComboBox.h"
#include "platform/core/MessageNumbers.h"
#include "platform/core/WindowMessage.h"
#include "support/ModalAnswer.h"

#include <QPointer>

using namespace pelorin;
using namespace pelorin::test;

using Bench = DisplayUnitBench;

namespace {

/// Counts the completions that a dialog gets.
class CompletionCounter : public QObject
{
public:
    explicit CompletionCounter(QObject* dialog) { dialog->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        const auto* message = WindowMessage::from(event); // also what the worker has written of it
        m_count += message && message->message() == WM_DISPLAY_UNIT ? 1 : 0;
        return false;
    }
    /// Waits for some completions from now on.
    [[nodiscard]] bool waitForMore()
    {
        return QTest::qWaitFor([this, limit = m_count + 5] { return m_count >= limit; });
    }

private:
    int m_count = 0;
};

} // namespace

class TestDisplayUnitDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void menuItemExistsOnlyWhereItIsEnabled();
    void dialogShowsWhatTheUnitDisplays();
    void windowIsAliveDuringASlowSetUp();
    void chosenSettingsReachTheUnit();
    void secondApplyBeforeATickReplacesTheFirst();
    void windowSaysWhetherTheUnitTookItsSettings();
    void readingThatDiffersInCaseOnlyStays();
    void dialogIsOpenedOnce();
    void failedOpeningLeavesAnIdleDialog_data();
    void failedOpeningLeavesAnIdleDialog();
    void unpluggedUnitShowsOneBox();
    void boxWaitsUntilAnotherDialogIsClosed();
    void languageChangeKeepsReadingAndChoice();
    void readingsGoOnWhileTheProgramIsBusy();
    void portOfTheUnitIsNotGivenToTheSensor();
};

void TestDisplayUnitDialog::menuItemExistsOnlyWhereItIsEnabled()
{
    for (const QByteArray value : {"", "0", "1", "2"}) {
        Bench bench(
            settingsWith(value.isEmpty() ? "" : "\"EnableQDL3\"=dword:0000000" + value + "\r\n"));
        QVERIFY(bench.startConnected());
        QCOMPARE(bench.clickCommand(kDisplayUnitCommand), value == "1");
    }
}

void TestDisplayUnitDialog::dialogShowsWhatTheUnitDisplays()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    QCOMPARE(bench.dialog()->windowTitle(), latin("QDL3 Display Unit - simulated"));
    QVERIFY(!bench.dialog()->isModal());
    const auto* box = bench.control("displayBox");
    QCOMPARE(box->palette().color(box->backgroundRole()), QColor(0, 0, 0));
    QCOMPARE(box->palette().color(box->foregroundRole()), QColor(255, 255, 0));
    QCOMPARE(box->font().pointSize(), 40);

    for (const char* reading : {"-0.5", "OVERRANGE", "13.000"}) {
        bench.displayUnit().setReading(reading);
        QTRY_COMPARE(bench.shown(), latin(reading));
    }
    bench.displayUnit().setFault({SimulatedFault::Kind::Silent}, "RD");
    QTRY_COMPARE(bench.shown(), latin("****"));
    QVERIFY(!bench.messageBox());
    bench.displayUnit().clearFaults();
    QTRY_COMPARE(bench.shown(), latin("13.000"));
}

void TestDisplayUnitDialog::windowIsAliveDuringASlowSetUp()
{
    Bench bench;
    QVERIFY(bench.startConnected());
    Pacing::setSpeeds({100, 200, 0.05}); // late answers are still in time
    bench.displayUnit().setFault({SimulatedFault::Kind::Late, 100});
    QVERIFY(bench.clickCommand(kDisplayUnitCommand));
    QTRY_VERIFY(bench.dialog());
    QCOMPARE(bench.dialog()->cursor().shape(), Qt::WaitCursor);
    QVERIFY(!bench.control("applyButton")->isEnabled());
    QCOMPARE(bench.shown(), latin("****"));

    QVERIFY(bench.waitForFrame("SdP3"));
    bench.choose("dataBitsCombo", 1); // the window takes input
    QCOMPARE(bench.chosen("dataBitsCombo"), latin("24"));

    QTRY_COMPARE(bench.shown(), latin("12.345"));
    QCOMPARE(bench.dialog()->cursor().shape(), Qt::ArrowCursor);
    QVERIFY(bench.control("applyButton")->isEnabled());
}

void TestDisplayUnitDialog::chosenSettingsReachTheUnit()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    const std::array<std::string, 7> resolutions{"0.005", "0.010", "0.050", "0.100",
                                                 "0.020", "0.002", "0.001"};
    for (int item = 0; item < 7; ++item) {
        const bool gray = item % 2 == 1;
        const bool bits24 = item % 4 >= 2;
        const auto& resolution = resolutions[static_cast<std::size_t>(item)];
        if (item > 0) { // what is selected at first is applied as it is
            bench.choose("modeCombo", gray ? 1 : 0);
            bench.choose("dataBitsCombo", bits24 ? 1 : 0);
            bench.choose("resolutionCombo", item);
        }
        QCOMPARE(bench.chosen("modeCombo"), gray ? latin("Gray code") : latin("Binary"));
        QCOMPARE(bench.chosen("dataBitsCombo"), bits24 ? latin("24") : latin("25"));
        QCOMPARE(bench.chosen("resolutionCombo"), QString::fromStdString(resolution + " mm"));

        bench.clickApply();
        const SimulatedDisplayUnit::Settings expected{gray ? "SSIGRAY" : "SSIBIN",
                                                      bits24 ? "24" : "25", resolution};
        QVERIFY(QTest::qWaitFor([&] { return bench.displayUnit().settings() == expected; }));
    }
}

/// As long as a request is outstanding no other one is sent, however many ticks pass.
void TestDisplayUnitDialog::secondApplyBeforeATickReplacesTheFirst()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    Pacing::setSpeeds({100, 200, 0.1}); // the late answer is still in time
    bench.displayUnit().setFault({SimulatedFault::Kind::Late, 1000}, "RD");
    QVERIFY(bench.waitForReading());
    bench.displayUnit().clearFaults();

    bench.choose("modeCombo", 1);
    bench.clickApply();
    bench.choose("dataBitsCombo", 1);
    bench.clickApply();
    QCOMPARE(bench.displayUnit().takeReceivedFrames(), std::vector<std::string>());

    std::vector<std::string> frames;
    QVERIFY(QTest::qWaitFor([&] {
        for (const auto& frame : bench.displayUnit().takeReceivedFrames())
            frames.push_back(frame);
        return std::count(frames.begin(), frames.end(), "$1RD") >= 2;
    }));
    frames.resize(6);
    QCOMPARE(frames, (std::vector<std::string>{"$1WE", "$1SXTSSIGRAY", "$1SXB24", "$1SPR0.005",
                                               "$1RD", "$1RD"}));
    QCOMPARE(bench.shown(), latin("12.345"));
}

void TestDisplayUnitDialog::windowSaysWhetherTheUnitTookItsSettings()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    QCOMPARE(bench.text("outcomeLabel"), QString());
    bench.displayUnit().setFault({SimulatedFault::Kind::WrongByte, 0}, "SPR");
    bench.clickApply();
    QTRY_COMPARE(bench.text("outcomeLabel"),
                 latin("The display unit has not acknowledged all settings. Some of them may be in "
                       "effect: apply them again."));
    QCOMPARE(bench.shown(), latin("12.345"));

    bench.displayUnit().clearFaults();
    bench.clickApply();
    QCOMPARE(bench.text("outcomeLabel"), QString());
    QTRY_COMPARE(bench.text("outcomeLabel"),
                 latin("The display unit has acknowledged the settings."));
    bench.displayUnit().setFault({SimulatedFault::Kind::Silent}, "RD");
    QTRY_COMPARE(bench.shown(), latin("****"));
    QCOMPARE(bench.languages().loadLanguage(2), 1);
    QTRY_COMPARE(bench.text("outcomeLabel"), // a failed reading says nothing about it
                 QStringLiteral("Das Anzeigegerät hat die Einstellungen bestätigt."));
}

void TestDisplayUnitDialog::readingThatDiffersInCaseOnlyStays()
{
    Bench bench;
    bench.displayUnit().setReading("Over");
    QVERIFY(bench.openDialog("Over"));
    bench.displayUnit().setReading("oVER");
    QVERIFY(CompletionCounter(bench.dialog()).waitForMore());
    QCOMPARE(bench.shown(), latin("Over"));
    bench.displayUnit().setReading("oVER.");
    QTRY_COMPARE(bench.shown(), latin("oVER."));
}

void TestDisplayUnitDialog::dialogIsOpenedOnce()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    const QPointer<DisplayUnitDialog> dialog = bench.dialog();
    bench.choose("modeCombo", 1);
    bench.window().activateWindow();
    QVERIFY(bench.clickCommand(kDisplayUnitCommand));
    QTRY_VERIFY(dialog->isActiveWindow());
    QCOMPARE(bench.window().findChildren<DisplayUnitDialog*>().size(), 1);
    QCOMPARE(bench.chosen("modeCombo"), latin("Gray code"));

    QVERIFY(bench.closeDialog());
    bench.displayUnit().setReading("7.5");
    QVERIFY(bench.clickCommand(kDisplayUnitCommand));
    QTRY_VERIFY(bench.dialog());
    QTRY_COMPARE(bench.shown(), latin("7.5"));
}

void TestDisplayUnitDialog::failedOpeningLeavesAnIdleDialog_data()
{
    QTest::addColumn<QByteArray>("port");
    QTest::addColumn<QByteArray>("fault");
    QTest::addColumn<QString>("message");
    QTest::newRow("port missing") << QByteArray("COM96") << QByteArray("missing")
                                  << latin("Port COM96 could not be opened (system error 2).");
    QTest::newRow("set-up not acknowledged")
        << QByteArray("COM96") << QByteArray("SXAOFF")
        << latin("The display unit on COM96 (node 1) did not acknowledge its set-up.");
    QTest::newRow("port of the sensor")
        << QByteArray("COM7") << QByteArray("SX")
        << latin("COM7 is the port of the sensor. The display unit needs a port of its own; the "
                 "value QDL3Comport of the settings names it.");
}

/// Nothing can be sent: the port has been given back, and what would send is switched off.
void TestDisplayUnitDialog::failedOpeningLeavesAnIdleDialog()
{
    QFETCH(QByteArray, port);
    QFETCH(QByteArray, fault);
    Bench bench(settingsWith(kEnabled, port));
    QVERIFY(bench.startConnected());
    if (fault == "missing")
        bench.displayUnit().vanish();
    bench.displayUnit().setFault({SimulatedFault::Kind::Silent}, fault.toStdString());
    QVERIFY(bench.clickCommand(kDisplayUnitCommand));
    QTEST(bench.answerBox(), "message");

    bench.displayUnit().comeBack();
    QVERIFY(bench.isPortFree());
    QVERIFY(!bench.control("applyButton")->isEnabled());
    QCOMPARE(bench.shown(), latin("****"));
    QCOMPARE(bench.dialog()->cursor().shape(), Qt::ArrowCursor);
    QVERIFY(bench.closeDialog());
}

void TestDisplayUnitDialog::unpluggedUnitShowsOneBox()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    CompletionCounter completions(bench.dialog());
    bench.displayUnit().vanish();
    QTRY_VERIFY(bench.messageBox());
    QVERIFY(completions.waitForMore()); // it is still asked behind the box
    QCOMPARE(bench.dialog()->findChildren<QMessageBox*>().size(), 1);
    QVERIFY(bench.answerBox().contains(latin("Error = 19\nThe port COM96 no longer exists.")));
    QCOMPARE(bench.shown(), latin("****"));
    QVERIFY(completions.waitForMore());
    QVERIFY(!bench.messageBox());
    QVERIFY(bench.closeDialog());
}

void TestDisplayUnitDialog::boxWaitsUntilAnotherDialogIsClosed()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    ModalAnswer<BaseDialog> answer([&bench](BaseDialog& about) {
        bench.displayUnit().vanish();
        QTRY_COMPARE(bench.shown(), latin("****"));
        QCOMPARE(QApplication::activeModalWidget(), &about);
        about.reject();
    });
    QVERIFY(bench.clickCommand(kAboutCommand));
    QTRY_VERIFY(answer.wasShown());
    QTRY_VERIFY(bench.messageBox());
    QCOMPARE(bench.messageBox()->parentWidget(), bench.dialog());
    bench.messageBox()->close();
}

void TestDisplayUnitDialog::languageChangeKeepsReadingAndChoice()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    bench.choose("modeCombo", 1);
    bench.choose("resolutionCombo", 2);
    QCOMPARE(bench.languages().loadLanguage(2), 1);
    QTRY_COMPARE(bench.dialog()->windowTitle(), QStringLiteral("QDL3-Anzeigegerät - simuliert"));
    QCOMPARE(bench.chosen("modeCombo"), latin("Gray-Code"));
    QCOMPARE(bench.chosen("resolutionCombo"), latin("0.050 mm"));
    QCOMPARE(bench.shown(), latin("12.345"));
    QCOMPARE(bench.control("displayBox")->accessibleDescription(),
             QStringLiteral("Aktueller Anzeigewert des Anzeigegeräts"));
}

void TestDisplayUnitDialog::readingsGoOnWhileTheProgramIsBusy()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    Pacing::setSpeeds({100, 200, 0.5}); // a silent sensor keeps the program busy for a second
    bench.sensor().setFault({SimulatedFault::Kind::Silent});
    bench.clickRefresh();
    QTRY_VERIFY(bench.window().isBusy());
    (void)bench.displayUnit().takeReceivedFrames();

    bench.clickApply();
    bench.displayUnit().setReading("8.5");
    QTRY_COMPARE(bench.shown(), latin("8.5"));
    QVERIFY(bench.window().isBusy());
    QVERIFY(bench.waitForReading());
    QCOMPARE(bench.displayUnit().settings(), SimulatedDisplayUnit::Settings());
    QVERIFY(bench.waitIdle());
    bench.clickApply();
    QTRY_COMPARE(bench.displayUnit().settings().dataBits, std::string("25"));
}

void TestDisplayUnitDialog::portOfTheUnitIsNotGivenToTheSensor()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    const auto choosePort = [&bench](int port) {
        ModalAnswer<SelectPortDialog> choice([port](SelectPortDialog& dialog) {
            dialog.findChild<SerialPortComboBox*>()->selectPort(port);
            dialog.accept();
        });
        return bench.clickCommand(kSelectPortCommand) &&
               QTest::qWaitFor([&] { return choice.wasShown(); });
    };
    QString text;
    ModalAnswer<QMessageBox> refusal([&text](QMessageBox& box) {
        text = box.text();
        box.accept();
    });
    QVERIFY(choosePort(96));
    QTRY_VERIFY(refusal.wasShown());
    QCOMPARE(text, QStringLiteral("COM96 is the port of the display unit. Close the window of the "
                                  "display unit before you choose this port for the sensor."));
    QCOMPARE(bench.link().portNumber(), MainWindowRig::kPort);
    QCOMPARE(bench.lightText(), latin("Green: connected"));
    QVERIFY(bench.waitForReading());

    QVERIFY(bench.closeDialog());
    QVERIFY(choosePort(96));
    QTRY_COMPARE(bench.link().portNumber(), 96);
}

QTEST_MAIN(TestDisplayUnitDialog)
#include "TestDisplayUnitDialog.moc"
