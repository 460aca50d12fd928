#include "app/PelorinApp.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/ProgramOptions.h"
#include "platform/core/SettingsLocation.h"
#include "platform/core/TerminationSignals.h"
#include "platform/core/TermiosComPort.h"
#include "platform/ui/Pictures.h"
#include "simulator/SimulatedPorts.h"

#include <QApplication>

#include <cstdlib>
#include <memory>

using namespace pelorin;

namespace {

QString settingsOption()
{
    return QStringLiteral("settings");
}

/// Without a display.
/// @return whether the command line asked for an answer, and no run
bool answers(ProgramOptions& options, int argc, char* argv[])
{
    QStringList arguments;
    for (int index = 0; index < argc; ++index)
        arguments << QString::fromLocal8Bit(argv[index]);
    options.parse(arguments);
    if (!options.wantAnswer())
        return false;
    const QCoreApplication application(argc, argv);
    options.answer();
    return true;
}

/// What is wrong with what the toolkit has left of the command line; null if nothing is.
QString findFault(ProgramOptions& options)
{
    options.parse(QApplication::arguments());
    const QString fault = options.fault();
    return fault.isNull() && options.values().isSet(settingsOption())
               ? useSettingsFile(options.values().value(settingsOption()))
               : fault;
}

} // namespace

int main(int argc, char* argv[])
{
    ProgramOptions options(
        QStringLiteral("Sets up magnetostrictive position sensors over a serial line."),
        {{settingsOption(), QStringLiteral("Uses this settings file."), QStringLiteral("FILE")}});
    options.addText(QStringLiteral("/CP:n"),
                    QStringLiteral("Opens the port COMn, one or two digits, for this run."));
    if (answers(options, argc, argv))
        return EXIT_SUCCESS;
    QApplication application(argc, argv);
    if (const QString fault = findFault(options); !fault.isNull())
        return options.refuse(fault);
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

    if (!pelorin.initInstance(options.values().positionalArguments().join(QLatin1Char(' '))))
        return EXIT_FAILURE;
    const int result = QApplication::exec();
    pelorin.exitInstance();
    return result;
}
