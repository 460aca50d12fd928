#include "link/StreamFollower.h"

#include "link/SensorFrame.h"

#include <algorithm>
#include <utility>

namespace pelorin {

void StreamFollower::take(std::string_view bytes, TimePoint now)
{
    auto later = static_cast<long>(bytes.size());
    for (const char byte : bytes) {
        --later;
        m_frame += byte;
        if (byte == kFrameTerminator) {
            endFrame(std::max(now - later * m_byteTime, m_lastWhole));
        } else if (m_frame.size() == kPositionFrameLength) {
            ++m_batch.malformed;
            m_counted = true;
            m_refused = std::exchange(m_frame, {});
        }
    }
}

void StreamFollower::endFrame(TimePoint time)
{
    const std::string frame = std::exchange(m_frame, {});
    // A few bytes more than a frame has are one that is too long, not two.
    const bool isRest = m_counted && frame.size() <= kPositionFrameLength / 2;
    const auto position = m_counted ? std::nullopt : decodePosition(frame, m_scale);
    if (position) {
        m_newest = frame;
        m_position = *position;
        m_lastWhole = time;
        m_batch.samples.append({time, *position});
    } else {
        m_refused = m_counted ? m_refused + frame : frame;
        if (m_inStep && !isRest)
            ++m_batch.malformed;
    }
    m_inStep = true;
    m_counted = false;
}

std::chrono::nanoseconds StreamFollower::untilWhole() const
{
    return m_byteTime * static_cast<long>(kPositionFrameLength - m_frame.size());
}

PositionBatch StreamFollower::takeBatch()
{
    return std::exchange(m_batch, {});
}

} // namespace pelorin
