#pragma once

#include "platform/core/Pacing.h"
#include "simulator/SimulatedSensor.h"
#include "support/FaultyCalls.h"

#include <QString>

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

namespace pelorin::test {

/// What fails while something is done with the sensor.
struct Fault
{
    QByteArray call{};    ///< of the port, as FaultyCalls names it
    int error = 0;        ///< with which it fails; 0: each write takes one byte only
    int at = 0;           ///< so many of these calls before succeed
    bool lasts = false;   ///< all after it fail, too
    QByteArray unheard{}; ///< instead: commands that do not reach the sensor

    [[nodiscard]] QString inWords() const
    {
        return QStringLiteral("%1 %2 at %3%4")
            .arg(QString::fromLatin1(call + unheard), QString::number(error), QString::number(at),
                 lasts ? QStringLiteral(" and on") : QString());
    }
};

/// The calls of a port whose RTS switches a sensor's supply. A table keeps it: a worker that is
/// slow to end may outlive everything else.
class FaultyLine final : public std::enable_shared_from_this<FaultyLine>
{
public:
    using Made = std::map<QByteArray, int>; ///< how often each call was made

    explicit FaultyLine(std::shared_ptr<SimulatedSensor> sensor) : m_sensor(std::move(sensor))
    {
        m_faults.raised = 0;
        m_faults.before = [this](const QByteArray& name) { return errorOf(name); };
        m_faults.sizeOfWrite = [this](std::size_t size) {
            const std::lock_guard lock(m_mutex);
            return m_fault && m_fault->call == "write" && m_fault->error == 0 ? 1 : size;
        };
    }
    [[nodiscard]] PosixCalls table()
    {
        PosixCalls calls = m_faults.table();
        calls.ioctl = [line = shared_from_this(),
                       inner = calls.ioctl](int fd, unsigned long request, int* argument) {
            const int result = inner(fd, request, argument);
            if (result == 0 && (request == TIOCMBIS || request == TIOCMBIC))
                line->m_sensor->setRts(request == TIOCMBIS, SimulatedSensor::Clock::now());
            return result;
        };
        return calls;
    }

    void arm(const Fault& fault)
    {
        m_hasFault = !fault.call.isEmpty() || !fault.unheard.isEmpty();
        if (!fault.unheard.isEmpty())
            m_sensor->setFault({SimulatedFault::Kind::Deaf}, fault.unheard.toStdString());
        if (m_hasFault) // a line that is stuck holds every frame of a Connect
            Pacing::setSpeeds({100, 200, 50});
        (void)exchange(fault);
    }
    /// Whether it was armed with one that strikes.
    [[nodiscard]] bool hasFault() const { return m_hasFault; }
    /// @return the calls since arm
    Made disarm()
    {
        m_sensor->clearFaults();
        Pacing::setSpeeds({100, 200, 1});
        return exchange({});
    }

private:
    Made exchange(const std::optional<Fault>& fault)
    {
        const std::lock_guard lock(m_mutex);
        m_fault = fault;
        return std::exchange(m_made, {});
    }
    /// With which the next call fails; 0 if it does not.
    [[nodiscard]] int errorOf(const QByteArray& name)
    {
        const std::lock_guard lock(m_mutex);
        if (!m_fault)
            return 0;
        const int number = m_made[name]++;
        const bool strikes = m_fault->lasts ? number >= m_fault->at : number == m_fault->at;
        return name == m_fault->call && strikes ? m_fault->error : 0;
    }

    const std::shared_ptr<SimulatedSensor> m_sensor;
    bool m_hasFault = false;
    FaultyCalls m_faults;
    std::mutex m_mutex; ///< guards the next
    std::optional<Fault> m_fault;
    Made m_made;
};

} // namespace pelorin::test
