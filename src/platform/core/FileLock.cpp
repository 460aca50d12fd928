#include "platform/core/FileLock.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace pelorin {

namespace {

int openFile(const QString& path)
{
    return ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
}

} // namespace

FileLock::FileLock(const QString& path) : m_descriptor(openFile(path))
{
    if (m_descriptor < 0 || ::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0)
        return;
    (void)::close(m_descriptor);
    m_descriptor = -1;
}

FileLock::~FileLock()
{
    if (m_descriptor >= 0)
        (void)::close(m_descriptor);
}

bool FileLock::isHeld(const QString& path)
{
    const int descriptor = openFile(path);
    if (descriptor < 0)
        return false;
    const bool held = ::flock(descriptor, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    (void)::close(descriptor);
    return held;
}

} // namespace pelorin
