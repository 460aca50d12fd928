#include "platform/core/TermiosComPort.h"

#include "platform/core/Pacing.h"
#include "platform/core/TermiosDevice.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pelorin {

namespace {

using namespace std::chrono_literals;

constexpr LineSettings kLineAtOpening = {4800, 'N', 8, 1};

/// What the system's own queue holds in either direction.
constexpr int kQueueSize = 4096;

/// How many of the bytes that were handed over have left; 0 if the device does not tell.
int countSent(TermiosDevice& device, std::size_t handed)
{
    int queued = 0;
    if (device.countQueued(queued) != 0)
        return 0;
    return std::max(static_cast<int>(handed) - queued, 0);
}

} // namespace

TermiosComPort::TermiosComPort(std::string path, PosixCalls calls)
    : m_path(std::move(path)), m_calls(std::move(calls))
{
}

TermiosComPort::~TermiosComPort() = default;

/// Runs an operation that does not wait.
template <class Operation>
int TermiosComPort::perform(Operation operation)
{
    return m_device ? outcome(operation(*m_device)) : m_absence;
}

int TermiosComPort::open()
{
    if (isOpen())
        return EBUSY;
    auto device = std::make_unique<TermiosDevice>(m_calls);
    if (const int error = device->open(m_path, kLineAtOpening))
        return error;

    m_line = kLineAtOpening;
    const std::lock_guard lock(m_mutex);
    m_device = std::move(device);
    m_cancellation.resume();
    showCancellation();
    return 0;
}

bool TermiosComPort::isOpen() const
{
    return m_device != nullptr;
}

void TermiosComPort::close()
{
    dropDevice(EBADF);
}

ComPort::Watch TermiosComPort::watchBytes() const
{
    return {m_device ? m_device->descriptor() : -1, POLLIN};
}

ComPort::Watch TermiosComPort::watch() const
{
    return {m_device ? m_device->descriptor() : -1, 0}; // a hang-up need not be asked for
}

void TermiosComPort::beginExchange(std::uint64_t number)
{
    const std::lock_guard lock(m_mutex);
    m_cancellation.begin(number);
    showCancellation();
}

void TermiosComPort::cutShort(std::uint64_t number)
{
    const std::lock_guard lock(m_mutex);
    m_cancellation.cutShort(number);
    showCancellation();
}

void TermiosComPort::interrupt()
{
    const std::lock_guard lock(m_mutex);
    if (m_device)
        m_cancellation.cancelAll();
    showCancellation();
}

/// With m_mutex held, after every change: so the device's waits end exactly while it is cancelled.
void TermiosComPort::showCancellation()
{
    if (m_device)
        m_device->cancel(m_cancellation.isCancelled());
}

int TermiosComPort::setLine(const LineSettings& line)
{
    return perform([&](TermiosDevice& device) {
        const int error = device.setLine(line);
        if (error == 0)
            m_line = line;
        return error;
    });
}

int TermiosComPort::setRts(bool on)
{
    return perform([&](TermiosDevice& device) { return device.setRts(on); });
}

int TermiosComPort::setTimeouts(const Timeouts& timeouts)
{
    return perform([&](TermiosDevice&) {
        m_timeouts = timeouts;
        return 0;
    });
}

int TermiosComPort::setQueueSizes(int receive, int transmit)
{
    return perform([&](TermiosDevice&) {
        const bool fits = std::min(receive, transmit) >= 0 && //
                          std::max(receive, transmit) <= kQueueSize;
        return fits ? 0 : EINVAL;
    });
}

int TermiosComPort::purge(Purge what)
{
    return perform([&](TermiosDevice& device) {
        const int error = device.discardInput();
        return error == 0 && what == Purge::Both ? device.discardPendingOutput() : error;
    });
}

ComPort::ReadResult TermiosComPort::read()
{
    if (!m_device)
        return {.error = m_absence};

    ReadResult result;
    const auto limit = 1ms * (m_timeouts.readConstant + m_timeouts.readMultiplier);
    const int error = receive(*m_device, m_calls.now() + Pacing::timeout(limit), result.byte);
    result.error = error == ETIMEDOUT ? 0 : outcome(error);
    result.received = error == 0;
    return result;
}

