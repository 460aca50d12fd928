#pragma once

#include "platform/core/WindowMessage.h"

namespace pelorin {

class SensorLink;

/// Requests the command that ends a write sequence and takes the values written into effect.
/// @return the request, 0 for a sensor not identified: nothing was requested
[[nodiscard]] RequestId requestClosingCommand(SensorLink& link);

} // namespace pelorin
