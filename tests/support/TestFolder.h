#pragma once

#include "support/FileContent.h"

#include <QTemporaryDir>

namespace pelorin::test {

/// A folder for the files of one test, named without their path.
class TestFolder
{
public:
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }
    [[nodiscard]] QByteArray content(const QString& name) const { return contentOf(path(name)); }
    [[nodiscard]] bool put(const QString& name, const QByteArray& content) const
    {
        return putContent(path(name), content);
    }
    /// All files that are there, hidden ones too, with blanks in between.
    [[nodiscard]] QString names() const
    {
        const auto kinds = QDir::Files | QDir::Hidden | QDir::System;
        return QDir(m_folder.path()).entryList(kinds).join(QLatin1Char(' '));
    }

private:
    QTemporaryDir m_folder;
};

} // namespace pelorin::test
