#pragma once

#include "sensor/Outcome.h"

#include <QString>

namespace pelorin {

/// A parameter as the argument of a message: the byte value of its identifier.
[[nodiscard]] QString parameterArgument(char id);

/// What the user is told of a plan that was to write to the sensor and has not come to its end:
/// where it ended, why, and what had been written by then.
[[nodiscard]] QString writingFailure(const Outcome& outcome);

/// The same of a plan that only reads.
[[nodiscard]] QString readingFailure(const Outcome& outcome);

} // namespace pelorin
