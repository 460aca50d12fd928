#include "platform/core/AppendedFile.h"

#include "platform/core/FileAccess.h"

#include <cerrno>

namespace pelorin {

using Outcome = WholeFile::Outcome;
using Failure = Outcome::Failure;

Outcome AppendedFile::open(const QString& path)
{
    const FoundFile found = findFile(QFile::encodeName(path));
    if (found.error != 0 || found.kind == FoundFile::Kind::Device)
        return {Failure::Opening, path, found.error != 0 ? found.error : EINVAL};
    m_file.setFileName(path);
    m_size = 0;
    errno = 0;
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        return {Failure::Opening, path, lastFileError()};
    return {};
}

Outcome AppendedFile::append(const QByteArray& piece)
{
    if (!writeWhole(m_file, piece))
        return fail();
    m_size += piece.size();
    return {};
}

Outcome AppendedFile::close()
{
    if (!isOnDisk(m_file))
        return fail();
    m_file.close();
    return {};
}

/// The part of a piece that a full disk has taken goes.
Outcome AppendedFile::fail()
{
    Outcome outcome{Failure::Appending, path(), lastFileError()};
    (void)m_file.resize(m_size); // a disk that refuses even that keeps a piece of a line
    (void)isOnDisk(m_file);
    m_file.close();
    return outcome;
}

} // namespace pelorin
