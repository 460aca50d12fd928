#include "platform/core/SettingsFile.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/RegistryConfig.h"
#include "platform/core/RegistryFile.h"
#include "platform/core/RegistryFileEditor.h"
#include "platform/core/SettingsLocation.h"
#include "platform/core/Strings.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>

namespace pelorin {

namespace {

bool isMissing(const WholeFile::Reading& reading)
{
    return reading.outcome.systemError == ENOENT || reading.outcome.systemError == ENOTDIR;
}

/// A relative path would count from another folder in the copy.
QByteArray withAbsolutePath(const QByteArray& content, const QString& source)
{
    RegistryFileEditor editor(content);
    RegistryConfig config(RegistryFile::parse(content, source));
    if (editor.damagedLine() != 0 || config.setStorage(productKey()) != 1)
        return content;
    const QString name = QStringLiteral("Path");
    const QString path = config.getValue(name, QString());
    if (path.isEmpty() || isWindowsPath(path) || QDir::isAbsolutePath(path))
        return content;
    editor.set(productKey(), name, installationFolder(path, source));
    return editor.content();
}

} // namespace

SettingsFile::Places SettingsFile::placesOfThisRun()
{
    const QString named = namedRegistryFile();
    return {registryFilePath(), named.isEmpty() ? usersRegistryFile() : named, !named.isEmpty()};
}

SettingsFile::SettingsFile(const Places& places)
    : m_file(places.edited), m_read(m_file.read(RegistryFile::kLargest)),
      m_isUsersOwn(!places.isNamed && !isMissing(m_read))
{
    const QString& source = places.inForce;
    if (source == path()) {
        m_content = m_read.content;
        m_problem = problemOf(m_read, source);
        return;
    }
    m_replaced = source;
    const auto copied = WholeFile(source).read(RegistryFile::kLargest);
    m_content = withAbsolutePath(copied.content, source);
    m_problem = problemOf(copied, source);
}

QString SettingsFile::problemOf(const WholeFile::Reading& reading, const QString& source) const
{
    if (isMissing(reading))
        return {};
    if (!reading.outcome.isDone())
        return languageString(strings::kRegistryUnreadable).arg(source, reading.outcome.reason());
    if (const int line = RegistryFileEditor(reading.content).damagedLine(); line != 0)
        return languageString(strings::kRegistryDamaged).arg(source, QString::number(line));
    if (isMissing(m_read))
        return {};
    // The file exists, so that nothing is made by this.
    const auto outcome = WholeFile(path()).prepareSaving();
    return outcome.isDone()
               ? QString()
               : languageString(strings::kSettingsReadOnly).arg(path(), outcome.reason());
}

bool SettingsFile::hasChanged() const
{
    const auto now = m_file.read(RegistryFile::kLargest);
    return isMissing(now) != isMissing(m_read) || now.content != m_read.content;
}

WholeFile::Outcome SettingsFile::save(const QByteArray& content)
{
    if (auto outcome = m_file.makeFolder(); !outcome.isDone())
        return outcome;
    auto outcome = m_file.save(content);
    if (outcome.isDone())
        m_read = {{}, content};
    return outcome;
}

QString SettingsFile::asidePath() const
{
    const QString usual = path() + QStringLiteral(".old");
    QString aside = usual;
    for (int number = 2; QFileInfo::exists(aside); ++number)
        aside = usual + QString::number(number);
    return aside;
}

WholeFile::Outcome SettingsFile::setAside() const
{
    return m_file.moveTo(asidePath());
}

} // namespace pelorin
