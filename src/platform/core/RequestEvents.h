#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace pelorin {

/// A fixed set of auto-reset events, numbered from 0; a lower number is served first. Any thread
/// may signal, one thread waits.
class RequestEvents
{
public:
    /// Signals an event; it stays signalled until it is taken.
    void signal(int index);

    /// Waits without limit for any event, takes the lowest one that is signalled and returns its
    /// number.
    [[nodiscard]] int waitForAny();

    /// Waits at most the given time for one event and leaves it signalled.
    /// @return true if the event is signalled
    [[nodiscard]] bool waitFor(int index, std::chrono::milliseconds limit);

    /// Takes an event if it is signalled, without waiting.
    /// @return true if it was
    [[nodiscard]] bool take(int index);

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::uint32_t m_signalled = 0; ///< one bit an event; m_mutex
};

} // namespace pelorin
