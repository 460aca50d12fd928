#include "Tour.h"
#include "Visits.h"

#include "app/PelorinApp.h"
#include "app/PelorinMainWindow.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/TermiosComPort.h"
#include "simulator/SimulatedDisplayUnit.h"
#include "simulator/SimulatedPorts.h"
#include "simulator/SimulatedSensor.h"

#include <QApplication>
#include <QTest>

#include <array>

using namespace pelorin;

namespace {

constexpr std::array kVisits = {visitInformation, visitPosition,   visitOutputSetup,
                                visitLog,         visitManualComm, visitFactory,
                                visitBackup,      visitTempComp,   visitDisplayUnit};

} // namespace

/// Runs the program, on the demonstration's settings and its type 2 sensor, and makes the tour.
/// The first argument is the folder for the pictures.
int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QDir folder(QApplication::arguments().value(1, QStringLiteral(".")));
    if (!folder.mkpath(QStringLiteral(".")))
        return EXIT_FAILURE;

    SimulatedPorts simulators;
    ComPortFactory factory([](const QString& device) {
        return std::make_unique<TermiosComPort>(device.toStdString());
    });
    factory.addScheme(QStringLiteral("simulator:"),
                      [&simulators](const QString& name) { return simulators.makePort(name); });
    PelorinApp pelorin(factory);
    bool ended = false;
    QObject::connect(&pelorin, &PelorinApp::closed, [&ended] { ended = true; });
    if (!pelorin.initInstance(QStringLiteral("/CP:99")) ||
        !QTest::qWaitFor([&] { return pelorin.mainWindow() || ended; }, Tour::kTimeLimit) || ended)
        return EXIT_FAILURE;

    Tour tour(*pelorin.mainWindow(), simulators.sensor(QStringLiteral("simulator:sensor?type=2")),
              simulators.displayUnit(QStringLiteral("simulator:display")), folder);
    bool passed = true;
    for (const auto& visit : kVisits)
        passed = passed && visit(tour);
    pelorin.requestClose();
    passed = QTest::qWaitFor([&ended] { return ended; }, Tour::kTimeLimit) && passed;
    pelorin.exitInstance();
    return passed ? EXIT_SUCCESS : EXIT_FAILURE;
}
