#include "link/CommLogFile.h"

#include <QByteArray>

namespace pelorin {

namespace {

constexpr qsizetype kBytesPerPiece = qsizetype{256} * 1024;

} // namespace

WholeFile::Outcome saveCommLog(const QString& path, const CommLog::Snapshot& lines)
{
    return WholeFile(path).save([&lines, index = 0]() mutable {
        QByteArray piece;
        while (index < lines.size() && piece.size() < kBytesPerPiece)
            piece += lines.line(index++).toUtf8() + "\r\n";
        return piece;
    });
}

} // namespace pelorin
