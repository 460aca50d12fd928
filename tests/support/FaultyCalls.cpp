#include "support/FaultyCalls.h"

#include <sys/ioctl.h>

#include <algorithm>
#include <cerrno>

namespace pelorin {

namespace {

std::string nameOfRequest(unsigned long request)
{
    switch (request) {
    case TIOCEXCL:
        return "TIOCEXCL";
    case TIOCNXCL:
        return "TIOCNXCL";
    case TIOCMBIS:
        return "TIOCMBIS";
    case TIOCMBIC:
        return "TIOCMBIC";
    case TIOCOUTQ:
        return "TIOCOUTQ";
    default:
        return "another ioctl";
    }
}

} // namespace

int FaultyCalls::count(const std::string& name) const
{
    return static_cast<int>(std::count(made.begin(), made.end(), name));
}

bool FaultyCalls::fails(const std::string& name)
{
    made.push_back(name);
    const int error = before ? before(name) : 0;
    if (error != 0)
        errno = error;
    return error != 0;
}

template <class Result, class... Arguments>
std::function<Result(Arguments...)> FaultyCalls::watched(const char* name,
                                                         std::function<Result(Arguments...)> call)
{
    return [this, name, call](Arguments... arguments) -> Result {
        return fails(name) ? Result{-1} : call(arguments...);
    };
}

PosixCalls FaultyCalls::table()
{
    PosixCalls calls = m_real;
    calls.flock = watched("flock", m_real.flock);
    calls.tcgetattr = watched("tcgetattr", m_real.tcgetattr);
    calls.tcsetattr = watched("tcsetattr", m_real.tcsetattr);
    calls.tcdrain = watched("tcdrain", m_real.tcdrain);
    calls.read = watched("read", m_real.read);
    calls.eventfd = watched("eventfd", m_real.eventfd);
    calls.poll = watched("poll", m_real.poll);
    calls.open = [this](const char* path, int flags) {
        return m_device = fails("open") ? -1 : m_real.open(path, flags);
    };
    calls.close = [this](int fd) {
        const bool fail = fails("close");
        const int result = m_real.close(fd);
        return fail ? -1 : result;
    };
    calls.tcflush = [this](int fd, int queue) {
        const char* name = queue == TCIFLUSH   ? "TCIFLUSH"
                           : queue == TCOFLUSH ? "TCOFLUSH"
                                               : "TCIOFLUSH";
        return fails(name) ? -1 : m_real.tcflush(fd, queue);
    };
    calls.ioctl = [this](int fd, unsigned long request, int* argument) {
        if (fails(nameOfRequest(request)))
            return -1;
        const int result = m_real.ioctl(fd, request, argument);
        if (result == 0 && request == TIOCOUTQ && queued)
            *argument = queued();
        return result;
    };
    calls.write = [this](int fd, const void* buffer, std::size_t size) -> ssize_t {
        if (fd != m_device) // the port's own event
            return m_real.write(fd, buffer, size);
        if (fails("write"))
            return -1;
        return m_real.write(fd, buffer, sizeOfWrite ? sizeOfWrite(size) : size);
    };
    return calls;
}

} // namespace pelorin
