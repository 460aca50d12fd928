#include "sensor/PositionRecorder.h"

#include "sensor/PositionRecording.h"

#include <vector>

namespace pelorin {

WholeFile::Outcome PositionRecorder::begin(const QString& path, const RecordingHead& head,
                                           std::chrono::steady_clock::time_point moment)
{
    WholeFile::Outcome opened = m_file.open(path);
    if (!opened.isDone())
        return opened;
    m_begin = moment;
    m_decimals = positionDecimals(head.resolution);
    m_seconds = 0.0;
    return m_file.append(recordingHeadText(head));
}

WholeFile::Outcome PositionRecorder::add(const QList<PositionSample>& samples)
{
    std::vector<PositionPoint> points;
    for (const PositionSample& sample : samples) {
        if (sample.time >= m_begin) {
            points.push_back(
                {std::chrono::duration<double>(sample.time - m_begin).count(), sample.millimetres});
        }
    }
    WholeFile::Outcome outcome = m_file.append(recordingLines(points, m_decimals));
    if (outcome.isDone() && !points.empty())
        m_seconds = points.back().seconds;
    return outcome;
}

WholeFile::Outcome PositionRecorder::end()
{
    return isRecording() ? m_file.close() : WholeFile::Outcome();
}

} // namespace pelorin
