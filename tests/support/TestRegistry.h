#pragma once

#include "support/ChangedVariable.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

namespace pelorin {

/// The settings of one test: a settings file of its own, used as long as this object lives.
class TestRegistry
{
public:
    /// @param text what the file holds behind its first line
    explicit TestRegistry(const QByteArray& text) { write(text); }

    void write(const QByteArray& text) const
    {
        QFile file(m_path);
        if (file.open(QIODevice::WriteOnly))
            file.write("Windows Registry Editor Version 5.00\r\n\r\n" + text);
    }

    [[nodiscard]] const QString& path() const { return m_path; }

private:
    QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(QStringLiteral("test.reg"));
    const test::ChangedVariable m_variable{"PELORIN_REGISTRY", m_path.toUtf8()};
};

/// The program's key, before values of it.
inline const QByteArray kProductKey = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin]\r\n";

/// Bounds that identify the simulated sensors of all three types.
inline const QByteArray kSimulatedBounds =
    "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Korvex Systems\\Pelorin\\Firmware Rev Bounds]\r\n"
    "\"Type0Low\"=dword:00000010\r\n\"Type0High\"=dword:0000001f\r\n"
    "\"Type1Low\"=dword:00000020\r\n\"Type1High\"=dword:0000002f\r\n"
    "\"Type2Low\"=dword:00000030\r\n\"Type2High\"=dword:0000003f\r\n";

/// Writes without reading before and after, which most tests do not need; and with it.
inline const QByteArray kPlainWrites = kProductKey + "\"SafeWrites\"=dword:00000000\r\n";
inline const QByteArray kSafeWrites = kProductKey + "\"SafeWrites\"=dword:00000001\r\n";

/// The user switches the supply.
inline const QByteArray kManualPower = kProductKey + "\"ManualPowerMode\"=dword:1\r\n";

} // namespace pelorin
