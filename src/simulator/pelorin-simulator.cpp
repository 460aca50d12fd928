#include "platform/core/ProgramOptions.h"
#include "simulator/PtyServer.h"
#include "simulator/SimulatedDisplayUnit.h"
#include "simulator/SimulatedSensor.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <pthread.h>
#include <signal.h>

using namespace pelorin;

namespace {

struct Device
{
    std::string title;
    std::shared_ptr<SimulatedDevice> model;
};

QString description()
{
    return QStringLiteral(
        "Runs simulated position sensors and display units behind pseudo-terminals.\n"
        "A sensor restarts whenever the line speed changes: at 4800 baud it listens for PROG\n"
        "frames, at 38400 baud it streams positions if its data format says so.");
}

QList<QCommandLineOption> options()
{
    return {{QStringLiteral("type"),
             QStringLiteral("A sensor of type 0, 1 or 2; may be given several times. Without it "
                            "and --display: one of type 2."),
             QStringLiteral("number")},
            {QStringLiteral("display"), QStringLiteral("A display unit.")},
            {QStringLiteral("moving"), QStringLiteral("The magnets move by themselves.")},
            {QStringLiteral("link"),
             QStringLiteral("A symbolic link to the terminal, one for each device in the order in "
                            "which they are printed."),
             QStringLiteral("path")},
            {QStringLiteral("fault"),
             QStringLiteral("A fault of all devices, kind[:amount][@command]. Kinds: silent, late, "
                            "short, long, wrong-byte, no-cr, deaf, vanish."),
             QStringLiteral("rule")}};
}

std::shared_ptr<SimulatedDevice> makeSensor(int type, bool moving)
{
    SimulatedSensor::Options options;
    options.type = type;
    options.moving = moving;
    options.supply = SimulatedSensor::Supply::ByLineSpeed;
    return std::make_shared<SimulatedSensor>(options);
}

/// The devices asked for, sensors first; none if an option makes no sense.
std::vector<Device> makeDevices(const QCommandLineParser& parser)
{
    const bool display = parser.isSet(QStringLiteral("display"));
    QStringList types = parser.values(QStringLiteral("type"));
    if (types.isEmpty() && !display)
        types << QStringLiteral("2");

    std::vector<Device> devices;
    for (const QString& text : types) {
        bool isNumber = false;
        const int type = text.toInt(&isNumber);
        if (!isNumber || type < 0 || type > 2)
            return {};
        devices.push_back({"sensor of type " + std::to_string(type),
                           makeSensor(type, parser.isSet(QStringLiteral("moving")))});
    }
    if (display)
        devices.push_back({"display unit", std::make_shared<SimulatedDisplayUnit>()});

    for (const QString& text : parser.values(QStringLiteral("fault"))) {
        const auto rule = SimulatedFaultRule::parse(text.toStdString());
        if (!rule)
            return {};
        for (const Device& device : devices)
            device.model->setFault(rule->fault, rule->command);
    }
    return devices;
}

/// Serves the devices until a signal ends the program.
int serve(const std::vector<Device>& devices, const QStringList& links, const sigset_t& signals)
{
    std::vector<std::unique_ptr<PtyServer>> servers;
    for (const Device& device : devices) {
        const auto index = static_cast<qsizetype>(servers.size());
        const std::string link = links.value(index).toStdString();
        servers.push_back(std::make_unique<PtyServer>(device.model, link));
        if (const int error = servers.back()->start()) {
            (void)std::fprintf(stderr, "pelorin-simulator: %s%s%s: %s\n", device.title.c_str(),
                               link.empty() ? "" : " at ", link.c_str(), std::strerror(error));
            return 1;
        }
        (void)std::printf("%s: %s\n", device.title.c_str(), servers.back()->path().c_str());
    }
    (void)std::fflush(stdout); // a reader waits for the paths
    int received = 0;
    return sigwait(&signals, &received) == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char* argv[])
{
    // Before any thread starts: they all inherit that these signals wait for sigwait.
    sigset_t signals;
    sigemptyset(&signals);
    for (const int ending : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&signals, ending);
    if (pthread_sigmask(SIG_BLOCK, &signals, nullptr) != 0)
        return 1;

    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("pelorin-simulator"));
    ProgramOptions commandLine(description(), options());
    commandLine.parse(QCoreApplication::arguments());
    if (commandLine.wantAnswer()) {
        commandLine.answer();
        return 0;
    }
    if (const QString fault = commandLine.fault(); !fault.isNull())
        return commandLine.refuse(fault);

    const QCommandLineParser& parser = commandLine.values();
    const auto devices = makeDevices(parser);
    const QStringList links = parser.values(QStringLiteral("link"));
    if (devices.empty() || links.size() > static_cast<qsizetype>(devices.size()) ||
        !parser.positionalArguments().isEmpty()) {
        (void)std::fputs("pelorin-simulator: these options make no sense, see --help\n", stderr);
        return ProgramOptions::kRefused;
    }
    return serve(devices, links, signals);
}
