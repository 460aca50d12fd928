#include "display/DisplayLink.h"
#include "display/DisplayUnitDialog.h"

#include "platform/core/ComPortFactory.h"
#include "platform/core/Pacing.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedDisplayUnit.h"
#include "support/Languages.h"
#include "support/MessageCollector.h"
#include "support/NoThreads.h"
#include "support/PortDecorator.h"
#include "support/TestRegistry.h"
#include "support/WaitFor.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace pelorin;
using namespace pelorin::test;

using Kind = SimulatedFault::Kind;

namespace {

enum class Step { None, Open, Line, Queues, Purge, Write, Count, Read, Silence };

/// Which step of a port fails, and with which error. Not to be changed during an exchange.
struct PortFault
{
    Step step = Step::None;
    int error = 5;
};

class FaultyPort final : public PortDecorator
{
public:
    FaultyPort(std::unique_ptr<ComPort> port, const PortFault& fault)
        : PortDecorator(std::move(port)), m_fault(fault)
    {
    }

    int open() override { return errorOf(Step::Open, PortDecorator::open()); }
    int setLine(const LineSettings& line) override
    {
        return errorOf(Step::Line, PortDecorator::setLine(line));
    }
    int setQueueSizes(int, int) override { return errorOf(Step::Queues, 0); }
    int purge(Purge what) override { return errorOf(Step::Purge, PortDecorator::purge(what)); }
    WriteResult write(std::string_view bytes) override
    {
        const auto [error, written] = PortDecorator::write(bytes);
        return {.error = errorOf(Step::Write, error), .written = written - errorOf(Step::Count, 0)};
    }
    ReadResult read() override
    {
        ReadResult result = PortDecorator::read();
        while (m_fault.step >= Step::Read && result.received)
            result = PortDecorator::read(); // nothing is left for the next exchange
        return {errorOf(Step::Read, result.error), result.received, result.byte};
    }

private:
    int errorOf(Step step, int error) const { return step == m_fault.step ? m_fault.error : error; }

    const PortFault& m_fault;
};

} // namespace

