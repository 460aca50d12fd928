#include "sensor/FactoryParameters.h"

#include "platform/core/DecimalText.h"
#include "platform/core/HexText.h"
#include "platform/core/LanguageStrings.h"
#include "platform/core/Strings.h"
#include "sensor/ParameterCodec.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace pelorin {

namespace {

constexpr int kFactoryTextWidth = 8;
constexpr int kKindWidth = 2;
constexpr int kStrokeMaximumWidth = 7; ///< a frame carries 9 characters, the kind takes 2
constexpr double kGradientMaximum = 9999.99;
constexpr quint32 kSuffixMaximum = 0xFF;
constexpr quint32 kJMaximum = 2;
constexpr quint32 kOMaximum = 0xFFFFFF;
constexpr int kLowestOffset = -65536; ///< counts that are read back as they are written
constexpr int kHighestOffset = 16711679;

constexpr std::array<QLatin1String, 4> kMultipliers = {QLatin1String("0"), QLatin1String("2"),
                                                       QLatin1String("4"), QLatin1String("8")};

/// What is written follows from these replies in part; the others are seen and edited whole.
constexpr std::string_view kBaseOfWrites = "LUADNM";

bool isPrintableAscii(const QString& text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar character) {
        return character >= QLatin1Char(' ') && character <= QLatin1Char('~');
    });
}

bool isDigits(const QString& text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar character) {
        return character >= QLatin1Char('0') && character <= QLatin1Char('9');
    });
}

bool isHexUpTo(const QString& text, quint32 maximum)
{
    return isHex(text) && hexToInt(text) <= maximum;
}

QString hexFault(const QString& text, quint32 maximum)
{
    return isHexUpTo(text, maximum)
               ? QString()
               : languageString(strings::kHexRange).arg(QString::number(maximum, 16).toUpper());
}

QString numberText(double lowest, double highest, const char* format)
{
    return languageString(strings::kNumberRange)
        .arg(QString::asprintf(format, lowest), QString::asprintf(format, highest));
}

QString gradientFault(const QString& text, double resolutionMm)
{
    const double gradient = intlAtof(text);
    const bool fits = gradient >= 0 && gradient <= kGradientMaximum && // false for no number
                      encodeGradient(gradient) && encodeScale(gradient, resolutionMm);
    return fits ? QString() : numberText(0, kGradientMaximum, "%.2f");
}

QString lengthFault(const QString& text, int maximum)
{
    return text.size() > maximum ? languageString(strings::kTooLong).arg(maximum) : QString();
}

QString strokeFault(const QString& text)
{
    if (!isDigits(text))
        return languageString(strings::kDigitsOnly);
    if (text.size() > kStrokeMaximumWidth)
        return lengthFault(text, kStrokeMaximumWidth);
    return text.toInt() <= kLongestStroke ? QString() : numberText(0, kLongestStroke, "%.0f");
}

/// The multiplier bits of a row's text, in the first byte of 'D'; nothing if it has none.
std::optional<quint8> multiplierBits(const QString& text)
{
    const auto found = std::find(kMultipliers.begin(), kMultipliers.end(), text);
    if (found == kMultipliers.end())
        return std::nullopt;
    return static_cast<quint8>((found - kMultipliers.begin()) << 6);
}

/// The multiplier of a row's text; 1 if it has none.
int multiplierOf(const QString& text)
{
    return DataFormat{multiplierBits(text).value_or(0), 0, 0}.multiplier();
}

QString offsetFault(const QString& text, double resolutionMm, int multiplier)
{
    if (encodeOffset(intlAtof(text), resolutionMm, multiplier))
        return {};
    const int lowest = kLowestOffset / multiplier; // counts, rounded towards those that are taken
    const int highest = kHighestOffset / multiplier;
    return numberText(lowest * resolutionMm, highest * resolutionMm, "%.3f");
}

QString at(const FactoryParameters::Texts& entries, int row)
{
    return entries[static_cast<std::size_t>(row)];
}

} // namespace

char FactoryParameters::parameterOf(int row)
{
    return "FLLUDPNMJO"[row];
}

double FactoryParameters::resolutionMm() const
{
    return decodeResolutionMm(m_replies.value('A'));
}

QString FactoryParameters::text(int row) const
{
    const char id = parameterOf(row);
    if (!m_replies.contains(id))
        return {};
    const QByteArray reply = m_replies.value(id);
    switch (row) {
    case SensorKind:
        return QString::fromLatin1(reply.left(kKindWidth));
    case Stroke:
        return QString::asprintf("%01.0f", decodeStrokeMm(reply));
    case Gradient:
        return QString::asprintf("%04.02f", decodeGradient(reply));
    case Multiplier:
        return kMultipliers[(hexToInt(QLatin1String(reply.left(2))) >> 6) & 3U];
    case Offset:
        return QString::asprintf("%01.03f", decodeOffsetCounts(reply) * resolutionMm());
    case CycleSuffix:
        return QString::fromLatin1(reply.right(2));
    default:
        return QString::fromLatin1(reply);
    }
}

