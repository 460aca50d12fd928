#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace pelorin::test {

[[nodiscard]] inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Writes a file, and makes its folder. @return whether all of it was written
[[nodiscard]] inline bool putContent(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return QFileInfo(path).dir().mkpath(QStringLiteral(".")) && file.open(QIODevice::WriteOnly) &&
           file.write(content) == content.size();
}

} // namespace pelorin::test
