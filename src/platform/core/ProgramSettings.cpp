#include "platform/core/ProgramSettings.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/RegistryConfig.h"
#include "platform/core/RegistryFile.h"
#include "platform/core/Strings.h"

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
    const bool unreadable = damage->line == 0;
    return textOr(unreadable ? strings::kRegistryUnreadable : strings::kRegistryDamaged,
                  QStringLiteral("%1: %2"))
        .arg(damage->path, unreadable ? damage->reason : QString::number(damage->line));
}

} // namespace pelorin
