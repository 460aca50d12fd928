#pragma once

#include "link/StreamFollower.h"
#include "platform/core/ComPort.h"
#include "platform/core/MessageTarget.h"
#include "platform/core/RequestWorker.h"

#include <chrono>
#include <mutex>
#include <optional>

namespace pelorin {

class SensorProtocol;

/// The position stream that a worker follows between its requests, and what of it is to be handed
/// over to the user-interface thread. The worker's, but for takeFrames.
class FollowedStream
{
public:
    /// @param told gets a message when there is something to take, not again before it was taken
    explicit FollowedStream(MessageTarget::Poster told);

    /// Has the worker follow the stream from now on.
    /// @param byteTime that a byte takes on the line
    void begin(RequestWorker::Context& context, const PositionScale& scale,
               std::chrono::nanoseconds byteTime);
    void end(RequestWorker::Context& context);
    [[nodiscard]] bool isFollowed() const { return m_follower.has_value(); }
    /// The sensor's supply has come, and the stream is waited for anew.
    void beginAgain();

    /// A position of now, in millimetres; nothing without one. While it is followed.
    [[nodiscard]] std::optional<double> readPosition(ComPort& port, SensorProtocol& protocol);

    /// What has come since the last call. Any thread.
    [[nodiscard]] PositionBatch takeFrames();

private:
    using TimePoint = StreamFollower::TimePoint;

    ComPort::TakeResult take(ComPort& port);
    [[nodiscard]] TimePoint handOver(TimePoint now);

    const MessageTarget::Poster m_told;
    std::optional<StreamFollower> m_follower;
    TimePoint m_handedOver;

    std::mutex m_mutex;
    PositionBatch m_batch;    ///< m_mutex, as the next
    bool m_hasFrames = false; ///< it was told that there is something to take
};

} // namespace pelorin
