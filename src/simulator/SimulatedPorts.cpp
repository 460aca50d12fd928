#include "simulator/SimulatedPorts.h"

#include "platform/core/ComPortNames.h"
#include "simulator/SimulatedComPort.h"
#include "simulator/SimulatedDisplayUnit.h"
#include "simulator/SimulatedSensor.h"

#include <QUrl>
#include <QUrlQuery>

namespace pelorin {

namespace {

using Items = QList<std::pair<QString, QString>>;

/// Reads a number within bounds.
template <class Number>
bool readNumber(const QString& text, Number low, Number high, Number& number)
{
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    if (!isNumber || !(value >= static_cast<double>(low) && value <= static_cast<double>(high)))
        return false;
    number = static_cast<Number>(value);
    return static_cast<double>(number) == value;
}

bool readSwitch(const QString& text, bool& on)
{
    on = text == QLatin1String("1");
    return on || text == QLatin1String("0");
}

bool readSupply(const QString& text, SimulatedSensor::Supply& supply)
{
    const bool manual = text == QLatin1String("manual");
    supply = manual ? SimulatedSensor::Supply::ByLineSpeed : SimulatedSensor::Supply::ByRts;
    return manual || text == QLatin1String("rts");
}

bool readOption(const QString& name, const QString& text, SimulatedSensor::Options& options)
{
    if (name == QLatin1String("type"))
        return readNumber(text, 0, 2, options.type);
    if (name == QLatin1String("moving"))
        return readSwitch(text, options.moving);
    if (name == QLatin1String("position"))
        return readNumber(text, -100000.0, 100000.0, options.magnetPosition);
    return name == QLatin1String("power") && readSupply(text, options.supply);
}

std::shared_ptr<SimulatedDevice> createSensor(const Items& items)
{
    SimulatedSensor::Options options;
    for (const auto& [name, text] : items) {
        if (!readOption(name, text, options))
            return nullptr;
    }
    return std::make_shared<SimulatedSensor>(options);
}

std::shared_ptr<SimulatedDevice> createDisplayUnit(const Items& items)
{
    int node = 1;
    for (const auto& [name, text] : items) {
        if (name != QLatin1String("node") || !readNumber(text, 0, 9, node))
            return nullptr;
    }
    return std::make_shared<SimulatedDisplayUnit>(node);
}

} // namespace

std::shared_ptr<SimulatedDevice> SimulatedPorts::createDevice(const QString& name)
{
    if (!name.startsWith(kSimulatedScheme))
        return nullptr;
    const QUrl url(name);
    const QUrlQuery query(url);
    QUrlQuery own = query;
    own.removeAllQueryItems(QStringLiteral("fault"));
    const Items items = own.queryItems(QUrl::FullyDecoded);

    std::shared_ptr<SimulatedDevice> device;
    if (url.path() == QLatin1String("sensor")) {
        device = createSensor(items);
    } else if (url.path() == QLatin1String("display")) {
        device = createDisplayUnit(items);
    }
    if (!device)
        return nullptr;

    for (const QString& text :
         query.allQueryItemValues(QStringLiteral("fault"), QUrl::FullyDecoded)) {
        const auto rule = SimulatedFaultRule::parse(text.toStdString());
        if (!rule)
            return nullptr;
        device->setFault(rule->fault, rule->command);
    }
    return device;
}

std::shared_ptr<SimulatedDevice> SimulatedPorts::device(const QString& name)
{
    const std::lock_guard lock(m_mutex);
    const auto known = m_devices.find(name);
    if (known != m_devices.end())
        return known->second;
    auto created = createDevice(name);
    if (created)
        m_devices.emplace(name, created);
    return created;
}

std::shared_ptr<SimulatedSensor> SimulatedPorts::sensor(const QString& name)
{
    return std::dynamic_pointer_cast<SimulatedSensor>(device(name));
}

std::shared_ptr<SimulatedDisplayUnit> SimulatedPorts::displayUnit(const QString& name)
{
    return std::dynamic_pointer_cast<SimulatedDisplayUnit>(device(name));
}

std::unique_ptr<ComPort> SimulatedPorts::makePort(const QString& name)
{
    return std::make_unique<SimulatedComPort>(device(name));
}

} // namespace pelorin
