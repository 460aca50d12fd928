#include "simulator/SimulatedDevice.h"

#include "platform/core/Pacing.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace pelorin {

namespace {

constexpr char kCr = '\r';
constexpr std::size_t kLongestFrame = 32;
constexpr std::size_t kLoggedFrames = 1000;

} // namespace

int SimulatedDevice::claim(const void* owner, TimePoint now, std::function<void()> lost)
{
    const std::lock_guard lock(m_mutex);
    bringUpTo(now);
    if (!m_present)
        return ENOENT;
    if (m_owner && m_owner != owner)
        return EBUSY;
    m_owner = owner;
    m_lost = std::move(lost);
    return 0;
}

bool SimulatedDevice::isClaimedBy(const void* owner, TimePoint now)
{
    const std::lock_guard lock(m_mutex);
    bringUpTo(now);
    return m_owner == owner;
}

void SimulatedDevice::release(const void* owner)
{
    const std::lock_guard lock(m_mutex);
    if (m_owner != owner)
        return;
    m_owner = nullptr;
    m_lost = nullptr;
}

void SimulatedDevice::setLine(const LineSettings& line, TimePoint now)
{
    const std::lock_guard lock(m_mutex);
    bringUpTo(now);
    if (m_line == line)
        return;
    m_line = line;
    if (m_present)
        lineChanged(now);
    changed();
}

void SimulatedDevice::setRts(bool set, TimePoint now)
{
    const std::lock_guard lock(m_mutex);
    bringUpTo(now);
    if (m_present)
        rtsChanged(set, now);
    changed();
}

int SimulatedDevice::receive(std::string_view bytes, TimePoint now)
{
    const std::lock_guard lock(m_mutex);
    bringUpTo(now);
    int count = 0;
    for (const char byte : bytes) {
        if (!m_present)
            break;
        ++count;
        receiveByte(byte, now);
    }
    changed();
    return count;
}

std::string SimulatedDevice::take(TimePoint now)
{
    const std::lock_guard lock(m_mutex);
    bringUpTo(now);
    std::string bytes;
    while (!m_sent.empty() && m_sent.front().arrival <= now) {
        bytes += m_sent.front().byte;
        m_sent.pop_front();
    }
    return bytes;
}

std::optional<SimulatedDevice::TimePoint> SimulatedDevice::nextDue(TimePoint now)
{
    const std::lock_guard lock(m_mutex);
    bringUpTo(now);
    std::optional<TimePoint> earliest = m_present ? nextProduction() : m_backAt;
    if (!m_sent.empty() && (!earliest || m_sent.front().arrival < *earliest))
        earliest = m_sent.front().arrival;
    return earliest;
}

bool SimulatedDevice::isPresent(TimePoint now)
{
    const std::lock_guard lock(m_mutex);
    bringUpTo(now);
    return m_present;
}

std::uint64_t SimulatedDevice::changes() const
{
    const std::lock_guard lock(m_mutex);
    return m_changes;
}

void SimulatedDevice::waitForChange(std::uint64_t seen, TimePoint limit) const
{
    std::unique_lock lock(m_mutex);
    m_changed.wait_until(lock, limit, [this, seen] { return m_changes != seen; });
}

void SimulatedDevice::wake()
{
    const std::lock_guard lock(m_mutex);
    changed();
}

void SimulatedDevice::setFault(const SimulatedFault& fault, std::string_view command)
{
    const std::lock_guard lock(m_mutex);
    if (fault.kind == SimulatedFault::Kind::None) {
        m_faults.erase(std::string(command));
    } else {
        m_faults.insert_or_assign(std::string(command), fault);
    }
}

void SimulatedDevice::clearFaults()
{
    const std::lock_guard lock(m_mutex);
    m_faults.clear();
}

void SimulatedDevice::vanish(TimePoint now)
{
    const std::lock_guard lock(m_mutex);
    bringUpTo(now);
    disappear(std::nullopt, now);
}

void SimulatedDevice::comeBack(TimePoint now)
{
    const std::lock_guard lock(m_mutex);
    bringUpTo(now);
    reappear(now);
}

