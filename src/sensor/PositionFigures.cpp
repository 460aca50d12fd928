#include "sensor/PositionFigures.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace pelorin {

namespace {

constexpr double kVelocityTime = 0.5;
constexpr int kMostDecimals = 4;

/// The slope of the line that fits the points best; nothing if all have come at one moment.
std::optional<double> slopeOf(PositionPoints points)
{
    if (points.empty())
        return std::nullopt;
    const PositionPoint origin = points.front(); // small numbers lose nothing
    double times = 0.0;
    double lengths = 0.0;
    for (const PositionPoint& point : points) {
        times += point.seconds - origin.seconds;
        lengths += point.millimetres - origin.millimetres;
    }
    const auto count = static_cast<double>(points.size());
    double products = 0.0;
    double squares = 0.0;
    for (const PositionPoint& point : points) {
        const double time = point.seconds - origin.seconds - times / count;
        products += time * (point.millimetres - origin.millimetres - lengths / count);
        squares += time * time;
    }
    return squares > 0.0 ? std::optional(products / squares) : std::nullopt;
}

} // namespace

/// Mean and deviation are carried along from point to point: a sum of squares of large positions
/// would lose the noise.
void PositionTally::add(const PositionPoint& point)
{
    const auto& [seconds, value, isFirst] = point;
    const bool first = m_figures.count == 0;
    const bool hasGap = !first && !isFirst;
    const double gap = hasGap ? seconds - m_before : 0.0;
    m_before = seconds;
    m_figures.longestGap = std::max(m_figures.longestGap, gap);
    if (hasGap && gap < kPositionSilence) {
        m_streamed += gap;
        ++m_intervals;
    }
    m_figures.minimum = first ? value : std::min(m_figures.minimum, value);
    m_figures.maximum = first ? value : std::max(m_figures.maximum, value);
    const double distance = value - m_figures.mean;
    m_figures.mean += distance / static_cast<double>(++m_figures.count);
    m_squares += distance * (value - m_figures.mean);
}

PositionFigures PositionTally::figures(double end) const
{
    PositionFigures figures = m_figures;
    if (figures.count == 0)
        return figures;
    if (figures.count > 1)
        figures.deviation = std::sqrt(m_squares / static_cast<double>(figures.count - 1));
    if (m_streamed > 0.0)
        figures.perSecond = m_intervals / m_streamed;
    figures.longestGap = std::max(figures.longestGap, end - m_before);
    return figures;
}

PositionFigures positionFigures(PositionPoints points, double end)
{
    PositionTally tally;
    for (const PositionPoint& point : points)
        tally.add(point);
    PositionFigures figures = tally.figures(end);
    if (!points.empty())
        figures.velocity = slopeOf(pointsBetween(points, end - kVelocityTime, end));
    return figures;
}

PositionPoints pointsBetween(PositionPoints points, double from, double to)
{
    const auto begin = std::ranges::lower_bound(points, from, {}, &PositionPoint::seconds);
    const auto end = std::ranges::upper_bound(begin, points.end(), to, {}, &PositionPoint::seconds);
    return {begin, end};
}

std::optional<PositionPoint> pointNearest(PositionPoints points, double seconds)
{
    if (points.empty())
        return std::nullopt;
    const auto after = std::ranges::lower_bound(points, seconds, {}, &PositionPoint::seconds);
    if (after == points.begin())
        return *after;
    const PositionPoint before = *(after - 1);
    if (after == points.end() || seconds - before.seconds <= after->seconds - seconds)
        return before;
    return *after;
}

std::vector<PositionColumn> positionColumns(PositionPoints points, double from, double perColumn)
{
    std::vector<PositionColumn> columns;
    for (const PositionPoint& point : points) {
        const int column = static_cast<int>(std::floor((point.seconds - from) / perColumn));
        const double value = point.millimetres;
        if (columns.empty() || columns.back().column != column)
            columns.push_back({column, point, point, value, value});
        PositionColumn& last = columns.back();
        last.last = point;
        last.minimum = std::min(last.minimum, value);
        last.maximum = std::max(last.maximum, value);
    }
    return columns;
}

int positionDecimals(double mmPerCount)
{
    if (mmPerCount <= 0.0)
        return kMostDecimals;
    int decimals = 0;
    for (double counts = mmPerCount; decimals < kMostDecimals; ++decimals, counts *= 10.0) {
        if (std::abs(counts - std::round(counts)) < 1e-6)
            break;
    }
    return decimals;
}

} // namespace pelorin
