#pragma once

#include "platform/core/SerialDevices.h"

#include <QList>
#include <QMap>
#include <QString>

#include <optional>

namespace pelorin {

class RegistryFile;

/// How the names of devices begin that are built into the program.
inline constexpr QLatin1String kSimulatedScheme("simulator:");

/// A port that can be chosen now.
struct PresentPort
{
    int number = 0;       ///< 0: gets one when it is chosen
    QString device;       ///< what devicePath gives for the number
    QString shortName;    ///< without its folder: "ttyUSB0"
    SerialDevice adapter; ///< what the system knows of it
    bool simulated = false;

    /// "ttyUSB0, FT232R USB UART, FTDI, A50285BI": name and adapter, as far as they are known.
    [[nodiscard]] QString details() const;
};

/// Which COM number stands for which device. The settings' key SERIALCOMM comes first; any other
/// device has a fixed number: ttyS0 to ttyS31 are COM1 to COM32, ttyUSB0 to ttyUSB31 COM33 to
/// COM64, ttyACM0 to ttyACM31 COM65 to COM96. Then comes what the profile has for devices that
/// had no number. A device has one number, a number one device. A link to a device stands for the
/// device. The object holds the numbers as they were when it was made.
class ComPortNames
{
public:
    /// Reads the settings of this run.
    ComPortNames();
    /// The numbers that a settings file gives, which need not be that of this run.
    explicit ComPortNames(const RegistryFile& settings);

    /// "COM7"; for a port that has no number what is given instead, such as its device.
    [[nodiscard]] static QString nameOf(int number, const QString& unnumbered = {});

    /// The n of "COMn" or "\\.\COMn"; nothing for any other text.
    [[nodiscard]] static std::optional<int> numberIn(const QString& name);

    /// The device that a name stands for. "COM7" and "\\.\COM7" name the same port, in either
    /// letter case; null if no device has the number. Any other text is a device already and
    /// comes back as it is.
    [[nodiscard]] QString devicePath(const QString& name) const;

    /// The COM number of a device, 0 if it has none.
    [[nodiscard]] int numberOf(const QString& device) const;

    /// The serial devices of this machine, and those that the settings name if they exist or are
    /// simulated; by number, then those that have none.
    [[nodiscard]] QList<PresentPort> presentPorts() const;
    [[nodiscard]] QList<PresentPort> presentPorts(const QList<SerialDevice>& system) const;

    /// The lowest number from 100 on that no device has.
    [[nodiscard]] int freeNumber() const;

    /// The name under which a device is found again on another socket and after a restart, for
    /// files that concern what is connected to it: its link in /dev/serial/by-id, in the order of
    /// names if there are several. A device that has none keeps the name it has, one that is gone
    /// too: ask while it is there.
    [[nodiscard]] static QString stableName(const QString& device);
    [[nodiscard]] static QString stableName(const QString& device, const QString& linkFolder);

    /// The folder where adapters appear under the names of their makers, else that of all devices.
    [[nodiscard]] static QString deviceFolder();

    /// Whether a name stands for a device that is built into the program.
    [[nodiscard]] bool isSimulated(const QString& name) const;

private:
    QMap<int, QString> m_devices; ///< by number, from the settings
};

} // namespace pelorin
