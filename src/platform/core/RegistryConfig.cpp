#include "platform/core/RegistryConfig.h"

#include "platform/core/SettingsLocation.h"

namespace pelorin {

QString productKey(const QString& below)
{
    const QString key = QStringLiteral("\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin");
    return below.isEmpty() ? key : key + QLatin1Char('\\') + below;
}

QString serialPortsKey()
{
    return QStringLiteral("\\HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM");
}

RegistryConfig::RegistryConfig() : m_file(RegistryFile::read(registryFilePath())) {}

int RegistryConfig::setStorage(const QString& keyPath, int /*flags*/)
{
    m_keyPath = keyPath;
    return m_file.hasKey(keyPath) ? 1 : 0;
}

QString RegistryConfig::getValue(const QString& name, const QString& defaultValue) const
{
    const auto value = m_file.value(m_keyPath, name);
    if (!value)
        return defaultValue;
    const auto* const text = std::get_if<QString>(&*value);
    return text ? *text : QString::number(std::get<quint32>(*value));
}

qint32 RegistryConfig::getValue(const QString& name, qint32 defaultValue) const
{
    const auto value = m_file.value(m_keyPath, name);
    if (!value)
        return defaultValue;
    if (const auto* const number = std::get_if<quint32>(&*value))
        return static_cast<qint32>(*number);
    bool isNumber = false;
    const qint32 number = std::get<QString>(*value).trimmed().toInt(&isNumber);
    return isNumber ? number : defaultValue;
}

} // namespace pelorin
