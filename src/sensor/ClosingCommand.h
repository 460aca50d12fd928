#pragma once

#include "platform/core/WindowMessage.h"

namespace pelorin {

class SensorLink;

/// Requests the command that ends a write sequence and takes the values written into effect:
/// 'E' for sensors of type 1, 'C' for types 0 and 2, nothing for a sensor not identified.
/// @return the request, 0 if nothing was requested
[[nodiscard]] RequestId requestClosingCommand(SensorLink& link);

} // namespace pelorin
