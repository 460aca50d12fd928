#pragma once

#include <QByteArray>
#include <QFile>

namespace pelorin::test {

inline const QByteArray kMarker = "~~~KORVEX_SSI_TEMP_COMPENSATION_LOOKUPTABLE~~~";
inline const QByteArray kMarkerLine = kMarker + "\r\n";
inline const QByteArray kZeroLine = "0000,00000000\r\n";

inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be opened");
}

[[nodiscard]] inline bool createFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

} // namespace pelorin::test
