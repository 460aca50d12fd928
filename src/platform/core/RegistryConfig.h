#pragma once

#include "platform/core/RegistryFile.h"

#include <QString>

namespace pelorin {

/// The key of the program's settings, or one of the keys below it.
/// @param below without a backslash in front; empty for the key itself
[[nodiscard]] QString productKey(const QString& below = {});

/// The key that gives serial devices their COM numbers: a value each, named like the device.
[[nodiscard]] QString serialPortsKey();

/// Reads the values of the settings, one key at a time, as the file of this run stood when the
/// object was made; a new object sees a changed file. It never writes them. Any thread.
class RegistryConfig
{
public:
    /// Reads the settings file. One that is missing or damaged has no keys.
    RegistryConfig();
    /// The same for a file that has been read already.
    explicit RegistryConfig(const RegistryFile& file) : m_file(file) {}

    /// Points at a key, "\HKEY_LOCAL_MACHINE\SOFTWARE\..." with the hive's full name.
    /// @param flags always 0
    /// @return 1 if the key exists
    [[nodiscard]] int setStorage(const QString& keyPath, int flags = 0);

    /// The text of a value, a number in decimal; the default if the value is absent.
    [[nodiscard]] QString getValue(const QString& name, const QString& defaultValue) const;

    /// The number of a value, also of a text that holds a decimal number; the default if the
    /// value is absent or no number. The stored 32 bits are taken as signed.
    [[nodiscard]] qint32 getValue(const QString& name, qint32 defaultValue) const;

private:
    const RegistryFile m_file;
    QString m_keyPath;
};

} // namespace pelorin
