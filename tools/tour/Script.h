#pragma once

#include "Tour.h"

namespace pelorin {

class SimulatedPorts;

/// The stops of the tour, on the demonstration's devices.
/// @param language code, 1 English
[[nodiscard]] std::vector<Tour::Step> script(Tour& tour, SimulatedPorts& simulators, int language);

} // namespace pelorin
