#pragma once

#include "platform/core/WholeFile.h"

#include <QByteArray>
#include <QFile>
#include <QString>

namespace pelorin {

/// A file of the user that grows while something goes on, for as long as the disk has room. What
/// has been appended stays there, in whole pieces, whatever becomes of the program.
class AppendedFile
{
public:
    /// Begins the file anew. What is neither a file nor new is refused.
    [[nodiscard]] WholeFile::Outcome open(const QString& path);
    [[nodiscard]] bool isOpen() const { return m_file.isOpen(); }
    [[nodiscard]] QString path() const { return m_file.fileName(); }

    /// Appends a piece. A failure ends the file with the pieces before it.
    [[nodiscard]] WholeFile::Outcome append(const QByteArray& piece);

    /// Ends the file once all of it is on the disk.
    [[nodiscard]] WholeFile::Outcome close();

private:
    [[nodiscard]] WholeFile::Outcome fail();

    QFile m_file;
    qint64 m_size = 0; ///< of all whole pieces
};

} // namespace pelorin
