#pragma once

#include <sys/resource.h>

#include <csignal>

namespace pelorin::test {

/// As long as this lives, files of this process cannot grow beyond a size: a full disk for tests.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        (void)std::signal(SIGXFSZ, SIG_IGN);
        (void)getrlimit(RLIMIT_FSIZE, &m_before);
        set({bytes, m_before.rlim_max});
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() { set(m_before); }

private:
    static void set(const rlimit& limit) { (void)setrlimit(RLIMIT_FSIZE, &limit); }

    rlimit m_before{};
};

} // namespace pelorin::test
