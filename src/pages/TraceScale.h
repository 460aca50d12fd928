#pragma once

#include <QRect>
#include <QString>

#include <vector>

namespace pelorin {

/// The positions, in mm, between the lower and the upper edge of a trace.
struct TraceRange
{
    double low = 0.0;
    double high = 0.0;

    bool operator==(const TraceRange&) const = default;
    /// As high as before or less, around a position that stays where it is.
    [[nodiscard]] TraceRange zoomed(double factor, double millimetres) const;
    /// @param share of the height; upwards if positive
    [[nodiscard]] TraceRange moved(double share) const;
    /// The range with some room around two positions; steady while they change little.
    [[nodiscard]] static TraceRange around(double minimum, double maximum);
};

/// How times and positions become places in the plot of a trace.
struct TraceScale
{
    QRect area;
    double from = 0.0; ///< seconds at the left edge
    double to = 0.0;   ///< at the right edge
    TraceRange range;

    [[nodiscard]] double secondsPerPixel() const;
    [[nodiscard]] double millimetresPerPixel() const;
    [[nodiscard]] int xOf(double seconds) const;
    /// Also for marks far outside of what is shown.
    [[nodiscard]] int yOf(double millimetres) const;
    /// Places outside count as those at the edge.
    [[nodiscard]] double secondsAt(double x) const;
    [[nodiscard]] double millimetresAt(double y) const;
};

/// The distance of lines with round numbers, at least the given one: 1, 2 or 5 times a power of
/// ten.
[[nodiscard]] double roundStep(double smallest);
/// The multiples of a step from one number to another.
[[nodiscard]] std::vector<double> multiples(double step, double from, double to);
/// How many decimals the numbers at such lines need.
[[nodiscard]] int decimalsOfStep(double step);

/// A number with so many decimals; what rounds to 0 has no sign.
[[nodiscard]] QString numberText(double value, int decimals);

} // namespace pelorin
