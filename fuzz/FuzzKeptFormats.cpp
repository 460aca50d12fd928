#include "Fuzz.h"

#include "sensor/KeptFormats.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace pelorin;

/// As a file of an earlier version, and as one of the folder: what is read can be kept and dropped.
void take(const QByteArray& bytes)
{
    static const QTemporaryDir folder;
    const QString former = folder.filePath(QStringLiteral("former"));
    for (const QString& path : {former, folder.filePath(QStringLiteral("other.ini"))}) {
        QFile file(path);
        fuzz::require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    const KeptFormats formats(folder.path(), former);
    for (const KeptFormat& format : formats.all()) {
        fuzz::require(formats.keep(format).isDone() && formats.all().contains(format));
        fuzz::require(formats.drop(format).isDone());
    }
    fuzz::require(formats.all().isEmpty());
}
