#include "platform/core/ComPortFactory.h"

#include "platform/core/ComPortNames.h"

#include <utility>

namespace pelorin {

ComPortFactory::ComPortFactory(Maker systemMaker) : m_systemMaker(std::move(systemMaker)) {}

void ComPortFactory::addScheme(const QString& scheme, const Maker& maker)
{
    m_makers.insert(scheme, maker);
}

std::unique_ptr<ComPort> ComPortFactory::create(const QString& deviceName) const
{
    const QString device = ComPortNames().devicePath(deviceName);
    for (auto it = m_makers.cbegin(); it != m_makers.cend(); ++it) {
        if (device.startsWith(it.key()))
            return it.value()(device);
    }
    return m_systemMaker(device);
}

} // namespace pelorin
