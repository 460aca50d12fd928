#include "platform/core/SettingsLocation.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace pelorin {

QString registryFilePath()
{
    if (QString named = namedRegistryFile(); !named.isEmpty())
        return named;
    const QString sites = QStringLiteral("/etc/pelorin/pelorin.reg");
    for (const QString& path : {usersRegistryFile(), sites}) {
        if (QFileInfo::exists(path))
            return path;
    }
    return programFolder() + QStringLiteral("/pelorin.reg");
}

QString namedRegistryFile()
{
    return qEnvironmentVariable("PELORIN_REGISTRY");
}

QString usersRegistryFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/pelorin/pelorin.reg");
}

QString programFolder()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() +
                           QStringLiteral("/../share/pelorin"));
}

QString installationFolder(const QString& installPath, const QString& settingsFile)
{
    if (isWindowsPath(installPath))
        return programFolder();
    QString path = installPath;
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    const QDir settingsFolder = QFileInfo(settingsFile).absoluteDir();
    return QDir::cleanPath(settingsFolder.absoluteFilePath(path));
}

bool isWindowsPath(const QString& path)
{
    const bool drive = path.size() >= 2 && path.at(0).isLetter() && path.at(1) == QLatin1Char(':');
    return drive || path.startsWith(QLatin1Char('\\'));
}

} // namespace pelorin
