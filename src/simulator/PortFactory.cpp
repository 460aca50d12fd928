#include "simulator/PortFactory.h"

#include "platform/core/ComPortNames.h"
#include "platform/core/TermiosComPort.h"
#include "simulator/SimulatedPorts.h"

namespace pelorin {

ComPortFactory realAndSimulatedPorts(SimulatedPorts& simulators)
{
    ComPortFactory factory([](const QString& device) {
        return std::make_unique<TermiosComPort>(device.toStdString());
    });
    factory.addScheme(kSimulatedScheme,
                      [&simulators](const QString& name) { return simulators.makePort(name); });
    return factory;
}

} // namespace pelorin
