#include "platform/core/UserFolders.h"

#include <QStandardPaths>

namespace pelorin {

namespace {

QString pathOf(const QString& name)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Korvex Systems/") + name;
}

} // namespace

QString profilePath()
{
    return pathOf(QStringLiteral("Pelorin.ini"));
}

QString keptFormatsFolder()
{
    return pathOf(QStringLiteral("formats"));
}

QString journalFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/pelorin/journal");
}

QString formerFormatsPath()
{
    return pathOf(QStringLiteral("PelorinFormats.ini"));
}

} // namespace pelorin
