#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace pelorin {

/// Calls a function periodically on a thread of its own, for what must go on while the
/// user-interface thread is busy. start and stop on one thread.
class PeriodicTimer
{
public:
    PeriodicTimer() = default;
    PeriodicTimer(const PeriodicTimer&) = delete;
    PeriodicTimer& operator=(const PeriodicTimer&) = delete;
    ~PeriodicTimer();

    /// Calls tick every period, first after one period. Does nothing while the timer runs.
    /// @return 0, or the system's error code if it gives no thread
    [[nodiscard]] int start(std::chrono::milliseconds period, std::function<void()> tick);

    /// Once this has returned tick is not called again.
    void stop();

    [[nodiscard]] bool isRunning() const { return m_thread.joinable(); }

private:
    void run(std::chrono::milliseconds period, const std::function<void()>& tick);

    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_stopping = false; ///< m_mutex
    std::thread m_thread;
};

} // namespace pelorin
