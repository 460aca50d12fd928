#include "platform/core/Pacing.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

#include <atomic>
#include <thread>

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

void Pacing::sleep(std::chrono::milliseconds duration)
{
    std::this_thread::sleep_for(pause(duration));
}

void Pacing::processDelay(std::chrono::milliseconds duration)
{
    // Runs against a deadline instead of an event loop of its own: a loop that is started after
    // quit() would return at once.
    const QDeadlineTimer deadline(pause(duration));
    do {
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    } while (!deadline.hasExpired());
}

} // namespace pelorin
