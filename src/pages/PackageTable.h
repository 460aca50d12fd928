#pragma once

#include <QString>

#include <map>

namespace pelorin {

/// The mechanical data of a sensor package, in millimetres.
struct PackageEntry
{
    double seDistance = 0.0;
    double inactiveZone = 0.0; ///< the dead zone
};

/// The sensor packages that the settings know, by name, as they stand when the table is made.
class PackageTable
{
public:
    /// Loads the packages numbered from 0 up to the first number that is missing. A later package
    /// replaces an earlier one of the same name.
    PackageTable();
    PackageTable(const PackageTable&) = delete; // the cursor belongs to these entries
    PackageTable& operator=(const PackageTable&) = delete;

    /// Hands out one entry after the other.
    /// @return 1; 0 behind the last entry, after which the first one follows again
    [[nodiscard]] int next(QString& name, double& seDistance, double& inactiveZone);

private:
    std::map<QString, PackageEntry> m_entries;
    std::map<QString, PackageEntry>::const_iterator m_cursor;
};

} // namespace pelorin
