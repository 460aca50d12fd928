#include "platform/core/AppendedFile.h"

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace pelorin {

using Outcome = WholeFile::Outcome;
using Failure = Outcome::Failure;

/// Nothing that is no file is opened: that would wait for a pipe, or switch the supply of a sensor
/// on a serial device.
Outcome AppendedFile::open(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat status = {};
    if (::stat(name.constData(), &status) == 0 && !S_ISREG(status.st_mode))
        return {Failure::Opening, path, S_ISDIR(status.st_mode) ? EISDIR : EINVAL};
    m_file.setFileName(path);
    m_size = 0;
    errno = 0;
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        return {Failure::Opening, path, errno != 0 ? errno : EIO};
    return {};
}

Outcome AppendedFile::append(const QByteArray& piece)
{
    qint64 written = 0;
    while (written < piece.size()) {
        errno = 0;
        const qint64 count = m_file.write(piece.constData() + written, piece.size() - written);
        if (count <= 0)
            return fail();
        written += count;
    }
    m_size += written;
    return {};
}

Outcome AppendedFile::close()
{
    errno = 0;
    if (::fsync(m_file.handle()) != 0 && errno != EINVAL && errno != ENOSYS)
        return fail();
    m_file.close();
    return {};
}

/// The part of a piece that a full disk has taken goes.
Outcome AppendedFile::fail()
{
    const Outcome outcome{Failure::Writing, path(), errno != 0 ? errno : EIO};
    (void)m_file.resize(m_size); // a disk that refuses even that keeps a piece of a line
    (void)::fsync(m_file.handle());
    m_file.close();
    return outcome;
}

} // namespace pelorin
