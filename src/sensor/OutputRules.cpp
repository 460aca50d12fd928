#include "sensor/OutputRules.h"

#include "platform/core/Strings.h"
#include "sensor/SensorTypes.h"

#include <algorithm>

namespace pelorin {

namespace {

constexpr int kFinestOfType0 = 10; ///< micrometres
constexpr int kParity = 1;
constexpr int kDifferential = 1;
constexpr int kExtensionValues = 3; ///< of its kind, and of its mode

bool isExtensionValue(qint32 value)
{
    return value >= 0 && value < kExtensionValues;
}

} // namespace

OutputRefusal refusalOf(int ssiType, const OutputSettings& wanted)
{
    const bool modeOne = wanted.format.has(DataFormat::kModeOne);
    if (wanted.micrometres <= 0)
        return OutputRefusal::NoResolution;
    if (ssiType == 0 && wanted.micrometres < kFinestOfType0)
        return OutputRefusal::ResolutionTooFine;
    if (ssiType == 0 && modeOne)
        return OutputRefusal::ModeNotOffered;
    if (modeOne && wanted.format.has(DataFormat::kReverse))
        return OutputRefusal::ModeNotInReverse;
    return OutputRefusal::None;
}

QByteArray notOffered(int ssiType, const OutputSettings& settings)
{
    QByteArray parameters;
    if (std::ranges::count(kOfferedDataBits, settings.format.dataBits) == 0)
        parameters += 'D';
    if (std::ranges::count(kOfferedResolutions, settings.micrometres) == 0)
        parameters += 'A';
    if (sensorType(ssiType).has('K') && !(isExtensionValue(settings.extension.extension) &&
                                          isExtensionValue(settings.extension.mode)))
        parameters += 'K';
    return parameters;
}

int magnetsFor(int extensionMode)
{
    return extensionMode == kDifferential ? 2 : 1;
}

std::vector<int> questionsBefore(int ssiType, const OutputSettings& wanted,
                                 const OutputSettings& read)
{
    std::vector<int> questions;
    if (sensorType(ssiType).has('K') && wanted.extension.extension == kParity &&
        read.extension.extension != kParity)
        questions.push_back(strings::kAskForParity);
    if (wanted.format.has(DataFormat::kModeOne) && !read.format.has(DataFormat::kModeOne))
        questions.push_back(strings::kAskForMode);
    return questions;
}

std::optional<SensorValues> composeOutput(int ssiType, const OutputSettings& settings,
                                          const std::optional<QByteArray>& offset)
{
    SensorValues values;
    for (const char id : sensorType(ssiType).outputWrite) {
        const auto text = id == 'N' && offset ? offset : settings.composeWriteValue(id);
        if (!text)
            return std::nullopt;
        values[id] = *text;
    }
    return values;
}

bool isSkipCountPassword(const QString& password)
{
    return password.compare(QLatin1String("STEADYNOW"), Qt::CaseInsensitive) == 0;
}

} // namespace pelorin
