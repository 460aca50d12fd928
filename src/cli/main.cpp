#include "cli/Program.h"
#include "platform/core/ComPortFactory.h"
#include "platform/core/TermiosComPort.h"
#include "simulator/SimulatedPorts.h"

#include <QCoreApplication>

#include <csignal>
#include <memory>

using namespace pelorin;

int main(int argc, char* argv[])
{
    (void)std::signal(SIGPIPE, SIG_IGN); // whoever reads no more must not cut a sequence short
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("pelorin-cli"));

    SimulatedPorts simulators;
    ComPortFactory factory([](const QString& device) {
        return std::make_unique<TermiosComPort>(device.toStdString());
    });
    factory.addScheme(QStringLiteral("simulator:"),
                      [&simulators](const QString& name) { return simulators.makePort(name); });
    return static_cast<int>(cli::run(factory, QCoreApplication::arguments()));
}
