#include "sensor/CompensationEntry.h"

#include "platform/core/DecimalText.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pelorin {

namespace {

double numberOf(const QString& text)
{
    const double number = intlAtof(text);
    return std::isnan(number) ? 0.0 : number;
}

qint32 valueFromNumber(double number)
{
    constexpr double kLowest = std::numeric_limits<qint32>::min();
    constexpr double kHighest = std::numeric_limits<qint32>::max();
    return static_cast<qint32>(std::clamp(number, kLowest, kHighest));
}

} // namespace

qint32 pointFromNumber(double number)
{
    constexpr double kWrap = 4294967296.0; // 32 bits
    const double halfUnits = std::fmod(number * 2, kWrap);
    return std::isnan(halfUnits) ? 0 : static_cast<qint32>(static_cast<qint64>(halfUnits));
}

double pointToNumber(qint16 point)
{
    return point * 0.5;
}

EntryTexts textsOf(const CompensationEntry& entry)
{
    return {QString::number(pointToNumber(entry.point), 'f', 1), QString::number(entry.value)};
}

CompensationEntry entryOf(const EntryTexts& texts)
{
    return {static_cast<qint16>(pointFromNumber(numberOf(texts.point))),
            valueFromNumber(numberOf(texts.value))};
}

} // namespace pelorin
