#pragma once

#include "platform/core/ComPortFactory.h"

namespace pelorin {

class SimulatedPorts;

/// Makes the ports of the system's own devices, and those of simulated ones.
/// @param simulators outlives the factory
[[nodiscard]] ComPortFactory realAndSimulatedPorts(SimulatedPorts& simulators);

} // namespace pelorin
