#pragma once

#include "sensor/Settings.h"

#include <QStringList>

#include <optional>

namespace pelorin {

/// Why settings cannot be used, and where they have to be put right.
struct SettingsFault
{
    enum class Field {
        LowestRevision,
        Port,
        PackageName,
        PackageSeDistance,
        PackageInactiveZone,
        DisplayPort
    };

    Field field;
    qsizetype row; ///< the sensor type, package or port
    QString text;  ///< for the user
};

/// The port that is open to the sensor; none with number 0.
struct SensorPort
{
    int number = 0;
    QString device{};
};

/// Checks settings as a whole before anything of them is stored. Packages, and
/// numbers of devices, that have been so before are no fault of the user.
/// @param before what was read
/// @return the first fault; nothing if they can be used
[[nodiscard]] std::optional<SettingsFault> faultOf(const Settings& settings, const Settings& before,
                                                   const SensorPort& sensor);

/// Says for each pair of sensor types which revisions belong to both; the lower type gets them.
[[nodiscard]] QStringList overlapsOf(const Settings& settings);

} // namespace pelorin
