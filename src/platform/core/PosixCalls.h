#pragma once

#include <poll.h>
#include <sys/types.h>
#include <termios.h>

#include <chrono>
#include <cstddef>
#include <functional>

namespace pelorin {

/// Waits for the events of descriptors, to the nanosecond. Keeps the system's conventions.
int pollFor(pollfd* entries, nfds_t count, std::chrono::nanoseconds limit);

/// The system calls of a serial port. They keep the system's own conventions (-1 and errno on
/// failure), so that a test can put itself in the place of any of them: to fail, to be interrupted
/// by a signal, to do less than asked, to take note. All may be called from several threads.
struct PosixCalls
{
    using TimePoint = std::chrono::steady_clock::time_point;

    std::function<int(const char* path, int flags)> open;
    std::function<int(int fd)> close;
    std::function<int(int fd, int operation)> flock;
    /// The argument is null for requests that take none.
    std::function<int(int fd, unsigned long request, int* argument)> ioctl;
    std::function<int(int fd, termios* settings)> tcgetattr;
    std::function<int(int fd, int when, const termios* settings)> tcsetattr;
    std::function<int(int fd, int queue)> tcflush;
    std::function<int(int fd)> tcdrain;
    std::function<ssize_t(int fd, void* buffer, std::size_t size)> read;
    std::function<ssize_t(int fd, const void* buffer, std::size_t size)> write;
    std::function<int(unsigned int value, int flags)> eventfd;
    /// Waits to the nanosecond, so that short times on a fast line are not rounded up.
    std::function<int(pollfd* entries, nfds_t count, std::chrono::nanoseconds limit)> poll;
    std::function<TimePoint()> now;

    /// The calls of the running system.
    [[nodiscard]] static PosixCalls real();
};

} // namespace pelorin
