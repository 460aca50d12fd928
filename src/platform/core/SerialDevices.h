#pragma once

#include <QList>
#include <QString>

#include <chrono>

namespace pelorin {

/// A serial device of the machine.
struct SerialDevice
{
    QString path;          ///< "/dev/ttyUSB0"
    QString byId{};        ///< its link in /dev/serial/by-id; empty without one
    QString description{}; ///< of the adapter, as the next two: what its maker says; often empty
    QString manufacturer{};
    QString serialNumber{};

    friend bool operator==(const SerialDevice&, const SerialDevice&) = default;
};

/// The serial devices that the system knows, and whether they can be used. None is opened for that:
/// it would switch the supply of a sensor on it. Any thread.
class SerialDevices
{
public:
    /// Whether a device could be opened now.
    enum class State {
        Usable,
        Missing,
        NotPermitted, ///< see groupOf
        InUse         ///< by another program that has locked it, as most do; not by this one
    };

    /// @param root the folder that stands for the root of the file system; what is told is told
    ///        without it
    explicit SerialDevices(QString root = {});

    /// All devices, in the order of their kinds and numbers; without ports for which there is no
    /// hardware.
    [[nodiscard]] QList<SerialDevice> all() const;

    [[nodiscard]] State stateOf(const QString& device) const;

    /// The name, or the number, of the group whose members may read and write a device; empty if
    /// there is none, or only that of the administrator, which nobody should join.
    [[nodiscard]] QString groupOf(const QString& device) const;

    /// Whether an error in opening a device may be over by itself soon, since the device was just
    /// plugged in: the system sets its permissions, and services try what it is.
    /// @param now time since the epoch
    [[nodiscard]] bool mayPass(int error, const QString& device, std::chrono::seconds now) const;

private:
    [[nodiscard]] bool isSerial(const QString& name) const;
    [[nodiscard]] SerialDevice describe(const QString& name) const;
    [[nodiscard]] bool isLocked(const QString& device) const;

    QString m_root;
};

} // namespace pelorin
