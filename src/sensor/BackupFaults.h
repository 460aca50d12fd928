#pragma once

#include "sensor/SensorValues.h"

#include <QByteArray>
#include <QString>

#include <string_view>

namespace pelorin {

/// What keeps values from being written to a sensor, by identifiers.
struct BackupFaults
{
    QByteArray missing;
    QByteArray unfit; ///< what is not 6 to 8 printable ASCII characters

    /// @param parameters those that the sensor needs; other values do not count
    [[nodiscard]] static BackupFaults of(const SensorValues& values, std::string_view parameters);

    bool operator==(const BackupFaults&) const = default;
};

/// Why the values cannot be written as a whole, in the current language; empty if they can.
[[nodiscard]] QString textOf(const BackupFaults& faults);

} // namespace pelorin
