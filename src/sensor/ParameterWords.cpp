#include "sensor/ParameterWords.h"

#include "platform/core/HexText.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/ParameterCodec.h"
#include "sensor/SensorTypes.h"

#include <QStringList>

#include <array>

namespace pelorin {

namespace {

QString gradientText(const QByteArray& reply)
{
    const double gradient = decodeGradient(reply);
    QString text = QString::asprintf("%01.02f", gradient);
    if (gradient > 0)
        text += QString::asprintf(" (%01.05f)", 25400 / gradient);
    return text;
}

/// The text of a value 0, 1 or 2, or the one for any other.
QString choiceText(qint32 value, const std::array<int, 3>& texts, int otherText)
{
    const bool known = value >= 0 && value < static_cast<qint32>(texts.size());
    return languageString(known ? texts[static_cast<std::size_t>(value)] : otherText);
}

QString extensionText(const QByteArray& reply)
{
    const Extension extension = Extension::decode(reply);
    return QStringList{
        choiceText(extension.magnets,
                   {strings::kUnknownMagnets, strings::kOneMagnet, strings::kTwoMagnets},
                   strings::kUnknownMagnets),
        choiceText(extension.mode,
                   {strings::kNormalOutput, strings::kDifferentialPosition, strings::kVelocity},
                   strings::kUnknownOutput),
        choiceText(extension.extension,
                   {strings::kNoExtension, strings::kParity, strings::kTemperature},
                   strings::kUnknownExtension)}
        .join(QStringLiteral(", "));
}

QString withUnit(const QString& text, int unit)
{
    return text + QLatin1Char(' ') + languageString(unit);
}

QString offsetText(const QByteArray& text, const SensorValues& values)
{
    const double millimetres = decodeResolutionMm(textOf(values, 'A'));
    QString counts = languageString(strings::kCounts).arg(decodeOffsetCounts(text));
    if (millimetres <= 0)
        return counts;
    const QString length = QString::number(decodeOffsetCounts(text) * millimetres, 'f', 3);
    return counts + QStringLiteral(", ") + withUnit(length, strings::kMillimetres);
}

/// The strokes, in whole millimetres, that have a code: short and long ones may share it.
QString strokesOf(int code, int (*codeOf)(double))
{
    QStringList runs;
    for (int stroke = 0; stroke <= kLongestStroke; ++stroke) {
        if (codeOf(stroke) != code)
            continue;
        const int first = stroke;
        while (stroke < kLongestStroke && codeOf(stroke + 1) == code)
            ++stroke;
        const QString run = QString::number(first);
        runs << (stroke == first ? run : run + QStringLiteral("\u2013%1").arg(stroke));
    }
    if (runs.isEmpty())
        return languageString(strings::kCodeOfNoStroke);
    QString text = runs.takeFirst();
    for (const QString& run : runs)
        text = languageString(strings::kOneOrOther).arg(text, run);
    return languageString(strings::kCodeOfStroke).arg(text);
}

/// Whether it is what gradient and resolution give can be seen where they are known.
QString scaleText(const QByteArray& text, const SensorValues& values)
{
    QString meaning = languageString(strings::kScaleMeaning).arg(hexToLong(text));
    const auto resolution = values.find('A');
    const auto gradient = values.find('U');
    if (resolution == values.end() || gradient == values.end())
        return meaning;
    const double millimetres = decodeResolutionMm(resolution->second);
    const auto scale = encodeScale(decodeGradient(gradient->second), millimetres);
    if (millimetres <= 0 || !scale)
        return meaning;
    return meaning + QLatin1Char(' ') +
           languageString(strings::kScaleFollows).arg(QString::fromLatin1(*scale));
}

} // namespace

QString doubtsInWords(const QByteArray& ids, const SensorValues& values)
{
    QStringList lines;
    for (const char id : ids) {
        if (const QByteArray& text = values.at(id); !isWellFormed(id, text))
            lines << textInWords(id, text);
    }
    return lines.join(QLatin1Char('\n'));
}

QString formatText(const DataFormat& format)
{
    return languageString(format.has(DataFormat::kGray) ? strings::kBitsGray : strings::kBitsBinary)
        .arg(format.dataBits);
}

QString modeText(const DataFormat& format)
{
    const int direction = format.has(DataFormat::kReverse) ? strings::kReverse : strings::kForward;
    const int mode = format.has(DataFormat::kModeOne)  ? strings::kSynchronous
                     : format.has(DataFormat::kStream) ? strings::kPositionStream
                                                       : strings::kAsynchronous;
    return languageString(direction) + QStringLiteral(", ") + languageString(mode);
}

QString multiplierText(const DataFormat& format)
{
    constexpr std::array kTexts = {strings::kTimesOne, strings::kTimesTwo, strings::kTimesFour,
                                   strings::kTimesEight};
    return languageString(kTexts[(format.flags & DataFormat::kMultiplierMask) / std::size_t{0x40}]);
}

QString parameterText(char id, const QByteArray& reply)
{
    switch (id) {
    case 'A':
        return QString::asprintf("%01.03f", decodeResolutionMm(reply));
    case 'L':
        return QString::asprintf("%01.0f", decodeStrokeMm(reply));
    case 'F':
        return QString::fromLatin1(reply);
    case 'V':
        return QString::number(hexToLong(reply));
    case 'U':
        return gradientText(reply);
    case 'K':
        return extensionText(reply);
    case 'Z':
    case 'M':
        return QString::fromLatin1(reply.left(4).toUpper());
    default:
        return QString::fromLatin1(reply.toUpper());
    }
}

QString parameterInWords(char id)
{
    const QString letter(QLatin1Char{id});
    const int name = parameterName(id);
    return name == 0 ? letter : QStringLiteral("%1 (%2)").arg(languageString(name), letter);
}

QString textInWords(char id, const QByteArray& text)
{
    return QStringLiteral("%1: \"%2\"").arg(parameterInWords(id), QString::fromLatin1(text));
}

QString parametersInWords(const QByteArray& ids)
{
    QStringList names;
    for (const char id : ids)
        names << parameterInWords(id);
    return names.join(QStringLiteral(", "));
}

QString valueInWords(char id, const QByteArray& text, const SensorValues& values)
{
    if (!isWellFormed(id, text))
        return QStringLiteral("\"%1\"").arg(QString::fromLatin1(text));
    switch (id) {
    case 'D': {
        const DataFormat format = DataFormat::decode(text);
        const QString skip = QStringLiteral("%1 %2")
                                 .arg(languageString(strings::kErrorSkipCount))
                                 .arg(format.errorSkipCount);
        return QStringList{formatText(format), modeText(format), multiplierText(format), skip}.join(
            QStringLiteral(", "));
    }
    case 'A':
        return withUnit(parameterText(id, text), strings::kMillimetres);
    case 'L':
        return QString::fromLatin1(text.left(2)) + QStringLiteral(", ") +
               withUnit(parameterText(id, text), strings::kMillimetres);
    case 'U':
        return withUnit(parameterText(id, text), strings::kVelocityUnit);
    case 'N':
        return offsetText(text, values);
    case 'F':
    case 'P':
        return QString::fromLatin1(text);
    case 'K':
        return parameterText(id, text);
    default:
        return withUnit(QString::fromLatin1(text.toUpper()), strings::kHexadecimal);
    }
}

QString charactersOf(const QByteArray& bytes)
{
    QString text = QString::fromLatin1(bytes);
    for (QChar& character : text) {
        if (character < u' ' || character > u'~')
            character = u'\u00B7';
    }
    return text;
}

QString hexadecimalInWords(const QByteArray& digits)
{
    return languageString(strings::kIsHexadecimal)
        .arg(QString::fromLatin1(digits.toUpper()),
             QString::number(hexToInt(QLatin1String(digits))));
}

QString meaningInWords(char id, const QByteArray& text, const SensorValues& values)
{
    if (!isWellFormed(id, text) || !isHexDigits(text))
        return {};
    switch (id) {
    case 'V':
        return languageString(strings::kRevisionMeaning)
            .arg(QString::fromLatin1(text.toUpper()), QString::fromLatin1(text.left(2).toUpper()));
    case 'N':
        return offsetText(text, values);
    case 'S':
        return scaleText(text, values);
    case 'Z':
        return strokesOf(hexToLong(text.left(4)), cycleCode);
    case 'M':
        return strokesOf(hexToLong(text.left(4)), cycleCodeM);
    case 'P':
    case 'J':
    case 'O':
        return hexadecimalInWords(text);
    default:
        return {};
    }
}

QString valueExplained(char id, const QByteArray& text, const SensorValues& values)
{
    // An offset in words says it all.
    const QString meaning = id == 'N' ? QString() : meaningInWords(id, text, values);
    return meaning.isEmpty() ? valueInWords(id, text, values) : meaning;
}

} // namespace pelorin
