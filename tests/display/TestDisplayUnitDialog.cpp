#include "display/DisplayUnitDialog.h"

#include "platform/core/ComPortFactory.h"
#include "platform/core/Pacing.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedDisplayUnit.h"
#include "support/Languages.h"
#include "support/PortDecorator.h"
#include "support/TestRegistry.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QTest>

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
    }
    void cleanup() { m_dialog.reset(); }

    void dialogShowsWhatTheUnitDisplays()
    {
        QVERIFY(open());
        QCOMPARE(m_dialog->windowTitle(), QStringLiteral("QDL3 Display Unit - simulated"));
        QVERIFY(m_dialog->usesPort(96) && !m_dialog->usesPort(kSensorPort));
        QVERIFY(!isWaiting());
        for (const char* reading : {"-0.5", "Over", "13.000", "Over"}) {
            m_unit->setReading(reading);
            QTRY_COMPARE(text("displayBox"), QLatin1String(reading));
        }
        m_unit->setReading("oVER"); // differs in case only
        QVERIFY(waitForFrame("RD") && waitForFrame("RD") && waitForFrame("RD"));
        QCOMPARE(text("displayBox"), QStringLiteral("Over"));
        m_unit->setFault({Kind::Silent}, "RD");
        QTRY_COMPARE(text("displayBox"), QStringLiteral("****"));
    }

    void chosenSettingsReachTheUnit()
    {
        QVERIFY(open());
        int item = 0;
        for (const std::string resolution :
             {"0.005", "0.010", "0.050", "0.100", "0.020", "0.002", "0.001"}) {
            const int gray = item % 2, few = item / 2 % 2;
            if (item > 0) { // what is selected at first is applied as it is
                (void)choose("modeCombo", gray);
                (void)choose("dataBitsCombo", few);
                QCOMPARE(choose("resolutionCombo", item).toStdString(), resolution + " mm");
            }
            apply();
            const SimulatedDisplayUnit::Settings wanted{gray ? "SSIGRAY" : "SSIBIN",
                                                        few ? "24" : "25", resolution};
            QTRY_VERIFY(m_unit->settings() == wanted);
            ++item;
        }
        QTRY_VERIFY(text("outcomeLabel").contains(QLatin1String("has acknowledged")));
        m_unit->setFault({Kind::WrongByte, 0}, "SPR");
        apply();
        QTRY_VERIFY(text("outcomeLabel").contains(QLatin1String("has not acknowledged")));
        QCOMPARE(m_languages.loadLanguage(2), 1);
        QTRY_COMPARE(m_dialog->windowTitle(), QStringLiteral("QDL3-Anzeigegerät - simuliert"));
        QCOMPARE(chosen("modeCombo") + chosen("resolutionCombo"), QStringLiteral("Binär0.001 mm"));
        QCOMPARE(text("displayBox"), QStringLiteral("12.345"));
        QCOMPARE(m_languages.loadLanguage(1), 1);
    }

    /// As long as a request is outstanding no other one is sent, however many ticks pass.
    void secondApplyBeforeATickReplacesTheFirst()
    {
        QVERIFY(open());
        Pacing::setSpeeds({20, 200, 0.1}); // the late answer is still in time
        m_unit->setFault({Kind::Late, 500, 1}, "RD");
        QVERIFY(waitForFrame("RD"));
        apply();
        (void)choose("dataBitsCombo", 1);
        apply();
        std::vector<std::string> frames;
        QVERIFY(QTest::qWaitFor([&] {
            std::ranges::move(m_unit->takeReceivedFrames(), std::back_inserter(frames));
            return frames.size() >= 5;
        }));
        frames.resize(5);
        const std::vector<std::string> expected{"$1WE", "$1SXTSSIBIN", "$1SXB24", "$1SPR0.005",
                                                "$1RD"};
        QCOMPARE(frames, expected);
    }

    /// Nothing can be sent: the port has been given back, and what would send is switched off.
    void failedOpeningLeavesAnIdleDialog()
    {
        for (const auto& [port, message] :
             {std::pair("COM96", "The display unit on COM96 (node 1) did not acknowledge"),
              {"COM7", "COM7 is the port of the sensor."}}) {
            m_unit->setFault({Kind::Silent});
            show(port);
            QTRY_VERIFY(box());
            QVERIFY(box()->text().startsWith(QLatin1String(message)));
            QVERIFY(isPortFree() && !m_dialog->usesPort(96));
            QVERIFY(!isWaiting() && !control("applyButton")->isEnabled());
            m_dialog->close();
            QTRY_VERIFY(!m_dialog->isVisible() && !box());
        }
    }

    void unpluggedUnitShowsOneBoxOverNoOtherDialog()
    {
        QVERIFY(open());
        QDialog other(m_dialog.get());
        other.open();
        m_unit->vanish();
        QTRY_COMPARE(text("displayBox"), QStringLiteral("****"));
        QCOMPARE(QApplication::activeModalWidget(), &other);
        other.reject();
        QTRY_VERIFY(box());
        QVERIFY(box()->text().contains(QLatin1String("The port COM96 no longer exists.")));
    }

    void closingCutsASetUpShort()
    {
        m_unit->setFault({Kind::Silent}, "SdP3");
        Pacing::setSpeeds({20, 200, 0.01}); // what is not answered is waited for 50 seconds
        show();
        QVERIFY(waitForFrame("SdP3"));
        QVERIFY(isWaiting() && !control("applyButton")->isEnabled());
        QVERIFY(closes() && isPortFree());
    }

    /// Even if the port does not close, which must not hold up the program.
    void closingWaitsForWhatIsApplied()
    {
        for (const bool isStuck : {false, true}) {
            init();
            QVERIFY(open());
            Pacing::setSpeeds({20, 200, 0.5}); // the late answer is still in time
            m_unit->setFault({Kind::Late, 200}, "RD");
            QVERIFY(waitForFrame("RD"));
            (void)choose("modeCombo", 1);
            apply();
            const auto closing =
                isStuck ? std::unique_lock(*m_closing) : std::unique_lock<std::mutex>();
            QVERIFY(closes());
            QCOMPARE(m_unit->settings().mode, std::string("SSIGRAY"));
            QCOMPARE(isPortFree(), !isStuck);
        }
    }

