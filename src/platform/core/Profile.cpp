#include "platform/core/Profile.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace pelorin {

namespace {

QString keyOf(const QString& name)
{
    return QStringLiteral("Setup/") + name;
}

/// The parser passes over most damage; a file with content and without any value is none.
bool isFileDamaged(const QString& fileName)
{
    const QSettings settings(fileName, QSettings::IniFormat);
    return settings.status() == QSettings::FormatError ||
           (QFileInfo(fileName).size() > 0 && settings.allKeys().isEmpty());
}

} // namespace

Profile::Profile(const QString& fileName) : m_fileName(fileName), m_damaged(isFileDamaged(fileName))
{
}

/// Not asked of QSettings: the toolkit keeps what it has read of a file, but tells of its damage
/// only the first who opens it.
QString Profile::usersFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Korvex Systems/Pelorin.ini");
}

int Profile::readInt(const QString& name, int defaultValue) const
{
    if (m_damaged)
        return defaultValue;
    const QSettings settings(m_fileName, QSettings::IniFormat);
    bool isNumber = false;
    const int value = settings.value(keyOf(name)).toString().toInt(&isNumber);
    return isNumber ? value : defaultValue;
}

bool Profile::writeInt(const QString& name, int value)
{
    if (m_damaged && !setDamagedFileAside())
        return false;
    QSettings settings(m_fileName, QSettings::IniFormat);
    settings.setValue(keyOf(name), value);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

bool Profile::setDamagedFileAside()
{
    const QString copy = m_fileName + QStringLiteral(".damaged");
    (void)QFile::remove(copy); // an older one, usually missing
    m_damaged = !QFile::rename(m_fileName, copy);
    return !m_damaged;
}

} // namespace pelorin
