#include "sensor/RestoreChoice.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/ParameterWords.h"
#include "sensor/SensorTypes.h"

#include <cmath>
#include <optional>
#include <string>
#include <string_view>

namespace pelorin {

namespace {

using Refusal = RestoreChoice::Refusal;
using Origin = RestoreChoice::Origin;

constexpr std::string_view kCalibration = "ULPZMJO";
constexpr std::string_view kOwnUsed = "DAUNL"; ///< what the output settings follow from

RestoreChoice refusing(Refusal refusal, const QByteArray& parameters = {})
{
    return {.refusal = refusal, .refused = parameters};
}

bool isSaved(char id, const SensorValues& values)
{
    return !textOf(values, id).isEmpty();
}

QByteArray withoutStream(const QByteArray& text)
{
    DataFormat format = DataFormat::decode(text);
    if (!isWellFormed('D', text) || !format.has(DataFormat::kStream))
        return text;
    format.flags = static_cast<quint8>(format.flags & ~DataFormat::kStream);
    return format.encode();
}

/// Has a value written if the sensor does not have it.
void add(RestoreChoice& choice, char id, const QByteArray& own, QByteArray wanted)
{
    if (isSameValue(id, own, wanted))
        return;
    if (id == 'D')
        wanted = withoutStream(wanted);
    if (isSameValue(id, own, wanted))
        return;
    choice.order += id;
    choice.values[id] = wanted;
}

/// What both must have for the output settings to follow from it.
std::optional<RestoreChoice> findMissing(const SensorType& type, const SensorValues& sensor,
                                         const SensorValues& saved)
{
    QByteArray notSaved;
    QByteArray noValue;
    const auto isUsed = [](char id) { return kOwnUsed.find(id) != kOwnUsed.npos; };
    for (const char id : std::string(type.outputWrite) + "LU") {
        if (id != 'U' && !isSaved(id, saved)) {
            notSaved += id;
        } else if (!isSaved(id, sensor) || (isUsed(id) && !isWellFormed(id, sensor.at(id))) ||
                   (id != 'U' && !isWellFormed(id, saved.at(id)))) {
            noValue += id;
        }
    }
    if (!notSaved.isEmpty())
        return refusing(Refusal::NotSaved, notSaved);
    if (!noValue.isEmpty())
        return refusing(Refusal::NoValue, noValue);
    return std::nullopt;
}

OutputSettings settingsOf(const SensorValues& values)
{
    OutputSettings settings;
    for (const char id : std::string_view("DAUNLK")) {
        if (const auto value = values.find(id); value != values.end())
            settings.decode(id, value->second);
    }
    return settings;
}

/// Output settings of another sensor as one with this calibration carries them out.
OutputSettings calibrated(OutputSettings settings, const OutputSettings& own)
{
    constexpr int kMask = DataFormat::kMultiplierMask;
    settings.format.flags =
        static_cast<quint8>((settings.format.flags & ~kMask) | (own.format.flags & kMask));
    settings.gradient = own.gradient;
    return settings;
}

/// The offset of a sensor in counts of another resolution.
std::optional<QByteArray> recounted(const QByteArray& offset, int micrometres, int newMicrometres)
{
    const double length = static_cast<double>(decodeOffsetCounts(offset)) * micrometres;
    return encodeOffsetCounts(std::llround(length / newMicrometres));
}

} // namespace

RestoreChoice chooseAll(int ssiType, const SensorValues& sensor, const SensorValues& saved,
                        bool withFactoryText)
{
    RestoreChoice choice;
    const std::string order =
        (withFactoryText ? "F" : "") + std::string(sensorType(ssiType).backup);
    for (const char id : order) {
        if (isSaved(id, saved) && isSaved(id, sensor))
            add(choice, id, sensor.at(id), saved.at(id));
    }
    return choice;
}

RestoreChoice chooseOutputSettings(int ssiType, const SensorValues& sensor,
                                   const SensorValues& saved)
{
    const SensorType& type = sensorType(ssiType);
    if (const auto missing = findMissing(type, sensor, saved))
        return *missing;
    const OutputSettings own = settingsOf(sensor);
    const OutputSettings others = settingsOf(saved);
    const OutputSettings wanted = calibrated(others, own);
    const bool sameMultiplier = own.format.multiplier() == others.format.multiplier();
    if (own.micrometres <= 0)
        return refusing(Refusal::NoResolution);
    if (const Refusal refusal = refusalOf(ssiType, wanted); refusal != Refusal::None)
        return refusing(refusal);
    if (const QByteArray unknown = notOffered(ssiType, wanted); !unknown.isEmpty())
        return refusing(Refusal::NotOffered, unknown);

    const bool savedOffset = sameMultiplier && isSameValue('L', sensor.at('L'), saved.at('L'));
    const bool turned =
        own.format.has(DataFormat::kReverse) != wanted.format.has(DataFormat::kReverse);
    if (turned && !savedOffset)
        return refusing(Refusal::OffsetUnknown);
    const bool sameResolution = own.micrometres == wanted.micrometres;
    const auto scale = sameResolution ? sensor.at('S') : wanted.composeWriteValue('S');
    const auto offset = savedOffset ? saved.at('N')
                        : sameResolution
                            ? sensor.at('N')
                            : recounted(sensor.at('N'), own.micrometres, wanted.micrometres);
    if (!scale || !offset)
        return refusing(Refusal::DoesNotFit);

    SensorValues values{
        {'D', wanted.format.encode()}, {'A', saved.at('A')}, {'S', *scale}, {'N', *offset}};
    if (type.has('K'))
        values['K'] = saved.at('K');
    RestoreChoice choice;
    for (const char id : type.backup) {
        if (values.find(id) != values.end())
            add(choice, id, sensor.at(id), values.at(id));
    }
    if (!sameMultiplier)
        choice.origins['D'] = Origin::OwnMultiplier;
    if (!sameResolution)
        choice.origins['S'] = Origin::OwnVelocity;
    if (!savedOffset)
        choice.origins['N'] = Origin::OwnLength;
    return choice;
}

QString refusalText(const RestoreChoice& choice)
{
    if (choice.refusal == Refusal::None)
        return {};
    const QString text = languageString(textNumberOf(choice.refusal));
    return choice.refused.isEmpty() ? text : text.arg(parametersInWords(choice.refused));
}

QByteArray unlikeSaved(int ssiType, const SensorValues& sensor, const SensorValues& saved)
{
    QByteArray unlike;
    const auto differs = [&](char id) {
        return isSaved(id, saved) &&
               (!isSaved(id, sensor) || !isSameValue(id, sensor.at(id), saved.at(id)));
    };
    if (differs('V'))
        unlike += 'V';
    for (const char id : kCalibration) {
        if (sensorType(ssiType).has(id) && differs(id))
            unlike += id;
    }
    return unlike;
}

bool asksForStream(const SensorValues& saved)
{
    return isSaved('D', saved) && isWellFormed('D', saved.at('D')) &&
           DataFormat::decode(saved.at('D')).has(DataFormat::kStream);
}

} // namespace pelorin
