#include "platform/core/UserFolders.h"

#include <QStandardPaths>

namespace pelorin {

namespace {

QString pathOf(const QString& name)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Korvex Systems/") + name;
}

QString dataPathOf(const QString& name)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/pelorin/") + name;
}

} // namespace

QString profilePath()
{
    if (const QString named = qEnvironmentVariable("PELORIN_PROFILE"); !named.isEmpty())
        return named;
    return pathOf(QStringLiteral("Pelorin.ini"));
}

QString keptFormatsFolder()
{
    return pathOf(QStringLiteral("formats"));
}

QString demonstrationFolder()
{
    return dataPathOf(QStringLiteral("demonstration"));
}

QString journalFolder()
{
    return dataPathOf(QStringLiteral("journal"));
}

QString formerFormatsPath()
{
    return pathOf(QStringLiteral("PelorinFormats.ini"));
}

} // namespace pelorin
