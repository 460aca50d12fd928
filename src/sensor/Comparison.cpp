#include "sensor/Comparison.h"

#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/ParameterCodec.h"
#include "sensor/ParameterWords.h"
#include "sensor/SensorTypes.h"

#include <QStringList>

namespace pelorin {

namespace {

using State = ComparedParameter::State;

QString field(QString text)
{
    const bool plain = !text.contains(QLatin1Char(',')) && !text.contains(QLatin1Char('"')) &&
                       !text.contains(QLatin1Char('\n')) && text == text.trimmed();
    return plain ? text : u'"' + text.replace(QLatin1Char('"'), QLatin1String("\"\"")) + u'"';
}

QByteArray lineOf(const QStringList& texts)
{
    QStringList fields;
    for (const QString& text : texts)
        fields << field(text);
    return fields.join(QLatin1Char(',')).toUtf8() + "\r\n";
}

} // namespace

std::vector<ComparedParameter> compare(std::string_view ids, const SensorValues& sensor,
                                       const SensorValues& saved)
{
    std::vector<ComparedParameter> parameters;
    for (const char id : ids) {
        ComparedParameter parameter{
            .id = id, .sensor = textOf(sensor, id), .saved = textOf(saved, id)};
        parameter.sensorInWords = valueInWords(id, parameter.sensor, sensor);
        if (!parameter.saved.isEmpty()) {
            parameter.savedInWords = valueInWords(id, parameter.saved, saved);
            const bool same = isSameValue(id, parameter.sensor, parameter.saved);
            parameter.state = same ? State::Equal : State::Differs;
        }
        parameters.push_back(parameter);
    }
    return parameters;
}

QString stateText(ComparedParameter::State state)
{
    if (state == State::NotSaved)
        return {};
    return languageString(state == State::Equal ? strings::kValueEqual : strings::kValueDiffers);
}

QByteArray csvOf(const std::vector<ComparedParameter>& parameters)
{
    const QString sensor = languageString(strings::kSensor);
    const QString file = languageString(strings::kFileHeader);
    const QString inWords = languageString(strings::kInWords);
    QByteArray text = lineOf(
        {languageString(strings::kParameterHeader), languageString(strings::kNameHeader), sensor,
         file, inWords.arg(sensor), inWords.arg(file), languageString(strings::kComparison)});
    for (const ComparedParameter& parameter : parameters) {
        text +=
            lineOf({QString(QLatin1Char(parameter.id)), languageString(parameterName(parameter.id)),
                    QString::fromLatin1(parameter.sensor), QString::fromLatin1(parameter.saved),
                    parameter.sensorInWords, parameter.savedInWords, stateText(parameter.state)});
    }
    return text;
}

QByteArray csvOfSaved(const std::vector<ComparedParameter>& parameters)
{
    const QString file = languageString(strings::kFileHeader);
    QByteArray text =
        lineOf({languageString(strings::kParameterHeader), languageString(strings::kNameHeader),
                file, languageString(strings::kInWords).arg(file)});
    for (const ComparedParameter& parameter : parameters) {
        text +=
            lineOf({QString(QLatin1Char(parameter.id)), languageString(parameterName(parameter.id)),
                    QString::fromLatin1(parameter.saved), parameter.savedInWords});
    }
    return text;
}

} // namespace pelorin
