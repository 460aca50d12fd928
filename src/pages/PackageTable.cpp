#include "pages/PackageTable.h"

#include "platform/core/DecimalText.h"
#include "platform/core/RegistryConfig.h"

namespace pelorin {

PackageTable::PackageTable()
{
    const QString key = productKey(QStringLiteral("Package Parameters\\Package%1"));
    RegistryConfig config;
    for (int number = 0; config.setStorage(key.arg(number), 0) == 1; ++number) {
        const auto distance = [&config](const QString& name) {
            return decimalPrefix(config.getValue(name, QString()));
        };
        m_entries.insert_or_assign(config.getValue(QStringLiteral("Name"), QString()),
                                   PackageEntry{distance(QStringLiteral("SEDistance")),
                                                distance(QStringLiteral("InactiveZone"))});
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
