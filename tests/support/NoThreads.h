#pragma once

#include <pthread.h>

namespace pelorin::test {

/// As long as this lives, the system has no room for another thread's stack.
class NoThreads
{
public:
    NoThreads()
    {
        (void)pthread_getattr_default_np(&m_before);
        pthread_attr_t none = m_before;
        (void)pthread_attr_setstacksize(&none, std::size_t{1} << 47);
        (void)pthread_setattr_default_np(&none);
    }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;
    ~NoThreads() { (void)pthread_setattr_default_np(&m_before); }

private:
    pthread_attr_t m_before{};
};

} // namespace pelorin::test
