#include "platform/core/ProgramSettings.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/RegistryConfig.h"
#include "platform/core/RegistryFile.h"
#include "platform/core/Strings.h"

#include <QFileInfo>

#include <cerrno>

namespace pelorin {

QString productName()
{
    return QStringLiteral("Pelorin");
}

QString installPath()
{
    RegistryConfig config;
    if (config.setStorage(productKey()) != 1)
        return {};
    const QString path = config.getValue(QStringLiteral("Path"), QString());
    return path.isEmpty() || path.endsWith(QLatin1Char('\\')) ? path : path + QLatin1Char('\\');
}

bool isSwitchedOn(const QString& name, bool otherwise)
{
    RegistryConfig config;
    return config.setStorage(productKey()) == 1 ? switchIn(config, name, otherwise) : otherwise;
}

bool switchIn(RegistryConfig& config, const QString& name, bool otherwise)
{
    const qint32 value = config.getValue(name, otherwise ? 1 : 0);
    return otherwise ? value != 0 : value == 1;
}

bool isPowerManual()
{
    return isSwitchedOn(QStringLiteral("ManualPowerMode"));
}

bool areWritesSafe()
{
    return isSwitchedOn(QStringLiteral("SafeWrites"), true);
}

QString languageEntry()
{
    return QStringLiteral("Language");
}

QString textOr(int number, const QString& plain)
{
    const QString text = languageString(number);
    return text.isNull() ? plain : text;
}

QString settingsFault(const QString& path)
{
    const auto damage = RegistryFile::read(path).damage();
    if (!damage)
        return {};
    if (damage->line == 0) {
        return textOr(strings::kRegistryUnreadable, QStringLiteral("%1: %2"))
            .arg(damage->path, damage->reason);
    }
    return textOr(strings::kRegistryDamaged, QStringLiteral("%1: damaged in line %2"))
        .arg(damage->path, QString::number(damage->line));
}

QString namedSettingsFault(const QString& path)
{
    if (QFileInfo::exists(path))
        return settingsFault(path);
    return textOr(strings::kNoSettingsFile, QStringLiteral("%1: ") + qt_error_string(ENOENT))
        .arg(path);
}

} // namespace pelorin
