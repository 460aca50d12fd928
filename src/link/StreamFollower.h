#pragma once

#include "link/PositionFrame.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace pelorin {

/// Finds the frames in the bytes of a position stream. What comes before the first CR may be the
/// end of a frame whose beginning nobody has seen: it counts as a frame only if it is one, and not
/// as a malformed one. One thread.
class StreamFollower
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// @param byteTime that a byte takes on the line
    /// @param begin when the stream began to be waited for
    StreamFollower(const PositionScale& scale, std::chrono::nanoseconds byteTime, TimePoint begin)
        : m_scale(scale), m_byteTime(byteTime), m_lastWhole(begin)
    {
    }

    /// Takes the next bytes, the last of which has just come. Those before came as long ago as the
    /// line takes for what followed them.
    void take(std::string_view bytes, TimePoint now);

    /// The stream is waited for anew: its supply has just come.
    void beginAgain(TimePoint now) { m_lastWhole = now; }

    /// How long the next frame takes at least until it is whole.
    [[nodiscard]] std::chrono::nanoseconds untilWhole() const;

    /// The last whole frame; empty before the first.
    [[nodiscard]] const std::string& newestFrame() const { return m_newest; }
    /// What it says, in millimetres.
    [[nodiscard]] double newestPosition() const { return m_position; }
    /// When it came; before the first, when the stream began to be waited for.
    [[nodiscard]] TimePoint lastWhole() const { return m_lastWhole; }
    /// The last bytes that were no frame, or are none yet.
    [[nodiscard]] const std::string& remainder() const
    {
        return m_frame.empty() ? m_refused : m_frame;
    }

    [[nodiscard]] bool hasBatch() const { return !m_batch.samples.empty() || m_batch.malformed; }
    /// What has come since the last call.
    [[nodiscard]] PositionBatch takeBatch();

private:
    void endFrame(TimePoint time);

    PositionScale m_scale;
    std::chrono::nanoseconds m_byteTime;
    TimePoint m_lastWhole;
    std::string m_frame;    ///< of the bytes since the last CR those that are not counted yet
    bool m_counted = false; ///< more than a frame's bytes have come since the last CR
    bool m_inStep = false;  ///< a CR has come
    std::string m_newest;
    double m_position = 0.0;
    std::string m_refused;
    PositionBatch m_batch;
};

} // namespace pelorin
