#pragma once

#include <chrono>

namespace pelorin {

/// The one place that knows how long the program waits: every pause, timer period, byte time on
/// a line and port time-out goes through here, so that tests can run the clock faster. The
/// product never changes the speeds.
class Pacing
{
public:
    /// How fast the clock runs, per kind of wait; 1 is real time, 20 a twentieth of the wait.
    struct Speeds
    {
        double pauses = 1.0;   ///< pauses and timer periods
        double line = 1.0;     ///< time that bytes take on a line
        double timeouts = 1.0; ///< time limits of ports
    };

    /// For tests, before threads that wait are started.
    static void setSpeeds(const Speeds& speeds);

    [[nodiscard]] static std::chrono::milliseconds pause(std::chrono::milliseconds duration);
    [[nodiscard]] static std::chrono::nanoseconds lineTime(std::chrono::nanoseconds duration);
    [[nodiscard]] static std::chrono::milliseconds timeout(std::chrono::milliseconds duration);
    /// How much of a port time-out has passed in a time.
    [[nodiscard]] static std::chrono::milliseconds timeoutElapsed(std::chrono::nanoseconds time);
};

} // namespace pelorin
