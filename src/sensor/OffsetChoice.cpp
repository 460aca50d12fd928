#include "sensor/OffsetChoice.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/ParameterCodec.h"
#include "sensor/ParameterWords.h"

#include <QStringList>

#include <cmath>

namespace pelorin {

namespace {

/// In counts and millimetres.
QString inWords(const QByteArray& offset, double resolutionMm)
{
    constexpr double kMicrometres = 1000.0;
    const auto resolution =
        encodeResolution(static_cast<int>(std::lround(resolutionMm * kMicrometres)));
    return valueInWords('N', offset, {{'A', resolution}});
}

} // namespace

QString OffsetChoice::question() const
{
    QStringList lines{
        languageString(strings::kOffsetMultiplied).arg(multiplier),
        languageString(strings::kOffsetSoFar).arg(inWords(has, readResolutionMm)),
        languageString(strings::kOffsetKept).arg(inWords(kept, newResolutionMm)),
    };
    if (multiplied)
        lines << languageString(strings::kOffsetTimes).arg(inWords(*multiplied, newResolutionMm));
    return lines.join(QLatin1Char('\n'));
}

std::optional<OffsetChoice> offsetChoice(double offsetMm, double readResolutionMm,
                                         double newResolutionMm, int multiplier)
{
    if (multiplier == 1 || std::round(offsetMm / newResolutionMm) == 0.0)
        return std::nullopt;
    const auto has = encodeOffset(offsetMm, readResolutionMm, 1);
    const auto kept = encodeOffset(offsetMm, newResolutionMm, 1);
    if (!has || !kept) // then it cannot be multiplied either
        return std::nullopt;
    return OffsetChoice{*has,
                        *kept,
                        encodeOffset(offsetMm, newResolutionMm, multiplier),
                        readResolutionMm,
                        newResolutionMm,
                        multiplier};
}

} // namespace pelorin
