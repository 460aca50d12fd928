#include "pages/PackageTable.h"

#include "platform/core/DecimalText.h"
#include "sensor/Settings.h"

namespace pelorin {

PackageTable::PackageTable()
{
    for (const PackageSetting& package : Settings::inForce().packages) {
        m_entries.insert_or_assign(package.name, PackageEntry{decimalPrefix(package.seDistance),
                                                              decimalPrefix(package.inactiveZone)});
    }
    m_cursor = m_entries.cbegin();
}

int PackageTable::next(QString& name, double& seDistance, double& inactiveZone)
{
    if (m_cursor == m_entries.cend()) {
        m_cursor = m_entries.cbegin();
        return 0;
    }
    name = m_cursor->first;
    seDistance = m_cursor->second.seDistance;
    inactiveZone = m_cursor->second.inactiveZone;
    ++m_cursor;
    return 1;
}

} // namespace pelorin
