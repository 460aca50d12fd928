#pragma once

#include "support/TestFolder.h"

#include <QDir>
#include <QFile>

namespace pelorin::test {

/// A machine's root folder with serial devices that the test plugs in and out.
class MadeMachine
{
public:
    MadeMachine()
    {
        for (const char* folder : {"sys/class/tty", "dev/serial/by-id", "proc", "run/lock"})
            (void)QDir(root()).mkpath(QLatin1String(folder));
    }

    [[nodiscard]] QString root() const { return m_folder.path({}); }
    [[nodiscard]] bool put(const QString& name, const QByteArray& content) const
    {
        return m_folder.put(name, content);
    }

    /// A USB adapter, whose interface is a folder below it.
    /// @param link in /dev/serial/by-id; empty for none
    [[nodiscard]] bool plugIn(const QString& name, const QByteArray& product,
                              const QString& link = {}) const
    {
        const QString usb = QStringLiteral("sys/devices/usb-") + name;
        const QString device = QStringLiteral("dev/") + name;
        return addTty(name, QStringLiteral("../../../devices/usb-%1/interface").arg(name)) &&
               QDir(root()).mkpath(usb + QStringLiteral("/interface")) &&
               put(usb + QStringLiteral("/idVendor"), "0403\n") &&
               put(usb + QStringLiteral("/product"), product + '\n') &&
               put(usb + QStringLiteral("/manufacturer"), "Maker\n") &&
               put(usb + QStringLiteral("/serial"), "SN1\n") && put(device, {}) &&
               (link.isEmpty() ||
                QFile::link(QStringLiteral("../../") + name,
                            m_folder.path(QStringLiteral("dev/serial/by-id/") + link)));
    }

    void plugOut(const QString& name) const
    {
        (void)QFile::remove(m_folder.path(QStringLiteral("dev/") + name));
        (void)QDir(m_folder.path(QStringLiteral("sys/class/tty/") + name)).removeRecursively();
    }

    /// A port of the machine itself. @param type of the driver; 0 without hardware
    [[nodiscard]] bool addPort(const QString& name, const QByteArray& type) const
    {
        return addTty(name, QStringLiteral(".")) && put(QStringLiteral("dev/") + name, {}) &&
               put(QStringLiteral("sys/class/tty/%1/type").arg(name), type + '\n');
    }

    /// What is no serial port: it has no device behind it.
    [[nodiscard]] bool addConsole(const QString& name) const
    {
        return QDir(root()).mkpath(QStringLiteral("sys/class/tty/") + name) &&
               put(QStringLiteral("dev/") + name, {});
    }

private:
    [[nodiscard]] bool addTty(const QString& name, const QString& device) const
    {
        const QString entry = m_folder.path(QStringLiteral("sys/class/tty/") + name);
        return QDir().mkpath(entry) && QFile::link(device, entry + QStringLiteral("/device"));
    }

    const TestFolder m_folder;
};

} // namespace pelorin::test
