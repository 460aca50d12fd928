#include "simulator/SimulatedComPort.h"

#include "platform/core/Pacing.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace pelorin {

namespace {

constexpr int kQueueSize = 4096;
/// What others have done with the device meanwhile is not waited for.
constexpr std::chrono::milliseconds kLookAgain{20};

std::chrono::milliseconds timeLimit(int constant, int multiplier, std::size_t bytes)
{
    return Pacing::timeout(
        std::chrono::milliseconds(constant + multiplier * static_cast<int>(bytes)));
}

} // namespace

SimulatedComPort::SimulatedComPort(std::shared_ptr<SimulatedDevice> device)
    : m_device(std::move(device))
{
}

SimulatedComPort::~SimulatedComPort()
{
    SimulatedComPort::close();
}

int SimulatedComPort::open()
{
    if (isOpen())
        return EBUSY;
    if (!m_device)
        return ENOENT;
    if (const int error = m_vanished.open())
        return error;
    const auto now = Clock::now();
    if (const int error = m_device->claim(this, now, [this] { m_vanished.signal(); })) {
        m_vanished.close();
        return error;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_cancellation.resume();
    }
    m_state = State::Open;
    m_received.clear();
    m_device->setRts(true, now);
    (void)m_device->take(now); // sent while nobody listened
    return 0;
}

bool SimulatedComPort::isOpen() const
{
    return m_state == State::Open;
}

int SimulatedComPort::setLine(const LineSettings& line)
{
    if (const int error = errorFor(Use::Control))
        return error;
    if (line.baud <= 0)
        return EINVAL;
    m_line = line;
    m_device->setLine(line, Clock::now());
    return 0;
}

int SimulatedComPort::setTimeouts(const Timeouts& timeouts)
{
    if (const int error = errorFor(Use::Control))
        return error;
    m_timeouts = timeouts;
    return 0;
}

int SimulatedComPort::setQueueSizes(int receive, int transmit)
{
    if (const int error = errorFor(Use::Control))
        return error;
    return std::min(receive, transmit) < 1 || std::max(receive, transmit) > kQueueSize ? EINVAL : 0;
}

int SimulatedComPort::purge(Purge /*what*/)
{
    if (const int error = errorFor(Use::Control))
        return error;
    // Nothing waits on the transmit side: what did not leave in time was dropped.
    (void)m_device->take(Clock::now());
    m_received.clear();
    return 0;
}

int SimulatedComPort::setRts(bool on)
{
    if (const int error = errorFor(Use::Control))
        return error;
    m_device->setRts(on, Clock::now());
    return 0;
}

ComPort::ReadResult SimulatedComPort::read()
{
    const auto limit =
        Clock::now() + timeLimit(m_timeouts.readConstant, m_timeouts.readMultiplier, 1);
    for (;;) {
        const auto seen = m_device ? m_device->changes() : 0;
        if (const int error = errorFor(Use::Transfer))
            return {.error = error};
        const auto now = Clock::now();
        fetch(now);
        if (!m_received.empty()) {
            const char byte = m_received.front();
            m_received.pop_front();
            return {.received = true, .byte = byte};
        }
        if (now >= limit)
            return {};
        m_device->waitForChange(seen, std::min(limit, m_device->nextDue(now).value_or(limit)));
    }
}

ComPort::TakeResult SimulatedComPort::take()
{
    if (const int error = errorFor(Use::Transfer))
        return {.error = error};
    fetch(Clock::now());
    TakeResult result{.bytes = std::string(m_received.begin(), m_received.end())};
    m_received.clear();
    return result;
}

ComPort::WriteResult SimulatedComPort::write(std::string_view bytes)
{
    if (const int error = errorFor(Use::Transfer))
        return {.error = error};
    const auto each = byteTime();
    const auto begin = Clock::now();
    const TimePoint end = begin + each * static_cast<long>(bytes.size());
    const TimePoint limit =
        begin + timeLimit(m_timeouts.writeConstant, m_timeouts.writeMultiplier, bytes.size());

    const int error = waitUntil(std::min(end, limit));
    if (error == ENODEV)
        return {.error = error};
    const auto now = Clock::now();
    const TimePoint stopped = std::min(now, limit);
    if (stopped < end) // what has not left is dropped
        bytes = bytes.substr(0, static_cast<std::size_t>((stopped - begin) / each));
    const int written = m_device->receive(bytes, now);
    return {.error = error ? error : errorFor(Use::Transfer), .written = written};
}

ComPort::Watch SimulatedComPort::watch() const
{
    return {m_state == State::Open ? m_vanished.descriptor() : -1, POLLIN};
}

ComPort::Watch SimulatedComPort::watchBytes() const
{
    if (m_state != State::Open)
        return {};
    const auto now = Clock::now();
    const auto due = m_device->nextDue(now).value_or(now + kLookAgain);
    return {.due = m_received.empty() ? std::min(due, now + kLookAgain) : now};
}

void SimulatedComPort::beginExchange(std::uint64_t number)
{
    const std::lock_guard lock(m_mutex);
    m_cancellation.begin(number);
}

void SimulatedComPort::cutShort(std::uint64_t number)
{
    {
        const std::lock_guard lock(m_mutex);
        m_cancellation.cutShort(number);
    }
    if (m_device)
        m_device->wake();
}

void SimulatedComPort::interrupt()
{
    {
        const std::lock_guard lock(m_mutex);
        m_cancellation.cancelAll();
    }
    if (m_device)
        m_device->wake();
}

void SimulatedComPort::close()
{
    m_state = State::Closed;
    if (m_device)
        m_device->release(this);
    m_vanished.close();
}

/// Why a port cannot be used at present, 0 if it can. Notices that the device has vanished.
int SimulatedComPort::errorFor(Use use)
{
    if (m_state == State::Open && !m_device->isClaimedBy(this, Clock::now()))
        m_state = State::Gone;
    switch (m_state) {
    case State::Closed:
        return EBADF;
    case State::Gone:
        return ENODEV;
    case State::Open:
        break;
    }
    const std::lock_guard lock(m_mutex);
    return use == Use::Transfer && m_cancellation.isCancelled() ? ECANCELED : 0;
}

/// Waits while the port can be used, until a time.
int SimulatedComPort::waitUntil(TimePoint limit)
{
    for (;;) {
        const auto seen = m_device->changes();
        if (const int error = errorFor(Use::Transfer))
            return error;
        if (Clock::now() >= limit)
            return 0;
        m_device->waitForChange(seen, limit);
    }
}

std::chrono::nanoseconds SimulatedComPort::byteTime() const
{
    return SimulatedDevice::byteTime(m_line);
}

void SimulatedComPort::fetch(TimePoint now)
{
    for (const char byte : m_device->take(now)) {
        if (m_received.size() < kQueueSize)
            m_received.push_back(byte);
    }
}

} // namespace pelorin
