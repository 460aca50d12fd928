#include "sensor/CompensationEntry.h"

#include "platform/core/DecimalText.h"

#include <cmath>

namespace pelorin {

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
    return {static_cast<qint16>(pointFromNumber(intlAtof(texts.point))),
            integerPrefix(texts.value)};
}

} // namespace pelorin