int TermiosComPort::receive(TermiosDevice& device, TimePoint deadline, char& byte)
{
    int error = EAGAIN;
    while (error == EAGAIN) {
        error = device.wait(POLLIN, deadline);
        std::size_t count = 0;
        if (error == 0)
            error = device.read({&byte, 1}, count);
        if (error == EAGAIN && m_calls.now() >= deadline)
            error = ETIMEDOUT;
    }
    return error;
}

ComPort::TakeResult TermiosComPort::take()
{
    if (!m_device)
        return {.error = m_absence};
    {
        const std::lock_guard lock(m_mutex);
        if (m_cancellation.isCancelled())
            return {.error = ECANCELED};
    }
    std::array<char, kQueueSize> room{};
    std::size_t count = 0;
    const int error = m_device->read(room, count);
    if (error == EAGAIN)
        return {};
    return {.error = outcome(error), .bytes = std::string(room.data(), count)};
}

ComPort::WriteResult TermiosComPort::write(std::string_view bytes)
{
    if (!m_device)
        return {.error = m_absence};

    const int size = static_cast<int>(bytes.size());
    const auto limit = 1ms * (m_timeouts.writeConstant + size * m_timeouts.writeMultiplier);
    const auto deadline = m_calls.now() + Pacing::timeout(limit);
    std::size_t handed = 0;
    int error = handOver(*m_device, bytes, deadline, handed);
    if (error == 0)
        error = waitUntilSent(*m_device, deadline);
    if (error == 0)
        error = waitOutLineTime(*m_device);

    const int written = error == 0 ? size : countSent(*m_device, handed);
    return {.error = error == ETIMEDOUT ? 0 : outcome(error), .written = written};
}

int TermiosComPort::handOver(TermiosDevice& device, std::string_view bytes, TimePoint deadline,
                             std::size_t& handed)
{
    while (handed < bytes.size()) {
        std::size_t taken = 0;
        int error = device.wait(POLLOUT, deadline);
        if (error == 0)
            error = device.write(bytes.substr(handed), taken);
        if (error == EAGAIN)
            error = pause(device, deadline);
        if (error != 0)
            return error;
        handed += taken;
        m_lineFree = std::max(m_lineFree, m_calls.now()) + timeOnLine(taken);
    }
    return 0;
}

int TermiosComPort::waitUntilSent(TermiosDevice& device, TimePoint deadline)
{
    int error = device.drain();
    while (error == EAGAIN) {
        error = pause(device, deadline);
        if (error == 0)
            error = device.drain();
    }
    return error;
}

/// Adapters report everything sent while bytes are still in their FIFO, and pseudo-terminals at
/// once: that the last bit is out only the time tells.
int TermiosComPort::waitOutLineTime(TermiosDevice& device)
{
    const int error = device.wait(0, m_lineFree);
    return error == ETIMEDOUT ? 0 : error;
}

/// Lets a millisecond pass.
/// @return ETIMEDOUT at the deadline
int TermiosComPort::pause(TermiosDevice& device, TimePoint deadline)
{
    const auto now = m_calls.now();
    if (now >= deadline)
        return ETIMEDOUT;
    const int error = device.wait(0, std::min(deadline, now + 1ms));
    return error == ETIMEDOUT ? 0 : error;
}

std::chrono::nanoseconds TermiosComPort::timeOnLine(std::size_t bytes) const
{
    const int bits = 1 + m_line.dataBits + (m_line.parity == 'N' ? 0 : 1) + m_line.stopBits;
    const auto time = std::chrono::nanoseconds(1s) * bits * static_cast<int>(bytes) / m_line.baud;
    return Pacing::lineTime(time);
}

/// What an operation reports. A device that has gone is closed, whatever noticed.
int TermiosComPort::outcome(int error)
{
    if (error == ENODEV)
        dropDevice(ENODEV);
    return error;
}

void TermiosComPort::dropDevice(int absence)
{
    std::unique_ptr<TermiosDevice> device; // closed without the lock: it may take its time
    const std::lock_guard lock(m_mutex);
    device.swap(m_device);
    m_absence = absence;
}

} // namespace pelorin
