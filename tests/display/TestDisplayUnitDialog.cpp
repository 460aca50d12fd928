#include "display/DisplayUnitDialog.h"

#include "app/Commands.h"
#include "pages/SelectPortDialog.h"
#include "pages/SerialPortComboBox.h"
#include "platform/core/Pacing.h"
#include "simulator/SimulatedComPort.h"
#include "support/MainWindowRig.h"
#include "support/ModalAnswer.h"

#include <QComboBox>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace pelorin;
using namespace pelorin::test;

namespace {

const QByteArray kSettings = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n"
                             "\"EnableQDL3\"=dword:00000001\r\n\"QDL3Comport\"=\"COM96\"\r\n"
                             "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
                             "\"simulator:display\"=\"COM96\"\r\n\"simulator:sensor\"=\"COM7\"\r\n";

/// The main window, connected, and the display unit in reach of it.
struct Bench : MainWindowRig
{
    explicit Bench(const QByteArray& settings = kSettings) : MainWindowRig({.type = 2}, settings)
    {
        displayUnit().setReading("12.345");
    }

    /// The dialog, null while there is none.
    [[nodiscard]] DisplayUnitDialog* dialog()
    {
        const auto dialogs = window().findChildren<DisplayUnitDialog*>();
        for (auto* dialog : dialogs)
            if (dialog->isVisible())
                return dialog;
        return nullptr;
    }

    [[nodiscard]] QWidget* control(const char* name)
    {
        return dialog()->findChild<QWidget*>(QLatin1String(name));
    }
    [[nodiscard]] QString shown() { return qobject_cast<QLabel*>(control("displayBox"))->text(); }

    /// Chooses the menu item and waits until the dialog shows a reading.
    [[nodiscard]] bool openDialog(const QString& reading = QStringLiteral("12.345"))
    {
        return startConnected() && clickCommand(kDisplayUnitCommand) &&
               QTest::qWaitFor([&] { return dialog() && shown() == reading; });
    }

    void clickApply() { QTest::mouseClick(control("applyButton"), Qt::LeftButton); }

    /// Chooses an item of a combo box by keys.
    void choose(const char* name, int item)
    {
        QWidget* combo = control(name);
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Home);
        for (int step = 0; step < item; ++step)
            QTest::keyClick(combo, Qt::Key_Down);
    }

    /// Waits until the unit has received a command, and forgets what it has received.
    [[nodiscard]] bool waitForFrame(const std::string& command)
    {
        return QTest::qWaitFor([&] {
            const auto frames = displayUnit().takeReceivedFrames();
            return std::find(frames.begin(), frames.end(), "$1" + command) != frames.end();
        });
    }

    /// Waits until the unit receives a reading command from now on.
    [[nodiscard]] bool waitForReading()
    {
        (void)displayUnit().takeReceivedFrames();
        return waitForFrame("RD");
    }

    /// Whether nobody has the unit's port.
    [[nodiscard]] bool isPortFree()
    {
        const int nobody = 0;
        const int error = displayUnit().claim(&nobody, SimulatedDevice::Clock::now());
        displayUnit().release(&nobody);
        return error != EBUSY;
    }

    [[nodiscard]] QMessageBox* messageBox()
    {
        return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    }
};

} // namespace

class TestDisplayUnitDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void menuItemExistsOnlyWhereItIsEnabled_data();
    void menuItemExistsOnlyWhereItIsEnabled();
    void dialogShowsWhatTheUnitDisplays();
    void windowIsAliveDuringASlowSetUp();
    void chosenSettingsReachTheUnit_data();
    void chosenSettingsReachTheUnit();
    void secondApplyBeforeATickReplacesTheFirst();
    void readingThatDiffersInCaseOnlyStays();
    void dialogIsOpenedOnce();
    void failedOpeningLeavesAnIdleDialog_data();
    void failedOpeningLeavesAnIdleDialog();
    void unpluggedUnitShowsOneBox();
    void boxWaitsUntilAnotherDialogIsClosed();
    void closingWaitsForTheReading();
    void settingBeingAppliedGoesOutWholeOnClosing();
    void closedDialogCanBeOpenedAgain();
    void languageChangeKeepsReadingAndChoice();
    void readingsGoOnWhileTheProgramIsBusy();
    void closingTheProgramAlwaysEnds_data();
    void closingTheProgramAlwaysEnds();
    void portOfTheUnitIsNotGivenToTheSensor();
};

