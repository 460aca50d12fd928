#include "platform/core/Pacing.h"

/// Linked into the program it has that run through its pauses, before it begins: its simulated
/// sensors, which live in it, keep up with that. What waits for nothing else keeps its limits.
[[gnu::constructor]] static void runFaster()
{
    pelorin::Pacing::setSpeeds({.pauses = 20, .line = 20, .timeouts = 1});
}
