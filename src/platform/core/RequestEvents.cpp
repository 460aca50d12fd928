#include "platform/core/RequestEvents.h"

#include <bit>

namespace pelorin {

namespace {

std::uint32_t bitOf(int index)
{
    return std::uint32_t{1} << index;
}

} // namespace

void RequestEvents::signal(int index)
{
    {
        const std::lock_guard lock(m_mutex);
        m_signalled |= bitOf(index);
    }
    m_changed.notify_all();
}

int RequestEvents::waitForAny()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_signalled != 0; });
    const int lowest = std::countr_zero(m_signalled);
    m_signalled &= ~bitOf(lowest);
    return lowest;
}

bool RequestEvents::waitFor(int index, std::chrono::milliseconds limit)
{
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, limit,
                              [this, index] { return (m_signalled & bitOf(index)) != 0; });
}

bool RequestEvents::take(int index)
{
    const std::lock_guard lock(m_mutex);
    const bool signalled = (m_signalled & bitOf(index)) != 0;
    m_signalled &= ~bitOf(index);
    return signalled;
}

} // namespace pelorin