private:
    static constexpr int kSensorPort = 7;

    static QMessageBox* box()
    {
        return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    }
    void show(const QByteArray& port = "COM96")
    {
        m_dialog.reset();
        m_registry.write(
            "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n\"QDL3Comport\"=\"" + port +
            "\"\r\n[HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM]\r\n"
            "\"simulator:display\"=\"COM96\"\r\n\"simulator:sensor\"=\"COM7\"\r\n");
        m_dialog = std::make_unique<DisplayUnitDialog>(nullptr, m_factory, kSensorPort);
        m_dialog->show();
        (void)QTest::qWaitForWindowActive(m_dialog.get());
    }
    [[nodiscard]] bool open()
    {
        show();
        return QTest::qWaitFor([this] { return text("displayBox") == QLatin1String("12.345"); });
    }
    template <class Control = QWidget>
    Control* control(const char* name)
    {
        return m_dialog->findChild<Control*>(QLatin1String(name));
    }
    QString text(const char* name) { return control<QLabel>(name)->text(); }
    QString chosen(const char* name) { return control<QComboBox>(name)->currentText(); }
    /// Chooses an item by keys. @return its text
    QString choose(const char* name, int item)
    {
        QTest::keyClick(control(name), Qt::Key_Home);
        for (int step = 0; step < item; ++step)
            QTest::keyClick(control(name), Qt::Key_Down);
        return chosen(name);
    }
    void apply() { QTest::mouseClick(control("applyButton"), Qt::LeftButton); }
    /// Waits until the unit receives a command from now on.
    bool waitForFrame(const std::string& command)
    {
        (void)m_unit->takeReceivedFrames();
        return QTest::qWaitFor(
            [&] { return std::ranges::count(m_unit->takeReceivedFrames(), "$1" + command) > 0; });
    }
    bool isWaiting() { return m_dialog->cursor().shape() == Qt::WaitCursor; }
    /// Closes the dialog, which goes on living until its link has ended.
    bool closes()
    {
        QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
        return m_dialog->isVisible() && QTest::qWaitFor([this] { return !m_dialog->isVisible(); });
    }
    bool isPortFree() { return SimulatedComPort(m_unit).open() != EBUSY; }

    Languages m_languages{1};
    std::shared_ptr<SimulatedDisplayUnit> m_unit;
    const std::shared_ptr<std::mutex> m_closing = std::make_shared<std::mutex>();
    const ComPortFactory m_factory{[this](auto&) {
        return std::make_unique<HeldPort>(std::make_unique<SimulatedComPort>(m_unit), m_closing);
    }};
    const TestRegistry m_registry{""};
    std::unique_ptr<DisplayUnitDialog> m_dialog;
};

QTEST_MAIN(TestDisplayUnitDialog)
#include "TestDisplayUnitDialog.moc"
