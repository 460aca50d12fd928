#pragma once

#include <QtGlobal>

#include <optional>
#include <span>
#include <vector>

namespace pelorin {

/// A position of a trace or a recording.
struct PositionPoint
{
    double seconds = 0.0; ///< since a moment that all points share
    double millimetres = 0.0;
    bool isFirst = false; ///< of a stream: before it none was waited for

    bool operator==(const PositionPoint&) const = default;
};

using PositionPoints = std::span<const PositionPoint>; ///< in the order of their time

/// Seconds without a position from which on there is no stream.
inline constexpr double kPositionSilence = 0.501;

/// What the positions of a stretch of time amount to. Nothing stands for what they do not tell.
struct PositionFigures
{
    qsizetype count = 0; ///< without any everything else is 0 or nothing
    double minimum = 0.0;
    double maximum = 0.0;
    double mean = 0.0;
    std::optional<double> deviation; ///< standard deviation of the sample: the noise at rest
    std::optional<double> velocity;  ///< mm/s, over the last half second
    std::optional<double> perSecond; ///< how many positions came in a second, silences left out
    double longestGap = 0.0;         ///< seconds without a position

    [[nodiscard]] double span() const { return maximum - minimum; }
};

/// Takes positions one after the other, and keeps none of them.
class PositionTally
{
public:
    void add(const PositionPoint& point);
    /// What they amount to so far, without the velocity.
    /// @param end until when positions were waited for
    [[nodiscard]] PositionFigures figures(double end) const;

private:
    PositionFigures m_figures;
    double m_squares = 0.0;  ///< of the distances from the mean
    double m_before = 0.0;   ///< seconds of the last one
    double m_streamed = 0.0; ///< seconds without the silences, and the intervals in them
    int m_intervals = 0;
};

/// @param end until when positions were waited for, or are shown
[[nodiscard]] PositionFigures positionFigures(PositionPoints points, double end);

/// The points from one moment to another, both included.
[[nodiscard]] PositionPoints pointsBetween(PositionPoints points, double from, double to);

/// The point whose time is nearest; nothing without points.
[[nodiscard]] std::optional<PositionPoint> pointNearest(PositionPoints points, double seconds);

/// What one pixel column of a trace shows: every peak, however many points fall into it.
struct PositionColumn
{
    int column = 0;
    PositionPoint first;
    PositionPoint last;
    double minimum = 0.0;
    double maximum = 0.0;
};

/// The columns that points fall into, from left to right.
/// @param points from within the time shown
/// @param from the time at the left edge
/// @param perColumn seconds, more than 0
[[nodiscard]] std::vector<PositionColumn> positionColumns(PositionPoints points, double from,
                                                          double perColumn);

/// How many decimals millimetres carry at a resolution, up to 4; 4 if it is not known (0).
[[nodiscard]] int positionDecimals(double mmPerCount);

} // namespace pelorin
