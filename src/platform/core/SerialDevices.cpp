#include "platform/core/SerialDevices.h"

#include "platform/core/ComPortNames.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <tuple>
#include <utility>

#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace pelorin {

using namespace std::chrono_literals;

namespace {

constexpr qint64 kLargestText = 4096;
constexpr qint64 kLargestLockList = qint64{1024} * 1024;

/// How long an error may stay that comes from plugging in alone.
constexpr auto kPermissionsSet = 2s;
constexpr auto kProbed = 20s;

QByteArray textOf(const QString& path, qint64 largest = kLargestText)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(largest).trimmed() : QByteArray();
}

/// Of the device behind a link.
std::optional<struct stat> statusOf(const QString& path)
{
    struct stat status
    {
    };
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return status;
}

} // namespace

SerialDevices::SerialDevices(QString root) : m_root(std::move(root)) {}

QList<SerialDevice> SerialDevices::all() const
{
    QStringList names = QDir(m_root + QStringLiteral("/sys/class/tty"))
                            .entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::NoSort);
    names.removeIf([this](const QString& name) { return !isSerial(name); });
    std::sort(names.begin(), names.end(), [](const QString& left, const QString& right) {
        const auto kindAndNumber = [](const QString& name) {
            QString kind = name;
            while (!kind.isEmpty() && kind.back().isDigit())
                kind.chop(1);
            return std::tuple(kind, name.size(), name);
        };
        return kindAndNumber(left) < kindAndNumber(right);
    });
    QList<SerialDevice> devices;
    for (const QString& name : std::as_const(names))
        devices << describe(name);
    return devices;
}

/// Consoles and pseudo-terminals have no device behind them, and ports that the driver only keeps
/// ready have no type.
bool SerialDevices::isSerial(const QString& name) const
{
    const QString entry = m_root + QStringLiteral("/sys/class/tty/") + name;
    return QFileInfo::exists(entry + QStringLiteral("/device")) &&
           textOf(entry + QStringLiteral("/type")) != "0" &&
           QFileInfo::exists(m_root + QStringLiteral("/dev/") + name);
}

SerialDevice SerialDevices::describe(const QString& name) const
{
    SerialDevice device{QStringLiteral("/dev/") + name};
    const QString path = m_root + device.path;
    const QString link =
        ComPortNames::stableName(path, m_root + QStringLiteral("/dev/serial/by-id"));
    if (link != path)
        device.byId = link.mid(m_root.size());

    QDir folder(QFileInfo(m_root + QStringLiteral("/sys/class/tty/%1/device").arg(name))
                    .canonicalFilePath());
    while (!folder.exists(QStringLiteral("idVendor"))) { // the interface is below the adapter
        if (folder.isRoot() || !folder.cdUp())
            return device;
    }
    const auto attribute = [&folder](const char* file) {
        return QString::fromUtf8(textOf(folder.filePath(QLatin1String(file))));
    };
    device.description = attribute("product");
    device.manufacturer = attribute("manufacturer");
    device.serialNumber = attribute("serial");
    return device;
}

SerialDevices::State SerialDevices::stateOf(const QString& device) const
{
    const QByteArray path = QFile::encodeName(m_root + device);
    if (::faccessat(AT_FDCWD, path.constData(), R_OK | W_OK, AT_EACCESS) != 0)
        return errno == EACCES || errno == EPERM ? State::NotPermitted : State::Missing;
    return isLocked(device) ? State::InUse : State::Usable;
}

/// Programs lock the device itself, or put a file with its name where all of them look for it.
bool SerialDevices::isLocked(const QString& device) const
{
    const auto status = statusOf(m_root + device);
    if (!status)
        return false;
    const QString name = QFileInfo(QFileInfo(m_root + device).canonicalFilePath()).fileName();
    if (QFileInfo::exists(m_root + QStringLiteral("/run/lock/LCK..") + name))
        return true;
    const QByteArray place = QStringLiteral(" %1:%2:%3 ")
                                 .arg(major(status->st_dev), 2, 16, QLatin1Char('0'))
                                 .arg(minor(status->st_dev), 2, 16, QLatin1Char('0'))
                                 .arg(status->st_ino)
                                 .toLatin1();
    const QByteArray ownPlace = ' ' + QByteArray::number(::getpid()) + place;
    const auto locks = textOf(m_root + QStringLiteral("/proc/locks"), kLargestLockList).split('\n');
    return std::any_of(locks.begin(), locks.end(), [&](const QByteArray& lock) {
        return lock.contains("FLOCK") && lock.contains(place) && !lock.contains(ownPlace);
    });
}

QString SerialDevices::groupOf(const QString& device) const
{
    const auto status = statusOf(m_root + device);
    constexpr mode_t kReadWrite = S_IRGRP | S_IWGRP;
    if (!status || status->st_gid == 0 || (status->st_mode & kReadWrite) != kReadWrite)
        return QString();
    std::array<char, 16384> buffer{};
    struct group entry
    {
    };
    struct group* found = nullptr;
    if (::getgrgid_r(status->st_gid, &entry, buffer.data(), buffer.size(), &found) != 0 || !found)
        return QString::number(status->st_gid);
    return QString::fromLocal8Bit(found->gr_name);
}

/// The system's node of a device is as old as its plugging in.
bool SerialDevices::mayPass(int error, const QString& device, std::chrono::seconds now) const
{
    const QString path = QFileInfo(m_root + device).canonicalFilePath();
    const auto status = statusOf(path);
    if (!status || !isSerial(QFileInfo(path).fileName()))
        return false;
    const auto age = now - std::chrono::seconds(status->st_ctim.tv_sec);
    return (error == EBUSY && age < kProbed) || (error == EACCES && age < kPermissionsSet);
}

} // namespace pelorin
