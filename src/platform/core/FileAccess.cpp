#include "platform/core/FileAccess.h"

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace pelorin {

FoundFile findFile(const QByteArray& name)
{
    struct stat status = {};
    if (::stat(name.constData(), &status) != 0)
        return {FoundFile::Kind::Nothing, errno == ENOENT ? 0 : errno};
    if (S_ISREG(status.st_mode))
        return {FoundFile::Kind::File, 0, status.st_size};
    if (S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode))
        return {FoundFile::Kind::Device};
    return {FoundFile::Kind::Other, S_ISDIR(status.st_mode) ? EISDIR : EINVAL};
}

int lastFileError()
{
    return errno != 0 ? errno : EIO;
}

bool writeWhole(QFileDevice& device, const QByteArray& piece)
{
    qint64 written = 0;
    while (written < piece.size()) {
        errno = 0;
        const qint64 count = device.write(piece.constData() + written, piece.size() - written);
        if (count <= 0)
            return false;
        written += count;
    }
    return true;
}

bool isOnDisk(const QFileDevice& device)
{
    return ::fsync(device.handle()) == 0 ||
           (errno != EIO && errno != ENOSPC && errno != EDQUOT && errno != EFBIG);
}

} // namespace pelorin