void TestDisplayUnitDialog::menuItemExistsOnlyWhereItIsEnabled_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("exists");
    QTest::newRow("absent") << QByteArray() << false;
    QTest::newRow("0") << QByteArray("\"EnableQDL3\"=dword:00000000\r\n") << false;
    QTest::newRow("1") << QByteArray("\"EnableQDL3\"=dword:00000001\r\n") << true;
    QTest::newRow("2") << QByteArray("\"EnableQDL3\"=dword:00000002\r\n") << false;
}

void TestDisplayUnitDialog::menuItemExistsOnlyWhereItIsEnabled()
{
    QFETCH(QByteArray, value);
    QFETCH(bool, exists);
    Bench bench("[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n"
                "\"QDL3Comport\"=\"COM96\"\r\n" +
                value);
    QVERIFY(bench.startConnected());
    QCOMPARE(bench.clickCommand(kDisplayUnitCommand), exists);
}

void TestDisplayUnitDialog::dialogShowsWhatTheUnitDisplays()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    QCOMPARE(bench.dialog()->windowTitle(), QStringLiteral("QDL3 Display Unit - simulated"));
    QVERIFY(!bench.dialog()->isModal());
    const auto* box = qobject_cast<QLabel*>(bench.control("displayBox"));
    QCOMPARE(box->palette().color(box->backgroundRole()), QColor(0, 0, 0));
    QCOMPARE(box->palette().color(box->foregroundRole()), QColor(255, 255, 0));
    QCOMPARE(box->font().pointSize(), 40);

    for (const char* reading : {"-0.5", "OVERRANGE", "13.000"}) {
        bench.displayUnit().setReading(reading);
        QTRY_COMPARE(bench.shown(), QString::fromLatin1(reading));
    }
    bench.displayUnit().setFault({SimulatedFault::Kind::Silent}, "RD");
    QTRY_COMPARE(bench.shown(), QStringLiteral("****"));
    QVERIFY(!bench.messageBox());
    bench.displayUnit().clearFaults();
    QTRY_COMPARE(bench.shown(), QStringLiteral("13.000"));
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
    QCOMPARE(bench.shown(), QStringLiteral("****"));

    QVERIFY(bench.waitForFrame("SdP3"));
    bench.choose("dataBitsCombo", 1); // the window takes input
    QCOMPARE(qobject_cast<QComboBox*>(bench.control("dataBitsCombo"))->currentText(),
             QStringLiteral("24"));

    QTRY_COMPARE(bench.shown(), QStringLiteral("12.345"));
    QCOMPARE(bench.dialog()->cursor().shape(), Qt::ArrowCursor);
    QVERIFY(bench.control("applyButton")->isEnabled());
}

void TestDisplayUnitDialog::chosenSettingsReachTheUnit_data()
{
    using Settings = SimulatedDisplayUnit::Settings;
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("dataBits");
    QTest::addColumn<int>("resolution");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<Settings>("settings");
    const auto row = [](int mode, int dataBits, int resolution, const QStringList& texts,
                        const Settings& settings) {
        QTest::newRow(qPrintable(texts.join(QStringLiteral(", "))))
            << mode << dataBits << resolution << texts << settings;
    };
    const QString binary = QStringLiteral("Binary");
    const QString gray = QStringLiteral("Gray code");
    const QString bits25 = QStringLiteral("25");
    const QString bits24 = QStringLiteral("24");
    row(0, 0, 0, {binary, bits25, QStringLiteral("0.005 mm")}, {"SSIBIN", "25", "0.005"});
    row(1, 0, 1, {gray, bits25, QStringLiteral("0.010 mm")}, {"SSIGRAY", "25", "0.010"});
    row(0, 1, 2, {binary, bits24, QStringLiteral("0.050 mm")}, {"SSIBIN", "24", "0.050"});
    row(1, 1, 3, {gray, bits24, QStringLiteral("0.100 mm")}, {"SSIGRAY", "24", "0.100"});
    row(0, 0, 4, {binary, bits25, QStringLiteral("0.020 mm")}, {"SSIBIN", "25", "0.020"});
    row(1, 0, 5, {gray, bits25, QStringLiteral("0.002 mm")}, {"SSIGRAY", "25", "0.002"});
    row(0, 1, 6, {binary, bits24, QStringLiteral("0.001 mm")}, {"SSIBIN", "24", "0.001"});
}

