#include "pages/CommLogFile.h"

#include <QByteArray>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <system_error>

namespace pelorin {

namespace {

using Outcome = CommLogSaving::Outcome;

constexpr qsizetype kBytesPerWrite = 256 * 1024;

/// Right after a failed call; the toolkit refuses some files without one.
int systemError()
{
    return errno != 0 ? errno : EIO;
}

bool isDeviceOrFolder(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isFile();
}

/// A write that ends short has met a full disk, which tells its reason only to the next one.
bool writeWhole(QSaveFile& file, QByteArray& text)
{
    qint64 written = 0;
    while (written < text.size()) {
        const qint64 count = file.write(text.constData() + written, text.size() - written);
        if (count <= 0)
            return false;
        written += count;
    }
    text.clear();
    return true;
}

bool writeLines(QSaveFile& file, const CommLog::Snapshot& lines)
{
    QByteArray text;
    for (int index = 0; index < lines.size(); ++index) {
        text += lines.line(index).toUtf8() + "\r\n";
        if (text.size() >= kBytesPerWrite && !writeWhole(file, text))
            return false;
    }
    return writeWhole(file, text);
}

} // namespace

QString CommLogSaving::reason() const
{
    return QString::fromStdString(std::system_category().message(systemError));
}

CommLogSaving saveCommLog(const QString& path, const CommLog::Snapshot& lines)
{
    if (isDeviceOrFolder(path)) // would be replaced by a file
        return {Outcome::NotOpened, EINVAL};
    QSaveFile file(path);
    errno = 0;
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return {Outcome::NotOpened, systemError()};
    if (!writeLines(file, lines) || !file.commit())
        return {Outcome::NotWritten, systemError()};
    return {};
}

} // namespace pelorin
