#include "sensor/PortUse.h"

#include "link/SensorLink.h"
#include "platform/core/ComPortNames.h"
#include "platform/core/Pacing.h"
#include "sensor/Plan.h"

#include <algorithm>
#include <utility>

namespace pelorin {

using namespace std::chrono_literals;

PortUse::PortUse(SensorLink& link) : m_link(link)
{
    m_wait.setSingleShot(true);
    m_wait.setTimerType(Qt::PreciseTimer);
    connect(&m_wait, &QTimer::timeout, this,
            [this] { m_request = m_link.close(m_use->supplyOff ? 1 : 0); });
}

std::chrono::milliseconds PortUse::storeWait() const
{
    if (!m_sinceWrite.isValid() || m_link.isDeviceGone())
        return 0ms;
    return std::max(Pacing::pause(kStoreTime) - std::chrono::milliseconds(m_sinceWrite.elapsed()),
                    std::chrono::milliseconds(0));
}

void PortUse::open(int number, Done done)
{
    begin({.open = [this, number] { return m_link.open(number); },
           .name = ComPortNames::nameOf(number),
           .done = std::move(done),
           .changes = true});
}

void PortUse::open(int number, const QString& device, Done done)
{
    begin({.open = [this, number, device] { return m_link.open(number, device); },
           .name = ComPortNames::nameOf(number, device),
           .done = std::move(done),
           .changes = true});
}

void PortUse::reopen(Done done)
{
    begin({.open = [this] { return m_link.reopen(); },
           .name = ComPortNames::nameOf(m_link.portNumber(), m_link.device()),
           .done = std::move(done)});
}

void PortUse::close(bool supplyOff, Done done)
{
    begin({.supplyOff = supplyOff, .done = std::move(done)});
}

void PortUse::begin(Use use)
{
    const bool harmless = !m_link.isOpen() && !use.supplyOff;
    const bool closing = m_request != 0 && !m_use->opening && !use.supplyOff;
    const auto former = std::exchange(m_use, std::move(use));
    if (!closing) { // else the answer to that is awaited
        m_request = 0;
        m_wait.start(harmless ? 0ms : storeWait());
    }
    if (former)
        former->done(false);
}

bool PortUse::takeResult(RequestId answered, int result)
{
    if (answered != m_request)
        return false;
    m_request = 0;
    if (!m_use->opening) {
        if (result != 1)
            Q_EMIT stuck(m_name);
        if (m_use->open) {
            m_use->opening = true;
            m_name = m_use->name;
            m_request = m_use->open();
            return true;
        }
    }
    const Use use = *std::exchange(m_use, std::nullopt);
    use.done(result == 1);
    return true;
}

} // namespace pelorin
