#include "Script.h"
#include "Tour.h"

#include "app/PelorinApp.h"
#include "app/PelorinMainWindow.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/SettingsLocation.h"
#include "platform/core/TermiosComPort.h"
#include "simulator/SimulatedPorts.h"

#include <QApplication>
#include <QFile>
#include <QTest>

using namespace pelorin;

/// Runs the program, on a copy of the demonstration's settings and its type 2 sensor, and makes the
/// tour. Arguments: the folder for the pictures, and the code of the language (1, English).
int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    const QDir folder(arguments.value(1, QStringLiteral(".")));
    if (!folder.mkpath(QStringLiteral(".")))
        return EXIT_FAILURE;

    // The tour changes the settings.
    const QString settings = folder.absoluteFilePath(QStringLiteral("settings.reg"));
    (void)QFile::remove(settings); // of an earlier tour
    if (!QFile::copy(registryFilePath(), settings) ||
        !qputenv("PELORIN_REGISTRY", settings.toUtf8()))
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

    Tour tour(*pelorin.mainWindow(), folder);
    const int language = arguments.value(2, QStringLiteral("1")).toInt();
    tour.run(script(tour, simulators, language));
    pelorin.requestClose();
    const bool closed = QTest::qWaitFor([&ended] { return ended; }, Tour::kTimeLimit);
    pelorin.exitInstance();
    return closed ? EXIT_SUCCESS : EXIT_FAILURE;
}
