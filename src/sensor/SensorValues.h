#pragma once

#include <QByteArray>

#include <map>

namespace pelorin {

/// Texts of parameters, by their identifiers.
using SensorValues = std::map<char, QByteArray>;

/// The text of a parameter; empty if there is none.
[[nodiscard]] inline QByteArray textOf(const SensorValues& values, char id)
{
    const auto found = values.find(id);
    return found == values.end() ? QByteArray() : found->second;
}

/// All values, the newer ones in the place of those before.
[[nodiscard]] inline SensorValues overlaid(const SensorValues& values, SensorValues newer)
{
    newer.insert(values.begin(), values.end());
    return newer;
}

} // namespace pelorin
