#include "cli/Program.h"
#include "simulator/PortFactory.h"
#include "simulator/SimulatedPorts.h"

#include <QCoreApplication>

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

using namespace pelorin;

namespace {

/// A standard stream that is closed would be taken by the next file that is opened, which may be
/// the port: results would go to the sensor. Its number is taken by what nothing can be written to.
void keepStandardStreams()
{
    for (int stream = ::open("/dev/null", O_RDONLY); stream >= 0; stream = ::dup(stream)) {
        if (stream > STDERR_FILENO) {
            (void)::close(stream); // none was missing, or none is any more
            return;
        }
    }
}

} // namespace

int main(int argc, char* argv[])
{
    keepStandardStreams();
    (void)std::signal(SIGPIPE, SIG_IGN); // whoever reads no more must not cut a sequence short
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("pelorin-cli"));

    SimulatedPorts simulators;
    const ComPortFactory factory = realAndSimulatedPorts(simulators);
    return static_cast<int>(cli::run(factory, QCoreApplication::arguments()));
}
