#pragma once

#include "sensor/Settings.h"

#include <vector>

class QTableWidget;

namespace pelorin {

/// The sensor packages of the settings, which the user adds, changes and removes.
class PackageList
{
public:
    enum Column { kNameColumn, kSeDistanceColumn, kInactiveZoneColumn, kColumnCount };

    /// @param list of a form, with a cell editor; outlives this object
    void attach(QTableWidget& list);

    void show(const QList<PackageSetting>& packages);
    /// A distance that was typed has a decimal point; one that is no number stays as it is.
    [[nodiscard]] QList<PackageSetting> entered() const;

    void add(const PackageSetting& package);
    /// Adds packages of another file; one of the same name gets its distances.
    void import(const QList<PackageSetting>& packages);
    void removeCurrent();
    void translate();

private:
    void setRow(int row, const PackageSetting& package);

    QTableWidget* m_list = nullptr;
    std::vector<PackageSetting> m_rows; ///< as they were shown first
};

} // namespace pelorin
