#include "Fuzz.h"

#include "sensor/PositionRecording.h"

#include <algorithm>
#include <cmath>

using namespace pelorin;

void take(const QByteArray& bytes)
{
    const RecordingContent content = recordingOf(bytes);
    double before = -HUGE_VAL;
    for (const PositionPoint& point : content.points) {
        fuzz::require(point.seconds >= before && std::isfinite(point.millimetres));
        before = point.seconds;
    }
    fuzz::require(content.isRecording || content.points.empty());
    fuzz::require((content.firstBadLine == 0) == (content.badLines == 0));
    (void)positionFigures(content.points, content.points.empty() ? 0.0 : before);
    (void)pointNearest(content.points, 0.5);
    if (!content.points.empty()) {
        const double first = content.points.front().seconds;
        (void)positionColumns(content.points, first, std::max(before - first, 0.1) / 1000);
    }
    const auto again =
        recordingOf(recordingHeadText(content.head) + recordingLines(content.points, 4));
    fuzz::require(again.points.size() == content.points.size());
}
