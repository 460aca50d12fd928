#pragma once

#include <functional>

namespace pelorin::cli {

/// Runs the event loop until a condition holds: the one place where a command waits. What makes it
/// hold comes as an event, and does so in a limited time.
void runUntil(const std::function<bool()>& holds);

} // namespace pelorin::cli
