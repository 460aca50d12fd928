#pragma once

#include "link/SensorIdentification.h"

#include <QList>
#include <QString>

#include <array>
#include <optional>

namespace pelorin {

class RegistryFile;
class RegistryFileEditor;

/// The firmware revisions of a sensor type, 0 to 255; a bound that the file does not have counts
/// as 0.
struct RevisionRange
{
    std::optional<int> low;
    std::optional<int> high;

    [[nodiscard]] bool isSet() const { return low || high; }
    bool operator==(const RevisionRange&) const = default;
};

/// A sensor package as the file has it: distances in millimetres, with a decimal point.
struct PackageSetting
{
    QString name{};
    QString seDistance{};
    QString inactiveZone{};
    int number = -1; ///< under which it was read; -1 for a new one

    bool operator==(const PackageSetting&) const = default;
};

/// The COM number of a serial device.
struct PortSetting
{
    QString device;
    QString name; ///< "COM7"

    bool operator==(const PortSetting&) const = default;
};

/// All that the user may change of the program's settings, as one value.
struct Settings
{
    std::array<RevisionRange, kSsiTypeCount> ranges{}; ///< by sensor type
    bool manualPower = false;                          ///< the user switches the sensor's supply
    bool safeWrites = true;
    bool tempComp = false; ///< the page for temperature compensation is shown
    bool displayEnabled = false;
    QString displayPort = QStringLiteral("COM1");
    int displayNode = 1;
    QList<PackageSetting> packages{}; ///< in the order of their numbers
    QList<PortSetting> ports{};

    bool operator==(const Settings&) const = default;

    [[nodiscard]] static Settings of(const RegistryFile& file);
    /// Those of this run.
    [[nodiscard]] static Settings inForce();

    /// Enters what is not as it was into a file. Packages that are gone give up their numbers,
    /// those behind them move up.
    /// @param before what the file holds
    void enter(RegistryFileEditor& editor, const Settings& before) const;
};

/// The sensor packages of a settings file, from number 0 to the first that is missing.
[[nodiscard]] QList<PackageSetting> packagesOf(const RegistryFile& file);

} // namespace pelorin
