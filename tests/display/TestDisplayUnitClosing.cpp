#include "DisplayUnitBench.h"

#include <QSignalSpy>

#include <functional>

using namespace pelorin;
using namespace pelorin::test;

using Bench = DisplayUnitBench;
using Steps = std::function<bool(Bench&)>; ///< false if one of them fails

/// The ends of the dialog, alone and with the program.
class TestDisplayUnitClosing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void closingWaitsForTheReading();
    void appliedSettingsGoOutWholeOnClosing_data();
    void appliedSettingsGoOutWholeOnClosing();
    void closingTheProgramAlwaysEnds_data();
    void closingTheProgramAlwaysEnds();
};

void TestDisplayUnitClosing::closingWaitsForTheReading()
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

void TestDisplayUnitClosing::appliedSettingsGoOutWholeOnClosing_data()
{
    QTest::addColumn<bool>("areOnTheirWay");
    QTest::newRow("on their way") << true;
    QTest::newRow("still waiting for a reading") << false;
}

void TestDisplayUnitClosing::appliedSettingsGoOutWholeOnClosing()
{
    QFETCH(bool, areOnTheirWay);
    Bench bench;
    QVERIFY(bench.openDialog());
    Pacing::setSpeeds({100, 200, 0.1});
    bench.choose("modeCombo", 1);
    bench.choose("resolutionCombo", 3);
    bench.displayUnit().setFault({SimulatedFault::Kind::Late, areOnTheirWay ? 20 : 300},
                                 areOnTheirWay ? "SX" : "RD");
    QVERIFY(areOnTheirWay || bench.waitForReading());
    bench.clickApply();
    QVERIFY(!areOnTheirWay || bench.waitForFrame("SXTSSIGRAY"));
    QVERIFY(bench.closeDialog());
    QCOMPARE(bench.displayUnit().settings(),
             (SimulatedDisplayUnit::Settings{"SSIGRAY", "25", "0.100"}));
}

void TestDisplayUnitClosing::closingTheProgramAlwaysEnds_data()
{
    QTest::addColumn<Steps>("steps");
    const auto open = [](Bench& bench) {
        return bench.clickCommand(kDisplayUnitCommand) &&
               QTest::qWaitFor([&] { return bench.dialog(); });
    };
    const Steps openAndRead = [open](Bench& bench) {
        return open(bench) && QTest::qWaitFor([&] { return bench.shown() == latin("12.345"); });
    };
    const auto openSilent = [open](Bench& bench, const char* command) {
        bench.displayUnit().setFault({SimulatedFault::Kind::Silent}, command);
        return open(bench) && bench.waitForFrame(command);
    };
    const auto hasBox = [](Bench& bench) {
        return QTest::qWaitFor([&] { return bench.messageBox(); });
    };
    const auto row = [](const char* name, const Steps& steps) { QTest::newRow(name) << steps; };

    row("while it reads", openAndRead);
    row("before its window has come up",
        [](Bench& bench) { return bench.clickCommand(kDisplayUnitCommand); });
    row("during its set-up", [=](Bench& bench) { return openSilent(bench, "SdP3"); });
    row("after its set-up has failed",
        [=](Bench& bench) { return openSilent(bench, "SdP3") && hasBox(bench); });
    row("during a reading", [=](Bench& bench) { return openSilent(bench, "RD"); });
    row("unplugged in a reading", [=](Bench& bench) {
        const bool reading = openSilent(bench, "RD");
        bench.displayUnit().vanish();
        return reading;
    });
    row("with the box about the unplugged unit", [=](Bench& bench) {
        const bool reading = openAndRead(bench);
        bench.displayUnit().vanish();
        return reading && hasBox(bench);
    });
    row("while the dialog waits to close", [=](Bench& bench) {
        const bool reading = openSilent(bench, "RD");
        bench.dialog()->close();
        return reading && bench.dialog();
    });
    row("while the program is busy", [=](Bench& bench) {
        const bool reading = openAndRead(bench);
        bench.sensor().setFault({SimulatedFault::Kind::Silent});
        bench.clickRefresh();
        return reading && QTest::qWaitFor([&] { return bench.window().isBusy(); });
    });
    row("with another dialog open",
        [=](Bench& bench) { return openAndRead(bench) && bench.clickCommand(kAboutCommand); });
}

void TestDisplayUnitClosing::closingTheProgramAlwaysEnds()
{
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

QTEST_MAIN(TestDisplayUnitClosing)
#include "TestDisplayUnitClosing.moc"
