#pragma once

#include "platform/core/PosixCalls.h"

#include <QByteArray>
#include <QList>

#include <sys/ioctl.h>

#include <atomic>
#include <cerrno>
#include <mutex>
#include <optional>

namespace pelorin::test {

/// Stands between a port and the system: takes note of its calls and lets a test make any of them
/// fail. A call goes by its name, "tcgetattr", a flush by its queue, "TCIFLUSH", some ioctls by
/// their request, "TIOCMBIS"; the clock and closing are none. One thread, beside which one that was
/// left may still end; must outlive the table that it gives out.
class FaultyCalls
{
public:
    /// Asked before each call; anything but 0 is the error code with which it then fails.
    std::function<int(const QByteArray& name)> before;
    /// Asked for the size of each write to the device; it may be lowered.
    std::function<std::size_t(std::size_t size)> sizeOfWrite = [](auto size) { return size; };
    /// The answer of TIOCOUTQ.
    int queued = 0;
    /// The modem lines that are raised; without a value the device has none.
    std::optional<int> raised;
    /// If set, a clock that only waiting moves, each wait a tenth of a millisecond too far.
    std::optional<PosixCalls::TimePoint> clock;
    /// The calls so far, in order, those that failed too.
    QList<QByteArray> made;

    [[nodiscard]] PosixCalls table()
    {
        const PosixCalls real = PosixCalls::real();
        PosixCalls calls = real;
        watch(calls.flock, "flock");
        watch(calls.tcgetattr, "tcgetattr");
        watch(calls.tcsetattr, "tcsetattr");
        watch(calls.tcdrain, "tcdrain");
        watch(calls.read, "read");
        watch(calls.eventfd, "eventfd");
        calls.now = [this, real] { return clock.value_or(real.now()); };
        calls.poll = [this, real](pollfd* entries, nfds_t count, std::chrono::nanoseconds limit) {
            if (fails("poll"))
                return -1;
            const int ready = real.poll(entries, count, clock ? std::chrono::nanoseconds() : limit);
            if (clock && ready == 0)
                *clock += limit + std::chrono::microseconds(100);
            return ready;
        };
        calls.open = [this, real](const char* path, int flags) {
            return m_device = fails("open") ? -1 : real.open(path, flags);
        };
        calls.tcflush = [this, real](int fd, int queue) {
            return fails(queue == TCIFLUSH ? "TCIFLUSH" : "TCOFLUSH") ? -1
                                                                      : real.tcflush(fd, queue);
        };
        calls.ioctl = [this, real](int fd, unsigned long request, int* argument) {
            const char* name = request == TIOCMBIS ? "TIOCMBIS" : "ioctl";
            if (fails(request == TIOCOUTQ ? "TIOCOUTQ" : name))
                return -1;
            if (raised && (request == TIOCMBIS || request == TIOCMBIC)) {
                raised = request == TIOCMBIS ? *raised | *argument : *raised & ~*argument;
                return 0;
            }
            const int result = real.ioctl(fd, request, argument);
            if (request == TIOCOUTQ)
                *argument = queued;
            return result;
        };
        calls.write = [this, real](int fd, const void* bytes, std::size_t size) -> ssize_t {
            if (fd != m_device) // the port's own event
                return real.write(fd, bytes, size);
            return fails("write") ? -1 : real.write(fd, bytes, sizeOfWrite(size));
        };
        return calls;
    }

private:
    template <class Result, class... Arguments>
    void watch(std::function<Result(Arguments...)>& call, const char* name)
    {
        call = [this, name, real = call](Arguments... arguments) {
            return fails(name) ? Result{-1} : real(arguments...);
        };
    }

    [[nodiscard]] bool fails(const char* name)
    {
        {
            const std::lock_guard lock(m_mutex);
            made.append(name);
        }
        errno = before ? before(name) : 0;
        return errno != 0;
    }

    std::mutex m_mutex;             ///< guards made
    std::atomic<int> m_device = -1; ///< the descriptor opened last
};

} // namespace pelorin::test
