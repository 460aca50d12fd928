#include "pages/TraceScale.h"

#include <algorithm>
#include <cmath>

namespace pelorin {

namespace {

constexpr double kSmallestMm = 0.1; ///< what is shown of itself, or the resolution would look rough
constexpr double kClosestMm = 1e-3; ///< what can be zoomed to
constexpr double kWidestMm = 1e6;
constexpr double kRounding = 1e-6; ///< of a step

} // namespace

TraceRange TraceRange::zoomed(double factor, double millimetres) const
{
    const double wanted = std::clamp((high - low) * factor, kClosestMm, kWidestMm);
    const double below = (millimetres - low) / (high - low) * wanted;
    return {millimetres - below, millimetres - below + wanted};
}

TraceRange TraceRange::moved(double share) const
{
    const double distance = share * (high - low);
    return {low + distance, high + distance};
}

TraceRange TraceRange::around(double minimum, double maximum)
{
    const double middle = (minimum + maximum) / 2;
    const double half = std::max(maximum - minimum, kSmallestMm) / 2;
    const double step = roundStep(half / 5);
    return {std::floor((middle - half) / step - 0.5) * step,
            std::ceil((middle + half) / step + 0.5) * step};
}

double TraceScale::secondsPerPixel() const
{
    return (to - from) / std::max(1, area.width() - 1);
}

double TraceScale::millimetresPerPixel() const
{
    return (range.high - range.low) / std::max(1, area.height() - 1);
}

int TraceScale::xOf(double seconds) const
{
    return area.left() + static_cast<int>(std::lround((seconds - from) / secondsPerPixel()));
}

int TraceScale::yOf(double millimetres) const
{
    const double share = (range.high - millimetres) / (range.high - range.low);
    return area.top() +
           static_cast<int>(std::lround(std::clamp(share, -9.0, 9.0) * (area.height() - 1)));
}

double TraceScale::secondsAt(double x) const
{
    return from + (std::clamp(x, double(area.left()), double(area.right())) - area.left()) *
                      secondsPerPixel();
}

double TraceScale::millimetresAt(double y) const
{
    return range.high - (std::clamp(y, double(area.top()), double(area.bottom())) - area.top()) *
                            millimetresPerPixel();
}

double roundStep(double smallest)
{
    const double power = std::pow(10.0, std::floor(std::log10(smallest)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= smallest)
            return factor * power;
    }
    return 10.0 * power;
}

std::vector<double> multiples(double step, double from, double to)
{
    const double first = std::ceil(from / step - kRounding);
    const double last = std::floor(to / step + kRounding);
    std::vector<double> numbers(static_cast<std::size_t>(std::max(last - first + 1, 0.0)));
    std::ranges::generate(numbers, [next = first, step]() mutable { return next++ * step; });
    return numbers;
}

int decimalsOfStep(double step)
{
    return std::max(0, -static_cast<int>(std::floor(std::log10(step) + 1e-9)));
}

QString numberText(double value, int decimals)
{
    const bool isZero = std::abs(value) < 0.5 * std::pow(10.0, -decimals);
    return QString::number(isZero ? 0.0 : value, 'f', decimals);
}

} // namespace pelorin