void TestDisplayUnitDialog::chosenSettingsReachTheUnit()
{
    QFETCH(int, mode);
    QFETCH(int, dataBits);
    QFETCH(int, resolution);
    Bench bench;
    QVERIFY(bench.openDialog());
    QStringList texts;
    for (const auto& [name, item] : {std::pair{"modeCombo", mode},
                                     {"dataBitsCombo", dataBits},
                                     {"resolutionCombo", resolution}}) {
        const auto* combo = qobject_cast<QComboBox*>(bench.control(name));
        QCOMPARE(combo->currentIndex(), 0);
        bench.choose(name, item);
        texts << combo->currentText();
    }
    QTEST(texts, "texts");
    (void)bench.displayUnit().takeReceivedFrames();

    bench.clickApply();
    QVERIFY(QTest::qWaitFor([&] {
        QFETCH(SimulatedDisplayUnit::Settings, settings);
        return bench.displayUnit().settings() == settings;
    }));
    QTRY_COMPARE(bench.shown(), QStringLiteral("12.345"));
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
    QCOMPARE(bench.shown(), QStringLiteral("12.345"));
}

void TestDisplayUnitDialog::readingThatDiffersInCaseOnlyStays()
{
    Bench bench;
    bench.displayUnit().setReading("Over");
    QVERIFY(bench.openDialog(QStringLiteral("Over")));
    bench.displayUnit().setReading("oVER");
    for (int reading = 0; reading < 3; ++reading)
        QVERIFY(bench.waitForReading()); // the one before has been shown
    QCOMPARE(bench.shown(), QStringLiteral("Over"));
    bench.displayUnit().setReading("oVER.");
    QTRY_COMPARE(bench.shown(), QStringLiteral("oVER."));
}

void TestDisplayUnitDialog::dialogIsOpenedOnce()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    const auto* dialog = bench.dialog();
    bench.choose("modeCombo", 1);
    bench.window().activateWindow();
    (void)bench.displayUnit().takeReceivedFrames();

    QVERIFY(bench.clickCommand(kDisplayUnitCommand));
    QTRY_VERIFY(dialog->isActiveWindow());
    QVERIFY(bench.waitForReading());
    QCOMPARE(bench.window().findChildren<DisplayUnitDialog*>().size(), 1);
    QCOMPARE(bench.dialog(), dialog);
    QCOMPARE(qobject_cast<QComboBox*>(bench.control("modeCombo"))->currentIndex(), 1);
}

void TestDisplayUnitDialog::failedOpeningLeavesAnIdleDialog_data()
{
    QTest::addColumn<QByteArray>("port");
    QTest::addColumn<QByteArray>("fault");
    QTest::addColumn<QString>("message");
    QTest::newRow("port missing") << QByteArray("COM96") << QByteArray("missing")
                                  << QStringLiteral(
                                         "Port COM96 could not be opened (system error 2).");
    QTest::newRow("set-up not acknowledged")
        << QByteArray("COM96") << QByteArray("SXAOFF")
        << QStringLiteral("The display unit on COM96 (node 1) did not acknowledge its set-up.");
    QTest::newRow("port of the sensor")
        << QByteArray("COM7") << QByteArray()
        << QStringLiteral("COM7 is the port of the sensor. The display unit needs a port of its "
                          "own; the value QDL3Comport of the settings names it.");
}

void TestDisplayUnitDialog::failedOpeningLeavesAnIdleDialog()
{
    QFETCH(QByteArray, port);
    QFETCH(QByteArray, fault);
    QFETCH(QString, message);
    Bench bench(QByteArray(kSettings).replace("\"COM96\"\r\n[", '"' + port + "\"\r\n["));
    QVERIFY(bench.startConnected());
    if (fault == "missing")
        bench.displayUnit().vanish();
    else if (!fault.isEmpty())
        bench.displayUnit().setFault({SimulatedFault::Kind::Silent}, fault.toStdString());
    QVERIFY(bench.clickCommand(kDisplayUnitCommand));
    QTRY_VERIFY(bench.messageBox());
    QCOMPARE(bench.messageBox()->text(), message);
    QTest::keyClick(bench.messageBox(), Qt::Key_Return);
    QTRY_VERIFY(!bench.messageBox());

    bench.displayUnit().comeBack();
    bench.displayUnit().clearFaults();
    (void)bench.displayUnit().takeReceivedFrames();
    QVERIFY(!bench.control("applyButton")->isEnabled());
    bench.clickApply();
    QTest::qWait(50); // more than ten ticks
    QCOMPARE(bench.displayUnit().takeReceivedFrames(), std::vector<std::string>());
    QCOMPARE(bench.shown(), QStringLiteral("****"));
    QCOMPARE(bench.dialog()->cursor().shape(), Qt::ArrowCursor);
    QVERIFY(!bench.messageBox());
    QVERIFY(bench.isPortFree());

    bench.dialog()->close();
    QTRY_VERIFY(!bench.dialog());
}

