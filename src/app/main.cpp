#include "app/Commit.h"
#include "app/PelorinApp.h"
#include "platform/core/Demonstration.h"
#include "platform/core/ProgramOptions.h"
#include "platform/core/ProgramSettings.h"
#include "platform/core/SettingsLocation.h"
#include "platform/core/TerminationSignals.h"
#include "platform/ui/Pictures.h"
#include "platform/ui/ReadableStyle.h"
#include "simulator/PortFactory.h"
#include "simulator/SimulatedPorts.h"

#include <QApplication>
#include <QProcess>

#include <cstdlib>

using namespace pelorin;

namespace {

QString settingsOption()
{
    return QStringLiteral("settings");
}

QString demonstrationOption()
{
    return QStringLiteral("demonstration");
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

/// Takes what the toolkit has left of the command line.
/// @return what is wrong with it; null if nothing is
QString takeOptions(ProgramOptions& options)
{
    options.parse(QApplication::arguments());
    if (QString fault = options.fault(); !fault.isNull())
        return fault;
    if (options.values().isSet(demonstrationOption()))
        useDemonstration();
    if (!options.values().isSet(settingsOption()))
        return QString();
    const QString settings = options.values().value(settingsOption());
    nameRegistryFile(settings);
    return namedSettingsFault(settings);
}

/// The text that is searched for the port; the first one counts.
QString portText(const ProgramOptions& options)
{
    QStringList texts = options.values().positionalArguments();
    if (options.values().isSet(demonstrationOption()))
        texts << QStringLiteral("/CP:99");
    return texts.join(QLatin1Char(' '));
}

} // namespace

int main(int argc, char* argv[])
{
    ProgramOptions options(
        QStringLiteral("Sets up magnetostrictive position sensors over a serial line."),
        {{settingsOption(), QStringLiteral("Uses this settings file."), QStringLiteral("FILE")},
         {demonstrationOption(),
          QStringLiteral("Runs on a simulated sensor, with settings and a profile of its own.")}});
    options.addText(QStringLiteral("/CP:n"),
                    QStringLiteral("Opens the port COMn, one or two digits, for this run."));
    if (answers(options, argc, argv))
        return EXIT_SUCCESS;
    QApplication application(argc, argv);
    if (const QString fault = takeOptions(options); !fault.isNull())
        return options.refuse(fault);
    QApplication::setApplicationName(QStringLiteral("Pelorin"));         // titles the message boxes
    QApplication::setApplicationVersion(QStringLiteral(PELORIN_COMMIT)); // for "About"
    QApplication::setWindowIcon(programIcon());
    ReadableStyle::install();
    QApplication::setQuitOnLastWindowClosed(false); // a start-up dialog is not the program's end

    SimulatedPorts simulators;
    const ComPortFactory factory = realAndSimulatedPorts(simulators);

    TerminationSignals signals; // outlives the link: a second signal must not cut its end short
    PelorinApp pelorin(factory);
    QObject::connect(&signals, &TerminationSignals::received, &pelorin, &PelorinApp::requestClose);
    QObject::connect(&pelorin, &PelorinApp::demonstrationWanted, [] {
        (void)QProcess::startDetached(QApplication::applicationFilePath(),
                                      {QStringLiteral("--") + demonstrationOption()});
    });
    QObject::connect(&pelorin, &PelorinApp::closed, &application, &QApplication::quit);

    if (!pelorin.initInstance(portText(options)))
        return EXIT_FAILURE;
    const int result = QApplication::exec();
    pelorin.exitInstance();
    return result;
}