std::vector<std::string> SimulatedDevice::takeReceivedFrames()
{
    const std::lock_guard lock(m_mutex);
    std::vector<std::string> frames(m_frames.begin(), m_frames.end());
    m_frames.clear();
    return frames;
}

std::chrono::nanoseconds SimulatedDevice::byteTime(const LineSettings& line)
{
    if (line.baud <= 0)
        return std::chrono::nanoseconds::zero();
    const int bits = 1 + line.dataBits + (line.parity == 'N' ? 0 : 1) + line.stopBits;
    return Pacing::lineTime(std::chrono::nanoseconds(std::chrono::seconds(bits)) / line.baud);
}

void SimulatedDevice::transmit(std::string_view command, std::string text, TimePoint due)
{
    if (const auto fault = takeFault(command, false)) {
        if (fault->kind == SimulatedFault::Kind::Silent)
            return;
        if (fault->kind == SimulatedFault::Kind::Late)
            due += std::chrono::milliseconds(fault->amount);
        text = fault->spoil(std::move(text));
    }

    const bool inTune = isInTune();
    const auto each = byteTime(LineSettings{ownBaud()});
    m_lineFree = std::max(m_lineFree, due);
    for (const char byte : text) {
        m_lineFree += each;
        m_sent.push_back({m_lineFree, inTune ? byte : static_cast<char>(byte | 0x80)});
    }
}

void SimulatedDevice::forgetTraffic()
{
    m_frame.clear();
    m_sent.clear();
    m_lineFree = {};
}

void SimulatedDevice::logFrame(std::string_view frame)
{
    if (m_frames.size() == kLoggedFrames)
        m_frames.pop_front();
    m_frames.emplace_back(frame);
}

void SimulatedDevice::changed()
{
    ++m_changes;
    m_changed.notify_all();
}

void SimulatedDevice::handleByte(char byte, TimePoint now)
{
    if (byte != kCr) {
        // Of a frame that is too long only so much is kept that it stays one.
        if (m_frame.size() <= kLongestFrame)
            m_frame += byte;
    } else if (const auto frame = std::exchange(m_frame, {}); frame.size() <= kLongestFrame) {
        handleReceived(frame, now);
    }
}

void SimulatedDevice::bringUpTo(TimePoint now)
{
    if (m_backAt && *m_backAt <= now)
        reappear(now);
    if (m_present)
        produce(now);
}

void SimulatedDevice::receiveByte(char byte, TimePoint now)
{
    if (isInTune())
        handleByte(byte, now);
}

void SimulatedDevice::handleReceived(const std::string& frame, TimePoint now)
{
    if (const auto fault = takeFault(commandOf(frame), true)) {
        const auto pause = std::chrono::milliseconds(fault->amount);
        if (fault->kind == SimulatedFault::Kind::Vanish)
            disappear(fault->amount > 0 ? std::optional(now + pause) : std::nullopt, now);
        return;
    }
    handleFrame(frame, now);
}

void SimulatedDevice::disappear(std::optional<TimePoint> backAt, TimePoint now)
{
    m_backAt = backAt;
    if (!m_present)
        return;
    m_present = false;
    m_owner = nullptr;
    if (const auto lost = std::exchange(m_lost, nullptr))
        lost();
    forgetTraffic();
    presenceChanged(false, now);
    changed();
}

void SimulatedDevice::reappear(TimePoint now)
{
    m_backAt.reset();
    if (m_present)
        return;
    m_present = true;
    presenceChanged(true, now);
    changed();
}

std::optional<SimulatedFault> SimulatedDevice::takeFault(std::string_view command, bool received)
{
    auto best = m_faults.end();
    for (auto rule = m_faults.begin(); rule != m_faults.end(); ++rule) {
        const bool fits =
            command.starts_with(rule->first) && rule->second.strikesCommand() == received;
        if (fits && (best == m_faults.end() || rule->first.size() > best->first.size()))
            best = rule;
    }
    if (best == m_faults.end())
        return std::nullopt;

    const SimulatedFault fault = best->second;
    if (fault.times > 0 && --best->second.times == 0)
        m_faults.erase(best);
    return fault;
}

bool SimulatedDevice::isInTune() const
{
    return ownBaud() > 0 && m_line == LineSettings{ownBaud()};
}

} // namespace pelorin
