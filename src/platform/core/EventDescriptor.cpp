#include "platform/core/EventDescriptor.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>

namespace pelorin {

EventDescriptor::~EventDescriptor()
{
    close();
}

int EventDescriptor::open()
{
    close();
    m_fd = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    return m_fd < 0 ? errno : 0;
}

void EventDescriptor::close()
{
    if (m_fd >= 0)
        (void)::close(m_fd); // nothing can be done about a failure
    m_fd = -1;
}

void EventDescriptor::signal() const
{
    (void)eventfd_write(m_fd, 1); // only fails when it is full, and so signalled
}

void EventDescriptor::reset() const
{
    eventfd_t count = 0;
    (void)eventfd_read(m_fd, &count); // only fails when it is not signalled
}

} // namespace pelorin
