#include "platform/core/SettingsLocation.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace pelorin {

namespace {

constexpr const char* kVariable = "PELORIN_REGISTRY";

} // namespace

QString registryFilePath()
{
    if (QString named = namedRegistryFile(); !named.isEmpty())
        return named;
    const QString own = usersRegistryFile();
    return QFileInfo::exists(own) ? own : sitesRegistryFile();
}

QString sitesRegistryFile()
{
    const QString sites = QStringLiteral("/etc/pelorin/pelorin.reg");
    return QFileInfo::exists(sites) ? sites : programFolder() + QStringLiteral("/pelorin.reg");
}

QString namedRegistryFile()
{
    return qEnvironmentVariable(kVariable);
}

QString usersRegistryFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/pelorin/pelorin.reg");
}

void nameRegistryFile(const QString& path)
{
    qputenv(kVariable, QFile::encodeName(QFileInfo(path).absoluteFilePath()));
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
