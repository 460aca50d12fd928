#include "Fuzz.h"

#include "link/SensorIdentification.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/RegistryConfig.h"
#include "platform/core/RegistryFile.h"

using namespace pelorin;

void take(const QByteArray& bytes)
{
    const fuzz::File file(bytes);
    const QString serialPorts =
        QStringLiteral("HKEY_LOCAL_MACHINE\\HARDWARE\\DEVICEMAP\\SERIALCOMM");
    const RegistryFile registry = RegistryFile::read(file.path());
    fuzz::require(!registry.damage() || !registry.hasKey(serialPorts));
    for (const auto& entry : registry.entries(serialPorts))
        fuzz::require(registry.value(serialPorts, entry.name) == entry.value);

    qputenv("PELORIN_REGISTRY", file.path().toLocal8Bit());
    RegistryConfig config;
    (void)config.setStorage(productKey());
    fuzz::require(config.getValue(QStringLiteral("SafeWrites"), 1) ==
                  config.getValue(QStringLiteral("safewrites"), 1));
    const int type = ssiTypeOfVersion("3A0104");
    fuzz::require(type >= 0 && type <= kSsiTypeUnknown);
    const ComPortNames names;
    for (const PresentPort& port : names.presentPorts({}))
        fuzz::require(names.numberOf(port.device) == port.number);
}
