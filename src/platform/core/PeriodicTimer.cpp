#include "platform/core/PeriodicTimer.h"

#include <system_error>
#include <utility>

namespace pelorin {

PeriodicTimer::~PeriodicTimer()
{
    stop();
}

int PeriodicTimer::start(std::chrono::milliseconds period, std::function<void()> tick)
{
    if (isRunning())
        return 0;
    m_stopping = false;
    try {
        m_thread = std::thread([this, period, tick = std::move(tick)] { run(period, tick); });
    } catch (const std::system_error& error) {
        return error.code().value();
    }
    return 0;
}

void PeriodicTimer::stop()
{
    if (!isRunning())
        return;
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_all();
    m_thread.join();
}

void PeriodicTimer::run(std::chrono::milliseconds period, const std::function<void()>& tick)
{
    auto next = std::chrono::steady_clock::now() + period;
    std::unique_lock lock(m_mutex);
    while (!m_wake.wait_until(lock, next, [this] { return m_stopping; })) {
        tick();
        next += period;
    }
}

} // namespace pelorin