/// The dialog and what it is made of, on a simulated unit.
class TestDisplayUnit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { prepare("\"QDL3Comport\"=\"COM96\"\r\n"); }
    void cleanup() { m_dialog.reset(); }

    void unitIsSetUpAndReadUntilItGoes()
    {
        QVERIFY(open());
        QVERIFY(received().startsWith(
            u"$1WE $1SdP3 $1SPUMM $1SXAOFF $1SXE00000000 $1SXeFFFFFFFF $1RD "_s));
        QCOMPARE(m_dialog->windowTitle(), u"QDL3 Display Unit - simulated"_s);
        QVERIFY(m_dialog->usesPort(96) && !m_dialog->usesPort(7) && !isWaiting());
        const std::tuple<const char*, SimulatedFault, const char*> rows[] = {
            {"1.5\r*9", {}, "1.5"},                       // nothing after CR is read
            {"123456789012345678", {}, "12345678901234"}, // at most 16 bytes
            {"12.345", {Kind::NoTerminator}, "12.34"},    // time runs out before CR
            {"12.345", {Kind::WrongByte, 0}, "****"},
            {"13.000", {}, "13.000"},
            {"12.345", {Kind::Short, 1}, "****"}};
        for (const auto& [reading, fault, shown] : rows) {
            m_unit->setReading(reading);
            m_unit->setFault(fault, "RD");
            QVERIFY2(shows("displayBox", shown), shown);
        }
        m_unit->clearFaults();
        m_unit->setReading("Over");
        QVERIFY(shows("displayBox", "Over"));
        m_unit->setReading("oVER"); // differs in case only
        QVERIFY(waitForFrame("RD") && waitForFrame("RD") && waitForFrame("RD"));
        QVERIFY(shows("displayBox", "Over"));

        QDialog other(m_dialog.get());
        other.open();
        Pacing::setSpeeds({20, 200, 0.01}); // what is not answered is waited for 50 seconds
        m_unit->setFault({Kind::Silent}, "RD");
        QVERIFY(waitForFrame("RD"));
        m_unit->vanish(); // while it is asked
        QVERIFY(shows("displayBox", "****"));
        QCOMPARE(QApplication::activeModalWidget(), &other); // under no box
        other.reject();
        QVERIFY(told().startsWith(u"Error in ReadFile. Error = 19\nThe port COM96 no longer"_s));
    }

    void chosenSettingsReachTheUnit()
    {
        QVERIFY(open());
        for (int item = 0; const std::string resolution :
                           {"0.005", "0.010", "0.050", "0.100", "0.020", "0.002", "0.001"}) {
            const int gray = item % 2, few = item / 2 % 2;
            QCOMPARE(choose("modeCombo", gray), gray ? u"Gray code"_s : u"Binary"_s);
            QCOMPARE(choose("dataBitsCombo", few), few ? u"24"_s : u"25"_s);
            QCOMPARE(choose("resolutionCombo", item++).toStdString(), resolution + " mm");
            apply();
            const SimulatedDisplayUnit::Settings wanted{gray ? "SSIGRAY" : "SSIBIN",
                                                        few ? "24" : "25", resolution};
            QVERIFY(waitFor([&] { return m_unit->settings() == wanted; }));
        }
        m_unit->setFault({Kind::WrongByte, 1}, "SPR"); // one byte, whichever, has to follow
        apply();
        QVERIFY(shows("outcomeLabel", "The display unit has acknowledged the settings."));
        for (const SimulatedFault fault : {SimulatedFault{Kind::WrongByte, 0}, {Kind::Short, 1}}) {
            m_unit->setFault(fault, "SPR");
            apply();
            QCOMPARE(control<QLabel>("outcomeLabel")->text(), QString());
            QVERIFY(shows("outcomeLabel", "The display unit has not acknowledged all settings. "
                                          "Some of them may be in effect: apply them again."));
        }
    }

    /// As long as a request is outstanding no other one is sent, however many ticks pass; a close
    /// waits for what is applied.
    void applyTakesThePlaceOfTheNextReading()
    {
        QVERIFY(open());
        Pacing::setSpeeds({20, 200, 0.1}); // the late answer is still in time
        m_unit->setFault({Kind::Late, 500}, "RD");
        QVERIFY(waitForFrame("RD"));
        apply();
        (void)choose("dataBitsCombo", 1);
        apply();
        const QString expected = u"$1RD $1WE $1SXTSSIBIN $1SXB24 $1SPR0.005 $1RD "_s;
        QVERIFY(waitFor([&] { return received().size() >= expected.size(); }));
        (void)choose("modeCombo", 1);
        apply();
        QVERIFY(closes() && isPortFree());
        QCOMPARE(received(), expected + u"$1WE $1SXTSSIGRAY $1SXB24 $1SPR0.005 "_s);
    }

    void closingCutsASetUpShort()
    {
        m_unit->setFault({Kind::Silent}, "SdP3");
        Pacing::setSpeeds({20, 200, 0.01});
        m_dialog->show();
        QVERIFY(waitForFrame("SdP3"));
        QVERIFY(isWaiting() && !canApply());
        QVERIFY(closes() && isPortFree());
    }

    /// The window stays, but nothing is ever sent.
    void failedOpeningIsExplained()
    {
        const QByteArray node = "\"QDL3NodeID\"=dword:0000000",
                         unit = "\"QDL3Comport\"=\"unit\"\r\n";
        const std::tuple<const char*, QByteArray, PortFault> rows[] = {
            {"The value QDL3NodeID of the settings is 10.", node + "A\r\n", {}},
            {"COM7 is the port of the sensor.", "\"QDL3Comport\"=\"COM7\"\r\n", {}},
            {"Port unit could not be opened (system error 16).\nunit", unit, {Step::Open, 16}},
            {"Port unit could not be opened (system error 13).\nYou", unit, {Step::Open, 13}},
            {"The line settings of port unit could not be set", unit, {Step::Line}},
            {"The queue sizes of port unit could not be set", unit, {Step::Queues}},
            {"The display unit on COM1 (node 9) did not acknowledge", node + "9\r\n", {}},
            {"The display unit on unit (node 1) did not acknowledge its set-up.\nError in ReadFile",
             unit,
             {Step::Read}}};
        for (const auto& [begin, settings, fault] : rows) {
            prepare(settings);
            m_fault = fault;
            m_dialog->show();
            QVERIFY2(told().startsWith(QLatin1String(begin)), begin);
            QVERIFY(isPortFree() && !m_dialog->usesPort(96) && !isWaiting() && !canApply());
            m_dialog->close();
            QVERIFY(waitFor([this] { return !m_dialog->isVisible() && !box(); }));
        }
        const NoThreads none;
        init();
        m_dialog->show();
        QVERIFY(told().startsWith(u"The communication could not be started"_s));
    }

    /// The answer alone decides whether a request has worked.
    void failureOfThePortIsToldAgainOnceItHasWorked()
    {
        prepare("\"QDL3Comport\"=\"unit\"\r\n");
        DisplayLink link(m_factory);
        link.setReplyTarget(&m_window, 1);
        QVERIFY(works(link.open(0))); // neither port has a number
        const std::tuple<Step, bool, const char*> rows[] = {
            {Step::Read, false, "Error in ReadFile. Error = 5"},
            {Step::Read, false, ""},
            {Step::Purge, true, ""},    // not as it should
            {Step::Silence, false, ""}, // no sign that it works, either
            {Step::Read, false, ""},
            {Step::None, true, ""},
            {Step::Write, true, "Error in WriteFile. Error = 5"},
            {Step::None, true, ""},
            {Step::Count, true,
             "Byte count mismatch in WriteFile. Wrote = 0, Correct = 5,Error = 0"},
            {Step::None, true, ""}};
        for (const auto& [step, isWorking, message] : rows) {
            m_fault.step = step;
            QCOMPARE(works(link.requestReading()), isWorking);
            QCOMPARE(link.takeMessage(), QLatin1String(message));
        }
        m_fault.step = Step::Purge; // at each of four commands
        QVERIFY(works(link.requestApply({})));
        QCOMPARE(link.takeMessage(), u"Error in PurgeComm. Error = 5"_s);

        m_fault.step = Step::None;
        QVERIFY(works(link.requestReading()));
        m_unit->vanish(); // while nothing is asked
        QVERIFY(waitFor([this] { return m_window.resultOf(0) == 0; }));
        QVERIFY(link.takeMessage().startsWith(u"The port unit no longer exists."_s));
        QVERIFY(!works(link.requestReading()));
        QCOMPARE(link.takeMessage(), QString());
    }

