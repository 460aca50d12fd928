#pragma once

#include <QTemporaryDir>

namespace pelorin {

/// Folders for what the program keeps for its user, as long as this object lives: a benchmark must
/// not touch those of whoever runs it.
class OwnFolders
{
public:
    OwnFolders()
    {
        qputenv("XDG_CONFIG_HOME", m_folder.filePath(QStringLiteral("config")).toUtf8());
        qputenv("XDG_DATA_HOME", m_folder.filePath(QStringLiteral("data")).toUtf8());
    }

private:
    QTemporaryDir m_folder;
};

} // namespace pelorin
