#include "platform/core/Pacing.h"

#include <atomic>

namespace pelorin {

namespace {

std::atomic<double> pauseSpeed{1.0};
std::atomic<double> lineSpeed{1.0};
std::atomic<double> timeoutSpeed{1.0};

template <class Duration>
Duration scaled(Duration duration, const std::atomic<double>& speed)
{
    return std::chrono::duration_cast<Duration>(duration / speed.load(std::memory_order_relaxed));
}

} // namespace

void Pacing::setSpeeds(const Speeds& speeds)
{
    pauseSpeed = speeds.pauses;
    lineSpeed = speeds.line;
    timeoutSpeed = speeds.timeouts;
}

std::chrono::milliseconds Pacing::pause(std::chrono::milliseconds duration)
{
    return scaled(duration, pauseSpeed);
}

std::chrono::nanoseconds Pacing::lineTime(std::chrono::nanoseconds duration)
{
    return scaled(duration, lineSpeed);
}

std::chrono::milliseconds Pacing::timeout(std::chrono::milliseconds duration)
{
    return scaled(duration, timeoutSpeed);
}

std::chrono::milliseconds Pacing::timeoutElapsed(std::chrono::nanoseconds time)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(time * timeoutSpeed.load());
}

} // namespace pelorin
