#include "link/FollowedStream.h"

#include "link/SensorProtocol.h"
#include "platform/core/ComPort.h"

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
    context.follow([this](auto& running) {
        const int error = take(running.port());
        const auto now = Clock::now();
        const auto pause = error == 0 ? m_follower->untilWhole() : kPauseAfterError;
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
    (void)take(port); // what hinders it hinders the read, too
    if (!protocol.awaitPosition(*m_follower))
        return std::nullopt;
    return m_follower->newestPosition();
}

/// @return 0 or the system's error code
int FollowedStream::take(ComPort& port)
{
    const auto taken = port.take();
    m_follower->take(taken.bytes, Clock::now());
    return taken.error;
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
