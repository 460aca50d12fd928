#include "platform/core/PosixCalls.h"

#include <fcntl.h>
#include <sys/eventfd.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace pelorin {

int pollFor(pollfd* entries, nfds_t count, std::chrono::nanoseconds limit)
{
    const auto seconds = std::chrono::floor<std::chrono::seconds>(limit);
    const timespec time = {seconds.count(), (limit - seconds).count()};
    return ::ppoll(entries, count, &time, nullptr);
}

PosixCalls PosixCalls::real()
{
    PosixCalls calls;
    calls.open = [](const char* path, int flags) { return ::open(path, flags); };
    calls.close = ::close;
    calls.flock = ::flock;
    calls.ioctl = [](int fd, unsigned long request, int* argument) {
        return ::ioctl(fd, request, argument);
    };
    calls.tcgetattr = ::tcgetattr;
    calls.tcsetattr = ::tcsetattr;
    calls.tcflush = ::tcflush;
    calls.tcdrain = ::tcdrain;
    calls.read = ::read;
    calls.write = ::write;
    calls.eventfd = ::eventfd;
    calls.poll = pollFor;
    calls.now = std::chrono::steady_clock::now;
    return calls;
}

} // namespace pelorin