private:
    static QMessageBox* box()
    {
        return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    }
    /// @return what the box says that is there or comes
    static QString told() { return waitFor(box) ? box()->text() : QString(); }
    void prepare(const QByteArray& settings)
    {
        m_registry.write("[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
                         "\"simulator:display\"=\"COM96\"\r\n\"simulator:sensor\"=\"COM7\"\r\n" +
                         kProductKey + settings);
        Pacing::setSpeeds({20, 200, 5});
        m_dialog = std::make_unique<DisplayUnitDialog>(nullptr, m_factory, 7);
        m_fault = {};
        m_received.clear();
        m_unit = std::make_shared<SimulatedDisplayUnit>();
        m_unit->setReading("12.345");
    }
    bool works(RequestId request)
    {
        (void)waitFor([&] { return m_window.resultOf(request) >= 0; });
        return m_window.resultOf(request) == 1;
    }
    bool open()
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
        return waitFor([&] { return control<QLabel>(label)->text() == QLatin1String(text); });
    }
    /// @return the item's text
    QString choose(const char* name, int item)
    {
        QTest::keyClick(control(name), Qt::Key_Home);
        for (int step = 0; step < item; ++step)
            QTest::keyClick(control(name), Qt::Key_Down);
        return control<QComboBox>(name)->currentText();
    }
    void apply() { QTest::mouseClick(control("applyButton"), Qt::LeftButton); }
    const QString& received()
    {
        for (const std::string& frame : m_unit->takeReceivedFrames())
            m_received += QString::fromStdString(frame) + u' ';
        return m_received;
    }
    /// Waits until the unit receives a command from now on.
    bool waitForFrame(const char* command)
    {
        (void)received();
        m_received.clear();
        return waitFor([&] { return received().contains(QLatin1String(command)); });
    }
    bool canApply() { return control("applyButton")->isEnabled(); }
    bool isWaiting() { return m_dialog->cursor().shape() == Qt::WaitCursor; }
    /// Closes the dialog, which goes on living until its link has ended.
    bool closes()
    {
        QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
        return m_dialog->isVisible() && waitFor([this] { return !m_dialog->isVisible(); });
    }
    bool isPortFree() { return SimulatedComPort(m_unit).open() == 0; }

    const Languages m_languages{1};
    const TestRegistry m_registry{""};
    PortFault m_fault;
    std::shared_ptr<SimulatedDisplayUnit> m_unit;
    QString m_received;
    const ComPortFactory m_factory{[this](auto&) {
        return std::make_unique<FaultyPort>(std::make_unique<SimulatedComPort>(m_unit), m_fault);
    }};
    std::unique_ptr<DisplayUnitDialog> m_dialog;
    MessageCollector m_window; ///< of a link without a dialog
};

QTEST_MAIN(TestDisplayUnit)
#include "TestDisplayUnit.moc"
