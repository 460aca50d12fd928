#include "app/PelorinApp.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/TerminationSignals.h"
#include "platform/core/TermiosComPort.h"
#include "platform/ui/Pictures.h"
#include "simulator/SimulatedPorts.h"

#include <QApplication>

#include <cstdlib>
#include <memory>

using namespace pelorin;

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Pelorin")); // titles the message boxes
    QApplication::setWindowIcon(programIcon());
    QApplication::setQuitOnLastWindowClosed(false); // a start-up dialog is not the program's end

    SimulatedPorts simulators;
    ComPortFactory factory([](const QString& device) {
        return std::make_unique<TermiosComPort>(device.toStdString());
    });
    factory.addScheme(QStringLiteral("simulator:"),
                      [&simulators](const QString& name) { return simulators.makePort(name); });

    TerminationSignals signals; // outlives the link: a second signal must not cut its end short
    PelorinApp pelorin(factory);
    QObject::connect(&signals, &TerminationSignals::received, &pelorin, &PelorinApp::requestClose);
    QObject::connect(&pelorin, &PelorinApp::closed, &application, &QApplication::quit);

    if (!pelorin.initInstance(QApplication::arguments().mid(1).join(QLatin1Char(' '))))
        return EXIT_FAILURE;
    const int result = QApplication::exec();
    pelorin.exitInstance();
    return result;
}