FactoryParameters::Fault FactoryParameters::findFault(const Texts& entries, int rowCount) const
{
    for (const char id : kBaseOfWrites) {
        const QByteArray reply = m_replies.value(id);
        if (m_replies.contains(id) && !isWellFormed(id, reply)) {
            return {languageString(strings::kMisread)
                        .arg(QString(QLatin1Char(id)), QString::fromLatin1(reply))};
        }
    }
    if (resolutionMm() <= 0)
        return {languageString(strings::kNoResolution)};
    for (int row = 0; row < rowCount; ++row) {
        if (at(entries, row).isEmpty())
            return {languageString(strings::kValueMissing), row};
    }
    for (int row = 0; row < rowCount; ++row) {
        if (const QString message = faultOf(row, entries); !message.isNull())
            return {message, row};
    }
    return {};
}

QString FactoryParameters::faultOf(int row, const Texts& entries) const
{
    const QString text = at(entries, row);
    if (!isPrintableAscii(text))
        return languageString(strings::kCharactersOnly);
    switch (row) {
    case FactoryText:
    case FactoryTextP:
        return lengthFault(text, kFactoryTextWidth);
    case SensorKind:
        return text.size() == kKindWidth ? QString()
                                         : languageString(strings::kExactLength).arg(kKindWidth);
    case Stroke:
        return strokeFault(text);
    case Gradient:
        return gradientFault(text, resolutionMm());
    case Multiplier:
        return multiplierBits(text) ? QString() : languageString(strings::kMultiplierValues);
    case Offset:
        // One that was only read need not be multiplied.
        return offsetFault(text, resolutionMm(),
                           text == this->text(Offset) ? 1 : multiplierOf(at(entries, Multiplier)));
    case CycleSuffix:
        return hexFault(text, kSuffixMaximum);
    case FactoryJ:
        return isHexUpTo(text, kJMaximum) ? QString() : languageString(strings::kZeroToTwo);
    default:
        return hexFault(text, kOMaximum);
    }
}

std::optional<OffsetChoice> FactoryParameters::offsetToChoose(const Texts& entries) const
{
    if (at(entries, Offset) != text(Offset))
        return std::nullopt;
    return offsetChoice(decodeOffsetCounts(m_replies.value('N')) * resolutionMm(), resolutionMm(),
                        resolutionMm(), multiplierOf(at(entries, Multiplier)));
}

QByteArray FactoryParameters::composeWriteValue(char id, const Texts& entries) const
{
    const QByteArray stroke = at(entries, Stroke).toLatin1();
    const double gradient = intlAtof(at(entries, Gradient));
    switch (id) {
    case 'F':
        return padValueText(at(entries, FactoryText).toLatin1(), kFactoryTextWidth);
    case 'L':
        return encodeStroke(at(entries, SensorKind).toLatin1(), stroke);
    case 'U':
        return *encodeGradient(gradient);
    case 'S':
        return *encodeScale(gradient, resolutionMm());
    case 'Z':
        return encodeCycleCode(stroke.toInt());
    case 'P':
        return padValueText(at(entries, FactoryTextP).toLatin1(), kFactoryTextWidth);
    case 'D':
        return composeFormat(at(entries, Multiplier));
    case 'N':
        return *encodeOffset(intlAtof(at(entries, Offset)), resolutionMm(),
                             multiplierOf(at(entries, Multiplier)));
    case 'M':
        return encodeCycleCodeM(stroke.toInt(),
                                static_cast<quint8>(hexToInt(at(entries, CycleSuffix))));
    case 'J':
        return encodeFactoryValue(hexToInt(at(entries, FactoryJ)));
    default:
        return encodeFactoryValue(hexToInt(at(entries, FactoryO)));
    }
}

/// Only the multiplier bits of the format are edited here; the rest goes back as it was read.
QByteArray FactoryParameters::composeFormat(const QString& multiplier) const
{
    const QByteArray reply = m_replies.value('D');
    const quint32 lowBits = hexToInt(QLatin1String(reply.left(2))) & 0x3F;
    const quint32 flags = lowBits | multiplierBits(multiplier).value_or(0);
    return QString::asprintf("%02X", flags).toLatin1() + reply.mid(2);
}

} // namespace pelorin
