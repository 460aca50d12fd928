#include "sensor/ParameterCodec.h"

#include "platform/core/DecimalText.h"
#include "platform/core/HexText.h"

#include <QRegularExpression>

#include <cmath>

namespace pelorin {

namespace {

QByteArray sixHexDigits(quint32 value)
{
    return QString::asprintf("%06X", value).toLatin1();
}

QByteArray threeBytes(qint32 first, qint32 second, qint32 third)
{
    const auto byte = [](qint32 value) { return static_cast<quint8>(value); };
    return sixHexDigits(quint32{byte(first)} << 16 | quint32{byte(second)} << 8 | byte(third));
}

int longStrokeCode(double strokeMm)
{
    return static_cast<int>(strokeMm * 1.497005988023952 + 208.0);
}

QString patternOf(char id)
{
    switch (id) {
    case 'A':
    case 'U':
        return QStringLiteral(" *[0-9]+");
    case 'L':
        return QStringLiteral(".. *[0-9]+");
    case 'N':
        return QStringLiteral("[0-9A-Fa-f]+");
    default:
        return QStringLiteral("[0-9A-Fa-f]{6}");
    }
}

} // namespace

bool isWellFormed(char id, const QByteArray& reply)
{
    const QRegularExpression form(QRegularExpression::anchoredPattern(patternOf(id)));
    return form.match(QString::fromLatin1(reply)).hasMatch();
}

QByteArray padValueText(const QByteArray& text, int width)
{
    return text.size() > width ? text.right(width) : text.rightJustified(width, '0');
}

DataFormat DataFormat::decode(const QByteArray& text)
{
    DataFormat format;
    format.flags = static_cast<quint8>(hexToLong(text.left(2)));
    format.errorSkipCount = static_cast<quint8>(hexToLong(text.mid(2, 2)));
    format.dataBits = static_cast<quint8>(hexToLong(text.right(2)));
    return format;
}

QByteArray DataFormat::encode() const
{
    return threeBytes(flags, errorSkipCount, dataBits);
}

int DataFormat::multiplier() const
{
    return 1 << ((flags & kMultiplierMask) >> 6);
}

Extension Extension::decode(const QByteArray& text)
{
    return {hexToLong(text.left(2)), hexToLong(text.mid(2, 2)), hexToLong(text.right(2))};
}

QByteArray Extension::encode() const
{
    return threeBytes(extension, mode, magnets);
}

double decodeResolutionMm(const QByteArray& text)
{
    return integerPrefix(text) * 0.001;
}

QByteArray encodeResolution(int micrometres)
{
    return QString::asprintf("%08d", micrometres).toLatin1();
}

double decodeStrokeMm(const QByteArray& text)
{
    return integerPrefix(text.mid(2));
}

QByteArray encodeStroke(const QByteArray& packageCode, const QByteArray& millimetres)
{
    return packageCode + millimetres.rightJustified(4, '0');
}

double decodeGradient(const QByteArray& text)
{
    return integerPrefix(text) * 0.01;
}

std::optional<QByteArray> encodeGradient(double gradient)
{
    constexpr double kLargest = 999'999'999;
    const double hundredths = std::round(gradient * 100.0);
    if (!(hundredths >= 0.0 && hundredths <= kLargest))
        return std::nullopt;
    return QString::asprintf("%06d", static_cast<qint32>(hundredths)).toLatin1();
}

std::optional<QByteArray> encodeScale(double gradient, double resolutionMm)
{
    constexpr double kLargest = 0xFFFFFF;
    const double scale = std::trunc(gradient / (resolutionMm * 1000) * 512);
    if (!(scale >= 0.0 && scale <= kLargest))
        return std::nullopt;
    return sixHexDigits(static_cast<quint32>(scale));
}

int cycleCode(double strokeMm)
{
    if (strokeMm >= 600)
        return longStrokeCode(strokeMm);
    if (strokeMm >= 300)
        return static_cast<int>(strokeMm * 2.994011976047904 + 170.0);
    return static_cast<int>(strokeMm * 5.988023952095808 + 528.0);
}

QByteArray encodeCycleCode(double strokeMm)
{
    return QString::asprintf("%04X32", static_cast<unsigned>(cycleCode(strokeMm))).toLatin1();
}

/// The code of long strokes is taken for all.
QByteArray encodeCycleCodeM(double strokeMm, quint8 suffix)
{
    return sixHexDigits(static_cast<quint32>(longStrokeCode(strokeMm)) << 8 | suffix);
}

QByteArray encodeFactoryValue(quint32 value)
{
    return sixHexDigits(value);
}

qint32 decodeOffsetCounts(const QByteArray& text)
{
    const QByteArray kNegative = QByteArrayLiteral("FF");
    const bool negative = text.left(2).toUpper() == kNegative;
    return hexToLong(negative ? kNegative + text : text);
}

std::optional<QByteArray> encodeOffsetCounts(qint64 counts)
{
    const QByteArray text = sixHexDigits(static_cast<quint32>(counts & 0xFFFFFF));
    if (decodeOffsetCounts(text) != counts)
        return std::nullopt;
    return text;
}

std::optional<QByteArray> encodeOffset(double offsetMm, double resolutionMm, int multiplier)
{
    constexpr double kFarBeyond = 1e9; // any text's counts, and still an integer
    const double counts = std::round(offsetMm / resolutionMm) * multiplier;
    if (!(std::abs(counts) < kFarBeyond))
        return std::nullopt;
    return encodeOffsetCounts(static_cast<qint64>(counts));
}

} // namespace pelorin