void TestDisplayUnitDialog::unpluggedUnitShowsOneBox()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    bench.displayUnit().vanish();
    QTRY_VERIFY(bench.messageBox());
    QVERIFY(bench.messageBox()->text().contains(QStringLiteral("Error = 19\nThe port COM96 no "
                                                               "longer exists.")));
    QCOMPARE(bench.shown(), QStringLiteral("****"));
    QTest::qWait(50); // it is still asked behind the box
    QCOMPARE(bench.dialog()->findChildren<QMessageBox*>().size(), 1);
    QTest::keyClick(bench.messageBox(), Qt::Key_Escape);
    QTRY_VERIFY(!bench.messageBox());
    QTest::qWait(50);
    QVERIFY(!bench.messageBox());
    bench.dialog()->close();
    QTRY_VERIFY(!bench.dialog());
}

void TestDisplayUnitDialog::boxWaitsUntilAnotherDialogIsClosed()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    ModalAnswer<BaseDialog> answer([&bench](BaseDialog& about) {
        bench.displayUnit().vanish();
        QTRY_COMPARE(bench.shown(), QStringLiteral("****"));
        QCOMPARE(QApplication::activeModalWidget(), &about);
        about.reject();
    });
    QVERIFY(bench.clickCommand(kAboutCommand));
    QTRY_VERIFY(answer.wasShown());
    QTRY_VERIFY(bench.messageBox());
    QCOMPARE(bench.messageBox()->parentWidget(), bench.dialog());
    bench.messageBox()->close();
}

void TestDisplayUnitDialog::closingWaitsForTheReading()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    Pacing::setSpeeds({100, 200, 0.5});
    bench.displayUnit().setFault({SimulatedFault::Kind::Late, 300}, "RD");
    QVERIFY(bench.waitForReading());
    QTest::keyClick(bench.dialog(), Qt::Key_Escape);
    QVERIFY(bench.dialog());
    QVERIFY(!bench.isPortFree());
    QTRY_VERIFY(!bench.dialog());
    QVERIFY(bench.isPortFree());
    QTRY_COMPARE(bench.window().findChildren<DisplayUnitDialog*>().size(), 0);
}

void TestDisplayUnitDialog::settingBeingAppliedGoesOutWholeOnClosing()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    bench.displayUnit().setFault({SimulatedFault::Kind::Late, 20}, "SX");
    bench.choose("modeCombo", 1);
    bench.choose("resolutionCombo", 3);
    bench.clickApply();
    QVERIFY(bench.waitForFrame("SXTSSIGRAY"));
    bench.dialog()->close();
    QTRY_VERIFY(!bench.dialog());
    QCOMPARE(bench.displayUnit().settings(),
             (SimulatedDisplayUnit::Settings{"SSIGRAY", "25", "0.100"}));
}

void TestDisplayUnitDialog::closedDialogCanBeOpenedAgain()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    bench.dialog()->close();
    QTRY_VERIFY(!bench.dialog());
    bench.displayUnit().setReading("7.5");
    QVERIFY(bench.clickCommand(kDisplayUnitCommand));
    QTRY_VERIFY(bench.dialog());
    QTRY_COMPARE(bench.shown(), QStringLiteral("7.5"));
}

void TestDisplayUnitDialog::languageChangeKeepsReadingAndChoice()
{
    Bench bench;
    QVERIFY(bench.openDialog());
    bench.choose("modeCombo", 1);
    bench.choose("resolutionCombo", 2);
    QCOMPARE(bench.languages().loadLanguage(2), 1);
    QTRY_COMPARE(bench.dialog()->windowTitle(), QStringLiteral("QDL3-Anzeigegerät - simuliert"));
    bench.dialog()->grab().save(QStringLiteral("build/de.png"));
    QCOMPARE(qobject_cast<QComboBox*>(bench.control("modeCombo"))->currentText(),
             QStringLiteral("Gray-Code"));
    QCOMPARE(qobject_cast<QComboBox*>(bench.control("resolutionCombo"))->currentText(),
             QStringLiteral("0.050 mm"));
    QCOMPARE(bench.shown(), QStringLiteral("12.345"));
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
    QTRY_COMPARE(bench.shown(), QStringLiteral("8.5"));
    QVERIFY(bench.window().isBusy());
    QVERIFY(bench.waitForReading());
    QCOMPARE(bench.displayUnit().settings(), SimulatedDisplayUnit::Settings());
    QVERIFY(bench.waitIdle());
    bench.clickApply();
    QTRY_COMPARE(bench.displayUnit().settings().dataBits, std::string("25"));
}

