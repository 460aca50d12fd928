#include "cli/NamedValues.h"

#include "link/SensorIdentification.h"
#include "sensor/OutputSettings.h"
#include "sensor/ParameterCodec.h"
#include "sensor/ParameterWords.h"
#include "sensor/SensorTypes.h"

#include <array>
#include <cmath>
#include <span>
#include <utility>
#include <vector>

namespace pelorin::cli {

namespace {

struct Part
{
    const char* name;
    QJsonValue value;
    const char* unit = nullptr;
};

constexpr std::array<std::pair<char, const char*>, 14> kNames = {{
    {'D', "data-format"},
    {'A', "resolution"},
    {'L', "stroke"},
    {'F', "factory-text"},
    {'V', "version"},
    {'U', "pulse-velocity"},
    {'S', "scale-factor"},
    {'P', "factory-text-p"},
    {'Z', "cycle-code-z"},
    {'N', "offset"},
    {'M', "cycle-code-m"},
    {'J', "factory-value-j"},
    {'K', "extended-output"},
    {'O', "factory-value-o"},
}};

const char* plainName(char id)
{
    for (const auto& [parameter, name] : kNames) {
        if (parameter == id)
            return name;
    }
    return "";
}

/// A number with so many decimals, so that it reads in JSON as it is meant.
double rounded(double number, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    return std::round(number * scale) / scale;
}

/// One of a few words; a number that has none stays one.
QJsonValue wordOf(qint32 value, std::span<const char* const> words)
{
    if (value < 0 || value >= static_cast<qint32>(words.size()))
        return value;
    return QLatin1String(words[static_cast<std::size_t>(value)]);
}

std::vector<Part> formatParts(const DataFormat& format)
{
    const int mode = format.has(DataFormat::kModeOne) ? 1 : format.has(DataFormat::kStream) ? 2 : 0;
    return {{"data-bits", format.dataBits},
            {"code", wordOf(format.has(DataFormat::kGray), kCodeWords)},
            {"direction", wordOf(format.has(DataFormat::kReverse), kDirectionWords)},
            {"mode", wordOf(mode, kModeWords)},
            {"multiplier", format.multiplier()},
            {"skip-count", format.errorSkipCount}};
}

std::vector<Part> extensionParts(const Extension& extension)
{
    return {{"output", wordOf(extension.mode, kOutputWords)},
            {"extension", wordOf(extension.extension, kExtensionWords)},
            {"magnets", extension.magnets}};
}

/// An offset is a length only by the resolution.
Part offsetPart(const QByteArray& text, const SensorValues& values)
{
    const QByteArray resolution = textOf(values, 'A');
    const int counts = decodeOffsetCounts(text);
    if (!isWellFormed('A', resolution))
        return {"offset", counts, "counts"};
    return {"offset", rounded(counts * decodeResolutionMm(resolution), 6), "mm"};
}

std::vector<Part> partsOf(char id, const QByteArray& text, const SensorValues& values)
{
    if (!isWellFormed(id, text))
        return {{plainName(id), QJsonValue::Undefined}};
    switch (id) {
    case 'D':
        return formatParts(DataFormat::decode(text));
    case 'K':
        return extensionParts(Extension::decode(text));
    case 'A':
        return {{"resolution", rounded(decodeResolutionMm(text), 6), "mm"}};
    case 'L':
        return {{"stroke", decodeStrokeMm(text), "mm"},
                {"sensor-type", QString::fromLatin1(text.left(2))}};
    case 'U':
        return {{"pulse-velocity", rounded(decodeGradient(text), 2), "m/s"}};
    case 'N':
        return {offsetPart(text, values)};
    default:
        return {{plainName(id), QString::fromLatin1(text)}};
    }
}

} // namespace

std::string_view allParameters()
{
    return sensorType(kSsiTypeUnknown).information;
}

QString nameOf(char id)
{
    return QLatin1String(plainName(id));
}

QJsonArray namedValues(const SensorValues& values)
{
    QJsonArray array;
    for (const char id : allParameters()) {
        const auto found = values.find(id);
        if (found == values.end())
            continue;
        for (const Part& part : partsOf(id, found->second, values)) {
            QJsonObject object{{QStringLiteral("id"), QString(QLatin1Char(id))},
                               {QStringLiteral("raw"), QString::fromLatin1(found->second)},
                               {QStringLiteral("name"), QLatin1String(part.name)}};
            if (!part.value.isUndefined())
                object.insert(QStringLiteral("value"), part.value);
            if (part.unit)
                object.insert(QStringLiteral("unit"), QLatin1String(part.unit));
            array.append(object);
        }
    }
    return array;
}

QJsonObject namedDifference(char id, const QByteArray& written, const QByteArray& found)
{
    QJsonObject object{{QStringLiteral("id"), QString(QLatin1Char(id))},
                       {QStringLiteral("name"), nameOf(id)}};
    if (!written.isEmpty())
        object.insert(QStringLiteral("written"), QString::fromLatin1(written));
    if (!found.isEmpty())
        object.insert(QStringLiteral("found"), QString::fromLatin1(found));
    return object;
}

QStringList valuesInWords(const SensorValues& values)
{
    QStringList lines;
    for (const char id : allParameters()) {
        const auto found = values.find(id);
        if (found != values.end()) {
            lines << parameterInWords(id) + QStringLiteral(": ") +
                         valueInWords(id, found->second, values);
        }
    }
    return lines;
}

} // namespace pelorin::cli
