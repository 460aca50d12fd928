#include "display/DisplayUnitDialog.h"

#include "platform/core/ComPortFactory.h"
#include "platform/core/Pacing.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedDisplayUnit.h"
#include "support/Languages.h"
#include "support/TestRegistry.h"
#include "support/WaitFor.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QTest>

#include <cerrno>

using namespace Qt::StringLiterals;
using namespace pelorin;
using namespace pelorin::test;

using Kind = SimulatedFault::Kind;

class TestDisplayUnitDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        Pacing::setSpeeds({20, 200, 5});
        m_unit = std::make_shared<SimulatedDisplayUnit>();
        m_unit->setReading("12.345");
        m_dialog = std::make_unique<DisplayUnitDialog>(nullptr, m_factory, 7);
    }
    void cleanup() { m_dialog.reset(); }

    void dialogShowsWhatTheUnitDisplays()
    {
        QVERIFY(open());
        QCOMPARE(m_dialog->windowTitle(), u"QDL3 Display Unit - simulated"_s);
        QVERIFY(m_dialog->usesPort(96) && !m_dialog->usesPort(7) && !isWaiting());
        m_unit->setReading("Over");
        QVERIFY(shows("displayBox", "Over"));
        m_unit->setReading("oVER"); // differs in case only
        QVERIFY(waitForFrame("RD") && waitForFrame("RD") && waitForFrame("RD"));
        QCOMPARE(control<QLabel>("displayBox")->text(), u"Over"_s);
        m_unit->setFault({Kind::Silent}, "RD");
        QVERIFY(shows("displayBox", "****"));
    }

    void chosenSettingsReachTheUnit()
    {
        QVERIFY(open());
        int item = 0;
        for (const std::string resolution :
             {"0.005", "0.010", "0.050", "0.100", "0.020", "0.002", "0.001"}) {
            const int gray = item % 2, few = item / 2 % 2;
            if (item > 0) { // what is selected at first is applied as it is
                choose("modeCombo", gray);
                choose("dataBitsCombo", few);
                choose("resolutionCombo", item);
            }
            QCOMPARE(chosen("resolutionCombo").toStdString(), resolution + " mm");
            apply();
            const SimulatedDisplayUnit::Settings wanted{gray ? "SSIGRAY" : "SSIBIN",
                                                        few ? "24" : "25", resolution};
            QVERIFY(waitFor([&] { return m_unit->settings() == wanted; }));
            ++item;
        }
        QVERIFY(shows("outcomeLabel", "has acknowledged"));
        m_unit->setFault({Kind::WrongByte, 0}, "SPR");
        apply();
        QVERIFY(shows("outcomeLabel", "has not acknowledged"));
        QCOMPARE(m_languages.loadLanguage(2), 1);
        QVERIFY(waitFor([&] { return chosen("modeCombo") == u"Binär"; }));
        QCOMPARE(chosen("resolutionCombo"), u"0.001 mm"_s);
        QVERIFY(shows("displayBox", "12.345"));
        QCOMPARE(m_languages.loadLanguage(1), 1);
    }

    /// As long as a request is outstanding no other one is sent, however many ticks pass.
    void secondApplyBeforeATickReplacesTheFirst()
    {
        QVERIFY(open());
        Pacing::setSpeeds({20, 200, 0.1}); // the late answer is still in time
        m_unit->setFault({Kind::Late, 500}, "RD");
        QVERIFY(waitForFrame("RD"));
        apply();
        choose("dataBitsCombo", 1);
        apply();
        const std::string expected = "$1RD $1WE $1SXTSSIBIN $1SXB24 $1SPR0.005 $1RD ";
        QVERIFY(waitFor([&] { return received().size() >= expected.size(); }));
        QCOMPARE(m_received.substr(0, expected.size()), expected);
    }

    /// Nothing can be sent: the port has been given back, and what would send is switched off.
    void failedOpeningLeavesAnIdleDialog()
    {
        m_unit->setFault({Kind::Silent});
        m_dialog->show();
        QVERIFY(isTold("The display unit on COM96 (node 1) did not acknowledge"));
        QVERIFY(isPortFree() && !m_dialog->usesPort(96) && !isWaiting() && !canApply());
        m_dialog->close();
        QVERIFY(waitFor([this] { return !m_dialog->isVisible() && !box(); }));
    }

    void unpluggedUnitIsToldOnceOverNoOtherDialog()
    {
        QVERIFY(open());
        QDialog other(m_dialog.get());
        other.open();
        m_unit->vanish();
        QVERIFY(shows("displayBox", "****"));
        QCOMPARE(QApplication::activeModalWidget(), &other);
        other.reject();
        QVERIFY(isTold("The port COM96 no longer exists."));
        box()->close();
        QCoreApplication::processEvents();
        QVERIFY(!box());
    }

    void closingCutsASetUpShort()
    {
        m_unit->setFault({Kind::Silent}, "SdP3");
        Pacing::setSpeeds({20, 200, 0.01}); // what is not answered is waited for 50 seconds
        m_dialog->show();
        QVERIFY(waitForFrame("SdP3"));
        QVERIFY(isWaiting() && !canApply());
        QVERIFY(closes() && isPortFree());
    }

    void closingWaitsForWhatIsApplied()
    {
        QVERIFY(open());
        Pacing::setSpeeds({20, 200, 0.5}); // the late answer is still in time
        m_unit->setFault({Kind::Late, 200}, "RD");
        QVERIFY(waitForFrame("RD"));
        choose("modeCombo", 1);
        apply();
        QVERIFY(closes() && isPortFree());
        QCOMPARE(m_unit->settings().mode, std::string("SSIGRAY"));
    }