void TestDisplayUnitDialog::closingTheProgramAlwaysEnds_data()
{
    using Steps = std::function<bool(Bench&)>;
    QTest::addColumn<Steps>("steps");
    const auto row = [](const char* name, const Steps& steps) { QTest::newRow(name) << steps; };
    const auto open = [](Bench& bench) {
        return bench.clickCommand(kDisplayUnitCommand) &&
               QTest::qWaitFor([&] { return bench.dialog(); });
    };
    const auto openAndRead = [open](Bench& bench) {
        return open(bench) &&
               QTest::qWaitFor([&] { return bench.shown() == QStringLiteral("12.345"); });
    };
    const auto openSilent = [open](Bench& bench, const char* command) {
        bench.displayUnit().setFault({SimulatedFault::Kind::Silent}, command);
        return open(bench) && bench.waitForFrame(command);
    };

    row("while it reads", openAndRead);
    row("before its window has come up",
        [](Bench& bench) { return bench.clickCommand(kDisplayUnitCommand); });
    row("during its set-up", [openSilent](Bench& bench) { return openSilent(bench, "SdP3"); });
    row("after its set-up has failed", [openSilent](Bench& bench) {
        return openSilent(bench, "SdP3") && QTest::qWaitFor([&] { return bench.messageBox(); });
    });
    row("during a reading", [openSilent](Bench& bench) { return openSilent(bench, "RD"); });
    row("unplugged in a reading", [openSilent](Bench& bench) {
        const bool reading = openSilent(bench, "RD");
        bench.displayUnit().vanish();
        return reading;
    });
    row("with the box about the unplugged unit", [openAndRead](Bench& bench) {
        const bool reading = openAndRead(bench);
        bench.displayUnit().vanish();
        return reading && QTest::qWaitFor([&] { return bench.messageBox(); });
    });
    row("while the dialog waits to close", [openSilent](Bench& bench) {
        const bool reading = openSilent(bench, "RD");
        bench.dialog()->close();
        return reading && bench.dialog();
    });
    row("while the program is busy", [openAndRead](Bench& bench) {
        const bool reading = openAndRead(bench);
        bench.sensor().setFault({SimulatedFault::Kind::Silent});
        bench.clickRefresh();
        return reading && QTest::qWaitFor([&] { return bench.window().isBusy(); });
    });
    row("with another dialog open", [openAndRead](Bench& bench) {
        return openAndRead(bench) && bench.clickCommand(kAboutCommand);
    });
}

void TestDisplayUnitDialog::closingTheProgramAlwaysEnds()
{
    using Steps = std::function<bool(Bench&)>;
    QFETCH(Steps, steps);
    Bench bench;
    QVERIFY(bench.startConnected());
    Pacing::setSpeeds({100, 200, 1}); // a silent unit is waited for half a second
    QVERIFY(steps(bench));

    bool wasOpen = true; // when the program ends
    connect(&bench.window(), &PelorinMainWindow::closed, this,
            [&] { wasOpen = bench.dialog() || !bench.isPortFree(); });
    const QSignalSpy closed(&bench.window(), &PelorinMainWindow::closed);
    QMetaObject::invokeMethod(&bench.window(), &QWidget::close, Qt::QueuedConnection);
    QTRY_COMPARE(closed.count(), 1);
    QVERIFY(!wasOpen);
    bench.destroyWindow();
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
    QCOMPARE(bench.lightText(), QStringLiteral("Green: connected"));
    QVERIFY(bench.waitForReading());

    bench.dialog()->close();
    QTRY_VERIFY(!bench.dialog());
    QVERIFY(choosePort(96));
    QTRY_COMPARE(bench.link().portNumber(), 96);
}

QTEST_MAIN(TestDisplayUnitDialog)
#include "TestDisplayUnitDialog.moc"
