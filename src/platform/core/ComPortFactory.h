#pragma once

#include "platform/core/ComPort.h"

#include <QMap>
#include <QString>

#include <functional>
#include <memory>

namespace pelorin {

/// Makes the port that belongs to a device name. Built once, before the links that use it.
class ComPortFactory
{
public:
    /// Makes a closed port for a device; never null. The device need not exist: opening fails
    /// then.
    using Maker = std::function<std::unique_ptr<ComPort>(const QString& device)>;

    /// @param systemMaker makes the ports of the system's own devices, named by their paths
    explicit ComPortFactory(Maker systemMaker);

    /// Has devices whose name begins with a scheme, such as "simulator:", made by another maker.
    void addScheme(const QString& scheme, const Maker& maker);

    /// The port of a device name: "COM7", "\\.\COM7" or a device. The settings are read afresh to
    /// find the device of a COM number.
    [[nodiscard]] std::unique_ptr<ComPort> create(const QString& deviceName) const;

private:
    Maker m_systemMaker;
    QMap<QString, Maker> m_makers; ///< by scheme
};

} // namespace pelorin
