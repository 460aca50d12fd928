#pragma once

#include <QString>

#include <map>
#include <memory>
#include <mutex>

namespace pelorin {

class ComPort;
class SimulatedDevice;
class SimulatedDisplayUnit;
class SimulatedSensor;

/// The simulated devices of this process, by name. A device lives as long as this object does, so
/// that a port which is closed and opened again finds it as it was left. Any thread.
///
/// Names are "simulator:sensor" and "simulator:display", with options such as
/// "simulator:sensor?type=1&moving=1":
///     type=0|1|2           of the sensor; 2 if it is not given
///     moving=0|1           the magnet moves by itself
///     position=MM          where it is if it does not
///     power=rts|manual     whether RTS switches the supply
///     node=0..9            of the display unit; 1 if it is not given
///     fault=RULE           as SimulatedFaultRule reads it; may be given several times
class SimulatedPorts
{
public:
    /// A device that a name describes, new; null if the name is not one of the above.
    [[nodiscard]] static std::shared_ptr<SimulatedDevice> createDevice(const QString& name);

    /// The device of a name; null if the name is not one of the above.
    [[nodiscard]] std::shared_ptr<SimulatedDevice> device(const QString& name);
    [[nodiscard]] std::shared_ptr<SimulatedSensor> sensor(const QString& name);
    [[nodiscard]] std::shared_ptr<SimulatedDisplayUnit> displayUnit(const QString& name);

    /// A port to the device of a name. For any other name it is one that cannot be opened.
    [[nodiscard]] std::unique_ptr<ComPort> makePort(const QString& name);

private:
    std::mutex m_mutex;
    std::map<QString, std::shared_ptr<SimulatedDevice>> m_devices; ///< m_mutex
};

} // namespace pelorin