private:
    static QMessageBox* box()
    {
        return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    }
    static bool isTold(const char* text)
    {
        return waitFor(box) && box()->text().contains(QLatin1String(text));
    }
    [[nodiscard]] bool open()
    {
        m_dialog->show();
        return QTest::qWaitForWindowActive(m_dialog.get()) && shows("displayBox", "12.345");
    }
    template <class Control = QWidget>
    Control* control(const char* name)
    {
        return m_dialog->findChild<Control*>(QLatin1String(name));
    }
    bool shows(const char* label, const char* text)
    {
        return waitFor(
            [&] { return control<QLabel>(label)->text().contains(QLatin1String(text)); });
    }
    QString chosen(const char* name) { return control<QComboBox>(name)->currentText(); }
    void choose(const char* name, int item)
    {
        QTest::keyClick(control(name), Qt::Key_Home);
        for (int step = 0; step < item; ++step)
            QTest::keyClick(control(name), Qt::Key_Down);
    }
    bool canApply() { return control("applyButton")->isEnabled(); }
    void apply() { QTest::mouseClick(control("applyButton"), Qt::LeftButton); }
    const std::string& received()
    {
        for (const std::string& frame : m_unit->takeReceivedFrames())
            m_received += frame + ' ';
        return m_received;
    }
    /// Waits until the unit receives a command from now on.
    bool waitForFrame(const std::string& command)
    {
        (void)received();
        m_received.clear();
        return waitFor([&] { return received().find(command + ' ') != std::string::npos; });
    }
    bool isWaiting() { return m_dialog->cursor().shape() == Qt::WaitCursor; }
    /// Closes the dialog, which goes on living until its link has ended.
    bool closes()
    {
        QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
        return m_dialog->isVisible() && waitFor([this] { return !m_dialog->isVisible(); });
    }
    bool isPortFree() { return SimulatedComPort(m_unit).open() != EBUSY; }

    Languages m_languages{1};
    const TestRegistry m_registry{
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n\"QDL3Comport\"=\"COM96\"\r\n"
        "[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
        "\"simulator:display\"=\"COM96\"\r\n"};
    std::shared_ptr<SimulatedDisplayUnit> m_unit;
    std::string m_received;
    const ComPortFactory m_factory{
        [this](auto&) { return std::make_unique<SimulatedComPort>(m_unit); }};
    std::unique_ptr<DisplayUnitDialog> m_dialog;
};

QTEST_MAIN(TestDisplayUnitDialog)
#include "TestDisplayUnitDialog.moc"
