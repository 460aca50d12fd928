#include "link/FollowedStream.h"

#include "link/SensorProtocol.h"

#include <algorithm>
#include <utility>

namespace pelorin {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

constexpr auto kBatchPeriod = 34ms; // between two that are handed over
constexpr auto kPauseAfterError = 100ms;

} // namespace

FollowedStream::FollowedStream(MessageTarget::Poster told) : m_told(std::move(told)) {}

void FollowedStream::begin(RequestWorker::Context& context, const PositionScale& scale,
                           std::chrono::nanoseconds byteTime)
{
    (void)takeFrames(); // of an earlier stream
    m_follower.emplace(scale, byteTime, Clock::now());
    context.follow([this, byteTime](auto& running) {
        const auto [error, bytes] = take(running.port());
        const auto now = Clock::now();
        // A device on a line that is none could send without end: of what it sends no more is
        // taken than the line brings, but so much more that what was held up is caught up.
        const auto atLine = byteTime * static_cast<long>(bytes.size()) / 2;
        const auto pause =
            error == 0 ? std::max(m_follower->untilWhole(), atLine) : kPauseAfterError;
        return RequestWorker::FollowTimes{now + pause, handOver(now)};
    });
}

void FollowedStream::end(RequestWorker::Context& context)
{
    context.follow({});
    m_follower.reset();
}

void FollowedStream::beginAgain()
{
    if (m_follower)
        m_follower->beginAgain(Clock::now());
}

std::optional<double> FollowedStream::readPosition(ComPort& port, SensorProtocol& protocol)
{
    take(port); // what hinders it hinders the read, too
    if (!protocol.awaitPosition(*m_follower))
        return std::nullopt;
    return m_follower->newestPosition();
}

ComPort::TakeResult FollowedStream::take(ComPort& port)
{
    auto taken = port.take();
    m_follower->take(taken.bytes, Clock::now());
    return taken;
}

/// Gives what has come to the user-interface thread, if it is time for it.
/// @return when it will be
FollowedStream::TimePoint FollowedStream::handOver(TimePoint now)
{
    if (!m_follower->hasBatch())
        return TimePoint::max();
    if (const auto due = m_handedOver + kBatchPeriod; now < due)
        return due;
    m_handedOver = now;
    const auto batch = m_follower->takeBatch();
    bool first = false;
    {
        const std::lock_guard lock(m_mutex);
        first = !std::exchange(m_hasFrames, true);
        m_batch.samples.append(batch.samples);
        m_batch.malformed += batch.malformed;
    }
    if (first)
        m_told.post(0);
    return TimePoint::max();
}

PositionBatch FollowedStream::takeFrames()
{
    const std::lock_guard lock(m_mutex);
    m_hasFrames = false;
    return std::exchange(m_batch, {});
}

} // namespace pelorin
